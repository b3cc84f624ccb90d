// Pile segment type data, and the table that lists the segments of each pile.
#include "model/sections/section_reader.hpp"

#include "model/sections/value_error.hpp"

namespace korvat {
namespace {

void store_segment_type(SectionReader& in, int N) {
    Store& cmn = in.cmn;
    cmn.ICRSEG(1, N) = in.integer(2);
    cmn.ICRSEG(2, N) = in.integer(3);
    cmn.SEGLEN(N) = in.VAR(4) * cmn.FACL;
    cmn.NELSEG(N) = in.integer(5);
}

Cause check_segment_type(SectionReader& in, int N) {
    const Store& cmn = in.cmn;
    ValueError error;
    for (int i = 1; i <= 2; ++i) {
        if (cmn.ICRSEG(i, N) < 1) error = {i, 1 + i};
        if (cmn.ICRSEG(i, N) > cmn.NUMCRS) error = {i + 2, 1 + i};
    }
    if (cmn.TOL > cmn.SEGLEN(N)) error = {5, 4};
    if (cmn.NELSEG(N) < 1) error = {6, 5};
    if (cmn.NELSEG(N) > limits::pile_elements) error = {7, 5};
    if (!error) return Cause::none;
    return in.reject(in.place(error.value), "(/,' **** SR/READPI : SEGMENT ERROR  NUM,IERR=',2i5)",
                     N, error.number);
}

// Lists the segments of one pile; a count of 0 or below lists none and makes a dummy pile.
Cause store_pile_segments(SectionReader& in, int NP) {
    Store& cmn = in.cmn;
    const int NSEG = in.integer(2);
    if (NSEG > limits::pile_segments) {
        return in.reject(in.place(2), "(/,' **** SR/READPI : PILE SEGMENT TABLE  NP,SEG,MAX=',3i5)",
                         NP, NSEG, cmn.MAXSPP);
    }
    cmn.NSEGP(NP) = NSEG;
    cmn.report.places.NSEGP(NP) = in.line_place();
    for (int i = 1; i <= NSEG; ++i) {
        const int segment = in.integer(2 + i);
        if (segment < 1 || segment > in.NUMSEG) {
            return in.reject(in.place(2 + i),
                             "(/,' **** SR/READPI : PILE SEGMENT TABLE  NP,I,SEG(I)=',3i5)", NP, i,
                             segment);
        }
        cmn.ISEGP(i, NP) = segment;
    }
    return Cause::none;
}

} // namespace

Cause read_segment_types(SectionReader& in) {
    in.LOC = deck::record(deck::RecordId::segment_type).location;
    if (const Cause fault = in.require_blank_line("PILE SEGMENT TYPE DATA")) return fault;
    if (const Cause fault = in.skip_headings(2)) return fault;
    for (int N = 1; N <= in.NUMSEG; ++N) {
        if (const Cause fault = in.read_record(deck::RecordId::segment_type, N)) return fault;
        if (in.integer(1) != N) {
            return in.reject(in.place(1), "(/,' **** SR/READPI : SEGMENT SEQUENCE ERROR',2i5)", N,
                             in.integer(1));
        }
        store_segment_type(in, N);
        if (const Cause fault = check_segment_type(in, N)) return fault;
    }
    return Cause::none;
}

Cause read_pile_segment_table(SectionReader& in) {
    const Store& cmn = in.cmn;
    in.LOC = deck::record(deck::RecordId::pile_segments).location;
    if (const Cause fault = in.skip_heading()) return fault;
    for (int NP = 1; NP <= cmn.NUMPIL; ++NP) {
        if (cmn.NGEN(NP) != 0) continue; // a generated pile has no record
        if (const Cause fault = in.read_record(deck::RecordId::pile_segments, NP)) return fault;
        if (in.integer(1) != NP) {
            return in.reject(
                in.place(1),
                "(/,' **** SR/READPI : PILE',i4.3,' EXPECTED IN SEGMENT ','TABLE , NOT',i4.3)", NP,
                in.integer(1));
        }
        if (const Cause fault = store_pile_segments(in, NP)) return fault;
    }
    return Cause::none;
}

} // namespace korvat

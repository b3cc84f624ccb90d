// Pile geometry section: head and tip points, generated and omitted piles.
#include "model/sections/section_reader.hpp"

#include "model/sections/value_error.hpp"

namespace korvat {
namespace {

struct PileRecord {
    int NP;
    int NGEN;
    int NSYM;
    double head[3]; // x, y, z, in internal units
    double tip[3];
};

PileRecord scaled_record(const SectionReader& in) {
    const double FACL = in.cmn.FACL;
    return {.NP = in.integer(1),
            .NGEN = in.integer(2),
            .NSYM = in.integer(3),
            .head = {in.VAR(4) * FACL, in.VAR(5) * FACL, in.VAR(6) * FACL},
            .tip = {in.VAR(7) * FACL, in.VAR(8) * FACL, in.VAR(9) * FACL}};
}

Cause check_pile(SectionReader& in, const PileRecord& pile, int previous, int k) {
    const Store& cmn = in.cmn;
    const int NP = pile.NP;
    if (k == 1 && NP != 1) {
        return in.reject(in.place(1),
                         "(/,' **** SR/READPI : FIRST PILE IN GEOMET TABLE NOT NO. 1')");
    }
    if (NP <= previous) {
        return in.reject(in.place(1), "(/,' **** SR/READPI : PILE GEOMETRY SEQUENCE ERROR',2i5)",
                         NP, previous);
    }
    if (pile.tip[2] - pile.head[2] < -cmn.TOL) { // of a generated pile too
        return in.reject(
            in.place(9),
            "(/,' **** SR/READPI : Pile tip is located above pile head',/,' Co-ordinate system to be used has +Z pointing downwards',/,' Pile,z-head,ztip=',i5,2f10.3)",
            NP, pile.head[2], pile.tip[2]);
    }
    const bool is_source_bad = pile.NGEN < 0 || pile.NGEN >= NP;
    const bool is_number_bad = NP > cmn.NUMPIL;
    if (is_number_bad || is_source_bad || pile.NSYM < 0 || pile.NSYM > 2) {
        const int value_at_fault = is_number_bad ? 1 : is_source_bad ? 2 : 3;
        return in.reject(in.place(value_at_fault), "(/,' **** SR/READPI : PILE,NGEN,NSYM=',3i5)",
                         NP, pile.NGEN, pile.NSYM);
    }
    return Cause::none;
}

void store_pile(Store& cmn, const PileRecord& pile) {
    cmn.NGEN(pile.NP) = pile.NGEN;
    cmn.NSYM(pile.NP) = pile.NSYM;
    for (int i = 1; i <= 3; ++i) {
        cmn.XHEAD(i, pile.NP) = pile.head[i - 1];
        cmn.XTIP(i, pile.NP) = pile.tip[i - 1];
    }
}

// Piles are omitted between two given piles only.
Cause check_omitted(SectionReader& in, int previous, int NP) {
    const Store& cmn = in.cmn;
    ValueError error;
    if (cmn.NGEN(previous) != 0) error = {1, 0}; // of the pile before, which stands on another line
    if (cmn.NSYM(previous) != 0) error = {2, 0};
    if (cmn.NGEN(NP) != 0) error = {3, 2};
    if (cmn.NSYM(NP) != 0) error = {4, 3};
    if (!error) return Cause::none;
    return in.reject(in.place(error.value),
                     "(/,' **** SR/READPI : OMITTED PILES  NGEN/NSYM NOT ZERO',3i5)", previous, NP,
                     error.number);
}

// A plain linear division, unlike that of the cross sections.
void generate_omitted(Store& cmn, int previous, int NP) {
    const int parts = NP - previous;
    const auto generate = [&](Table2<double, 3, limits::piles>& P, int i) {
        const double step = (P(i, NP) - P(i, previous)) / parts;
        for (int p = previous + 1; p < NP; ++p) {
            P(i, p) = P(i, p - 1) + step;
        }
    };
    for (int i = 1; i <= 3; ++i) {
        generate(cmn.XHEAD, i);
        generate(cmn.XTIP, i);
    }
    for (int p = previous + 1; p < NP; ++p) {
        cmn.NGEN(p) = 0;
        cmn.NSYM(p) = 0;
    }
}

} // namespace

Cause read_pile_geometry(SectionReader& in) {
    Store& cmn = in.cmn;
    in.LOC = deck::record(deck::RecordId::pile_geometry).location;
    if (const Cause fault = in.require_blank_line("PILE GEOMETRY SECTION")) return fault;
    if (const Cause fault = in.skip_headings(2)) return fault;
    int previous = 0;
    for (int k = 1; previous < cmn.NUMPIL; ++k) {
        if (const Cause fault = in.read_record(deck::RecordId::pile_geometry, k)) return fault;
        const PileRecord pile = scaled_record(in);
        if (const Cause fault = check_pile(in, pile, previous, k)) return fault;
        store_pile(cmn, pile);
        if (pile.NP > previous + 1) {
            if (const Cause fault = check_omitted(in, previous, pile.NP)) return fault;
            generate_omitted(cmn, previous, pile.NP);
        }
        previous = pile.NP;
    }
    return Cause::none;
}

} // namespace korvat

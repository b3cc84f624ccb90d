// Cross-section type data: of revision 4 here, with the generation of skipped numbers; else rev5inp's.
#include "model/sections/rev5inp.hpp"
#include "model/sections/section_reader.hpp"
#include "model/sections/tube_record.hpp"

namespace korvat {
namespace {

TubeRecord given_record(const SectionReader& in) {
    return {.MATCRS = in.integer(2),
            .DIAM = in.VAR(3),
            .WALL = in.VAR(4),
            .STFAX = in.VAR(5),
            .STFBN = in.VAR(6),
            .STFSH = in.VAR(7),
            .STFTO = in.VAR(8),
            .UWFLD = in.VAR(9)};
}

Cause check_sequence(SectionReader& in, int N, int previous, int k) {
    if (N <= previous) {
        return in.reject(in.place(1), "(/,' **** SR/READPI : CROSS SECTION SEQUENCE ERROR',3i5)", N,
                         previous);
    }
    if (k == 1 && N != 1) {
        return in.reject(in.place(1), "(/,' **** SR/READPI : FIRST CROSS SECTION MUST BE 1')");
    }
    return Cause::none;
}

Cause check_values(SectionReader& in, int N, const TubeRecord& tube) {
    const Store& cmn = in.cmn;
    ValueError error = size_error(tube, cmn, 3);
    if (N > cmn.NUMCRS) error = {4, 1};
    if (tube.MATCRS < 1) error = {5, 2};
    if (tube.MATCRS > cmn.NUMMAT) error = {6, 2};
    if (!error) return Cause::none;
    return in.reject(in.place(error.value),
                     "(/,' **** SR/READPI : CROSS SECTION ERROR  NUM,IERR=',2i5)", N, error.number);
}

// The skipped sections sit at the middles of as many equal parts, not at the interior points of a
// linear division; this is intended.
void generate_skipped(Store& cmn, int previous, int N) {
    const int skipped = N - previous - 1;
    for (int j = 1; j <= skipped; ++j) {
        const int section = previous + j;
        const auto generate = [&](Table1<double, limits::cross_sections>& P) {
            P(section) = P(previous) + (P(N) - P(previous)) / skipped * (j - 0.5);
        };
        cmn.MATCRS(section) = cmn.MATCRS(previous);
        generate(cmn.DIAM);
        generate(cmn.WALL);
        generate(cmn.STFAX);
        generate(cmn.STFBN);
        generate(cmn.STFSH);
        generate(cmn.STFTO);
        generate(cmn.UWFLD);
    }
}

Cause read_sections_of_revision_4(SectionReader& in) {
    Store& cmn = in.cmn;
    in.LOC = deck::record(deck::RecordId::cross_section).location;
    if (const Cause fault = in.require_blank_line("CROSS SECTION TYPE DATA")) return fault;
    if (const Cause fault = in.skip_headings(2)) return fault;
    int previous = 0;
    for (int k = 1; previous < cmn.NUMCRS; ++k) {
        if (const Cause fault = in.read_record(deck::RecordId::cross_section, k)) return fault;
        const int N = in.integer(1);
        const TubeRecord tube = scaled(given_record(in), cmn);
        if (const Cause fault = check_sequence(in, N, previous, k)) return fault;
        if (const Cause fault = check_values(in, N, tube)) return fault;
        store_tube(cmn, N, tube);
        generate_skipped(cmn, previous, N);
        previous = N;
    }
    return Cause::none;
}

} // namespace

Cause read_cross_sections(SectionReader& in) {
    Store& cmn = in.cmn;
    if (cmn.IREV > 5) {
        report_error(cmn, cmn.NF6, {}, "(/,' **** SR/READPI : Program revision number > 5')");
        in.terminate();
    }
    return cmn.IREV == 5 ? rev5inp(cmn) : read_sections_of_revision_4(in);
}

} // namespace korvat

// Cross-section type data of revision 4, with the generation of skipped numbers.
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

int check_sequence(SectionReader& in, int N, int previous, int k) {
    if (N <= previous) {
        return in.reject(in.place(1), "(/,' **** SR/READPI : CROSS SECTION SEQUENCE ERROR',3i5)", N,
                         previous);
    }
    if (k == 1 && N != 1) {
        return in.reject(in.place(1), "(/,' **** SR/READPI : FIRST CROSS SECTION MUST BE 1')");
    }
    return no_fault;
}

int check_values(SectionReader& in, int N, const TubeRecord& tube) {
    const Store& cmn = in.cmn;
    int error = size_error(tube, cmn);
    if (N > cmn.NUMCRS) error = 4;
    if (tube.MATCRS < 1) error = 5;
    if (tube.MATCRS > cmn.NUMMAT) error = 6;
    if (error == 0) return no_fault;
    constexpr int value_at_fault[] = {3, 4, 4, 1, 2, 2}; // of error numbers 1..6
    return in.reject(in.place(value_at_fault[error - 1]),
                     "(/,' **** SR/READPI : CROSS SECTION ERROR  NUM,IERR=',2i5)", N, error);
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

} // namespace

int read_cross_sections(SectionReader& in) {
    Store& cmn = in.cmn;
    in.LOC = deck::record(deck::RecordId::cross_section).location;
    if (const int fault = in.require_blank_line("CROSS SECTION TYPE DATA")) return fault;
    if (const int fault = in.skip_headings(2)) return fault;
    int previous = 0;
    for (int k = 1; previous < cmn.NUMCRS; ++k) {
        if (const int fault = in.read_record(deck::RecordId::cross_section, k)) return fault;
        const int N = in.integer(1);
        const TubeRecord tube = scaled(given_record(in), cmn);
        if (const int fault = check_sequence(in, N, previous, k)) return fault;
        if (const int fault = check_values(in, N, tube)) return fault;
        store_tube(cmn, N, tube);
        generate_skipped(cmn, previous, N);
        previous = N;
    }
    return no_fault;
}

} // namespace korvat

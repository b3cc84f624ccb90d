// Cross-section type data of revision 4, with the generation of skipped numbers.
#include "model/section_reader.hpp"

namespace korvat {
namespace {

// One record, scaled to internal units.
struct CrossSection {
    int N;
    int MATCRS;
    double DIAM, WALL, STFAX, STFBN, STFSH, STFTO, UWFLD;
};

CrossSection scaled_record(const SectionReader& in) {
    const double FACF = in.cmn.FACF;
    const double FACL = in.cmn.FACL;
    return {.N = in.integer(1),
            .MATCRS = in.integer(2),
            .DIAM = in.VAR(3) * FACL,
            .WALL = in.VAR(4) * FACL,
            .STFAX = in.VAR(5) * FACF,
            .STFBN = in.VAR(6) * (FACF * FACL * FACL),
            .STFSH = in.VAR(7) * FACF,
            .STFTO = in.VAR(8) * (FACF * FACL * FACL),
            .UWFLD = in.VAR(9) * (in.stress / FACL)};
}

int check_sequence(SectionReader& in, int N, int previous, int k) {
    if (N <= previous) {
        return in.reject("(/,' **** SR/READPI : CROSS SECTION SEQUENCE ERROR',3i5)", N, previous);
    }
    if (k == 1 && N != 1) {
        return in.reject("(/,' **** SR/READPI : FIRST CROSS SECTION MUST BE 1')");
    }
    return no_fault;
}

int check_values(SectionReader& in, const CrossSection& section) {
    const Store& cmn = in.cmn;
    int error = 0;
    if (cmn.TOL > section.DIAM) error = 1;
    if (cmn.TOL > section.WALL) error = 2;
    if (section.WALL > section.DIAM * 0.5 + cmn.TOL) error = 3;
    if (section.N > cmn.NUMCRS) error = 4;
    if (section.MATCRS < 1) error = 5;
    if (section.MATCRS > cmn.NUMMAT) error = 6;
    if (error == 0) return no_fault;
    return in.reject("(/,' **** SR/READPI : CROSS SECTION ERROR  NUM,IERR=',2i5)", section.N,
                     error);
}

void store_section(Store& cmn, const CrossSection& section) {
    const int N = section.N;
    cmn.MATCRS(N) = section.MATCRS;
    cmn.DIAM(N) = section.DIAM;
    cmn.WALL(N) = section.WALL;
    cmn.STFAX(N) = section.STFAX;
    cmn.STFBN(N) = section.STFBN;
    cmn.STFSH(N) = section.STFSH;
    cmn.STFTO(N) = section.STFTO;
    cmn.UWFLD(N) = section.UWFLD;
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
        const CrossSection section = scaled_record(in);
        if (const int fault = check_sequence(in, section.N, previous, k)) return fault;
        if (const int fault = check_values(in, section)) return fault;
        store_section(cmn, section);
        generate_skipped(cmn, previous, section.N);
        previous = section.N;
    }
    return no_fault;
}

} // namespace korvat

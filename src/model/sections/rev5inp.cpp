// Reads the cross-section section of a revision-5 input.
#include "model/sections/rev5inp.hpp"

#include "model/sections/rev5_reader.hpp"

namespace korvat {
namespace {

struct SectionLine : Rev5Tube {
    int number = 0;
    int type = 0;
    int code = 0; // non-linear code
};

int read_section_line(Rev5Reader& in, int N, SectionLine& line) {
    in.LOC = deck::location_of(deck::record(deck::RecordId::cross_section_5), N);
    if (const int fault = in.read_tube(line, line.number, line.type, line.code)) return fault;
    if (line.number != N) {
        return in.reject(in.place(1),
                         "(/,' **** SR/REV5INP : Cross section = ',i2,'  Expected',' value = ',i2)",
                         line.number, N);
    }
    line.tube = scaled(line.tube, in.cmn);
    return no_fault;
}

bool is_composite(const SectionLine& line) {
    return line.type >= 2;
}

// Error number of a section line, 0 when it is accepted; a later number replaces an earlier one.
int section_error(const Store& cmn, int N, const SectionLine& line) {
    const TubeRecord& tube = line.tube;
    int error = 0;
    if (!is_composite(line)) {
        error = size_error(tube, cmn);
        if (N > cmn.NUMCRS) error = 4;
        if (tube.MATCRS < 1) error = 5;
        if (tube.MATCRS > cmn.NUMMAT) error = 6;
        if (line.type < 1) error = 7;
    }
    if (line.code > limits::curve_points) error = 8;
    if (is_composite(line)) {
        const double sum = tube.DIAM + tube.WALL + tube.STFAX + tube.STFBN + tube.STFSH +
                           tube.STFTO + tube.UWFLD + tube.MATCRS;
        if (sum > cmn.TOL) error = 9;
    }
    return error;
}

// The second line of the message.
int reject_section(Rev5Reader& in, int error, int N, const SectionLine& line) {
    switch (error) {
    case 1:
        return in.add_to_message("(' Diameter =',f8.4)", line.tube.DIAM);
    case 2:
        return in.add_to_message("(' Wall =',f8.4)", line.tube.WALL);
    case 3:
        return in.add_to_message("(' Diameter,wall =',2f8.4)", line.tube.DIAM, line.tube.WALL);
    case 4:
        return in.add_to_message("(' N,NUMCRS=',2i5)", N, in.cmn.NUMCRS);
    case 5:
    case 6:
        return in.add_to_message("(' Material no. =',i5)", line.tube.MATCRS);
    case 7:
        return in.add_to_message("(' Cross section type error',i5)", line.type);
    case 8:
        return in.add_to_message("(' Non-linear code error',i5)", line.code);
    default:
        return in.add_to_message("(' Non-zero value given at composite crs sctn first line')");
    }
}

// The value that an error number is about; the first line of a composite is at fault as a whole.
DeckPlace place_of_error(const Rev5Reader& in, int error) {
    constexpr int composite_values = 9;
    constexpr int value_at_fault[] = {5, 6, 6, 1, 4, 4, 2, 3}; // of error numbers 1..8
    if (error == composite_values) return {.line = in.place(1).line};
    return in.place(value_at_fault[error - 1]);
}

int check_section(Rev5Reader& in, int N, const SectionLine& line) {
    const int error = section_error(in.cmn, N, line);
    if (error == 0) return no_fault;
    report_error(
        in.cmn, in.cmn.NF6, place_of_error(in, error),
        "(/,' **** SR/REV5INP : Cross section data input control',/,' Crs. no, IERR=',2i4)", N,
        error);
    return reject_section(in, error, N, line);
}

void store_section(const Rev5Reader& in, int N, const SectionLine& line) {
    Store& cmn = in.cmn;
    store_rev5_tube(cmn, N, line);
    cmn.ITYCRS(N) = line.type;
    cmn.NLCRS(N) = line.code;
    cmn.report.places.NLCRS(N) = in.place(3);
}

int read_heading_lines(Rev5Reader& in) {
    in.LOC = deck::record(deck::RecordId::cross_section_5).location;
    fortran::Text<80> line;
    if (const int fault = in.fetch(line)) return fault;
    if (!line.is_blank()) {
        return in.reject(
            in.line_place(),
            "(/,' **** SR/REV5INP : Missing blank line in front of',' cross section data section')");
    }
    for (int i = 0; i < 3; ++i) {
        if (const int fault = in.fetch(line)) return fault;
    }
    return no_fault;
}

int read_section(Rev5Reader& in) {
    if (const int fault = read_heading_lines(in)) return fault;
    if (const int fault = read_cross_section_lines(in)) return fault;
    return read_curve_points(in);
}

} // namespace

int read_cross_section_lines(Rev5Reader& in) {
    Store& cmn = in.cmn;
    int slot = cmn.NUMCRS; // the last one taken; sub-sections follow the cross sections
    for (int N = 1; N <= cmn.NUMCRS; ++N) {
        SectionLine line;
        if (const int fault = read_section_line(in, N, line)) return fault;
        if (const int fault = check_section(in, N, line)) return fault;
        store_section(in, N, line);
        if (!is_composite(line)) continue;
        if (const int fault = read_sub_sections(in, N, line.type, in.place(2), slot)) return fault;
    }
    return no_fault;
}

void rev5inp(Store& cmn) {
    Rev5Reader in(cmn);
    cmn.IERR = read_section(in);
}

} // namespace korvat

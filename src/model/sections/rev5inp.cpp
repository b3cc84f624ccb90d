#include "model/sections/rev5inp.hpp"

#include "model/sections/rev5_reader.hpp"

namespace korvat {
namespace {

struct SectionLine : Rev5Tube {
    int number = 0;
    int type = 0;
    int code = 0; // non-linear code
};

Cause read_section_line(Rev5Reader& in, int N, SectionLine& line) {
    in.begin_record(deck::RecordId::cross_section_5, N);
    if (const Cause fault = in.read_tube(line, line.number, line.type, line.code)) return fault;
    if (line.number != N) {
        return in.reject(in.place(1),
                         "(/,' **** SR/REV5INP : Cross section = ',i2,'  Expected',' value = ',i2)",
                         line.number, N);
    }
    line.tube = scaled(line.tube, in.cmn);
    return Cause::none;
}

bool is_composite(const SectionLine& line) {
    return line.type >= 2;
}

// A later error replaces an earlier one. The first line of a composite is at fault as a whole.
ValueError section_error(const Store& cmn, int N, const SectionLine& line) {
    const TubeRecord& tube = line.tube;
    ValueError error;
    if (!is_composite(line)) {
        error = size_error(tube, cmn, 5);
        if (N > cmn.NUMCRS) error = {4, 1};
        if (tube.MATCRS < 1) error = {5, 4};
        if (tube.MATCRS > cmn.NUMMAT) error = {6, 4};
        if (line.type < 1) error = {7, 2};
    }
    if (line.code > limits::curve_points) error = {8, 3};
    if (is_composite(line)) {
        const double sum = tube.DIAM + tube.WALL + tube.STFAX + tube.STFBN + tube.STFSH +
                           tube.STFTO + tube.UWFLD + tube.MATCRS;
        if (sum > cmn.TOL) error = {9, 0};
    }
    return error;
}

// Adds what was given to the message of an error number.
void add_given(ErrorMessage& message, int error, int N, const SectionLine& line, const Store& cmn) {
    switch (error) {
    case 1:
        return message.add("(' Diameter =',f8.4)", line.tube.DIAM);
    case 2:
        return message.add("(' Wall =',f8.4)", line.tube.WALL);
    case 3:
        return message.add("(' Diameter,wall =',2f8.4)", line.tube.DIAM, line.tube.WALL);
    case 4:
        return message.add("(' N,NUMCRS=',2i5)", N, cmn.NUMCRS);
    case 5:
    case 6:
        return message.add("(' Material no. =',i5)", line.tube.MATCRS);
    case 7:
        return message.add("(' Cross section type error',i5)", line.type);
    case 8:
        return message.add("(' Non-linear code error',i5)", line.code);
    default:
        return message.add("(' Non-zero value given at composite crs sctn first line')");
    }
}

Cause check_section(Rev5Reader& in, int N, const SectionLine& line) {
    const ValueError error = section_error(in.cmn, N, line);
    if (!error) return Cause::none;
    ErrorMessage message(
        in.cmn, in.cmn.NF6, in.place(error.value),
        "(/,' **** SR/REV5INP : Cross section data input control',/,' Crs. no, IERR=',2i4)", N,
        error.number);
    add_given(message, error.number, N, line, in.cmn);
    return Cause::bad_value;
}

void store_section(const Rev5Reader& in, int N, const SectionLine& line) {
    Store& cmn = in.cmn;
    store_rev5_tube(cmn, N, line);
    cmn.ITYCRS(N) = line.type;
    cmn.NLCRS(N) = line.code;
    cmn.report.places.NLCRS(N) = in.place(3);
}

Cause read_heading_lines(Rev5Reader& in) {
    in.LOC = deck::record(deck::RecordId::cross_section_5).location;
    fortran::Text<80> line;
    if (const Cause fault = in.fetch(line)) return fault;
    if (!line.is_blank()) {
        return in.reject(
            in.line_place(),
            "(/,' **** SR/REV5INP : Missing blank line in front of',' cross section data section')");
    }
    for (int i = 0; i < 3; ++i) {
        if (const Cause fault = in.fetch(line)) return fault;
    }
    return Cause::none;
}

Cause read_section(Rev5Reader& in) {
    if (const Cause fault = read_heading_lines(in)) return fault;
    if (const Cause fault = read_cross_section_lines(in)) return fault;
    return read_curve_points(in);
}

} // namespace

Cause read_cross_section_lines(Rev5Reader& in) {
    Store& cmn = in.cmn;
    int slot = cmn.NUMCRS; // the last one taken; sub-sections follow the cross sections
    for (int N = 1; N <= cmn.NUMCRS; ++N) {
        SectionLine line;
        if (const Cause fault = read_section_line(in, N, line)) return fault;
        if (const Cause fault = check_section(in, N, line)) return fault;
        store_section(in, N, line);
        if (!is_composite(line)) continue;
        if (const Cause fault = read_sub_sections(in, N, line.type, in.place(2), slot))
            return fault;
    }
    return Cause::none;
}

Cause rev5inp(Store& cmn) {
    Rev5Reader in(cmn);
    const Cause fault = read_section(in);
    cmn.IERR = fault.code();
    return fault;
}

} // namespace korvat

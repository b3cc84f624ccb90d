// Sub-sections of a composite cross section: nested tubes, outermost first.
#include "model/sections/rev5_reader.hpp"

#include "fortran/stop.hpp"

#include <cmath>

namespace korvat {
namespace {

struct SubSectionLine : Rev5Tube {
    int number = 0; // of the cross section
    int sequence = 0;
    int type = 0;
    int code = 0; // non-linear code
};

Cause read_line(Rev5Reader& in, int N, int j, SubSectionLine& line) {
    in.begin_record(deck::RecordId::sub_section, N * 1000 + j);
    return in.read_tube(line, line.number, line.sequence, line.type, line.code);
}

Cause check_numbers(Rev5Reader& in, int N, int j, const SubSectionLine& line) {
    if (line.number != N) {
        return in.reject(
            in.place(1),
            "(/,' **** SR/REV5INP : Composite cross section numbers',/,' Crs no. = ',i2,'  Expected value = ',i2)",
            line.number, N);
    }
    if (line.sequence != j) {
        return in.reject(
            in.place(2),
            "(/,' **** SR/REV5INP : Composite cross section sequence',/,' Crs no. = ',i2,' Sub-sctn = ',i2,'  Expected value = ',i2)",
            N, line.sequence, j);
    }
    if (line.type != 1) {
        return in.reject(
            in.place(3),
            "(/,' **** SR/REV5INP : Composite cross section input',/,' Crs no. = ',i2,' Sub-sctn = ',i2,' Crs type is not 1 :',i4)",
            N, j, line.type);
    }
    if (line.code != 0) {
        return in.reject(
            in.place(4),
            "(/,' **** SR/REV5INP : Composite cross section input',/,' Crs no. = ',i2,' Sub-sctn = ',i2,' Non-linear is not zero:',i4)",
            N, j, line.code);
    }
    return Cause::none;
}

// A later error replaces an earlier one.
ValueError value_error(const Store& cmn, const SubSectionLine& line) {
    ValueError error = size_error(line.tube, cmn, 6);
    if (error) error.number += 20;
    if (line.tube.MATCRS < 1) error = {24, 5};
    if (line.tube.MATCRS > cmn.NUMMAT) error = {25, 5};
    if (line.ECC > cmn.TOL) error = {26, 13}; // a negative eccentricity is accepted
    return error;
}

// Adds what was given to the message of an error number.
void add_given(ErrorMessage& message, int error, const SubSectionLine& line) {
    const TubeRecord& tube = line.tube;
    switch (error) {
    case 21:
        return message.add("(' Diameter =',f8.4)", tube.DIAM);
    case 22:
        return message.add("(' Wall =',f8.4)", tube.WALL);
    case 23:
        return message.add("(' Diameter,wall =',2f8.4)", tube.DIAM, tube.WALL);
    case 24:
    case 25:
        return message.add("(' Material no. =',i5)", tube.MATCRS);
    default:
        return message.add("(' Composite sub-section, eccentricity is not zero',f8.4)", line.ECC);
    }
}

Cause check_values(Rev5Reader& in, int N, int j, const SubSectionLine& line) {
    const ValueError error = value_error(in.cmn, line);
    if (!error) return Cause::none;
    ErrorMessage message(
        in.cmn, in.cmn.NF6, in.place(error.value),
        "(/,' **** SR/REV5INP : Composite cross section data input',' control',/,' Cross section, sub-section, IERR=',3i4)",
        N, j, error.number);
    add_given(message, error.number, line);
    return Cause::bad_value;
}

// The outer diameter must equal the inner one of the sub-section before, whatever the text says.
Cause check_nesting(Rev5Reader& in, int N, int j, double inner, double DIAM) {
    if (std::fabs(inner - DIAM) <= in.cmn.TOL) return Cause::none;
    return in.reject(
        in.place(6),
        "(/,' **** SR/REV5INP : Composite cross section data input',' control',/,' Cross section, sub-section, D.inside.last, OD =',2i4,2f9.5,/,' Sub-section diameters must be in decreasing',' order')",
        N, j, inner, DIAM);
}

[[noreturn]] void stop_at_too_many(Rev5Reader& in, int N) {
    report_error(
        in.cmn, in.cmn.NF6, in.place(2),
        "(/,' **** SR/REV5INP : Composite cross section input',/,' Cross section',i3,' has more than 12 sub-sections',/,/,' **** Program stopped by SR/REV5INP')",
        N);
    fortran::stop();
}

void store_sub_section(Store& cmn, int slot, const SubSectionLine& line) {
    store_rev5_tube(cmn, slot, line);
    cmn.ITYCRS(slot) = 1;
    cmn.NLCRS(slot) = 0;
}

} // namespace

Cause read_sub_sections(Rev5Reader& in, int N, int type, const DeckPlace& type_place, int& slot) {
    Store& cmn = in.cmn;
    double inner = 0.0; // running inner diameter
    for (int j = 1; j <= type; ++j) {
        ++slot;
        if (slot > limits::cross_sections) {
            return in.reject(
                type_place,
                "(/,' **** SR/REV5INP : Too many cross sections, sub-sections',' included, max =',i5)",
                cmn.MAXCRS);
        }
        SubSectionLine line;
        if (const Cause fault = read_line(in, N, j, line)) return fault;
        if (const Cause fault = check_numbers(in, N, j, line)) return fault;
        line.tube = scaled(line.tube, cmn);
        if (const Cause fault = check_values(in, N, j, line)) return fault;
        if (j == 1) inner = line.tube.DIAM;
        if (const Cause fault = check_nesting(in, N, j, inner, line.tube.DIAM)) return fault;
        inner = line.tube.DIAM - 2.0 * line.tube.WALL;
        if (j > limits::sub_sections) stop_at_too_many(in, N);
        store_sub_section(cmn, slot, line);
        cmn.ICOMP(j, N) = slot;
    }
    return Cause::none;
}

} // namespace korvat

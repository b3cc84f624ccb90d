// Given points of the elastic and the plastic yield curve of non-linear cross sections.
#include "model/sections/rev5_reader.hpp"

namespace korvat {
namespace {

// Where a point stands on its curve.
struct Place {
    int N;  // cross section
    int i;  // point
    int of; // points of the section
};

struct Point {
    double FAXEL = 0.0;
    double FMOEL = 0.0;
    double FAXPL = 0.0;
    double FMOPL = 0.0;
};

Cause read_point(Rev5Reader& in, const Place& place, Point& point) {
    in.begin_record(deck::RecordId::curve_point, place.N * 100 + place.i);
    int number = 0;
    int sequence = 0;
    if (const Cause fault =
            in.read_values(number, sequence, point.FAXEL, point.FMOEL, point.FAXPL, point.FMOPL)) {
        return fault;
    }
    if (number != place.N) {
        return in.reject(
            in.place(1),
            "(/,' **** SR/REV5INP : Non-linear cross sections input',/,' Crs no. = ',i2,' Expected value = ',i2)",
            number, place.N);
    }
    if (sequence != place.i) {
        return in.reject(
            in.place(2),
            "(/,' **** SR/REV5INP : Non-linear cross sections input',/,' Crs no. = ',i2,' Point no. = ',i2,'  Expected value =',i2)",
            place.N, sequence, place.i);
    }
    return Cause::none;
}

// The curves begin and end without a moment, the plastic one outside the elastic one. At the last
// point the text of the message is that of the first, though the test is the opposite.
Cause check_end_point(Rev5Reader& in, const Place& place, const Point& point) {
    const double TOL = in.cmn.TOL;
    const bool is_inside =
        place.i == 1 ? point.FAXEL > point.FAXPL + TOL : point.FAXPL - point.FAXEL > TOL;
    if (is_inside) {
        return in.reject(
            in.place(3),
            "(/,' **** SR/REV5INP : Non-linear cross sections input',/,' Crs no. = ',i2,' Point no. = ',i2,'  Frc.Axl.Elast',' > Frc.Axl.Plast',/,2e14.4)",
            place.N, place.i, point.FAXPL, point.FAXEL);
    }
    if (point.FMOEL > TOL) {
        return in.reject(
            in.place(4),
            "(/,' **** SR/REV5INP : Non-linear cross sections input',/,' Crs no. = ',i2,' Point no. = ',i2,'  The elastic moment',' is not zero',/,e14.4)",
            place.N, place.i, point.FMOEL);
    }
    if (point.FMOPL > TOL) {
        return in.reject(
            in.place(6),
            "(/,' **** SR/REV5INP : Non-linear cross sections input',/,' Crs no. = ',i2,' Point no. = ',i2,'  The plastic moment',' is not zero',/,e14.4)",
            place.N, place.i, point.FMOPL);
    }
    return Cause::none;
}

// Axial forces fall from point to point, moments are not negative.
Cause check_against_previous(Rev5Reader& in, const Place& place, const Point& previous,
                             const Point& point) {
    const double TOL = in.cmn.TOL;
    if (previous.FAXEL - point.FAXEL < TOL) {
        return in.reject(
            in.place(3),
            "(/,' **** SR/REV5INP : Non-linear cross sections input',/,' Crs no. = ',i2,' Point no. = ',i2,'  Present Frc.Axl.Elast',' is higher than last value given',/,2e14.4)",
            place.N, place.i, previous.FAXEL, point.FAXEL);
    }
    if (previous.FAXPL - point.FAXPL < TOL) {
        return in.reject(
            in.place(5),
            "(/,' **** SR/REV5INP : Non-linear cross sections input',/,' Crs no. = ',i2,' Point no. = ',i2,'  Present Frc.Axl.Plast',' is higher than last value given',/,2e14.4)",
            place.N, place.i, previous.FAXPL, point.FAXPL);
    }
    if (point.FMOEL < -TOL) {
        return in.reject(
            in.place(4),
            "(/,' **** SR/REV5INP : Non-linear cross sections input',/,' Crs no. = ',i2,' Point no. = ',i2,'  The elastic moment',' is negative',/,e14.4)",
            place.N, place.i, point.FMOEL);
    }
    if (point.FMOPL < -TOL) {
        return in.reject(
            in.place(6),
            "(/,' **** SR/REV5INP : Non-linear cross sections input',/,' Crs no. = ',i2,' Point no. = ',i2,'  The plastic moment',' is negative',/,e14.4)",
            place.N, place.i, point.FMOPL);
    }
    return Cause::none;
}

Cause check_point(Rev5Reader& in, const Place& place, const Point& previous, const Point& point) {
    if (place.i == 1) return check_end_point(in, place, point);
    if (place.i == place.of) {
        if (const Cause fault = check_end_point(in, place, point)) return fault;
    }
    return check_against_previous(in, place, previous, point);
}

void store_point(Store& cmn, const Place& place, const Point& point) {
    cmn.FAXEL(place.i, place.N) = point.FAXEL;
    cmn.FMOEL(place.i, place.N) = point.FMOEL;
    cmn.FAXPL(place.i, place.N) = point.FAXPL;
    cmn.FMOPL(place.i, place.N) = point.FMOPL;
}

} // namespace

Cause read_curve_points(Rev5Reader& in) {
    Store& cmn = in.cmn;
    for (int N = 1; N <= cmn.NUMCRS; ++N) {
        Point previous;
        for (int i = 1; i <= cmn.NLCRS(N); ++i) {
            const Place place{N, i, cmn.NLCRS(N)};
            Point point;
            if (const Cause fault = read_point(in, place, point)) return fault;
            if (const Cause fault = check_point(in, place, previous, point)) return fault;
            store_point(cmn, place, point);
            previous = point;
        }
    }
    return Cause::none;
}

} // namespace korvat

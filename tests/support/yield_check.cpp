// Checks generated yield curves against an independent solution of the two capacity checks.
#include "yield_check.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <sstream>
#include <stdexcept>

namespace korvat::test {

namespace {

// A search of the generation ends when the utilisation is less than this away from 1.
constexpr double accepted = static_cast<double>(0.001F);
// What the order of operations may change in a utilisation that is evaluated once more.
constexpr double rounding = 1.0e-12;
constexpr double thinnest = 120.0;

double modulus_of(const YieldTube& tube, double pi) {
    const double inner = tube.diameter - 2.0 * tube.wall;
    return pi / 32.0 * (std::pow(tube.diameter, 4) - std::pow(inner, 4)) / tube.diameter;
}

double area_of(const YieldTube& tube, double pi) {
    return pi * tube.wall * (tube.diameter - tube.wall);
}

// What both checks share. Their constants are single-precision values.
struct Capacity {
    double area, modulus, elastic_buckling, slenderness, bending;

    explicit Capacity(const YieldTube& tube) {
        const auto pi = static_cast<double>(std::numbers::pi_v<float>);
        area = area_of(tube, pi);
        modulus = modulus_of(tube, pi);
        const double inner = tube.diameter - 2.0 * tube.wall;
        const double shape = (std::pow(tube.diameter, 3) - std::pow(inner, 3)) / 6.0 / modulus;
        elastic_buckling = static_cast<double>(0.6F) * tube.young * tube.wall / tube.diameter;
        slenderness = tube.yield / elastic_buckling;
        const double ratio = tube.yield * tube.diameter / (tube.young * tube.wall);
        double factor = 1.0;
        if (ratio >= static_cast<double>(0.1034F)) {
            factor = static_cast<double>(0.94F) - static_cast<double>(0.76F) * ratio;
        } else if (ratio >= static_cast<double>(0.0517F)) {
            factor = static_cast<double>(1.13F) - static_cast<double>(2.58F) * ratio;
        }
        bending = tube.yield * factor * shape;
    }

    // The strength in compression before elastic buckling governs.
    double compression(double yield) const {
        if (slenderness < static_cast<double>(0.17F)) return yield;
        return (static_cast<double>(1.047F) - static_cast<double>(0.274F) * slenderness) * yield;
    }
};

double isochk_utilisation(const YieldTube& tube, double axial, double moment) {
    const Capacity capacity(tube);
    const double strength = axial < 0.0 ? tube.yield : capacity.compression(tube.yield);
    return static_cast<double>(1.05F) * moment / capacity.modulus / capacity.bending +
           static_cast<double>(1.18F) * std::abs(axial) / capacity.area / strength;
}

double norchk_utilisation(const YieldTube& tube, double axial, double moment) {
    const Capacity capacity(tube);
    double strength = tube.yield;
    if (axial >= 0.0) {
        strength = capacity.slenderness < static_cast<double>(1.911F)
                       ? capacity.compression(tube.yield)
                       : capacity.elastic_buckling;
    }
    const double stress = moment / capacity.modulus + axial / capacity.area;
    const double lambda = std::abs(stress) * std::sqrt(capacity.slenderness) / strength;
    double gamma = static_cast<double>(1.45F);
    if (lambda < 0.5) {
        gamma = static_cast<double>(1.15F);
    } else if (lambda < 1.0) {
        gamma = static_cast<double>(0.85F) + static_cast<double>(0.6F) * lambda;
    }
    const double force = std::abs(axial) * gamma / (capacity.area * strength);
    const double bending = moment * gamma / (capacity.bending * capacity.modulus);
    const double combined = (axial < 0.0 ? std::pow(force, 1.75) : force) + bending;
    return std::max(combined, std::abs(axial) * gamma / (capacity.area * tube.yield));
}

// The value at which a function that starts below the target passes it, to 1e-12 of the value.
template <typename Function>
double bisect(const Function& function, double step, double target) {
    double low = 0.0;
    double high = step;
    while (function(high) < target) {
        low = high;
        high *= 2.0;
        if (!std::isfinite(high)) throw std::runtime_error("the utilisation is never reached");
    }
    while (high - low > 1.0e-12 * high) {
        const double middle = 0.5 * (low + high);
        (function(middle) < target ? low : high) = middle;
    }
    return 0.5 * (low + high);
}

// Collects what is wrong with one curve.
class CurveReport {
public:
    void require(bool right, std::size_t point, const std::string& what, double found,
                 double expected) {
        if (right) return;
        std::ostringstream text;
        text.precision(17);
        text << "point " << point + 1 << ", " << what << ": found " << found << ", expected "
             << expected;
        differences_.push_back(text.str());
    }

    void near(double found, double expected, double tolerance, std::size_t point,
              const std::string& what) {
        // Written so that a value that is not a number is never near.
        require(std::abs(found - expected) <= tolerance, point, what, found, expected);
    }

    void between(double found, double low, double high, std::size_t point,
                 const std::string& what) {
        require(low <= found && found <= high, point, what, found, 0.5 * (low + high));
    }

    const std::vector<std::string>& differences() const { return differences_; }

private:
    std::vector<std::string> differences_;
};

// Ten levels in equal steps from the compression that the check allows down to the tension at yield;
// the one nearest to zero is zero where it lies below one million.
void check_levels(CapacityCheck check, const YieldTube& tube, const YieldCurve& curve,
                  CurveReport& report) {
    const double tension = -area_of(tube, std::numbers::pi) * tube.yield;
    // Where the first level itself is the zero, the step follows from the second.
    const double top = curve[0].elastic_axial != 0.0
                           ? curve[0].elastic_axial
                           : (9.0 * curve[1].elastic_axial - tension) / 8.0;
    // The utilisation rises with the compression, so the accepted range of the one is a range of the
    // other.
    report.between(top, compression_at(check, tube, 1.0 - accepted) * (1.0 - rounding),
                   compression_at(check, tube, 1.0 + accepted) * (1.0 + rounding), 0,
                   "compression capacity");
    YieldCurve::size_type nearest = 0;
    std::array<double, 10> levels{};
    for (std::size_t k = 0; k < levels.size(); ++k) {
        levels[k] = top - static_cast<double>(k) * ((top - tension) / 9.0);
        if (std::abs(levels[k]) < std::abs(levels[nearest])) nearest = k;
    }
    if (std::abs(levels[nearest]) < 1.0e6) levels[nearest] = 0.0;
    for (std::size_t k = 0; k < levels.size(); ++k) {
        const double tolerance = levels[k] == 0.0 ? 0.0 : 1.0e-12 * std::max(top, -tension);
        report.near(curve[k].elastic_axial, levels[k], tolerance, k, "elastic axial force");
        report.near(curve[k].plastic_axial, curve[k].elastic_axial, 0.0, k, "plastic axial force");
    }
}

void check_moments(CapacityCheck check, const YieldTube& tube, const YieldCurve& curve,
                   std::size_t k, CurveReport& report) {
    const double axial = curve[k].plastic_axial;
    const double plastic = curve[k].plastic_moment;
    report.near(utilisation(check, tube, axial, plastic), 1.0, accepted + rounding, k,
                "utilisation");
    // The moment of the exact solution is where the utilisation is 1. Any moment whose utilisation is
    // less than 0.001 away from 1 may be left instead. The utilisation rises with the moment, so these
    // are the moments between those at 0.999 and at 1.001, and the margin is the distance to the
    // farther of both. For isochk, where the utilisation is linear in the moment, it is
    // 0.001 Fb W / 1.05 to either side.
    const std::optional<double> low = moment_at(check, tube, axial, 1.0 - accepted);
    const std::optional<double> exact = moment_at(check, tube, axial, 1.0);
    const std::optional<double> high = moment_at(check, tube, axial, 1.0 + accepted);
    if (!high) {
        report.require(false, k, "the axial force alone is too much", plastic, 0.0);
        return;
    }
    const double below = low.value_or(0.0);
    const double margin = std::max(exact.value_or(below) - below, *high - exact.value_or(below));
    report.near(plastic, exact.value_or(0.0), margin * (1.0 + 1.0e-9) + rounding * *high, k,
                "plastic moment");
    // First yield: what the axial stress leaves of the yield stress.
    const double modulus = modulus_of(tube, std::numbers::pi);
    const double left = tube.yield - std::abs(axial) / area_of(tube, std::numbers::pi);
    report.near(curve[k].elastic_moment, std::min(plastic, left * modulus),
                1.0e-12 * tube.yield * modulus, k, "elastic moment");
}

YieldTube tube_of(const ModelSection& section) {
    return {section.values[0], section.values[1], section.values[11], section.values[12]};
}

} // namespace

double utilisation(CapacityCheck check, const YieldTube& tube, double axial, double moment) {
    return check == CapacityCheck::norchk ? norchk_utilisation(tube, axial, moment)
                                          : isochk_utilisation(tube, axial, moment);
}

std::optional<double> moment_at(CapacityCheck check, const YieldTube& tube, double axial,
                                double target) {
    const double left = target - utilisation(check, tube, axial, 0.0);
    if (!(left > 0.0)) return std::nullopt;
    const Capacity capacity(tube);
    const double scale = capacity.bending * capacity.modulus;
    if (check == CapacityCheck::isochk) return left * scale / static_cast<double>(1.05F);
    return bisect([&](double moment) { return norchk_utilisation(tube, axial, moment); },
                  0.01 * scale, target);
}

double compression_at(CapacityCheck check, const YieldTube& tube, double target) {
    const Capacity capacity(tube);
    if (check == CapacityCheck::isochk) {
        return target * capacity.area * capacity.compression(tube.yield) /
               static_cast<double>(1.18F);
    }
    return bisect([&](double axial) { return norchk_utilisation(tube, axial, 0.0); },
                  0.01 * capacity.area * tube.yield, target);
}

std::vector<std::string> yield_curve_differences(CapacityCheck check, const YieldTube& tube,
                                                 const YieldCurve& curve) {
    if (tube.diameter / tube.wall > thinnest) return {"the tube is too thin for a curve"};
    CurveReport report;
    check_levels(check, tube, curve, report);
    for (const std::size_t end : {std::size_t{0}, curve.size() - 1}) {
        report.near(curve[end].elastic_moment, 0.0, 0.0, end, "elastic moment");
        report.near(curve[end].plastic_moment, 0.0, 0.0, end, "plastic moment");
    }
    for (std::size_t k = 1; k + 1 < curve.size(); ++k)
        check_moments(check, tube, curve, k, report);
    return report.differences();
}

std::vector<std::string> adopt_yield_curves(const PileFile& file, PileModel& model) {
    std::vector<std::string> differences;
    for (std::size_t i = 0; i < model.sections.size(); ++i) {
        ModelSection& section = model.sections[i];
        if (section.nonlinear >= 0) continue;
        const YieldCurve& curve = file.yield_points.at(i);
        section.points.assign(curve.begin(), curve.end());
        const CapacityCheck check =
            section.nonlinear == -1 ? CapacityCheck::norchk : CapacityCheck::isochk;
        for (const std::string& text : yield_curve_differences(check, tube_of(section), curve)) {
            differences.push_back("yield curve of cross section " + std::to_string(i + 1) + ", " +
                                  text);
        }
    }
    return differences;
}

} // namespace korvat::test

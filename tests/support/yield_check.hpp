// Checks generated yield curves against an independent solution of the two capacity checks.
#pragma once

#include "pile_file.hpp"
#include "pile_model.hpp"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace korvat::test {

enum class CapacityCheck { norchk, isochk };

struct YieldTube {
    double diameter = 0.0;
    double wall = 0.0;
    double yield = 0.0; // stress
    double young = 0.0;
};

using YieldCurve = std::array<YieldPoint, 10>;

// The utilisation under an axial force, positive in compression, and a bending moment.
double utilisation(CapacityCheck check, const YieldTube& tube, double axial, double moment);

// The moment and the compression at which a utilisation is reached; no moment when the axial force
// alone is too much.
std::optional<double> moment_at(CapacityCheck check, const YieldTube& tube, double axial,
                                double target);
double compression_at(CapacityCheck check, const YieldTube& tube, double target);

// Empty when the curve is one that the generation may leave; else what is wrong with it.
std::vector<std::string> yield_curve_differences(CapacityCheck check, const YieldTube& tube,
                                                 const YieldCurve& curve);

// Checks the curve of each section of the model that asks for one, and takes it over into the model.
std::vector<std::string> adopt_yield_curves(const PileFile& file, PileModel& model);

} // namespace korvat::test

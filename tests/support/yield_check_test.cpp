// Tests of the independent capacity checks and of the judgement on yield curves, against figures
// worked out by hand.
#include "yield_check.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <gtest/gtest.h>
#include <initializer_list>
#include <numbers>
#include <utility>

namespace korvat::test {
namespace {

// Stocky: D/t = 20. The slenderness, 300000 / (0.6 * 2.1e8 * 0.05) = 0.0476, is below 0.17 and the
// ratio 300000 / (2.1e8 * 0.05) = 0.0286 below 0.0517, so that the strengths are the yield stress and
// the yield stress times the shape factor. lambda stays below 0.0476^0.5 * 2 = 0.44, so that gamma
// is 1.15.
constexpr YieldTube stocky = {1.0, 0.05, 300.0e3, 2.1e8};
// A = pi * 0.05 * 0.95, W = pi * (1 - 0.9^4) / 32, plastic modulus (1 - 0.9^3) / 6.
constexpr double area = 0.0475 * std::numbers::pi;
constexpr double modulus = 0.3439 / 32.0 * std::numbers::pi;
constexpr double yield_force = area * 300.0e3;
constexpr double plastic_moment = 0.271 / 6.0 * 300.0e3;

// Slender: D/t = 120. Worked out with the constants in full: A = 0.0373849526, W = 0.0110301187,
// slenderness 0.438095, strength in compression 426402.5, in bending 437167.3.
constexpr YieldTube slender = {1.2, 0.01, 460.0e3, 2.1e8};
constexpr double slender_area = 0.0119 * std::numbers::pi;
constexpr double slender_modulus = 0.13482224 / 38.4 * std::numbers::pi;

double slender_utilisation(CapacityCheck check, double axial_stress, double bending_stress) {
    return utilisation(check, slender, axial_stress * slender_area,
                       bending_stress * slender_modulus);
}

double hand_moment(CapacityCheck check, double axial) {
    const double share = std::abs(axial) / yield_force;
    if (check == CapacityCheck::isochk) return plastic_moment / 1.05 * (1.0 - 1.18 * share);
    const double used = axial < 0.0 ? std::pow(1.15 * share, 1.75) : 1.15 * share;
    return plastic_moment / 1.15 * (1.0 - used);
}

YieldCurve hand_curve(CapacityCheck check) {
    const double top = yield_force / (check == CapacityCheck::isochk ? 1.18 : 1.15);
    YieldCurve curve{};
    for (std::size_t k = 0; k < curve.size(); ++k) {
        YieldPoint& point = curve[k];
        point.elastic_axial = top - static_cast<double>(k) * (top + yield_force) / 9.0;
        // Level 5 lies 0.026 or 0.039 of the yield force above zero, and the others farther away.
        if (k == 4) point.elastic_axial = 0.0;
        point.plastic_axial = point.elastic_axial;
        if (k == 0 || k == 9) continue;
        point.plastic_moment = hand_moment(check, point.plastic_axial);
        const double left = (yield_force - std::abs(point.elastic_axial)) / area * modulus;
        point.elastic_moment = std::min(point.plastic_moment, left);
    }
    return curve;
}

TEST(SupportYieldCheck, GivesTheUtilisation) {
    const auto iso = CapacityCheck::isochk;
    const auto nor = CapacityCheck::norchk;
    EXPECT_NEAR(utilisation(iso, stocky, yield_force, 0.0), 1.18, 1.0e-6);
    EXPECT_NEAR(utilisation(iso, stocky, -yield_force, 0.0), 1.18, 1.0e-6);
    EXPECT_NEAR(utilisation(iso, stocky, 0.0, plastic_moment), 1.05, 1.0e-6);
    EXPECT_NEAR(utilisation(nor, stocky, yield_force, 0.0), 1.15, 1.0e-6);
    // 1.15^1.75 = 1.277 is above the 1.15 of the axial force alone.
    EXPECT_NEAR(utilisation(nor, stocky, -yield_force, 0.0), std::pow(1.15, 1.75), 1.0e-6);
    EXPECT_NEAR(utilisation(nor, stocky, -0.5 * yield_force, 0.0), 0.575, 1.0e-6);
    EXPECT_NEAR(utilisation(nor, stocky, 0.0, plastic_moment), 1.15, 1.0e-6);
}

TEST(SupportYieldCheck, GivesTheUtilisationOfASlenderTube) {
    const auto iso = CapacityCheck::isochk;
    const auto nor = CapacityCheck::norchk;
    EXPECT_NEAR(slender_utilisation(iso, 300.0e3, 100.0e3),
                1.05 * 100.0 / 437.1673 + 1.18 * 300.0 / 426.4025, 1.0e-5);
    EXPECT_NEAR(slender_utilisation(iso, -300.0e3, 100.0e3),
                1.05 * 100.0 / 437.1673 + 1.18 * 300.0 / 460.0, 1.0e-5);
    // lambda = 400 * 0.438095^0.5 / 426.4025 = 0.620904, gamma = 0.85 + 0.6 lambda = 1.222542.
    EXPECT_NEAR(slender_utilisation(nor, 300.0e3, 100.0e3),
                1.222542 * (300.0 / 426.4025 + 100.0 / 437.1673), 1.0e-5);
    // lambda = 200 * 0.66189 / 460 = 0.288; the two parts add up to 0.876, the axial one is 0.75.
    EXPECT_NEAR(slender_utilisation(nor, -300.0e3, 100.0e3),
                std::pow(0.75, 1.75) + 1.15 * 100.0 / 437.1673, 1.0e-5);
    // lambda = 440 * 0.66189 / 460 = 0.63311, gamma = 1.229866.
    EXPECT_NEAR(slender_utilisation(nor, -440.0e3, 0.0), std::pow(1.229866 * 440.0 / 460.0, 1.75),
                1.0e-5);
}

TEST(SupportYieldCheck, FindsMomentAndCompression) {
    for (const auto check : {CapacityCheck::norchk, CapacityCheck::isochk}) {
        const double factor = check == CapacityCheck::norchk ? 1.15 : 1.18;
        EXPECT_NEAR(compression_at(check, stocky, 1.0), yield_force / factor, 1.0e-6 * yield_force);
        for (const double axial : {0.5 * yield_force, 0.0, -0.7 * yield_force}) {
            EXPECT_NEAR(moment_at(check, stocky, axial, 1.0).value(), hand_moment(check, axial),
                        1.0e-6 * plastic_moment);
        }
        EXPECT_FALSE(moment_at(check, stocky, yield_force, 1.0).has_value());
        const double moment = moment_at(check, slender, 5.0e3, 0.9).value();
        EXPECT_NEAR(utilisation(check, slender, 5.0e3, moment), 0.9, 2.0e-12);
    }
}

TEST(SupportYieldCheck, AcceptsARightCurve) {
    for (const auto check : {CapacityCheck::norchk, CapacityCheck::isochk}) {
        YieldCurve curve = hand_curve(check);
        EXPECT_EQ(yield_curve_differences(check, stocky, curve), std::vector<std::string>{});
        // What the generation may leave: utilisations up to 0.001 away from 1.
        curve[3].plastic_moment *= 1.0009;
        curve[2].plastic_moment *= 0.9995;
        curve[2].elastic_moment = std::min(curve[2].elastic_moment, curve[2].plastic_moment);
        EXPECT_EQ(yield_curve_differences(check, stocky, curve), std::vector<std::string>{});
    }
}

TEST(SupportYieldCheck, RefusesDamagedCurves) {
    using Damage = void (*)(YieldCurve&);
    const std::initializer_list<std::pair<const char*, Damage>> damages = {
        {"capacity", [](YieldCurve& c) { c[0].elastic_axial *= 1.01; }},
        {"level", [](YieldCurve& c) { c[6].elastic_axial *= 1.0 + 1.0e-9; }},
        {"plastic level", [](YieldCurve& c) { c[6].plastic_axial *= 1.0 + 1.0e-9; }},
        {"no zero", [](YieldCurve& c) { c[4].elastic_axial = c[4].plastic_axial = 1.0; }},
        {"wrong zero", [](YieldCurve& c) { c[5].elastic_axial = c[5].plastic_axial = 0.0; }},
        {"first moment", [](YieldCurve& c) { c[0].plastic_moment = 1.0e-6; }},
        {"last moment", [](YieldCurve& c) { c[9].elastic_moment = 1.0e-6; }},
        {"plastic moment", [](YieldCurve& c) { c[4].plastic_moment *= 1.0012; }},
        {"elastic moment", [](YieldCurve& c) { c[7].elastic_moment *= 1.0 - 1.0e-9; }},
        {"not a number", [](YieldCurve& c) { c[3].plastic_moment = std::nan(""); }},
        {"mirrored", [](YieldCurve& c) { std::reverse(c.begin(), c.end()); }},
    };
    for (const auto check : {CapacityCheck::norchk, CapacityCheck::isochk}) {
        for (const auto& [name, damage] : damages) {
            YieldCurve curve = hand_curve(check);
            damage(curve);
            EXPECT_FALSE(yield_curve_differences(check, stocky, curve).empty()) << name;
        }
        const YieldTube thin = {1.0, 0.008, 300.0e3, 2.1e8};
        EXPECT_FALSE(yield_curve_differences(check, thin, hand_curve(check)).empty());
    }
    EXPECT_FALSE(
        yield_curve_differences(CapacityCheck::isochk, stocky, hand_curve(CapacityCheck::norchk))
            .empty());
}

TEST(SupportYieldCheck, TakesCurvesOverIntoTheModel) {
    PileModel model;
    PileFile file;
    for (const int code : {0, -1, -3}) {
        ModelSection section;
        section.values = {stocky.diameter, stocky.wall};
        section.values[11] = stocky.yield;
        section.values[12] = stocky.young;
        section.nonlinear = code;
        model.sections.push_back(section);
    }
    file.yield_points = {YieldCurve{}, hand_curve(CapacityCheck::norchk),
                         hand_curve(CapacityCheck::isochk)};
    EXPECT_TRUE(adopt_yield_curves(file, model).empty());
    EXPECT_TRUE(model.sections[0].points.empty());
    ASSERT_EQ(model.sections[1].points.size(), 10U);
    EXPECT_EQ(model.sections[2].points[3].plastic_moment, file.yield_points[2][3].plastic_moment);
    std::swap(file.yield_points[1], file.yield_points[2]);
    EXPECT_FALSE(adopt_yield_curves(file, model).empty());
}

} // namespace
} // namespace korvat::test

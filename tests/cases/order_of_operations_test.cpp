// Bits of PILE.07 and LOAD.09 that hang on the order of operations, with factors that no power of two
// or ten hides behind. Each test shows that the other orders would give other bits.
#include "../support/case.hpp"
#include "../support/pile_file.hpp"
#include "../support/record_file.hpp"

#include <array>
#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

// A number of the deck. With a single digit that is not 0 it is read as it is compiled; with more,
// the reader may differ in the last bit.
struct Number {
    std::string text;
    double value;
};

struct Factors {
    Number force, length;
};

using Slots = std::array<double, 20>;
using Loads = std::array<double, 6>;

constexpr std::size_t axial = 4; // slots from 0
constexpr std::size_t shear = 5;
constexpr std::size_t bending = 6;
constexpr std::size_t torsion = 7;
constexpr std::size_t wall_weight = 8;
constexpr std::size_t fluid_weight = 9;
constexpr std::size_t yield_stress = 11;
constexpr std::size_t young = 12;
constexpr std::size_t shear_modulus = 13;

const Number EMOD = {"2E8", 2e8};
const Number GMOD = {"8E7", 8e7};
const Number SIGYLD = {"3E5", 3e5};
const Number UWWALL = {"70", 70.0};

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

// One vertical pile of one material. In revision 5 the version line is the second.
std::string deck(int revision, const Factors& factors, int sections,
                 const std::string& section_lines, const std::string& load_lines = "") {
    const std::string version = revision == 5 ? "KORVAT Version: 2009-09-01\n" : "";
    const std::string third_heading = revision == 5 ? " -\n" : "";
    return "One pile\n" + version +
           joined({"", " Control", factors.force.text, factors.length.text, "1",
                   std::to_string(sections), "1", "1", load_lines.empty() ? "0" : "1", "0", "0", "",
                   " Materials", " N E G fy"}) +
           third_heading +
           joined(
               {"1 " + EMOD.text + " " + GMOD.text + " " + SIGYLD.text + " " + UWWALL.text + " 0",
                "", " Sections", " N Mat D t"}) +
           third_heading + section_lines +
           joined({"", " Segments", " N Start End Length Elements", "1 1 1 20 2", "", " Piles",
                   " NP NGEN NSYM head tip", "1 0 0 0 0 0 0 0 20", " NP NSEG", "1 1 1",
                   " NP1 NP2 ITIP IFIX", "1 1 0 0", "", " Values", " NP1 NP2 ND1 ND2 CODE",
                   "0 0 0 0 0 0 0 0 0 0 0"}) +
           load_lines + "END\n";
}

std::vector<Record> records_of_run(const std::string& deck, const std::string& file) {
    const CaseResult run = run_deck(KORVAT_PROGRAM, &deck);
    for (const std::string& difference : run.differences)
        ADD_FAILURE() << difference;
    EXPECT_EQ(run.exit_code, 0) << run.standard_error;
    const std::string& content = run.files.at(file);
    return parse_record_bytes(content);
}

std::vector<Slots> sections_of_run(const std::string& deck) {
    return parse_pile_file(records_of_run(deck, "PILE.07")).sections;
}

double stress_factor(const Factors& factors) {
    return factors.force.value / factors.length.value / factors.length.value;
}

// Of a material and of a fluid, in the units of the analysis.
void expect_material(const Slots& slots, double stress) {
    EXPECT_EQ(slots[young], EMOD.value * stress);
    EXPECT_EQ(slots[shear_modulus], GMOD.value * stress);
    EXPECT_EQ(slots[yield_stress], SIGYLD.value * stress);
}

const Factors odd_factors = {{"0.7", 0.7}, {"0.3", 0.3}};
const Number UWFLD = {"9", 9.0};
const Number STF = {"7E5", 7e5};

// What the stress factor would be if the length factor were squared first.
const double other_stress_factor =
    odd_factors.force.value / (odd_factors.length.value * odd_factors.length.value);

void expect_other_stress_factor_differs() {
    const double stress = stress_factor(odd_factors);
    const double length = odd_factors.length.value;
    EXPECT_NE(EMOD.value * stress, EMOD.value * other_stress_factor);
    EXPECT_NE(GMOD.value * stress, GMOD.value * other_stress_factor);
    EXPECT_NE(UWFLD.value * (stress / length), UWFLD.value * (other_stress_factor / length));
    EXPECT_NE(UWFLD.value * (stress / length), UWFLD.value * stress / length);
    EXPECT_NE(UWWALL.value * (stress / length), UWWALL.value * stress / length);
}

void expect_scaled_section(const Slots& slots) {
    const double force = odd_factors.force.value;
    const double length = odd_factors.length.value;
    const double bending_factor = force * length * length;
    EXPECT_EQ(slots[fluid_weight], UWFLD.value * (stress_factor(odd_factors) / length));
    EXPECT_EQ(slots[axial], STF.value * force);
    EXPECT_EQ(slots[shear], STF.value * force);
    EXPECT_EQ(slots[bending], STF.value * bending_factor);
    EXPECT_EQ(slots[torsion], STF.value * bending_factor);
    EXPECT_NE(STF.value * bending_factor, STF.value * force * length * length);
}

const std::string stiffnesses = STF.text + " " + STF.text + " " + STF.text + " " + STF.text;

TEST(OrderOfOperations, OfTheUnitsInRevision4) {
    expect_other_stress_factor_differs();
    const auto sections = sections_of_run(
        deck(4, odd_factors, 1, "1 1 1 0.1 " + stiffnesses + " " + UWFLD.text + "\n"));
    ASSERT_EQ(sections.size(), 1U);
    const double stress = stress_factor(odd_factors);
    expect_material(sections[0], stress);
    EXPECT_EQ(sections[0][wall_weight], UWWALL.value * (stress / odd_factors.length.value));
    expect_scaled_section(sections[0]);
}

TEST(OrderOfOperations, OfTheUnitsInRevision5) {
    expect_other_stress_factor_differs();
    const std::string rest = " " + stiffnesses + " " + UWFLD.text + " 0 0 0 0\n";
    const auto sections =
        sections_of_run(deck(5, odd_factors, 2,
                             "1 1 0 1 1 0.1" + rest + "2 2 0 0 0 0 0 0 0 0 0 0 0 0 0\n" +
                                 "2 1 1 0 1 1 0.1" + rest + "2 2 1 0 1 0.8 0.1" + rest));
    ASSERT_EQ(sections.size(), 4U); // a tube, a composite and its two tubes
    const double stress = stress_factor(odd_factors);
    for (const std::size_t tube : {0U, 2U, 3U}) {
        SCOPED_TRACE("cross section " + std::to_string(tube + 1));
        expect_material(sections[tube], stress);
        EXPECT_EQ(sections[tube][wall_weight], UWWALL.value * (stress / odd_factors.length.value));
        expect_scaled_section(sections[tube]);
    }
}

// Values of the two given sections, the first and the last of nine.
struct Range {
    Number first, last;
    std::size_t slot;
};

TEST(OrderOfOperations, OfTheGenerationOfCrossSections) {
    constexpr int skipped = 7;
    const std::array<Range, 7> ranges = {{{{"0.2", 0.2}, {"0.9", 0.9}, 0},
                                          {{"0.01", 0.01}, {"0.07", 0.07}, 1},
                                          {{"3E6", 3e6}, {"7E6", 7e6}, axial},
                                          {{"2E5", 2e5}, {"9E5", 9e5}, bending},
                                          {{"3E4", 3e4}, {"7E4", 7e4}, shear},
                                          {{"2E6", 2e6}, {"9E6", 9e6}, torsion},
                                          {{"2", 2.0}, {"9", 9.0}, fluid_weight}}};
    std::string first = "1 1";
    std::string last = "9 1";
    for (const Range& range : ranges) {
        first += " " + range.first.text;
        last += " " + range.last.text;
    }
    const auto sections =
        sections_of_run(deck(4, {{"1", 1.0}, {"1", 1.0}}, skipped + 2, joined({first, last})));
    ASSERT_EQ(sections.size(), 9U);
    int product_differs = 0;
    int division_last_differs = 0;
    for (const Range& range : ranges) {
        const double P = range.first.value;
        const double difference = range.last.value - P;
        for (int j = 1; j <= skipped; ++j) {
            const double generated = P + difference / skipped * (j - 0.5);
            const double found = sections[static_cast<std::size_t>(j)][range.slot];
            EXPECT_EQ(found, generated) << "slot " << range.slot + 1 << ", section " << j + 1;
            product_differs += generated != P + difference * ((j - 0.5) / skipped) ? 1 : 0;
            division_last_differs += generated != P + difference * (j - 0.5) / skipped ? 1 : 0;
        }
    }
    EXPECT_GT(product_differs, 0);
    EXPECT_GT(division_last_differs, 0);
}

const std::array<Number, 6> loads = {
    {{"0.1", 0.1}, {"0.3", 0.3}, {"0.7", 0.7}, {"0.9", 0.9}, {"0.6", 0.6}, {"7", 7.0}}};

// The number of loads that another order of operations changes.
int count_changed(const Loads& due,
                  const std::function<double(double VAR, bool is_moment)>& other) {
    int changed = 0;
    for (std::size_t i = 0; i < due.size(); ++i)
        changed += other(loads[i].value, i >= 3) != due[i] ? 1 : 0;
    return changed;
}

TEST(OrderOfOperations, OfTheLoads) {
    const Factors factors = {{"0.9", 0.9}, {"0.7", 0.7}};
    const Number F = {"0.07", 0.07};
    const double FACF = factors.force.value;
    const double FACL = factors.length.value;
    std::string line = "1";
    for (const Number& load : loads)
        line += " " + load.text;
    const std::vector<Record> records =
        records_of_run(deck(4, factors, 1, "1 1 1 0.1 0 0 0 0 0\n",
                            joined({"", " Loads", "Vector", "1", F.text, " NP", line})),
                       "LOAD.09");
    ASSERT_EQ(records.size(), 3U); // label, count, pile
    RecordCursor cursor(records[2]);
    EXPECT_EQ(cursor.take_int(), 1);
    Loads due{};
    for (std::size_t i = 0; i < due.size(); ++i) {
        due[i] = loads[i].value * (F.value * FACF);
        if (i >= 3) due[i] = due[i] * FACL;
        EXPECT_EQ(cursor.take_double(), due[i]) << "component " << i + 1;
    }
    const auto with_length = [&](double force, bool is_moment) {
        return is_moment ? force * FACL : force;
    };
    EXPECT_GT(count_changed(due,
                            [&](double VAR, bool is_moment) {
                                return with_length(VAR * F.value * FACF, is_moment);
                            }),
              0);
    EXPECT_GT(count_changed(due,
                            [&](double VAR, bool is_moment) {
                                return with_length(VAR * FACF * F.value, is_moment);
                            }),
              0);
    EXPECT_GT(count_changed(due,
                            [&](double VAR, bool is_moment) {
                                return VAR * (is_moment ? F.value * FACF * FACL : F.value * FACF);
                            }),
              0);
}

} // namespace
} // namespace korvat::test

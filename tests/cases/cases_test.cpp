// Whole runs: every case folder, every example, the decks that the documentation shows, and scaling.
#include "../support/case.hpp"
#include "../support/deck_reader.hpp"
#include "../support/document.hpp"
#include "../support/expected_file.hpp"
#include "../support/listing_check.hpp"
#include "../support/pile_file.hpp"
#include "../support/pile_model.hpp"
#include "../support/record_file.hpp"
#include "../support/scaled_deck.hpp"
#include "../support/scratch_directory.hpp"
#include "../support/text.hpp"
#include "../support/yield_check.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace korvat::test {
namespace {

const std::string deck_name = "KORVAT.INP";
const std::string pile_file_name = "PILE.07";
const std::string load_file_name = "LOAD.09";
const std::string plot_name = "PILEPLOT.TXT";
const std::string listing_name = "KORVAT.LIS";
constexpr std::string_view normal_exit = " NORMAL EXIT FROM KORVAT";

std::string name_of_case(const testing::TestParamInfo<std::filesystem::path>& info) {
    std::string name = info.param.filename().string();
    // Names of tests take letters, digits and underlines only.
    const auto is_other = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; };
    std::replace_if(name.begin(), name.end(), is_other, '_');
    return name;
}

std::vector<Record> records_of(const std::string& content) {
    return parse_record_bytes(content);
}

void expect_none(const std::vector<std::string>& differences) {
    for (const std::string& difference : differences)
        ADD_FAILURE() << difference;
}

// The files of the run against the independent calculation.
void expect_files_of_deck(const CaseResult& run) {
    const Deck deck = parse_deck(run.files.at(deck_name));
    PileModel model = build_model(deck);
    ASSERT_EQ(run.files.count(pile_file_name), 1U);
    ASSERT_EQ(run.files.count(plot_name), 1U);
    const std::vector<Record> records = records_of(run.files.at(pile_file_name));
    const PileFile file = parse_pile_file(records);
    ASSERT_EQ(file.has_curves, deck.revision == 5);
    // Generated curves are judged by themselves: they may be any within their tolerance.
    if (file.has_curves) expect_none(adopt_yield_curves(file, model));
    expect_same_pile_file(records, expected_pile_file(model));
    expect_same_plot(run.files.at(plot_name), expected_plot(model));
    ASSERT_EQ(run.files.count(load_file_name), deck.load_vectors.empty() ? 0U : 1U);
    if (!deck.load_vectors.empty()) {
        expect_same_pile_file(records_of(run.files.at(load_file_name)), expected_load_file(deck));
    }
    ASSERT_EQ(run.files.count(listing_name), 1U);
    if (deck.print_level > 0) {
        expect_none(check_sum_differences(run.files.at(listing_name), file));
    }
}

class CaseRun : public testing::TestWithParam<std::filesystem::path> {};
class ExampleRun : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(CaseRun, LeavesWhatIsExpected) {
    const CaseResult run = run_case(KORVAT_PROGRAM, GetParam());
    expect_none(run.differences);
    if (expected_exit_code(GetParam()) != 0 || HasFailure()) return;
    // Directories of a case stand in the way of some of the files.
    if (std::filesystem::exists(GetParam() / "directories")) return;
    expect_files_of_deck(run);
}

TEST_P(ExampleRun, LeavesWhatIsExpected) {
    const CaseResult run = run_case(KORVAT_PROGRAM, GetParam());
    expect_none(run.differences);
    EXPECT_EQ(run.exit_code, 0);
    expect_files_of_deck(run);
}

INSTANTIATE_TEST_SUITE_P(Cases, CaseRun, testing::ValuesIn(case_folders(KORVAT_CASES_DIR)),
                         name_of_case);
INSTANTIATE_TEST_SUITE_P(Examples, ExampleRun, testing::ValuesIn(case_folders(KORVAT_EXAMPLES_DIR)),
                         name_of_case);

TEST(CaseFolders, AreThere) {
    EXPECT_FALSE(case_folders(KORVAT_CASES_DIR).empty());
    EXPECT_FALSE(case_folders(KORVAT_EXAMPLES_DIR).empty());
}

TEST(CaseFolders, EachSaysWhatItShows) {
    for (const auto& list :
         {case_folders(KORVAT_CASES_DIR), fault_case_folders(KORVAT_CASES_DIR)}) {
        for (const std::filesystem::path& folder : list) {
            ASSERT_TRUE(std::filesystem::exists(folder / "about.txt")) << folder;
            const std::string about = read_whole_file(folder / "about.txt");
            EXPECT_NE(about, "") << folder;
            EXPECT_FALSE(about.starts_with("(to be written")) << folder;
        }
    }
}

class DocumentedDeck : public testing::TestWithParam<const char*> {};

TEST_P(DocumentedDeck, RunsAsShown) {
    const std::vector<std::string> decks =
        blocks_shown_in(std::filesystem::path(KORVAT_DOCS_DIR) / GetParam(), "korvat-deck");
    ASSERT_FALSE(decks.empty());
    for (const std::string& deck : decks) {
        const CaseResult run = run_deck(KORVAT_PROGRAM, &deck);
        expect_none(run.differences);
        EXPECT_EQ(run.exit_code, 0) << run.standard_error;
        ASSERT_EQ(run.files.count("KORVAT.MLG"), 1U);
        const std::vector<std::string> log = split_lines(run.files.at("KORVAT.MLG"));
        ASSERT_FALSE(log.empty());
        EXPECT_EQ(log.back().substr(0, normal_exit.size()), normal_exit);
        expect_files_of_deck(run);
    }
}

INSTANTIATE_TEST_SUITE_P(Documents, DocumentedDeck,
                         testing::Values("deck.md", "first-deck.md", "../README.md"));

PileFile pile_file_of(const std::string& deck) {
    const CaseResult run = run_deck(KORVAT_PROGRAM, &deck);
    expect_none(run.differences);
    EXPECT_EQ(run.exit_code, 0);
    return parse_pile_file(records_of(run.files.at(pile_file_name)));
}

void expect_scaled(double scaled, double value, double factor, std::size_t point) {
    EXPECT_NEAR(scaled, value * factor, 1.0e-9 * std::abs(value * factor)) << "point " << point + 1;
}

TEST(YieldCurves, ScaleWithTheUnits) {
    constexpr std::size_t sections = 5;
    const PileFile plain = pile_file_of(scaled_deck(1.0, 1.0));
    // kN and m to MN and mm, and a pair of factors that no power of ten or two hides behind. In N the
    // axial forces lie beyond one million, where none becomes zero.
    for (const auto& [force, length] : {std::pair{0.001, 1000.0}, std::pair{0.224809, 3.28084}}) {
        const std::string deck = scaled_deck(force, length);
        const PileFile scaled = pile_file_of(deck);
        PileModel model = build_model(parse_deck(deck));
        expect_none(adopt_yield_curves(scaled, model));
        for (std::size_t i = 0; i < sections; ++i) {
            SCOPED_TRACE("section " + std::to_string(i + 1));
            for (std::size_t p = 0; p < 10; ++p) {
                const YieldPoint& point = plain.yield_points.at(i)[p];
                const YieldPoint& other = scaled.yield_points.at(i)[p];
                expect_scaled(other.elastic_axial, point.elastic_axial, force, p);
                expect_scaled(other.plastic_axial, point.plastic_axial, force, p);
                expect_scaled(other.elastic_moment, point.elastic_moment, force * length, p);
                expect_scaled(other.plastic_moment, point.plastic_moment, force * length, p);
            }
        }
    }
}

// kN and m to N and mm: the curves are right in themselves.
TEST(YieldCurves, KeepTheirSmallestLevelBeyondOneMillion) {
    const std::string deck = scaled_deck(1000.0, 1000.0);
    const PileFile scaled = pile_file_of(deck);
    PileModel model = build_model(parse_deck(deck));
    expect_none(adopt_yield_curves(scaled, model));
    const auto is_zero = [](const YieldPoint& point) { return point.elastic_axial == 0.0; };
    EXPECT_EQ(std::ranges::count_if(scaled.yield_points.at(0), is_zero), 0);
}

} // namespace
} // namespace korvat::test

// Whole runs: every case folder, every example, and the deck that the documentation shows.
#include "../support/case.hpp"
#include "../support/deck_reader.hpp"
#include "../support/expected_file.hpp"
#include "../support/pile_model.hpp"
#include "../support/record_file.hpp"
#include "../support/scratch_directory.hpp"
#include "../support/text.hpp"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

const std::string deck_name = "KORVAT.INP";
const std::string pile_file_name = "PILE.07";
const std::string plot_name = "PILEPLOT.TXT";
constexpr std::string_view normal_exit = " NORMAL EXIT FROM KORVAT";

std::string name_of_case(const testing::TestParamInfo<std::filesystem::path>& info) {
    std::string name = info.param.filename().string();
    // Names of tests take letters, digits and underlines only.
    const auto is_other = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; };
    std::replace_if(name.begin(), name.end(), is_other, '_');
    return name;
}

std::vector<Record> records_of(const std::string& content) {
    return parse_record_bytes(std::vector<unsigned char>(content.begin(), content.end()));
}

// Both files of the run against the independent calculation.
void expect_files_of_deck(const CaseResult& run) {
    const PileModel model = build_model(parse_deck(run.files.at(deck_name)));
    ASSERT_EQ(run.files.count(pile_file_name), 1U);
    ASSERT_EQ(run.files.count(plot_name), 1U);
    expect_same_pile_file(records_of(run.files.at(pile_file_name)), expected_pile_file(model));
    expect_same_plot(run.files.at(plot_name), expected_plot(model));
}

void expect_no_differences(const CaseResult& run) {
    for (const std::string& difference : run.differences)
        ADD_FAILURE() << difference;
}

class CaseRun : public testing::TestWithParam<std::filesystem::path> {};
class ExampleRun : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(CaseRun, LeavesWhatIsExpected) {
    const CaseResult run = run_case(KORVAT_PROGRAM, GetParam());
    expect_no_differences(run);
    if (expected_exit_code(GetParam()) != 0 || HasFailure()) return;
    // The calculation knows the older layout of the deck only.
    if (deck_revision(run.files.at(deck_name)) == 4) expect_files_of_deck(run);
}

TEST_P(ExampleRun, LeavesWhatIsExpected) {
    const CaseResult run = run_case(KORVAT_PROGRAM, GetParam());
    expect_no_differences(run);
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

// The text between the line ```korvat-deck and the next line ```, for each such block.
std::vector<std::string> decks_shown_in(const std::filesystem::path& document) {
    std::vector<std::string> decks;
    bool inside = false;
    for (const std::string& line : split_lines(read_whole_file(document))) {
        if (!inside && line == "```korvat-deck") {
            inside = true;
            decks.emplace_back();
        } else if (inside && line == "```") {
            inside = false;
        } else if (inside) {
            decks.back() += line + "\n";
        }
    }
    EXPECT_FALSE(inside) << "a deck in " << document << " is not closed";
    return decks;
}

TEST(DocumentedDeck, RunsAsShown) {
    const std::vector<std::string> decks =
        decks_shown_in(std::filesystem::path(KORVAT_DOCS_DIR) / "deck.md");
    ASSERT_FALSE(decks.empty());
    for (const std::string& deck : decks) {
        const CaseResult run = run_deck(KORVAT_PROGRAM, &deck);
        expect_no_differences(run);
        EXPECT_EQ(run.exit_code, 0) << run.standard_error;
        ASSERT_EQ(run.files.count("KORVAT.MLG"), 1U);
        const std::vector<std::string> log = split_lines(run.files.at("KORVAT.MLG"));
        ASSERT_FALSE(log.empty());
        EXPECT_EQ(log.back().substr(0, normal_exit.size()), normal_exit);
        expect_files_of_deck(run);
    }
}

} // namespace
} // namespace korvat::test

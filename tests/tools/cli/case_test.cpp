// What commands take as a CASE: directories with decks, with results and with both; decks; standard input.
#include "command_call.hpp"
#include "support/scratch_directory.hpp"
#include "tools/check/deck_text.hpp"

#include <chrono>
#include <map>

namespace korvat::test {
namespace {

namespace fs = std::filesystem;

class Case : public testing::Test {
protected:
    Case() {
        fs::create_directory(path("case"));
        fs::create_directory(path("tmp"));
    }

    [[nodiscard]] std::string path(const std::string& name) const {
        return (scratch_.path() / name).generic_string();
    }

    static fs::path example(const std::string& name) {
        return fs::path(KORVAT_EXAMPLES_DIR) / name;
    }

    // Copies a file and sets the time of its last change, in seconds from the start of the test.
    void put(const fs::path& file, const std::string& name, int time) const {
        scratch_.write_file(name, read_whole_file(file));
        fs::last_write_time(path(name), start_ + std::chrono::seconds(time));
    }

    // Every file below the scratch directory with its time and content.
    [[nodiscard]] std::map<std::string, std::pair<fs::file_time_type, std::string>> state() const {
        std::map<std::string, std::pair<fs::file_time_type, std::string>> files;
        for (const auto& entry : fs::recursive_directory_iterator(scratch_.path())) {
            const bool is_file = entry.is_regular_file();
            files[entry.path().generic_string()] = {entry.last_write_time(),
                                                    is_file ? read_whole_file(entry.path()) : ""};
        }
        return files;
    }

    // The group that a case is exported as. Leaves nothing but that where the case is.
    std::string exported(const std::string& from, const std::string& note = "",
                         const std::string& input = "") {
        const auto before = state();
        const ScratchDirectory out;
        const std::string file = (out.path() / "group.json").generic_string();
        EXPECT_EQ(
            called_with({"export", "--to", "json", "-o", out.path().generic_string(), from}, input),
            (CommandCall{0, file + "\n",
                         note.empty() ? "" : "korvat-tools export: " + note + "\n"}));
        EXPECT_EQ(state(), before);
        return out.has("group.json") ? out.read_file("group.json") : "";
    }

    CommandCall refused(const std::string& from, const std::string& input = "") {
        const auto before = state();
        const CommandCall call =
            called_with({"export", "--to", "json", "-o", path("out"), from}, input);
        EXPECT_EQ(state(), before);
        return call;
    }

    static CommandCall refusal(int code, const std::string& message) {
        return {code, "", "korvat-tools export: " + message + "\n"};
    }

    ScratchDirectory scratch_;
    fs::file_time_type start_ = fs::file_time_type::clock::now();
};

const std::string barge = "barge-impact";

TEST_F(Case, ADeckIsWorthTheFilesOfItsRun) {
    const std::string expected = exported((example(barge) / "expected").generic_string());
    ASSERT_NE(expected, "");
    put(example(barge) / "KORVAT.INP", "case/KORVAT.INP", 0);
    EXPECT_EQ(exported(path("case")), expected);
    EXPECT_EQ(exported(path("case/KORVAT.INP")), expected);
    put(example(barge) / "KORVAT.INP", "revision b.txt", 0);
    EXPECT_EQ(exported(path("revision b.txt")), expected);
    EXPECT_EQ(exported("-", "", read_whole_file(example(barge) / "KORVAT.INP")), expected);
}

TEST_F(Case, ResultsAreTakenWhereTheDeckIsNotNewer) {
    const std::string barges = exported((example(barge) / "expected").generic_string());
    const std::string jackets = exported(example("jacket").generic_string());
    put(example(barge) / "expected/PILE.07", "case/PILE.07", 10);
    put(example(barge) / "expected/LOAD.09", "case/LOAD.09", 10);
    for (const int time : {9, 10}) {
        put(example("jacket") / "KORVAT.INP", "case/KORVAT.INP", time);
        EXPECT_EQ(exported(path("case")), barges) << time;
    }
    put(example("jacket") / "KORVAT.INP", "case/KORVAT.INP", 11);
    EXPECT_EQ(exported(path("case"), path("case/KORVAT.INP") +
                                         " is newer than its PILE.07: the results are those of a "
                                         "run of the deck"),
              jackets);
    // A run without load vectors leaves the LOAD.09 of an earlier deck.
    put(example(barge) / "expected/PILE.07", "case/PILE.07", 12);
    EXPECT_EQ(exported(path("case"), path("case/KORVAT.INP") +
                                         " is newer than its LOAD.09: the results are those of a "
                                         "run of the deck"),
              jackets);
    fs::remove(path("case/KORVAT.INP"));
    EXPECT_EQ(exported(path("case")), barges);
}

// Of a deck that is older than its results, nothing is read.
TEST_F(Case, AnOlderDeckDoesNotMatter) {
    put(example(barge) / "expected/PILE.07", "case/PILE.07", 1);
    scratch_.write_file("case/KORVAT.INP", "no deck");
    fs::last_write_time(path("case/KORVAT.INP"), fs::last_write_time(path("case/PILE.07")));
    EXPECT_EQ(exported(path("case")), exported(path("case/PILE.07")));
}

// Pile 4 of the load is beyond the three of the deck: line 51, column 3.
TEST_F(Case, ADeckWithAnErrorHasNoResults) {
    const std::string deck = good_deck().with_changed(51, "  1 ", "  4 ").text();
    scratch_.write_file("case/KORVAT.INP", deck);
    scratch_.write_file("deck", deck);
    const std::map<std::string, std::string> shown{
        {path("case"), path("case/KORVAT.INP")}, {path("deck"), path("deck")}, {"-", "<stdin>"}};
    for (const auto& [name, file] : shown) {
        const std::string told = called_with({"check", "--only", "run-error", name}, deck).out;
        const std::string lines = told.substr(0, told.find("the run ends with an error"));
        EXPECT_TRUE(lines.starts_with(file + ":51:3: error: SR/LOADS")) << lines;
        const std::string end = "the run of the deck ends without results\n";
        EXPECT_EQ(refused(name, deck), (CommandCall{1, "", lines + "korvat-tools export: " + end}));
        EXPECT_EQ(called_with({"diff", name, example("jacket").generic_string()}, deck),
                  (CommandCall{1, "", lines + "korvat-tools diff: " + end}));
    }
}

TEST_F(Case, WhatCannotBeReadIsWrongUse) {
    EXPECT_EQ(refused(path("absent")), refusal(2, path("absent") + ": No such file or directory"));
    EXPECT_EQ(refused(path("case")),
              refusal(2, path("case") + ": neither a PILE.07 nor a KORVAT.INP in this directory"));
    fs::create_directory(path("case/KORVAT.INP"));
    EXPECT_EQ(refused(path("case")), refusal(2, path("case/KORVAT.INP") + ": Is a directory"));
    fs::create_directory(path("case/PILE.07"));
    fs::remove(path("case/KORVAT.INP"));
    EXPECT_EQ(refused(path("case")), refusal(2, path("case/PILE.07") + ": Is a directory"));
}

// Files of holes, which take no room on the disk.
TEST_F(Case, WhatIsTooLargeIsNotRead) {
    scratch_.write_file("zeros", "");
    const auto refused = [&](const std::string& name) {
        return called_with({"export", "--to", "json", "-o", path("out"), name});
    };
    fs::resize_file(path("zeros"), 16'000'001);
    EXPECT_EQ(refused(path("zeros")),
              refusal(2, path("zeros") + ": larger than 16 MB, more than is looked at"));
    fs::resize_file(path("zeros"), 1'000'000'000);
    EXPECT_EQ(refused(path("zeros")), refusal(2, path("zeros") + ": File too large"));
}

TEST_F(Case, ALoadFileAloneHasNoPilesToExport) {
    put(example(barge) / "expected/LOAD.09", "loads", 0);
    EXPECT_EQ(
        refused(path("loads")),
        refusal(2, path("loads") + ": a LOAD.09 has no piles; name the directory of its run"));
}

// Every form of a case against every other one, of the same deck and of another.
TEST_F(Case, DiffTakesAnyMix) {
    put(example(barge) / "KORVAT.INP", "case/KORVAT.INP", 0);
    put(example(barge) / "KORVAT.INP", "deck", 0);
    const std::string input = read_whole_file(example(barge) / "KORVAT.INP");
    const std::vector<std::string> forms{(example(barge) / "expected").generic_string(),
                                         path("case"), path("deck"), "-"};
    const auto before = state();
    for (const std::string& a : forms) {
        for (const std::string& b : forms) {
            if (a == "-" && b == "-") continue;
            EXPECT_EQ(called_with({"diff", a, b}, input), (CommandCall{0, "", ""}))
                << a << " " << b;
        }
        const CommandCall other =
            called_with({"diff", a, example("jacket").generic_string()}, input);
        EXPECT_EQ(other.code, 1) << a;
        EXPECT_EQ(other.error, "") << a;
    }
    EXPECT_EQ(state(), before);
}

TEST_F(Case, DiffComparesDecks) {
    const std::string deck = good_deck().text();
    scratch_.write_file("a", deck);
    scratch_.write_file("b", good_deck().with_changed(49, "1.5 ", "3.0 ").text());
    // 1.5 times 400, 50 and -600 against 3.0 times them.
    EXPECT_EQ(called_with({"diff", path("a"), path("b")}),
              (CommandCall{1,
                           "load vector 1: force x 600 -> 1200 at load 1\n"
                           "load vector 1: force z 75 -> 150 at load 1\n"
                           "load vector 1: moment y -900 -> -1800 at load 1\n",
                           ""}));
}

TEST_F(Case, DiffTellsOfANewerDeck) {
    put(example(barge) / "expected/PILE.07", "case/PILE.07", 10);
    put(example("jacket") / "KORVAT.INP", "case/KORVAT.INP", 11);
    EXPECT_EQ(called_with({"diff", path("case"), example("jacket").generic_string()}),
              (CommandCall{0, "",
                           "korvat-tools diff: " + path("case/KORVAT.INP") +
                               " is newer than its PILE.07: the results are those of a run of the "
                               "deck\n"}));
}

} // namespace
} // namespace korvat::test

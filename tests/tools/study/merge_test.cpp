// Several journals as one table.
#include "../cli/command_call.hpp"
#include "study/journal.hpp"
#include "support/scratch_directory.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using study::CaseRecord;
using study::CaseState;

class Merge : public testing::Test {
protected:
    [[nodiscard]] std::string path(const std::string& name) const {
        return (scratch_.path() / name).string();
    }

    void write(const std::string& name, const std::vector<CaseRecord>& records) const {
        std::string text;
        for (const CaseRecord& record : records)
            text += study::to_line(record) + "\n";
        scratch_.write_file(name, text);
    }

    static CaseRecord record(const std::string& name, std::uint64_t position, int warnings,
                             CaseState state = CaseState::fine) {
        CaseRecord made;
        made.name = name;
        made.position = position;
        made.warnings = warnings;
        made.state = state;
        return made;
    }

    // Each row up to the warnings; without the header.
    [[nodiscard]] static std::vector<std::string> rows(const std::string& text) {
        std::vector<std::string> found;
        std::size_t begin = text.find("\r\n") + 2;
        for (std::size_t end = text.find("\r\n", begin); end != std::string::npos;
             begin = end + 2, end = text.find("\r\n", begin)) {
            const std::string row = text.substr(begin, end - begin);
            found.push_back(row.substr(0, row.find(",,,,,,,,,,,,,,,")));
        }
        return found;
    }

    ScratchDirectory scratch_;
};

using Rows = std::vector<std::string>;

TEST_F(Merge, SortsByThePositionsInTheStudy) {
    write("1", {record("c", 2, 1), record("a", 0, 1)});
    write("2", {record("b", 1, 1)});
    const CommandCall call = called_with({"merge", path("1"), path("2")});
    EXPECT_EQ(call.code, 0);
    EXPECT_EQ(rows(call.out), (Rows{"a,fine,,,,1", "b,fine,,,,1", "c,fine,,,,1"}));
    EXPECT_EQ(call.error, "");
}

TEST_F(Merge, TakesTheLastRecordOfACase) {
    write("1", {record("a", 0, 1), record("b", 1, 1), record("a", 0, 2)});
    write("2", {record("b", 1, 3)});
    EXPECT_EQ(rows(called_with({"merge", path("1"), path("2")}).out),
              (Rows{"a,fine,,,,2", "b,fine,,,,3"}));
    EXPECT_EQ(rows(called_with({"merge", path("2"), path("1")}).out),
              (Rows{"a,fine,,,,2", "b,fine,,,,1"}));
}

TEST_F(Merge, TellsOfPartsThatAreMissing) {
    write("1", {record("c", 4, 1), record("a", 0, 1)});
    const CommandCall call = called_with({"merge", path("1")});
    EXPECT_EQ(call.code, 1);
    EXPECT_EQ(call.error, "korvat-tools merge: cases that are in no journal: 3\n");
}

TEST_F(Merge, FollowsAList) {
    write("1", {record("cases/b", 0, 1), record("./cases//a/", 0, 2), record("x", 0, 3)});
    scratch_.write_file("list", "cases/a\ncases/b\ncases/c\n");
    const CommandCall call = called_with({"merge", path("1"), "-f", path("list")});
    EXPECT_EQ(call.code, 1);
    EXPECT_EQ(rows(call.out), (Rows{"cases/a,fine,,,,2", "cases/b,fine,,,,1",
                                    "cases/c,not run,,it is in no journal,,0"}));
    EXPECT_EQ(call.error, "korvat-tools merge: cases that are in no journal: 1\n"
                          "korvat-tools merge: cases that the list does not have: 1\n");
}

// Runs of single cases know nothing of the study: the manifest has the values.
TEST_F(Merge, TakesParametersOfAManifest) {
    std::filesystem::create_directory(scratch_.path() / "cases");
    scratch_.write_file("cases/manifest.csv",
                        "row,folder,wall,deck\r\n1,b,0.05,x\r\n2,a,0.06,y\r\n");
    write("1", {record(path("cases/a"), 0, 1), record(path("cases/b"), 0, 2)});
    const CommandCall call = called_with({"merge", path("1"), "-f", path("cases/manifest.csv")});
    EXPECT_EQ(call.code, 0);
    EXPECT_EQ(call.out.substr(0, 16), "case,wall,state,");
    EXPECT_EQ(rows(call.out), (Rows{"b,0.05,fine,,,,2", "a,0.06,fine,,,,1"}));
}

TEST_F(Merge, HasAColumnForEachParameterOfAnyCase) {
    CaseRecord first = record("a", 0, 1);
    first.parameters = {{"wall", "0.05"}};
    CaseRecord second = record("b", 1, 1, CaseState::crashed);
    second.parameters = {{"piles", "many"}, {"wall", "1,5"}};
    write("1", {first, second});
    const CommandCall call = called_with({"merge", path("1"), "--summary", path("s")});
    EXPECT_EQ(call.code, 1);
    EXPECT_EQ(call.out, "");
    const std::string text = scratch_.read_file("s");
    EXPECT_EQ(text.substr(0, 36), "case,wall,piles (parameter),state,ex");
    EXPECT_EQ(rows(text), (Rows{"a,0.05,,fine,,,,1", "b,\"1,5\",many,crashed,,,,1"}));
}

TEST_F(Merge, PassesOverWhatIsDamaged) {
    scratch_.write_file("1", "words\n" + study::to_line(record("a", 0, 1)) + "\n{\"case\":\"b");
    const CommandCall call = called_with({"merge", path("1")});
    EXPECT_EQ(rows(call.out), (Rows{"a,fine,,,,1"}));
    EXPECT_EQ(call.error, "korvat-tools merge: lines that are no records: 1\n");
    EXPECT_EQ(
        called_with({"merge", path("none")}),
        (CommandCall{2, "", "korvat-tools merge: " + path("none") + ": it cannot be read\n"}));
}

} // namespace
} // namespace korvat::test

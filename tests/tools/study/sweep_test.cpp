// Studies on the disk.
#include "study/sweep.hpp"

#include "../cli/command_call.hpp"
#include "platform/paths.hpp"
#include "study/digest.hpp"
#include "study/study_error.hpp"
#include "support/scratch_directory.hpp"

#include <fstream>
#include <gtest/gtest.h>
#include <map>

namespace korvat::test {
namespace {

namespace fs = std::filesystem;
using study::StudyError;

std::string refusal(const std::string& deck, const std::string& table,
                    const std::string& named_by = "") {
    try {
        const study::DeckTemplate made(deck, "t.inp");
        (void)study::plan(made, study::read_table(table, "t.csv"), named_by, "t.csv");
    } catch (const StudyError& error) {
        return error.what();
    }
    return "none";
}

TEST(StudyDigest, IsThatOfXxh128sum) {
    // The published value of the empty input, and what the command `xxh128sum` prints.
    EXPECT_EQ(study::digest(""), "99aa06d3014798d86001c324468d497f");
    EXPECT_EQ(study::digest("wall 0.05\n"), "a5fe8a76ac262ef281a351b6f8f21d5e");
}

TEST(StudyPlan, NumbersOrNamesTheFolders) {
    std::string rows = "a,name\n";
    for (int i = 1; i <= 10; ++i)
        rows += std::to_string(i) + ",case " + std::to_string(i) + "\n";
    const study::DeckTemplate deck("{a} {name}", "t.inp");
    const study::Table table = study::read_table(rows, "t.csv");
    EXPECT_EQ(
        study::plan(deck, table, "", "t.csv").folders,
        (std::vector<std::string>{"01", "02", "03", "04", "05", "06", "07", "08", "09", "10"}));
    EXPECT_EQ(study::plan(deck, table, "name", "t.csv").folders.front(), "case 1");
}

TEST(StudyPlan, RefusesNamesThatAreLeftOver) {
    EXPECT_EQ(refusal("{a}{b}", "a\n1\n"),
              "t.csv: the template takes {b}, and there is no such column");
    EXPECT_EQ(refusal("{a}", "a,b\n1,2\n"), "t.csv: no place of the template takes the column b");
    EXPECT_EQ(refusal("{a}", "a,b\n1,2\n", "b"), "none"); // it names the folders
    EXPECT_EQ(refusal("{a}", "a\n1\n", "c"), "t.csv: there is no column c to name the folders by");
}

TEST(StudyPlan, RefusesRowsThatGiveTheSameDeck) {
    EXPECT_EQ(refusal("{a:.1f}", "a\n1.02\n2\n1.04\n"),
              "t.csv: row 1 and row 3 give the same deck");
    EXPECT_EQ(refusal("{a:.1f}", "a\n1.02\n2\n1.09\n"), "none");
}

TEST(StudyPlan, RefusesValuesWithTheRow) {
    EXPECT_EQ(refusal("x\n{a:d}", "a\n1\n1.5\n"),
              "t.csv: row 2: t.inp:2: {a:d}: 1.5 is no whole number, as its format d wants");
}

TEST(StudyPlan, RefusesNamesThatNoFolderCanHave) {
    const auto refusal_of = [](const std::string& name) {
        return refusal("{a}", "a,n\n1,\"" + name + "\"\n", "n");
    };
    EXPECT_EQ(refusal_of("b/c"),
              "t.csv: row 1: 'b/c' cannot name a folder: it has one of / \\ : * ? "
              "\" < > | in it");
    EXPECT_EQ(refusal_of(""), "t.csv: row 1: '' cannot name a folder: it is empty");
    for (const std::string name :
         {".", "..", ".git", "-o", "a.", "a ", "nul", "COM1.txt", "Manifest.csv", "a\nb", "a:b"})
        EXPECT_NE(refusal_of(name), "none") << name;
    EXPECT_NE(refusal_of(std::string(101, 'x')), "none");
    for (const std::string name : {"a b", "Pfähle", "com", "nulls", "a.b"})
        EXPECT_EQ(refusal_of(name), "none") << name;
    // Windows takes these two for one folder.
    EXPECT_EQ(refusal("{a}", "a,n\n1,A1\n2,a1\n", "n"),
              "t.csv: row 2: the folder 'a1' is that of row 1 too");
}

class SweepCommand : public testing::Test {
protected:
    SweepCommand() {
        write("t.inp", "wall {wall}\n");
        write("t.csv", "wall\n0.05\n0.06\n");
    }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(scratch_.path() / name, std::ios::binary) << text;
    }

    [[nodiscard]] std::string path(const std::string& name) const {
        return platform::name_of(scratch_.path() / name);
    }

    [[nodiscard]] CommandCall swept(std::vector<std::string> more = {}) const {
        std::vector<std::string> all = {"sweep", path("t.inp"), path("t.csv"), "-o", path("out")};
        all.insert(all.end(), more.begin(), more.end());
        return called_with(all);
    }

    // Every file below the folder with its content and the moment it was written.
    [[nodiscard]] std::map<std::string, std::pair<std::string, fs::file_time_type>> files() const {
        std::map<std::string, std::pair<std::string, fs::file_time_type>> found;
        for (const auto& entry : fs::recursive_directory_iterator(scratch_.path() / "out")) {
            if (entry.is_regular_file())
                found[entry.path().lexically_relative(scratch_.path() / "out").generic_string()] = {
                    read_whole_file(entry.path()), entry.last_write_time()};
        }
        return found;
    }

    ScratchDirectory scratch_;
};

TEST_F(SweepCommand, WritesADeckForEachRowAndAManifest) {
    EXPECT_EQ(swept(),
              (CommandCall{0, "2 cases in " + path("out") + ": 2 written, 0 as they were\n", ""}));
    const auto found = files();
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found.at("1/KORVAT.INP").first, "wall 0.05\n");
    EXPECT_EQ(found.at("2/KORVAT.INP").first, "wall 0.06\n");
    EXPECT_EQ(found.at("manifest.csv").first, "row,folder,wall,deck\r\n1,1,0.05," +
                                                  study::digest("wall 0.05\n") + "\r\n2,2,0.06," +
                                                  study::digest("wall 0.06\n") + "\r\n");
}

TEST_F(SweepCommand, ChangesNothingTheSecondTime) {
    EXPECT_EQ(swept().code, 0);
    const auto before = files();
    EXPECT_EQ(swept().out, "2 cases in " + path("out") + ": 0 written, 2 as they were\n");
    EXPECT_EQ(files(), before);
    write("t.csv", "wall\n0.05\n0.07\n");
    EXPECT_EQ(swept().out, "2 cases in " + path("out") + ": 1 written, 1 as they were\n");
    EXPECT_EQ(files().at("1/KORVAT.INP"), before.at("1/KORVAT.INP"));
}

TEST_F(SweepCommand, TellsOfFoldersOfAnEarlierTable) {
    EXPECT_EQ(swept().code, 0);
    write("t.csv", "wall\n0.05\n");
    EXPECT_EQ(
        swept(),
        (CommandCall{0, "1 case in " + path("out") + ": 0 written, 1 as they were\n",
                     "korvat-tools sweep: of an earlier table, 1 folder is left, such as 2\n"}));
    EXPECT_TRUE(fs::exists(scratch_.path() / "out" / "2" / "KORVAT.INP"));
}

TEST_F(SweepCommand, TakesGridsAloneAndWithATable) {
    write("t.inp", "{wall} {d}\n");
    EXPECT_EQ(swept({"--grid", "d=1.5,1.8"}).out,
              "4 cases in " + path("out") + ": 4 written, 0 as they were\n");
    EXPECT_EQ(files().at("3/KORVAT.INP").first, "0.06 1.5\n");
    const CommandCall grid = called_with({"sweep", path("t.inp"), "--grid", "wall=0.1:0.3:0.1",
                                          "--grid", "d=2", "-o", path("other")});
    EXPECT_EQ(grid, (CommandCall{0, "3 cases in " + path("other") + ": 3 written, 0 as they were\n",
                                 ""}));
}

TEST_F(SweepCommand, WritesNothingWhereItRefuses) {
    write("t.csv", "wall\n0.05\n0.05\n");
    EXPECT_EQ(swept(), (CommandCall{2, "",
                                    "korvat-tools sweep: " + path("t.csv") +
                                        ": row 1 and row 2 give the same deck\n"}));
    EXPECT_FALSE(fs::exists(scratch_.path() / "out"));
    EXPECT_EQ(called_with({"sweep", path("t.inp"), "-o", path("out")}),
              (CommandCall{2, "", "korvat-tools sweep: there is neither a TABLE nor a --grid\n"}));
    EXPECT_EQ(
        called_with({"sweep", path("none.inp"), path("t.csv"), "-o", path("out")}),
        (CommandCall{2, "", "korvat-tools sweep: " + path("none.inp") + ": it cannot be read\n"}));
}

TEST_F(SweepCommand, TellsWhereTheDiskDoesNotTakeIt) {
    write("out", "a file");
    const CommandCall call = swept();
    EXPECT_EQ(call.code, 2);
    EXPECT_EQ(call.error.find("korvat-tools sweep: " + path("out") + ": "), 0U) << call.error;
}

} // namespace
} // namespace korvat::test

// Names of cases from arguments, lists and manifests.
#include "study/case_list.hpp"

#include "study/study_error.hpp"
#include "support/scratch_directory.hpp"

#include <gtest/gtest.h>
#include <sstream>

namespace korvat::test {
namespace {

using study::CaseList;
using study::CaseNames;
using study::StudyError;

class StudyCaseList : public testing::Test {
protected:
    StudyCaseList() {
        for (const std::string name : {"plain", "study", "study/x", "other"})
            std::filesystem::create_directory(scratch_.path() / name);
        scratch_.write_file("plain/KORVAT.INP", "");
        scratch_.write_file("plain/manifest.csv", "row,folder,deck\r\n1,x,0\r\n"); // of no matter
        scratch_.write_file("study/manifest.csv",
                            "row,folder,wall,deck\r\n1,x,0.05,aa\r\n2,\"y, \"\"2\"\"\n\",,bb\r\n");
        scratch_.write_file("other/manifest.csv", "row,folder,d,wall,deck\n1,z,1,2,cc\n");
    }

    [[nodiscard]] std::string path(const std::string& name) const {
        return (scratch_.path() / name).generic_string();
    }

    // "name|directory|column=value...|deck" of each case.
    [[nodiscard]] static std::vector<std::string> listed(const CaseNames& names,
                                                         const std::string& input = "") {
        std::istringstream stream(input);
        CaseList list(names, stream);
        std::vector<std::string> found;
        while (const auto each = list.next()) {
            std::string text = each->name + "|" + each->directory + "|";
            for (const auto& [name, value] : each->parameters)
                text.append(name).append("=").append(value).append(" ");
            found.push_back(text + "|" + each->deck);
        }
        return found;
    }

    [[nodiscard]] static std::string refusal(const CaseNames& names) {
        try {
            (void)listed(names);
        } catch (const StudyError& error) {
            return error.what();
        }
        return "none";
    }

    ScratchDirectory scratch_;
};

using Lines = std::vector<std::string>;

TEST_F(StudyCaseList, AStudyAloneHasTheNamesOfItsFolders) {
    const std::string study = path("study");
    const Lines expected = {"x|" + study + "/x|wall=0.05 |aa",
                            "y, \"2\"\n|" + study + "/y, \"2\"\n|wall= |bb"};
    EXPECT_EQ(listed({{study}, ""}), expected);
    EXPECT_EQ(listed({{study + "/"}, ""}).front(), "x|" + study + "/x|wall=0.05 |aa");
    EXPECT_EQ(listed({{}, study + "/manifest.csv"}), expected);
    EXPECT_EQ(CaseList::home({{study}, ""}), study + "/");
    EXPECT_EQ(CaseList::home({{}, study + "/manifest.csv"}), study + "/");
    EXPECT_EQ(CaseList::home({{study, study}, ""}), "");
    EXPECT_EQ(CaseList::home({{path("plain")}, ""}), "");
}

TEST_F(StudyCaseList, WithOthersItHasPaths) {
    const CaseNames names{{path("plain"), path("none"), path("study"), path("other")}, ""};
    EXPECT_EQ(
        listed(names),
        (Lines{path("plain") + "|" + path("plain") + "||", path("none") + "|" + path("none") + "||",
               path("study/x") + "|" + path("study/x") + "|wall=0.05 |aa",
               path("study/y, \"2\"\n") + "|" + path("study/y, \"2\"\n") + "|wall= |bb",
               path("other/z") + "|" + path("other/z") + "|d=1 wall=2 |cc"}));
    std::istringstream none;
    CaseList list(names, none);
    while (list.next()) {
    }
    EXPECT_EQ(list.columns(), (Lines{"wall", "d"}));
}

TEST_F(StudyCaseList, AListHasANameALine) {
    EXPECT_EQ(listed({{}, "-"}, " a b\r\n\n-c\n\"d\"\nlast"),
              (Lines{" a b| a b||", "-c|-c||", "\"d\"|\"d\"||", "last|last||"}));
    EXPECT_EQ(listed({{}, "-"}, ""), Lines{});
    scratch_.write_file("list", "a\n" + path("study") + "\n");
    EXPECT_EQ(listed({{}, path("list")}).size(), 3U);
}

TEST_F(StudyCaseList, ZeroBytesSeparateNamesWithLineEnds) {
    EXPECT_EQ(listed({{}, "-"}, std::string("a\nb\0c\r\0", 7)),
              (Lines{"a\nb|a\nb||", "c\r|c\r||"}));
}

TEST_F(StudyCaseList, AManifestMayComeAsStandardInput) {
    EXPECT_EQ(listed({{}, "-"}, "row,folder,deck\n1,x,aa\n"), (Lines{"x|x||aa"}));
}

// Beyond what is looked at to tell lists apart.
TEST_F(StudyCaseList, ALongListIsWhole) {
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += "case-" + std::to_string(i) + "\n";
    const Lines found = listed({{}, "-"}, text);
    ASSERT_EQ(found.size(), 100'000U);
    EXPECT_EQ(found[12'345], "case-12345|case-12345||");
    EXPECT_EQ(found.back(), "case-99999|case-99999||");
}

TEST_F(StudyCaseList, RefusesWhatIsNoList) {
    EXPECT_EQ(refusal({{}, path("none")}), path("none") + ": it cannot be read");
    EXPECT_EQ(refusal({{}, path("study")}), path("study") + ": it cannot be read");
    const auto refusal_of = [&](const std::string& manifest) {
        scratch_.write_file("study/manifest.csv", manifest);
        return refusal({{path("study")}, ""});
    };
    const std::string name = path("study/manifest.csv");
    EXPECT_EQ(refusal_of("a,b\n"), name + ": it is no manifest of korvat-tools sweep");
    EXPECT_EQ(refusal_of(""), name + ": it is no manifest of korvat-tools sweep");
    EXPECT_EQ(refusal_of("row,folder,deck\n1,x,aa\n\n2,y\n"),
              name + ":4: the row does not have the values that the header names");
    EXPECT_EQ(refusal_of("row,folder,deck\n1,\"x,aa\n"), name + ":2: a quote is not closed");
}

TEST(StudyShard, IsEveryNthCase) {
    const study::Shard shard = study::shard_of("2/3");
    std::vector<std::uint64_t> positions;
    for (std::uint64_t i = 0; i < 8; ++i) {
        if (shard.has(i)) positions.push_back(i);
    }
    EXPECT_EQ(positions, (std::vector<std::uint64_t>{1, 4, 7}));
    EXPECT_TRUE(study::shard_of("1/1").is_all());
    for (const std::string text : {"", "1", "0/2", "3/2", "1/0", "a/b", "1/2x", "-1/2", "1/"})
        EXPECT_THROW((void)study::shard_of(text), StudyError) << text;
}

} // namespace
} // namespace korvat::test

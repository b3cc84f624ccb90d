// The command diff: its lines, its JSON and its exit codes.
#include "../group/group_writer.hpp"
#include "../group/sample_group.hpp"
#include "command_call.hpp"
#include "support/scratch_directory.hpp"

#include <cmath>

namespace korvat::test {
namespace {

class Diff : public testing::Test {
protected:
    Diff() {
        for (const char* const side : {"a", "b"})
            std::filesystem::create_directory(scratch_.path() / side);
        // Straight down from the origin, with 30 elements of 1.
        group::Pile& pile = a.piles[1];
        pile.nodes.assign(31, {});
        pile.elements.assign(30, {1.0, 1.0, 1, 0.0});
        for (std::size_t i = 0; i < pile.nodes.size(); ++i)
            pile.nodes[i].z = static_cast<double>(i);
        a.sections[2].wall = 0.050;
        b = a;
    }

    void write(const std::string& name, const std::string& content) const {
        scratch_.write_file(name, content);
    }

    [[nodiscard]] std::string path(const std::string& name) const {
        return (scratch_.path() / name).generic_string();
    }

    CommandCall compared(std::vector<std::string> options = {}) {
        write("a/PILE.07", written_pile_file(a));
        write("b/PILE.07", written_pile_file(b));
        options.insert(options.begin(), "diff");
        options.push_back(path("a"));
        options.push_back(path("b"));
        return called_with(options);
    }

    static CommandCall refused(const std::string& reason) {
        return {2, "", "korvat-tools diff: " + reason + "\n"};
    }

    ScratchDirectory scratch_;
    group::Group a = sample_group(5);
    group::Group b;
};

TEST_F(Diff, SaysNothingOfEqualRuns) {
    EXPECT_EQ(compared(), (CommandCall{0, "", ""}));
    EXPECT_EQ(compared({"--json"}),
              (CommandCall{0,
                           R"({"format":"korvat differences","version":1,"abs":0.0,"rel":0.0,)"
                           R"("equal":true,"differences":[]})"
                           "\n",
                           ""}));
}

TEST_F(Diff, SpeaksInTheTermsOfTheField) {
    b.sections[2].wall = 0.045;
    group::Pile& pile = b.piles[1];
    pile.nodes.push_back(pile.nodes.back());
    pile.nodes.back().x = 20.5;
    pile.elements.push_back(pile.elements.back());
    b.label = "Two\npiles";
    // The pile was 30 long; now it is the root of 30 squared and 20.5 squared, 36.3352.
    EXPECT_EQ(compared(), (CommandCall{1,
                                       "group: label \"Two piles\" -> \"Two\\x0Apiles\"\n"
                                       "section 3: wall 0.05 -> 0.045\n"
                                       "pile 2: tip x 0 -> 20.5 (elements 30 -> 31)\n"
                                       "pile 2: length 30 -> 36.3352\n",
                                       ""}));
}

TEST_F(Diff, NamesTheLargestOfManyNodes) {
    for (std::size_t i = 1; i < 30; ++i)
        b.piles[1].nodes[i].y = i == 7 ? -2.0 : 1.0;
    b.piles[1].elements[3].section = 2;
    b.piles[1].elements[4].section = 3;
    EXPECT_EQ(compared(),
              (CommandCall{1,
                           "pile 2: y 0 -> -2 at node 8, the largest of 29 differences\n"
                           "pile 2: section 1 -> 2 at element 4, the first of 2 differences\n",
                           ""}));
}

TEST_F(Diff, ShowsAsManyDigitsAsTellTheNumbersApart) {
    a.sections[0].area = 0.1;
    b.sections[0].area = std::nextafter(0.1, 1.0);
    a.sections[1].area = 1234567.0;
    b.sections[1].area = 1234568.0;
    EXPECT_EQ(compared(), (CommandCall{1,
                                       "section 1: area 0.10000000000000001 -> "
                                       "0.10000000000000002\n"
                                       "section 2: area 1234567 -> 1234568\n",
                                       ""}));
}

TEST_F(Diff, ShowsJson) {
    b.piles[1].nodes[30].x = HUGE_VAL;
    b.piles[1].nodes[4].forces[1] = -0.5;
    b.sections.push_back({});
    EXPECT_EQ(
        compared({"--json", "--rel", "0.25", "--abs=1e-3"}),
        (CommandCall{
            1,
            R"({"format":"korvat differences","version":1,"abs":0.001,"rel":0.25,"equal":false,)"
            R"("differences":[{"subject":"section","number":4,"only_in":"B"},)"
            R"({"subject":"pile","number":2,"quantity":"tip x","unit":"L","a":0.0,"b":"inf"},)"
            R"({"subject":"pile","number":2,"quantity":"length","unit":"L","a":30.0,"b":"inf"},)"
            R"({"subject":"pile","number":2,"quantity":"force y","unit":"F","a":0.0,"b":-0.5,)"
            R"("place":"node","place_number":5,"count":1}]})"
            "\n",
            ""}));
}

TEST_F(Diff, Tolerates) {
    b.sections[2].wall = 0.045;
    EXPECT_EQ(compared({"--abs", "0.00501"}).code, 0);
    EXPECT_EQ(compared({"--rel", "0.11"}).code, 0);
    EXPECT_EQ(compared({"--rel", "0.09"}).code, 1);
    for (const char* const wrong : {"-1", "nan", "inf", "x", "1e"})
        EXPECT_EQ(compared({"--abs", wrong}).code, 2) << wrong;
}

TEST_F(Diff, ComparesFilesAndDirectories) {
    write("b/LOAD.09", written_load_file(sample_loads()));
    EXPECT_EQ(compared(), (CommandCall{1,
                                       "load vector 1: only in B\n"
                                       "load vector 2: only in B\n",
                                       ""}));
    EXPECT_EQ(called_with({"diff", path("a/PILE.07"), path("b/PILE.07")}).code, 0);
    auto loads = sample_loads();
    loads[0].loads[0].moment[0] = 4.5;
    write("other", written_load_file(loads));
    EXPECT_EQ(called_with({"diff", path("b/LOAD.09"), "-"}, written_load_file(loads)),
              (CommandCall{1, "load vector 1: moment x 4 -> 4.5 at load 1\n", ""}));
    EXPECT_EQ(called_with({"diff", path("b/LOAD.09"), path("b/PILE.07")}),
              refused("a LOAD.09 cannot be compared with a PILE.07: " + path("b/LOAD.09") + ", " +
                      path("b/PILE.07")));
}

TEST_F(Diff, RefusesWhatCannotBeRead) {
    EXPECT_EQ(called_with({"diff", path("a"), path("b")}),
              refused(path("a") + ": neither a PILE.07 nor a KORVAT.INP in this directory"));
    write("whole", written_pile_file(a));
    EXPECT_EQ(called_with({"diff", path("whole"), path("absent")}),
              refused(path("absent") + ": No such file or directory"));
    write("a/PILE.07", "K");
    EXPECT_EQ(called_with({"diff", path("a"), path("whole")}),
              refused(path("a/PILE.07") + ": offset 1: the file ends without its end byte"));
    EXPECT_EQ(called_with({"diff", path("whole"), "-"}, "K\x82"),
              refused("standard input: offset 1: the file has no records: the run that wrote it "
                      "failed"));
    EXPECT_EQ(called_with({"diff", "-", "-"}),
              refused("standard input can be one of the two only"));
}

} // namespace
} // namespace korvat::test

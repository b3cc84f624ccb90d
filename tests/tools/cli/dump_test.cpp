// The command dump: tables, JSON and records, of whole and damaged files.
#include "../group/group_writer.hpp"
#include "../group/sample_group.hpp"
#include "command_call.hpp"
#include "support/scratch_directory.hpp"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

namespace korvat::test {
namespace {

// A tube, a dummy pile and a battered pile of two elements, 5 long each, with a spring at its tip.
group::Group small_group() {
    group::Group group;
    group.revision = 4;
    group.label = "Small";
    group::Section& tube = group.sections.emplace_back();
    tube.diameter = 1.0;
    tube.wall = 0.25;
    tube.area = 0.589048623;
    tube.axial_stiffness = 1.25e8;
    tube.wall_weight = 77.0;
    tube.elastic_modulus = 2.0e8;
    group::Pile& dummy = group.piles.emplace_back();
    dummy.number = 1;
    dummy.nodes.emplace_back().z = -1.0;
    group::Pile& pile = group.piles.emplace_back();
    pile.number = 2;
    pile.fixed_to = 1;
    pile.tip_code = -1;
    for (const double part : {0.0, 0.5, 1.0}) {
        group::Node& node = pile.nodes.emplace_back();
        node.x = 6.0 * part;
        node.z = 8.0 * part;
    }
    pile.nodes[2].springs[2] = 1500.0;
    for (const double strain : {0.0, 1.2e-4})
        pile.elements.push_back({1.0, 5.0, 1, strain});
    return group;
}

const std::string small_tables = R"(Group of revision 4: 2 piles, 1 cross section
Label: Small

Cross sections

  section  diameter  wall      area  modulus  wall weight  fluid weight
                  L     L        L2       L3         F/L3          F/L3
        1         1  0.25  0.589049        0           77             0

  section        EA  GA    EI    GJ      E     G  yield stress  strain
                  F   F  F L2  F L2   F/L2  F/L2          F/L2
        1  1.25e+08   0     0     0  2e+08     0             0       0

Piles

  pile  fixed to  tip code  elements  x head  y head  z head  x tip  y tip  z tip  length
                                           L       L       L      L      L      L       L
     1         -         0     dummy       0       0      -1
     2         1        -1         2       0       0       0      6      0      8      10

Pile 2

  node  x  y  z  element  section  diameter  length   strain
        L  L  L                           L       L
     1  0  0  0        1        1         1       5        0
     2  3  0  4        2        1         1       5  0.00012
     3  6  0  8

  node                values  x  y     z  about x  about y  about z
     3  springs, F/L and F L  0  0  1500        0        0        0
)";

const std::string load_tables = R"(2 load vectors

Load vector 1: Waves

  pile  force x  force y  force z  moment x  moment y  moment z
              F        F        F       F L       F L       F L
     2        1        2        3         4         5         6
     1        7        0        0         0         0         0

Load vector 2:

  pile  force x  force y  force z  moment x  moment y  moment z
              F        F        F       F L       F L       F L
     2       -8        0        0         0         0         9
)";

class Dump : public testing::Test {
protected:
    [[nodiscard]] std::string file(const std::string& content) const {
        scratch_.write_file("file", content);
        return (scratch_.path() / "file").generic_string();
    }

    [[nodiscard]] std::string damage(const std::string& reason) const {
        return "korvat-tools dump: " + (scratch_.path() / "file").generic_string() + ": " + reason +
               "\n";
    }

    ScratchDirectory scratch_;
};

TEST_F(Dump, ShowsAPileFileAsTables) {
    const std::string content = written_pile_file(small_group());
    EXPECT_EQ(called_with({"dump", file(content)}), (CommandCall{0, small_tables, ""}));
    EXPECT_EQ(called_with({"dump", "-"}, content), (CommandCall{0, small_tables, ""}));
}

TEST_F(Dump, ShowsALoadFileAsTables) {
    EXPECT_EQ(called_with({"dump", file(written_load_file(sample_loads()))}),
              (CommandCall{0, load_tables, ""}));
}

TEST_F(Dump, ShowsTypesTubesAndCurvesOfRevision5) {
    const CommandCall call = called_with({"dump", file(written_pile_file(sample_group(5)))});
    EXPECT_EQ(call.code, 0);
    EXPECT_TRUE(
        call.out.starts_with("Group of revision 5 (2009-09-01): 2 piles, 3 cross sections\n"));
    // Each section has 20 values of the sample, 1.5 apart: those of section 2 end at 60, and the curves of
    // section 3 begin behind its own, at 91.5.
    EXPECT_NE(
        call.out.find(
            "        2     2           0          52.5           54             55.5      57    "
            "58.5      60    1 3\n"),
        std::string::npos)
        << call.out;
    EXPECT_NE(call.out.find("        3      2           94.5      96          100.5     102\n"),
              std::string::npos)
        << call.out;
}

TEST_F(Dump, ShowsJson) {
    group::Group group = small_group();
    group.sections[0].area = std::numeric_limits<double>::infinity();
    group.sections[0].wall = std::nan("");
    group.label = "caf\xE9 \"\\";
    const CommandCall call = called_with({"dump", "--json", file(written_pile_file(group))});
    EXPECT_EQ(call.code, 0);
    const auto json = nlohmann::json::parse(call.out);
    EXPECT_EQ(json["label"], "caf\uFFFD \"\\");
    EXPECT_EQ(json["sections"][0]["area"], "inf");
    EXPECT_EQ(json["sections"][0]["wall"], "nan");
    EXPECT_EQ(json["piles"][1]["nodes"][2]["springs"][2], 1500.0);
    EXPECT_EQ(called_with({"dump", "--json", file("K\x82")}).out, "");

    const std::vector<group::LoadVector> loads{{"A", {{3, {1.5, 0.0, 0.0}, {}}}}};
    EXPECT_EQ(called_with({"dump", "--json", file(written_load_file(loads))}),
              (CommandCall{0,
                           R"({"format":"korvat loads","version":1,"load_vectors":[{"vector":1,)"
                           R"("label":"A","loads":[{"pile":3,"force":[1.5,0.0,0.0],)"
                           R"("moment":[0.0,0.0,0.0]}]}]})"
                           "\n",
                           ""}));
}

TEST_F(Dump, ShowsRecords) {
    EXPECT_EQ(called_with({"dump", "--records", file(written_load_file(sample_loads()))}),
              (CommandCall{0,
                           "record 1 at 0001, 80 bytes: load vector 1: label\n  Waves\n"
                           "record 2 at 0053, 4 bytes: load vector 1: number of loads\n  2\n"
                           "record 3 at 0059, 52 bytes: load vector 1: load 1\n  2 1 2 3 4 5 6\n"
                           "record 4 at 008F, 52 bytes: load vector 1: load 2\n  1 7 0 0 0 0 0\n"
                           "record 5 at 00C5, 80 bytes: load vector 2: label\n  \n"
                           "record 6 at 0117, 4 bytes: load vector 2: number of loads\n  1\n"
                           "record 7 at 011D, 52 bytes: load vector 2: load 1\n  2 -8 0 0 0 0 9\n",
                           ""}));
    const CommandCall call =
        called_with({"dump", "--records", file(written_pile_file(sample_group(5)))});
    EXPECT_EQ(call.code, 0);
    EXPECT_TRUE(call.out.starts_with("record 1 at 0001, 12 bytes: date of the revision\n"
                                     "  2009  9  1\n"));
    // Header, 14 + 82 + 10 + 3 * 164 bytes; three types, one code and two tubes of 2800 integers.
    EXPECT_NE(call.out.find("record 7 at 0257, 11200 bytes: types, non-linear codes and tubes of "
                            "sections\n  1  2  1  0 (199 times)  2  0 (209 times)  1  3  0 (2386 "
                            "times)\n"),
              std::string::npos)
        << call.out;
    // The curves end at 102; 21 values of one node, 63 of three, then three for each element.
    EXPECT_TRUE(call.out.ends_with("pile 2: sections and strains of elements\n  2 232.5  3 237\n"))
        << call.out;
}

TEST_F(Dump, ShowsWhatStandsBeforeTheDamage) {
    const std::string whole = written_load_file(sample_loads());
    // Cut behind the first load.
    EXPECT_EQ(called_with({"dump", file(whole.substr(0, 143))}),
              (CommandCall{1,
                           "1 load vector\n\nLoad vector 1: Waves\n\n"
                           "  pile  force x  force y  force z  moment x  moment y  moment z\n"
                           "              F        F        F       F L       F L       F L\n"
                           "     2        1        2        3         4         5         6\n",
                           damage("offset 143: the file ends without its end byte")}));
    // A record that cannot be there is shown by its bytes.
    const std::string records = "K" + RecordBytes().label("Waves").framed() +
                                RecordBytes().integer(1).framed() +
                                RecordBytes().integer(-2).framed() + '\x82';
    EXPECT_EQ(called_with({"dump", "--records", file(records)}),
              (CommandCall{1,
                           "record 1 at 0001, 80 bytes: load vector 1: label\n  Waves\n"
                           "record 2 at 0053, 4 bytes: load vector 1: number of loads\n  1\n"
                           "record 3 at 0059, 4 bytes: unknown\n  FE FF FF FF\n",
                           damage("offset 89: load 1 of load vector 1 has 4 bytes, not 52")}));
}

TEST_F(Dump, TellsWhatIsNeitherFile) {
    EXPECT_EQ(called_with({"dump", file("")}),
              (CommandCall{1, "", damage("offset 0: the file is empty")}));
    EXPECT_EQ(called_with({"dump", file(std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16))}),
              (CommandCall{1, "", damage("offset 0: the file does not begin with the letter K")}));
    EXPECT_EQ(
        called_with({"dump", file("K\x82")}),
        (CommandCall{1, "",
                     damage("offset 1: the file has no records: the run that wrote it failed")}));
    EXPECT_EQ(called_with({"dump", file("K" + RecordBytes().label("Waves").framed() + '\x82')}),
              (CommandCall{1, "",
                           damage("offset 83: the file ends behind its label: the run that wrote "
                                  "it failed")}));
    EXPECT_EQ(called_with({"dump", file("K" + RecordBytes().integer(7).framed() + '\x82')}),
              (CommandCall{1, "",
                           damage("offset 1: the records are neither those of a PILE.07 nor those "
                                  "of a LOAD.09")}));
}

TEST_F(Dump, TellsWhatADeckIsFor) {
    EXPECT_EQ(called_with({"dump", file("A deck\n\nGeneral values\n")}),
              (CommandCall{1, "",
                           damage("offset 0: the file does not begin with the letter K") +
                               "korvat-tools dump: a deck is looked at by check, diff and "
                               "export\n"}));
}

TEST_F(Dump, WhatCannotBeReadIsWrongUse) {
    const std::string absent = (scratch_.path() / "absent").generic_string();
    EXPECT_EQ(
        called_with({"dump", absent}),
        (CommandCall{2, "", "korvat-tools dump: " + absent + ": No such file or directory\n"}));
    const std::string directory = scratch_.path().generic_string();
    EXPECT_EQ(called_with({"dump", directory}),
              (CommandCall{2, "",
                           "korvat-tools dump: " + directory +
                               ": a directory; name the PILE.07 or LOAD.09 in it\n"}));
    EXPECT_EQ(called_with({"dump"}).code, 2);
    EXPECT_EQ(called_with({"dump", "--json", "--records", "-"}).code, 2);
}

TEST_F(Dump, ShowsNoControlCharactersOfALabel) {
    group::Group group;
    group.revision = 4;
    group.label = "a\x1B[2Jb\x7F\xC2\x9B\xC3\xA4";
    const CommandCall call = called_with({"dump", file(written_pile_file(group))});
    EXPECT_EQ(call.out, "Group of revision 4: 0 piles, 0 cross sections\n"
                        "Label: a\\x1B[2Jb\\x7F\\x9B\xC3\xA4\n");
}

} // namespace
} // namespace korvat::test

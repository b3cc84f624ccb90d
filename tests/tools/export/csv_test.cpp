// The tables of a small group, whole; numbers, labels and fields in them.
#include "export/csv.hpp"
#include "export/csv_table.hpp"
#include "export/quantities.hpp"
#include "export/text.hpp"
#include "tools/export/small_group.hpp"

#include <gtest/gtest.h>
#include <limits>

namespace korvat::test {
namespace {

using exporting::CsvTable;
using exporting::ExportedFile;
using exporting::number_text;
using exporting::utf8_text;

std::string table(const std::string& name) {
    for (const ExportedFile& file : exporting::csv_files(small_group())) {
        if (file.name == name) return file.content;
    }
    ADD_FAILURE() << name;
    return {};
}

// Lines with CR LF behind each.
std::string lines(const std::vector<std::string>& texts) {
    std::string text;
    for (const std::string& line : texts)
        text += line + "\r\n";
    return text;
}

TEST(ExportCsv, HasATableOfEachKind) {
    std::vector<std::string> names;
    for (const ExportedFile& file : exporting::csv_files(small_group()))
        names.push_back(file.name);
    EXPECT_EQ(names, (std::vector<std::string>{"sections.csv", "elements.csv", "nodes.csv",
                                               "curves.csv", "loads.csv", "piles.csv"}));
}

// For each unit of length: the tube has 2.25 8 = 18 of steel, (2 - 2 0.5)^2 pi/4 4 = pi of fluid and
// 2^2 pi/4 = pi of volume. The composite has 4 8 = 32 of steel, 1.5 2 = 3 of grout, and the fluid of its
// inner tube alone: (2.5 - 2 0.25)^2 pi/4 16 = 16 pi; 3^2 pi/4 of volume.
TEST(ExportCsv, Sections) {
    EXPECT_EQ(table("sections.csv"),
              lines({"section,type,tubes,part of,diameter [L],wall [L],area [L2],section modulus "
                     "[L3],axial stiffness [F],shear stiffness [F],bending stiffness [F L2],"
                     "torsional stiffness [F L2],unit weight of wall [F/L3],unit weight of fluid "
                     "[F/L3],temperature strain,yield stress [F/L2],elastic modulus [F/L2],shear "
                     "modulus [F/L2],eccentricity,axial yield force [F],torsional yield moment "
                     "[F L],miscellaneous 1,miscellaneous 2,miscellaneous 3,curve points,steel "
                     "weight [F/L],grout weight [F/L],fluid weight [F/L],displaced volume [L2]",
                     "1,tube,,0,2,0.5,2.25,0.75,450,170,150,110,8,4,1.2e-05,0.35,200,80,-0.25,"
                     "0.8,0.3,0.1,0.2,1e-310,2,18,0,3.141592653589793,3.141592653589793",
                     "2,composite,3 4,0,3,0,5.5,0,858.5,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,32,3,"
                     "50.26548245743669,7.0685834705770345",
                     "3,tube,,2,3,0.25,4,0,0,0,0,0,8,0,0,0,200,0,0,0,0,0,0,0,0,32,0,0,"
                     "7.0685834705770345",
                     "4,tube,,2,2.5,0.25,1.5,0,0,0,0,0,2,16,0,0,39,0,0,0,0,0,0,0,0,0,3,"
                     "50.26548245743669,4.908738521234052"}));
}

// 5 18 = 90 of steel, 5 pi of fluid and volume; 10 32 = 320 and 10 3 = 30, 160 pi, 10 9/4 pi.
TEST(ExportCsv, Elements) {
    EXPECT_EQ(table("elements.csv"),
              lines({"pile,element,section,x of upper node [L],y of upper node [L],z of upper node "
                     "[L],x of lower node [L],y of lower node [L],z of lower node [L],from head "
                     "[L],length [L],diameter [L],wall [L],elastic modulus [F/L2],strain,steel "
                     "weight [F],grout weight [F],fluid weight [F],displaced volume [L3]",
                     "2,1,1,1,0,-2,1,3,2,0,5,2,0.5,200,0.001,90,0,15.707963267948966,"
                     "15.707963267948966",
                     "2,2,2,1,3,2,1,9,10,5,10,3,0,0,20,320,30,502.6548245743669,"
                     "70.68583470577035"}));
}

TEST(ExportCsv, Nodes) {
    EXPECT_EQ(
        table("nodes.csv"),
        lines({"pile,node,x [L],y [L],z [L],from head [L],spring along x [F/L],spring along "
               "y [F/L],spring along z [F/L],spring about x [F L],spring about y [F L],"
               "spring about z [F L],force along x [F],force along y [F],force along z [F],"
               "moment about x [F L],moment about y [F L],moment about z [F L],soil "
               "displacement along x [L],soil displacement along y [L],soil displacement "
               "along z [L],soil rotation about x,soil rotation about y,soil rotation about z",
               "1,1,0.5,0.25,-4,0,11,12,13,14,15,16,21,22,23,24,25,26,31,32,33,34,35,36",
               "2,1,1,0,-2,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0",
               "2,2,1,3,2,5,0,0,0,0,0,0,0.1,0,0,0,0,-0,0,0,0,0,0,0",
               "2,3,1,9,10,15,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0"}));
}

TEST(ExportCsv, Curves) {
    EXPECT_EQ(table("curves.csv"),
              lines({"section,point,elastic axial force [F],elastic moment [F L],plastic axial "
                     "force [F],plastic moment [F L]",
                     "1,1,9,0,10,1.5", "1,2,-7.5,0.5,-8.5,0.25"}));
}

TEST(ExportCsv, Loads) {
    EXPECT_EQ(table("loads.csv"),
              lines({"vector,label,record,pile,force along x [F],force along y [F],force along z "
                     "[F],moment about x [F L],moment about y [F L],moment about z [F L]",
                     "1,\"Pull, \"\"full\"\"\",1,2,1.5,2.5,3.5,4.5,5.5,6.5",
                     "1,\"Pull, \"\"full\"\"\",2,1,-0.5,0,0,0,0,7.5"}));
}

// From (1, 0, -2) to (1, 9, 10): 9 aside and 12 down are 15 along, at arctan 0.75.
TEST(ExportCsv, Piles) {
    EXPECT_EQ(table("piles.csv"),
              lines({"pile,fixed to,tip code,elements,x of head [L],y of head [L],z of head [L],x "
                     "of tip [L],y of tip [L],z of tip [L],length [L],batter [degree],steel weight "
                     "[F],grout weight [F],fluid weight [F],displaced volume [L3]",
                     "1,0,0,0,0.5,0.25,-4,0.5,0.25,-4,0,,0,0,0,0",
                     "2,1,3,2,1,0,-2,1,9,10,15,36.86989764584402,410,30,518.3627878423158,"
                     "86.39379797371932"}));
}

TEST(ExportQuantities, BatterIsThatOfTheListing) {
    group::Pile pile = small_group().piles[1];
    pile.nodes.back() = {1.0, 0.0, 8.0, {}, {}, {}};
    EXPECT_EQ(exporting::pile_batter(pile), 0.0);
    pile.nodes.back() = {4.0, 4.0, -2.0, {}, {}, {}}; // level with its head
    EXPECT_EQ(exporting::pile_batter(pile), 90.0);
    EXPECT_EQ(exporting::pile_length(pile), 5.0);
    pile.nodes.back() = {1.0, 10.0, -12.0, {}, {}, {}}; // the tip is above the head
    EXPECT_EQ(exporting::pile_batter(pile), -45.0);
}

// 0.2 times 200 is 40: a wall of that modulus is steel, one of 39 is not. Steel in other units is steel too.
TEST(ExportQuantities, AWallIsSteelByItsModulusInTheGroup) {
    group::Group group = small_group();
    group.sections[3].elastic_modulus = 40.0;
    const auto quantities = exporting::section_quantities(group);
    EXPECT_EQ(quantities[1].steel_weight, 35.0);
    EXPECT_EQ(quantities[1].grout_weight, 0.0);
    for (group::Section& section : group.sections)
        section.elastic_modulus *= 0x1p-20;
    EXPECT_EQ(exporting::section_quantities(group), quantities);
}

TEST(ExportCsvTable, QuotesWhatNeedsIt) {
    CsvTable table({"a", "b,c"});
    table.add("").add("plain text").end_row();
    table.add("two\nlines").add("a \"b\"").end_row();
    table.add("\r").add_empty().end_row();
    EXPECT_EQ(table.text(), "a,\"b,c\"\r\n"
                            ",plain text\r\n"
                            "\"two\nlines\",\"a \"\"b\"\"\"\r\n"
                            "\"\r\",\r\n");
}

TEST(ExportText, NumbersAreTheShortestThatReadBack) {
    EXPECT_EQ(number_text(0.1), "0.1");
    EXPECT_EQ(number_text(-0.0), "-0");
    EXPECT_EQ(number_text(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(number_text(std::numeric_limits<double>::denorm_min()), "5e-324");
    EXPECT_EQ(number_text(-std::numeric_limits<double>::max()), "-1.7976931348623157e+308");
    EXPECT_EQ(number_text(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(number_text(-std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(ExportText, LabelsBecomeUtf8) {
    const std::string none = "\xEF\xBF\xBD";
    EXPECT_EQ(utf8_text(""), "");
    EXPECT_EQ(utf8_text("m\xC2\xB2 \xE2\x82\xAC \xF0\x9F\x98\x80"),
              "m\xC2\xB2 \xE2\x82\xAC \xF0\x9F\x98\x80");
    EXPECT_EQ(utf8_text("Tr\xE4ger"), "Tr" + none + "ger");              // Latin-1
    EXPECT_EQ(utf8_text("cut \xE2\x82"), "cut " + none + none);          // within a character
    EXPECT_EQ(utf8_text("\xC0\xAF"), none + none);                       // overlong
    EXPECT_EQ(utf8_text("\xE0\x9F\xBF"), none + none + none);            // overlong
    EXPECT_EQ(utf8_text("\xED\xA0\x80"), none + none + none);            // a surrogate
    EXPECT_EQ(utf8_text("\xF4\x90\x80\x80"), none + none + none + none); // behind the last one
    EXPECT_EQ(utf8_text("\xED\x9F\xBF"), "\xED\x9F\xBF");
    EXPECT_EQ(utf8_text("\xF4\x8F\xBF\xBF"), "\xF4\x8F\xBF\xBF");
}

} // namespace
} // namespace korvat::test

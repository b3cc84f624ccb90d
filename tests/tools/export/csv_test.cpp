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

// The small group with moduli in N/m2, by which its walls are known.
group::Group known_group() {
    group::Group group = small_group();
    for (group::Section& section : group.sections)
        section.elastic_modulus *= 1.0E9;
    return group;
}

std::string table(const std::string& name) {
    for (const ExportedFile& file : exporting::csv_files(known_group())) {
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
// 2^2 pi/4 = pi of volume. The composite has 4 8 = 32 of steel, 1.5 2 = 3 of grout, which counts as concrete, and the fluid of its
// inner tube alone: (2.5 - 2 0.25)^2 pi/4 16 = 16 pi; 3^2 pi/4 of volume.
TEST(ExportCsv, Sections) {
    EXPECT_EQ(
        table("sections.csv"),
        lines(
            {"section,type,tubes,part of,material,diameter [L],wall [L],area [L2],section modulus "
             "[L3],axial stiffness [F],shear stiffness [F],bending stiffness [F L2],"
             "torsional stiffness [F L2],unit weight of wall [F/L3],unit weight of fluid "
             "[F/L3],temperature strain,yield stress [F/L2],elastic modulus [F/L2],shear "
             "modulus [F/L2],eccentricity,axial yield force [F],torsional yield moment "
             "[F L],miscellaneous 1,miscellaneous 2,miscellaneous 3,curve points,steel "
             "weight [F/L],other weight [F/L],fluid weight [F/L],displaced volume [L2]",
             "1,tube,,0,steel,2,0.5,2.25,0.75,450,170,150,110,8,4,1.2e-05,0.35,2e+11,80,-0.25,"
             "0.8,0.3,0.1,0.2,1e-310,2,18,0,3.141592653589793,3.141592653589793",
             "2,composite,3 4,0,,3,0,5.5,0,858.5,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,32,3,"
             "50.26548245743669,7.0685834705770345",
             "3,tube,,2,steel,3,0.25,4,0,0,0,0,0,8,0,0,0,2e+11,0,0,0,0,0,0,0,0,32,0,0,"
             "7.0685834705770345",
             "4,tube,,2,concrete,2.5,0.25,1.5,0,0,0,0,0,2,16,0,0,3.9e+10,0,0,0,0,0,0,0,0,0,3,"
             "50.26548245743669,4.908738521234052"}));
}

// 5 18 = 90 of steel, 5 pi of fluid and volume; 10 32 = 320 and 10 3 = 30, 160 pi, 10 9/4 pi.
TEST(ExportCsv, Elements) {
    EXPECT_EQ(table("elements.csv"),
              lines({"pile,element,section,x of upper node [L],y of upper node [L],z of upper node "
                     "[L],x of lower node [L],y of lower node [L],z of lower node [L],from head "
                     "[L],length [L],diameter [L],wall [L],elastic modulus [F/L2],strain,steel "
                     "weight [F],other weight [F],fluid weight [F],displaced volume [L3]",
                     "2,1,1,1,0,-2,1,3,2,0,5,2,0.5,2e+11,0.001,90,0,15.707963267948966,"
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
                     "[F],other weight [F],fluid weight [F],displaced volume [L3]",
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

// Tubes of a wall area of 0.05 m2 with a unit weight, in kN and m, and in other units; a pile of 20 m.
group::Section tube_of(double modulus, double weight, double yield_stress) {
    group::Section tube;
    tube.diameter = 0.8;
    tube.wall = 0.02;
    tube.area = 0.05;
    tube.elastic_modulus = modulus;
    tube.wall_weight = weight;
    tube.yield_stress = yield_stress;
    tube.type = 1;
    return tube;
}

const group::Section steel = tube_of(2.1E8, 77.0, 3.55E5);
const group::Section concrete = tube_of(3.6E7, 25.0, 0.0);

group::Group group_of(const std::vector<group::Section>& sections) {
    group::Group group;
    group.revision = 5;
    group.sections = sections;
    group::Pile& pile = group.piles.emplace_back();
    pile.number = 1;
    pile.nodes.resize(2);
    pile.nodes[1].z = 20.0;
    pile.elements.push_back({.diameter = 0.8, .length = 20.0, .section = 1, .strain = 0.0});
    return group;
}

// The group with other units of force and length, of so many kN and m.
group::Group in_units(group::Group group, double force, double length) {
    for (group::Section& section : group.sections) {
        section.diameter /= length;
        section.wall /= length;
        section.area /= length * length;
        section.elastic_modulus *= length * length / force;
        section.yield_stress *= length * length / force;
        section.wall_weight *= length * length * length / force;
    }
    for (group::Pile& pile : group.piles) {
        for (group::Node& node : pile.nodes)
            node.z /= length;
        for (group::Element& element : pile.elements)
            element.length /= length;
    }
    return group;
}

struct Units {
    double force;
    double length;
};

// kN and m, N and m, N and mm, MN and m, kip and ft.
constexpr Units several_units[] = {
    {1.0, 1.0}, {1.0E-3, 1.0}, {1.0E-3, 1.0E-3}, {1.0E3, 1.0}, {4.4482216, 0.3048}};

exporting::Quantities weights_of_pile(const group::Group& group) {
    return exporting::pile_quantities(group.piles.at(0), exporting::section_quantities(group));
}

// 20 0.05 77 = 77 kN.
TEST(ExportQuantities, ASteelPile) {
    const group::Group group = group_of({steel});
    for (const auto& [force, length] : several_units) {
        const auto weights = weights_of_pile(in_units(group, force, length));
        EXPECT_DOUBLE_EQ(weights.steel_weight * force, 77.0) << force << ' ' << length;
        EXPECT_EQ(weights.other_weight, 0.0) << force << ' ' << length;
    }
}

// 20 0.05 25 = 25 kN: the largest modulus of the group, and yet no steel.
TEST(ExportQuantities, AConcretePile) {
    const group::Group group = group_of({concrete});
    EXPECT_EQ(exporting::wall_materials(group), std::vector<std::string>{"concrete"});
    for (const auto& [force, length] : several_units) {
        const auto weights = weights_of_pile(in_units(group, force, length));
        EXPECT_EQ(weights.steel_weight, 0.0) << force << ' ' << length;
        EXPECT_DOUBLE_EQ(weights.other_weight * force, 25.0) << force << ' ' << length;
    }
}

// Steel, grout and steel: 20 0.05 (77 + 77) = 154 kN and 20 0.05 22 = 22 kN.
TEST(ExportQuantities, ACompositePile) {
    group::Section composite;
    composite.diameter = 0.8;
    composite.type = 3;
    composite.tubes = {2, 3, 4};
    const group::Group group = group_of({composite, steel, tube_of(2.1E7, 22.0, 0.0), steel});
    EXPECT_EQ(exporting::wall_materials(group),
              (std::vector<std::string>{"", "steel", "concrete", "steel"}));
    for (const auto& [force, length] : several_units) {
        const auto weights = weights_of_pile(in_units(group, force, length));
        EXPECT_DOUBLE_EQ(weights.steel_weight * force, 154.0) << force << ' ' << length;
        EXPECT_DOUBLE_EQ(weights.other_weight * force, 22.0) << force << ' ' << length;
    }
}

// Timber and weak concrete share moduli, and weights tell them apart. 1.1E8 kN/m2 is between aluminium and steel.
TEST(ExportQuantities, MaterialsOfWalls) {
    EXPECT_EQ(exporting::wall_materials(
                  group_of({steel, tube_of(7.0E7, 27.0, 2.5E5), tube_of(1.5E7, 24.0, 0.0),
                            tube_of(1.5E7, 6.0, 0.0), tube_of(1.1E8, 77.0, 0.0)})),
              (std::vector<std::string>{"steel", "aluminium", "concrete", "timber", "unknown"}));
}

// Of a group in no units that there are, nothing is known as steel.
TEST(ExportQuantities, UnitsThatCannotBeMadeOut) {
    const group::Group group = group_of({tube_of(3.0, 2.0, 0.0)});
    EXPECT_EQ(exporting::wall_materials(group), std::vector<std::string>{"unknown"});
    EXPECT_EQ(weights_of_pile(group).steel_weight, 0.0);
    EXPECT_DOUBLE_EQ(weights_of_pile(group).other_weight, 2.0);
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

// The JSON of a small group, whole.
#include "export/group_json.hpp"
#include "tools/export/small_group.hpp"

#include <gtest/gtest.h>
#include <limits>

namespace korvat::test {
namespace {

// A section of which only some values are not zero.
std::string section(const std::string& head, const std::string& sizes, const std::string& stiffness,
                    const std::string& material) {
    return "{" + head + "," + sizes + ",\"section_modulus\":0.0,\"axial_stiffness\":" + stiffness +
           ",\"shear_stiffness\":0.0,\"bending_stiffness\":0.0,\"torsional_stiffness\":0.0," +
           material +
           ",\"shear_modulus\":0.0,\"eccentricity\":0.0,\"axial_yield\":0.0,\"torsional_yield\":0.0,"
           "\"miscellaneous\":[0.0,0.0,0.0],\"elastic_curve\":[],\"plastic_curve\":[]}";
}

const std::string zeros = "[0.0,0.0,0.0,0.0,0.0,0.0]";

TEST(GroupJson, HasTheWholeGroup) {
    const std::string sections =
        "{\"section\":1,\"type\":1,\"tubes\":[],\"diameter\":2.0,\"wall\":0.5,\"area\":2.25,"
        "\"section_modulus\":0.75,\"axial_stiffness\":450.0,\"shear_stiffness\":170.0,"
        "\"bending_stiffness\":150.0,\"torsional_stiffness\":110.0,\"wall_weight\":8.0,"
        "\"fluid_weight\":4.0,\"temperature_strain\":1.2e-05,\"yield_stress\":0.35,"
        "\"elastic_modulus\":200.0,\"shear_modulus\":80.0,\"eccentricity\":-0.25,"
        "\"axial_yield\":0.8,\"torsional_yield\":0.3,\"miscellaneous\":[0.1,0.2,1e-310],"
        "\"elastic_curve\":[{\"axial\":9.0,\"moment\":0.0},{\"axial\":-7.5,\"moment\":0.5}],"
        "\"plastic_curve\":[{\"axial\":10.0,\"moment\":1.5},{\"axial\":-8.5,\"moment\":0.25}]}," +
        section("\"section\":2,\"type\":2,\"tubes\":[3,4]",
                "\"diameter\":3.0,\"wall\":0.0,\"area\":5.5", "858.5",
                "\"wall_weight\":0.0,\"fluid_weight\":0.0,\"temperature_strain\":0.0,"
                "\"yield_stress\":0.0,\"elastic_modulus\":0.0") +
        "," +
        section("\"section\":3,\"type\":1,\"tubes\":[]",
                "\"diameter\":3.0,\"wall\":0.25,\"area\":4.0", "0.0",
                "\"wall_weight\":8.0,\"fluid_weight\":0.0,\"temperature_strain\":0.0,"
                "\"yield_stress\":0.0,\"elastic_modulus\":200.0") +
        "," +
        section("\"section\":4,\"type\":1,\"tubes\":[]",
                "\"diameter\":2.5,\"wall\":0.25,\"area\":1.5", "0.0",
                "\"wall_weight\":2.0,\"fluid_weight\":16.0,\"temperature_strain\":0.0,"
                "\"yield_stress\":0.0,\"elastic_modulus\":39.0");
    const std::string piles =
        "{\"pile\":1,\"fixed_to\":0,\"tip_code\":0,\"nodes\":["
        "{\"node\":1,\"x\":0.5,\"y\":0.25,\"z\":-4.0,\"springs\":[11.0,12.0,13.0,14.0,15.0,16.0],"
        "\"forces\":[21.0,22.0,23.0,24.0,25.0,26.0],"
        "\"soil_displacements\":[31.0,32.0,33.0,34.0,35.0,36.0]}],\"elements\":[]},"
        "{\"pile\":2,\"fixed_to\":1,\"tip_code\":3,\"nodes\":["
        "{\"node\":1,\"x\":1.0,\"y\":0.0,\"z\":-2.0,\"springs\":" +
        zeros + ",\"forces\":" + zeros + ",\"soil_displacements\":" + zeros +
        "},{\"node\":2,\"x\":1.0,\"y\":3.0,\"z\":2.0,\"springs\":" + zeros +
        ",\"forces\":[0.1,0.0,0.0,0.0,0.0,-0.0],\"soil_displacements\":" + zeros +
        "},{\"node\":3,\"x\":1.0,\"y\":9.0,\"z\":10.0,\"springs\":" + zeros +
        ",\"forces\":" + zeros + ",\"soil_displacements\":" + zeros +
        "}],\"elements\":["
        "{\"element\":1,\"section\":1,\"diameter\":2.0,\"length\":5.0,\"strain\":0.001},"
        "{\"element\":2,\"section\":2,\"diameter\":3.0,\"length\":10.0,\"strain\":20.0}]}";
    const std::string vectors = "{\"vector\":1,\"label\":\"Pull, \\\"full\\\"\",\"loads\":["
                                "{\"pile\":2,\"force\":[1.5,2.5,3.5],\"moment\":[4.5,5.5,6.5]},"
                                "{\"pile\":1,\"force\":[-0.5,0.0,0.0],\"moment\":[0.0,0.0,7.5]}]},"
                                "{\"vector\":2,\"label\":\"Nothing\",\"loads\":[]}";
    EXPECT_EQ(exporting::group_json(small_group()),
              "{\"format\":\"korvat group\",\"version\":1,\"revision\":5,\"date\":[2009,9,1],"
              "\"label\":\"A < B\",\"sections\":[" +
                  sections + "],\"piles\":[" + piles + "],\"load_vectors\":[" + vectors + "]}\n");
}

TEST(GroupJson, WritesWhatJsonHasNoNumberForAsText) {
    group::Group group{.revision = 4,
                       .date = {},
                       .label = "Tr\xE4ger",
                       .sections = {},
                       .piles = {},
                       .load_vectors = {}};
    const double infinity = std::numeric_limits<double>::infinity();
    group.load_vectors.push_back(
        {"",
         {{1, {infinity, -infinity, 0.1}, {std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0}}}});
    EXPECT_EQ(exporting::group_json(group),
              "{\"format\":\"korvat group\",\"version\":1,\"revision\":4,\"date\":null,"
              "\"label\":\"Tr\xEF\xBF\xBDger\",\"sections\":[],\"piles\":[],\"load_vectors\":["
              "{\"vector\":1,\"label\":\"\",\"loads\":[{\"pile\":1,"
              "\"force\":[\"inf\",\"-inf\",0.1],\"moment\":[\"nan\",0.0,0.0]}]}]}\n");
}

} // namespace
} // namespace korvat::test

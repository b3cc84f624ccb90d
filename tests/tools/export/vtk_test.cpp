// The exports for VTK: whole files of a small group, and the encoding of their arrays.
#include "export/base64.hpp"
#include "export/loaded_piles.hpp"
#include "export/vtk_xml.hpp"
#include "export/vtp.hpp"
#include "export/vtu.hpp"
#include "support/scratch_directory.hpp"
#include "tools/export/small_group.hpp"

#include <gtest/gtest.h>
#include <limits>

namespace korvat::test {
namespace {

using exporting::ExportedFile;
using exporting::VtkXml;

// A file that write_expected.py made.
std::string expected(const std::string& name) {
    return read_whole_file(std::filesystem::path(KORVAT_EXPORTS_DIR) / name);
}

TEST(ExportVtp, WritesPilesNodesAndEachLoadVector) {
    const std::vector<ExportedFile> files = exporting::vtp_files(small_group());
    std::vector<std::string> names;
    for (const ExportedFile& file : files) {
        names.push_back(file.name);
        EXPECT_EQ(file.content, expected(file.name)) << file.name;
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"piles.vtp", "nodes.vtp", "load-1.vtp", "load-2.vtp"}));
}

TEST(ExportVtu, WritesDummyPilesAsVerticesBeforeTheLines) {
    group::Group group = small_group();
    const ExportedFile file = exporting::vtu_file(group);
    EXPECT_EQ(file.name, "group.vtu");
    EXPECT_EQ(file.content, expected("group.vtu"));
    std::swap(group.piles[0], group.piles[1]);
    const std::string turned = exporting::vtu_file(group).content;
    // The nodes of pile 2 now are 0 to 2, that of the dummy pile is 3: 3, 0 1, 1 2.
    const auto array = exporting::indices("connectivity", {3, 0, 1, 1, 2});
    const std::uint64_t size = 40;
    const std::string bytes(reinterpret_cast<const char*>(&size), sizeof size);
    EXPECT_NE(turned.find(exporting::base64(bytes + array.bytes)), std::string::npos);
    EXPECT_NE(turned.find("Name=\"types\" format=\"binary\">"
                          "AwAAAAAAAAABAwM=<"),
              std::string::npos);
}

TEST(ExportVtp, AGroupOfNothingHasEmptyFiles) {
    for (const ExportedFile& file : exporting::vtp_files({})) {
        EXPECT_NE(file.content.find("<Piece NumberOfPoints=\"0\""), std::string::npos);
    }
    EXPECT_EQ(exporting::vtp_files({}).size(), 2U);
}

TEST(ExportVtp, ALoadOnAPileThatIsNotThereIsToldAndLeftOut) {
    group::Group group = small_group();
    EXPECT_EQ(exporting::stray_load(group), std::nullopt);
    group.load_vectors[0].loads.insert(group.load_vectors[0].loads.begin() + 1, {3, {}, {}});
    EXPECT_EQ(exporting::stray_load(group),
              "load vector 1 loads pile 3, which the group does not have");
    const std::string file = exporting::vtp_files(group)[2].content;
    EXPECT_NE(file.find("NumberOfPoints=\"2\""), std::string::npos) << file;
    // The record behind it keeps its number: 1 and 3.
    EXPECT_NE(file.find("Name=\"record\" format=\"binary\">"
                        "CAAAAAAAAAABAAAAAwAAAA==<"),
              std::string::npos)
        << file;
}

// The samples of RFC 4648.
TEST(VtkXml, EncodesBase64) {
    EXPECT_EQ(exporting::base64(""), "");
    EXPECT_EQ(exporting::base64("f"), "Zg==");
    EXPECT_EQ(exporting::base64("fo"), "Zm8=");
    EXPECT_EQ(exporting::base64("foo"), "Zm9v");
    EXPECT_EQ(exporting::base64("foob"), "Zm9vYg==");
    EXPECT_EQ(exporting::base64("fooba"), "Zm9vYmE=");
    EXPECT_EQ(exporting::base64("foobar"), "Zm9vYmFy");
    EXPECT_EQ(exporting::base64("\xFB\xEF\xBE\xFF"), "++++/w==");
}

// Inf is 7FF0 and six zero bytes; the length before it is 8.
TEST(VtkXml, KeepsValuesThatAreNotFinite) {
    VtkXml xml("PolyData");
    xml.add(exporting::reals("x", {std::numeric_limits<double>::infinity()}));
    EXPECT_EQ(xml.finish(),
              "<?xml version=\"1.0\"?>\n"
              "<VTKFile type=\"PolyData\" version=\"1.0\" byte_order=\"LittleEndian\" "
              "header_type=\"UInt64\">\n"
              "  <PolyData>\n"
              "    <DataArray type=\"Float64\" Name=\"x\" "
              "format=\"binary\">CAAAAAAAAAAAAAAAAADwfw==</DataArray>\n"
              "  </PolyData>\n"
              "</VTKFile>\n");
}

} // namespace
} // namespace korvat::test

// PILE.07, read back: from hand-made bytes, from runs, damaged and cut.
#include "group/pile_file.hpp"

#include "group_writer.hpp"
#include "sample_group.hpp"
#include "support/pile_file.hpp"
#include "support/record_file.hpp"
#include "support/scratch_directory.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using group::Damage;
using group::Group;
using group::GroupReading;

GroupReading read(const std::string& file) {
    return group::read_pile(file);
}

// Whether what was read is what stands before a cut: piles and sections whole, the others missing.
void expect_beginning(const Group& part, const Group& whole) {
    ASSERT_LE(part.sections.size(), whole.sections.size());
    ASSERT_LE(part.piles.size(), whole.piles.size());
    EXPECT_TRUE(std::equal(part.piles.begin(), part.piles.end(), whole.piles.begin()));
    for (std::size_t i = 0; i < part.sections.size(); ++i) {
        EXPECT_EQ(part.sections[i].diameter, whole.sections[i].diameter);
        EXPECT_EQ(part.sections[i].miscellaneous, whole.sections[i].miscellaneous);
    }
    if (!part.piles.empty()) {
        EXPECT_EQ(part.sections, whole.sections);
    }
}

class PileFiles : public testing::TestWithParam<int> {};

TEST_P(PileFiles, AreReadAsTheyWereWritten) {
    const Group group = sample_group(GetParam());
    const GroupReading reading = read(written_pile_file(group));
    EXPECT_EQ(reading.damage, std::nullopt);
    EXPECT_TRUE(reading.group == group);
}

// Near the borders of records, every length; within the two long records of revision 5 and elsewhere
// a stride that is no multiple of a segment.
TEST_P(PileFiles, CutAnywhereGiveWhatStandsBefore) {
    const Group group = sample_group(GetParam());
    const std::string file = written_pile_file(group);
    const std::size_t borders = GetParam() == 5 ? 11200 : 0;
    for (std::size_t length = 0; length < file.size(); ++length) {
        const bool is_inside = length > 1000 && length < 1000 + borders + 64000;
        if (GetParam() == 5 && is_inside && length % 61 != 0) continue;
        const GroupReading reading = read(file.substr(0, length));
        ASSERT_TRUE(reading.damage) << length;
        EXPECT_LE(reading.damage->offset, length);
        expect_beginning(reading.group, group);
    }
    const GroupReading last = read(file.substr(0, file.size() - 1));
    EXPECT_TRUE(last.group == group);
    EXPECT_EQ(last.damage, (Damage{file.size() - 1, "the file ends without its end byte"}));
}

INSTANTIATE_TEST_SUITE_P(Revision, PileFiles, testing::Values(4, 5));

// The small file of docs/files.md, of which only a dummy pile has values.
TEST(PileFile, OfOneDummyPile) {
    Group group;
    group.revision = 4;
    group.label = "Tiny";
    group.sections.emplace_back().diameter = 1.0;
    group::Pile& pile = group.piles.emplace_back();
    pile.number = 1;
    pile.nodes.emplace_back().z = -1.0;
    const std::string file = written_pile_file(group);
    EXPECT_EQ(file.size(), 486U);
    EXPECT_TRUE(read(file).group == group);
    EXPECT_TRUE(read(file).group.piles.front().is_dummy());
}

TEST(PileFile, WithoutRecords) {
    EXPECT_EQ(read("K\x82").damage, (Damage{1, "the file has no records"}));
    EXPECT_EQ(read("").damage, (Damage{0, "the file is empty"}));
}

TEST(PileFile, EachDamageHasItsPlaceAndReason) {
    // Records of revision 4: label at 1, counts at 83, three sections of 164 bytes from 93 on.
    const std::string label = RecordBytes().label("x").framed();
    const auto counts = [](int piles, int sections) {
        return RecordBytes().integer(piles).integer(sections).framed();
    };
    const auto damage = [](const std::string& records) {
        return read('K' + records + '\x82').damage.value();
    };
    const std::string four = RecordBytes().integer(1).framed();
    EXPECT_EQ(damage(four), (Damage{1, "the label has 4 bytes, not 80"}));
    EXPECT_EQ(damage(label), (Damage{83, "the record of counts is missing"}));
    EXPECT_EQ(damage(label + four), (Damage{83, "the record of counts has 4 bytes, not 8"}));
    EXPECT_EQ(damage(label + counts(-1, 0)),
              (Damage{83, "there cannot be -1 piles and 0 sections"}));
    EXPECT_EQ(damage(label + counts(1, 201)),
              (Damage{83, "there cannot be 1 piles and 201 sections"}));
    EXPECT_EQ(damage(label + counts(0, 1)), (Damage{93, "section 1 is missing"}));
    EXPECT_EQ(damage(label + counts(0, 1) + four), (Damage{93, "section 1 has 4 bytes, not 160"}));
    EXPECT_EQ(damage(label + counts(0, 0) + four),
              (Damage{93, "there are more records than the piles have"}));
    EXPECT_EQ(damage(label + counts(2147483647, 0)), (Damage{93, "pile 1 is missing"}));

    const auto pile = [](int number, int elements) {
        return RecordBytes().integer(number).integer(0).integer(elements).integer(0).framed();
    };
    const std::string start = label + counts(1, 0);
    EXPECT_EQ(damage(start + pile(2, 0)), (Damage{93, "pile 1 has the number 2"}));
    EXPECT_EQ(damage(start + pile(1, -1)), (Damage{93, "pile 1 has -1 elements"}));
    EXPECT_EQ(damage(start + pile(1, 0)), (Damage{111, "pile 1: X is missing"}));
    const std::string one = RecordBytes().real(0.0).framed();
    EXPECT_EQ(damage(start + pile(1, 2147483647) + one),
              (Damage{111, "pile 1: X has 8 bytes, not 17179869184"}));
    EXPECT_EQ(damage(start + pile(1, 0) + one + four),
              (Damage{121, "pile 1: Y has 4 bytes, not 8"}));
    EXPECT_EQ(damage(start + pile(1, 0) + one + one + one + one + one),
              (Damage{161, "pile 1: component 1 of the displacements is missing"}));
}

TEST(PileFile, ElementsHaveSectionsOfTheGroup) {
    Group group = sample_group(4);
    group.piles[1].elements[1].section = 4;
    const std::string file = written_pile_file(group);
    const GroupReading reading = read(file);
    // Before it, the end byte and this last record: 24 bytes of data and two of length.
    EXPECT_EQ(reading.damage, (Damage{file.size() - 27, "pile 2 has an element of section 4"}));
    EXPECT_EQ(reading.group.piles.size(), 1U);
}

TEST(PileFile, TypesCodesAndTubesAreThoseOfSections) {
    // Header, date of 14 bytes, label of 82, counts of 10, three sections of 164.
    const Damage expected{1 + 14 + 82 + 10 + 3 * 164, "a type, code or tube that no section has"};
    const auto damage = [](auto change) {
        Group group = sample_group(5);
        change(group);
        return read(written_pile_file(group)).damage;
    };
    EXPECT_EQ(damage([](Group& group) { group.sections[1].type = 13; }), expected);
    EXPECT_EQ(damage([](Group& group) { group.sections[0].type = -1; }), expected);
    EXPECT_EQ(damage([](Group& group) { group.sections[2].non_linear_code = 11; }), expected);
    EXPECT_EQ(damage([](Group& group) { group.sections[2].non_linear_code = -1; }), expected);
    EXPECT_EQ(damage([](Group& group) { group.sections[1].tubes[1] = 4; }), expected);
    EXPECT_EQ(damage([](Group& group) { group.sections[1].tubes[0] = 0; }), expected);
}

// Every file that a whole run is compared with.
std::vector<std::filesystem::path> kept_files() {
    std::vector<std::filesystem::path> files;
    for (const char* const folder : {KORVAT_EXAMPLES_DIR, KORVAT_CASES_DIR}) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const auto file = entry.path() / "expected/PILE.07";
            if (std::filesystem::exists(file)) files.push_back(file);
        }
    }
    return files;
}

TEST(KeptPileFiles, AreReadAsTheTestsOwnReaderReadsThem) {
    const auto files = kept_files();
    EXPECT_GE(files.size(), 35U);
    for (const auto& path : files) {
        SCOPED_TRACE(path.string());
        const std::string file = read_whole_file(path);
        const GroupReading reading = read(file);
        ASSERT_EQ(reading.damage, std::nullopt);
        const PileFile expected = parse_pile_file(parse_record_bytes(file));
        const Group& group = reading.group;
        EXPECT_EQ(group.revision, expected.has_curves ? 5 : 4);
        ASSERT_EQ(group.sections.size(), expected.sections.size());
        for (std::size_t i = 0; i < group.sections.size(); ++i) {
            EXPECT_EQ(group.sections[i].wall, expected.sections[i][1]);
            EXPECT_EQ(group.sections[i].shear_modulus, expected.sections[i][13]);
        }
        ASSERT_EQ(group.piles.size(), expected.piles.size());
        for (std::size_t p = 0; p < group.piles.size(); ++p) {
            const group::Pile& pile = group.piles[p];
            const FilePile& other = expected.piles[p];
            EXPECT_EQ(pile.fixed_to, other.fixed_to);
            ASSERT_EQ(pile.nodes.size(), other.x.size());
            for (std::size_t n = 0; n < pile.nodes.size(); ++n)
                EXPECT_EQ(pile.nodes[n].z, other.z[n]);
            ASSERT_EQ(pile.elements.size(), other.sections.size());
            for (std::size_t e = 0; e < pile.elements.size(); ++e)
                EXPECT_EQ(pile.elements[e].section, other.sections[e]);
        }
        EXPECT_EQ(written_pile_file(group), file);
    }
}

TEST(KeptPileFiles, CutAnywhereGiveWhatStandsBefore) {
    for (const auto& path : kept_files()) {
        SCOPED_TRACE(path.string());
        const std::string file = read_whole_file(path);
        const Group whole = read(file).group;
        std::vector<bool> is_near(file.size() + 1);
        for (const group::Record& record : group::read_records(file).records) {
            for (std::size_t i = record.offset - 1; i < record.offset + 3; ++i)
                is_near[i] = true;
        }
        for (std::size_t length = 0; length < file.size(); ++length) {
            if (!is_near[length] && length % 1009 != 0) continue;
            const GroupReading reading = read(file.substr(0, length));
            ASSERT_TRUE(reading.damage) << length;
            expect_beginning(reading.group, whole);
        }
    }
}

} // namespace
} // namespace korvat::test

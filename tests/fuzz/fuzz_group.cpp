// Fuzz target: the readers of PILE.07 and LOAD.09, on any bytes and on groups that were written and damaged.
#include "bytes.hpp"
#include "require.hpp"

#include "group/difference.hpp"
#include "group/read_files.hpp"
#include "support/record_file.hpp"
#include "tools/group/group_writer.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

using group::Group;
using group::GroupReading;
using group::LoadReading;
using group::LoadVector;

// The reader of records stops where the tests' own reader finds a fault, and takes the same ones.
void check_records(const std::string& file) {
    const group::Records found = group::read_records(file);
    std::vector<Record> expected;
    try {
        expected = parse_record_bytes(file);
    } catch (const std::runtime_error&) {
        require(found.damage.has_value(), "a fault of the records is damage");
        require(found.damage->offset <= file.size(), "damage is in the file");
        return;
    }
    require(!found.damage, "records without fault are not damaged");
    require(found.records.size() == expected.size(), "all records are read");
    for (std::size_t i = 0; i < expected.size(); ++i) {
        require(
            std::equal(expected[i].begin(), expected[i].end(), found.records[i].bytes.begin(),
                       found.records[i].bytes.end(),
                       [](unsigned char a, char b) { return a == static_cast<unsigned char>(b); }),
            "each record has its bytes");
    }
}

// What a group without damage has is all that its file has, but for the places that no section uses.
void check_pile_file(const std::string& file) {
    const GroupReading reading = group::read_pile(file);
    require(group::differences(reading.group, reading.group).empty(),
            "a group does not differ from itself");
    if (reading.damage) return;
    const std::string written = written_pile_file(reading.group);
    require(written.size() == file.size(), "nothing of a group is lost");
    if (reading.group.revision == 4) require(written == file, "a group is as it was read");
    const GroupReading again = group::read_pile(written);
    require(!again.damage, "a group that is written is sound");
    require(written_pile_file(again.group) == written, "a group is read as it was written");
}

void check_load_file(const std::string& file) {
    const LoadReading reading = group::read_load(file);
    if (!reading.damage) {
        require(written_load_file(reading.vectors) == file, "load vectors are as they were read");
    }
}

void check_bytes(const std::string& file) {
    check_records(file);
    check_pile_file(file);
    check_load_file(file);
    (void)group::file_kind(file);
}

std::vector<group::YieldPoint> take_curve(Bytes& bytes, int points) {
    std::vector<group::YieldPoint> curve(static_cast<std::size_t>(points));
    for (group::YieldPoint& point : curve)
        point = {bytes.take_real(), bytes.take_real()};
    return curve;
}

group::Section take_section(Bytes& bytes, int number, int revision) {
    group::Section section;
    section.diameter = bytes.take_real();
    section.miscellaneous[2] = bytes.take_real();
    if (revision == 4) return section;
    const unsigned choice = bytes.take_byte();
    section.type = 1 + static_cast<int>(choice % 3);
    if (section.is_composite())
        section.tubes.assign(static_cast<std::size_t>(section.type), number);
    section.non_linear_code = static_cast<int>(choice / 3 % 11);
    section.elastic_curve = take_curve(bytes, section.non_linear_code);
    section.plastic_curve = take_curve(bytes, section.non_linear_code);
    return section;
}

group::Pile take_pile(Bytes& bytes, int number, int sections) {
    group::Pile pile;
    pile.number = number;
    pile.fixed_to = bytes.take_integer();
    pile.tip_code = bytes.take_integer();
    const std::size_t elements = sections == 0 ? 0 : bytes.take_byte() % 40U;
    pile.nodes.resize(elements + 1);
    pile.nodes.back().x = bytes.take_real();
    pile.nodes.front().forces[5] = bytes.take_real();
    for (std::size_t i = 0; i < elements; ++i) {
        const int section = 1 + static_cast<int>(i) % sections;
        pile.elements.push_back({1.0, static_cast<double>(i), section, 0.0});
    }
    return pile;
}

Group take_group(Bytes& bytes) {
    const unsigned choice = bytes.take_byte();
    Group group;
    group.revision = choice % 8 == 0 ? 5 : 4; // of 75 kB each
    if (group.revision == 5) group.date = {2009, 9, 1};
    group.label = bytes.take_text(choice / 8);
    group.label.resize(std::min<std::size_t>(group.label.size(), 80));
    group.label.erase(group.label.find_last_not_of(' ') + 1);
    const int sections = bytes.take_byte() % 4;
    for (int i = 1; i <= sections; ++i)
        group.sections.push_back(take_section(bytes, i, group.revision));
    const int piles = bytes.take_byte() % 4;
    for (int i = 1; i <= piles; ++i)
        group.piles.push_back(take_pile(bytes, i, sections));
    return group;
}

// Of the same length, cut, or with more in it.
std::string damaged(std::string file, Bytes& bytes) {
    const std::size_t at = bytes.take_bits(4) % file.size();
    switch (bytes.take_byte() % 3) {
    case 0:
        return file.substr(0, at);
    case 1:
        file[at] = static_cast<char>(bytes.take_byte());
        return file;
    default:
        return file.insert(at, bytes.take_text(8));
    }
}

// What was written is read; of a cut file, the piles before the cut.
void check_written(Bytes bytes) {
    const Group group = take_group(bytes);
    const std::string file = written_pile_file(group);
    const GroupReading reading = group::read_pile(file);
    require(!reading.damage, "a group that was written is sound");
    require(written_pile_file(reading.group) == file, "a group is read as it was written");
    require(reading.group.label == group.label, "the label is read as it was written");

    const GroupReading part = group::read_pile(file.substr(0, bytes.take_bits(4) % file.size()));
    require(part.damage.has_value(), "a cut file is damaged");
    require(part.group.piles.size() <= group.piles.size(), "no pile is made up");
    for (std::size_t i = 0; i < part.group.piles.size(); ++i) {
        require(written_pile(part.group.piles[i]) == written_pile(group.piles[i]),
                "piles before a cut are whole");
    }
    const std::string other = damaged(file, bytes);
    check_bytes(other);
    (void)group::differences(group, group::read_pile(other).group, {0.0, bytes.take_real()});
}

} // namespace
} // namespace korvat::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvat::test;
    Bytes bytes(data, size);
    if (bytes.take_byte() % 2 == 0) {
        check_written(bytes);
    } else {
        check_bytes(bytes.take_rest());
    }
    return 0;
}

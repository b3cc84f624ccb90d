// What the report shows, from the check and the run of a deck.
#pragma once

#include "check/checker.hpp"
#include "check/clashes.hpp"
#include "export/quantities.hpp"
#include "group/difference.hpp"
#include "group/group.hpp"
#include "report/units.hpp"

#include <optional>
#include <string>
#include <vector>

namespace korvat::report {

enum class Origin { given, copied, mirrored, interpolated };

struct PileSegment {
    int type = 0;
    int elements = 0;
    double length = 0.0; // L

    bool operator==(const PileSegment&) const = default;
};

// What a pile of the group does not say itself.
struct PileFacts {
    Origin origin = Origin::given;
    int source = 0;                    // pile that it is copied or mirrored from; 0: none
    std::vector<int> lines;            // of the deck, rising
    std::vector<PileSegment> segments; // from head to tip
};

struct Material {
    int number = 0;
    std::optional<std::string> name; // "steel"; none where its modulus tells nothing
};

// A line of the deck that has numbers of a record.
struct LineRecord {
    int line = 0;
    deck::RecordId id = deck::RecordId::force_factor;
    int first_item = 0; // of the record, from 1, that the line begins with
    int pile = 0;       // of which the record tells; 0: none, or several
};

// The group beside another one.
struct Comparison {
    std::string name; // of the other
    group::Group other;
    std::vector<group::Difference> differences;
    std::vector<int> changed; // piles
    std::vector<int> only_here;
    std::vector<int> only_there;
};

struct ReportData {
    std::string program; // version
    std::string date;    // of the report
    std::string label;   // as the program takes it, without trailing blanks
    int revision = 4;
    // Whether the deck runs. Otherwise the group has what could be read of its geometry: piles from head to
    // tip, with one element where a diameter could be made out, else with one of section 0 and diameter 0.
    bool is_complete = false;
    Units units;
    check::CheckedDeck deck;
    std::string log;
    group::Group group;
    std::vector<PileFacts> piles;                // of each pile of the group
    std::vector<exporting::Quantities> sections; // of each section for a unit of length
    std::vector<int> section_materials;          // of each section; 0: several, or unknown
    std::vector<Material> materials;
    std::vector<check::Clash> clashes;
    std::vector<LineRecord> line_records; // rising by line
    std::optional<Comparison> comparison;
    std::string no_comparison; // why there is none, though asked for; empty otherwise
};

// The data of a checked deck, without a comparison.
[[nodiscard]] ReportData report_data(check::CheckedRun&& checked, const std::string& date);

// Adds the differences from another group. Of a deck that does not run there is nothing to compare.
void compare(ReportData& data, const std::string& name, group::Group&& other);

// Piles with the same segments.
struct PileType {
    std::vector<std::size_t> piles; // indices of the group's piles
};

// In the order of their first piles; dummy piles have none.
[[nodiscard]] std::vector<PileType> pile_types(const ReportData& data);

// Weights of a section for a unit of length, or of a pile; none where the deck does not run.
[[nodiscard]] std::optional<exporting::Quantities> weights_of(const ReportData& data,
                                                              const group::Pile& pile);

[[nodiscard]] std::string_view name_of(Origin origin); // "given"

} // namespace korvat::report

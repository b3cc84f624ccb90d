#include "report/report_data.hpp"

#include "check/deck_view.hpp"
#include "check/text.hpp"
#include "model/store/limits.hpp"
#include "report/rough_group.hpp"
#include "run/program_version.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace korvat::report {
namespace {

using check::CheckedRun;
using check::Row;
using check::Subject;
using deck::RecordId;

Subject subject_of(const CheckedRun& checked) {
    return {.lines = checked.deck.lines,
            .outline = checked.outline,
            .cmn = *checked.run.cmn,
            .group = checked.run.group ? &*checked.run.group : nullptr,
            .exit_code = checked.run.exit_code};
}

// The one pile that a record tells of.
int pile_of(const Row& row) {
    switch (row.id) {
    case RecordId::pile_geometry:
    case RecordId::pile_segments:
    case RecordId::pile_load:
        return std::max(check::whole(row, 1), 0);
    case RecordId::tip_and_fix:
    case RecordId::special_node_values:
        return check::whole(row, 1) == check::whole(row, 2) ? std::max(check::whole(row, 1), 0) : 0;
    default:
        return 0;
    }
}

std::vector<LineRecord> line_records(const check::Outline& outline) {
    std::map<int, LineRecord> found; // by line
    for (const Row& row : outline.rows()) {
        const int pile = pile_of(row);
        for (std::size_t i = 0; i < row.numbers.size(); ++i) {
            const int line = row.numbers[i].place.line;
            if (line > 0)
                found.try_emplace(line, LineRecord{line, row.id, static_cast<int>(i) + 1, pile});
        }
    }
    std::vector<LineRecord> records;
    records.reserve(found.size());
    for (const auto& [line, record] : found)
        records.push_back(record);
    return records;
}

// The piles of a record that tells of several, as first and last number.
std::pair<int, int> piles_of(const Row& row) {
    const bool is_range =
        row.id == RecordId::tip_and_fix || row.id == RecordId::special_node_values;
    if (is_range) return {check::whole(row, 1), check::whole(row, 2)};
    const int pile = pile_of(row);
    return {pile, pile};
}

std::vector<int> lines_of(const check::Outline& outline, int pile) {
    std::set<int> lines;
    for (const Row& row : outline.rows()) {
        const auto [first, last] = piles_of(row);
        if (first < 1 || pile < first || pile > last) continue;
        for (const check::Number& number : row.numbers)
            lines.insert(number.place.line);
    }
    lines.erase(0);
    return {lines.begin(), lines.end()};
}

Origin origin_of(const Store& cmn, const check::Outline& outline, int pile) {
    if (outline.numbered(RecordId::pile_geometry, pile) == nullptr) return Origin::interpolated;
    if (cmn.NGEN(pile) == 0) return Origin::given;
    return cmn.NSYM(pile) == 0 ? Origin::copied : Origin::mirrored;
}

// A copy has the segments of the pile from which it, or its source, is made.
int first_source(const Store& cmn, int pile) {
    while (cmn.NGEN(pile) > 0)
        pile = cmn.NGEN(pile); // always a lower number
    return pile;
}

std::vector<PileSegment> segments_of(const Store& cmn, int pile) {
    const int source = first_source(cmn, pile);
    std::vector<PileSegment> segments;
    for (int i = 1; i <= cmn.NSEGP(source); ++i) {
        const int type = cmn.ISEGP(i, source);
        segments.push_back({type, cmn.NELSEG(type), cmn.SEGLEN(type)});
    }
    return segments;
}

void add_piles(ReportData& data, const CheckedRun& checked) {
    const Store& cmn = *checked.run.cmn;
    for (const group::Pile& pile : data.group.piles) {
        data.piles.push_back({.origin = origin_of(cmn, checked.outline, pile.number),
                              .source = cmn.NGEN(pile.number),
                              .lines = lines_of(checked.outline, pile.number),
                              .segments = segments_of(cmn, pile.number)});
    }
}

void add_rough_piles(ReportData& data, const CheckedRun& checked) {
    RoughGroup rough = rough_group(subject_of(checked));
    data.group = std::move(rough.group);
    data.section_materials = std::move(rough.section_materials);
    for (std::size_t i = 0; i < data.group.piles.size(); ++i) {
        data.piles.push_back({.origin = rough.origins[i],
                              .source = rough.sources[i],
                              .lines = lines_of(checked.outline, data.group.piles[i].number),
                              .segments = {}});
    }
}

// Where two substances share a modulus, the weight decides.
std::optional<std::string> substance_of(const check::MaterialView& material,
                                        const check::UnitSystem& units) {
    const auto found = check::with_modulus(material.modulus * units.stress());
    if (found.empty()) return std::nullopt;
    const double weight = material.weight * units.unit_weight();
    const auto has_weight = [&](const check::Substance* substance) {
        return substance->weight.holds(weight);
    };
    const auto heavy = std::ranges::find_if(found, has_weight);
    return std::string((heavy == found.end() ? found.front() : *heavy)->name);
}

std::vector<Material> materials_of(const CheckedRun& checked) {
    std::vector<Material> materials;
    for (const check::MaterialView& view : check::materials(subject_of(checked))) {
        Material material{view.number, std::nullopt};
        if (checked.units) material.name = substance_of(view, *checked.units);
        materials.push_back(std::move(material));
    }
    return materials;
}

std::string label_of(const CheckedRun& checked) {
    if (checked.deck.lines.empty()) return "";
    std::string label = checked.deck.lines.front().substr(0, limits::label_length);
    label.erase(label.find_last_not_of(" \t") + 1);
    return label;
}

bool is_pile_in_one_only(const group::Difference& difference) {
    return difference.subject == group::Subject::pile && difference.quantity.empty();
}

} // namespace

ReportData report_data(CheckedRun&& checked, const std::string& date) {
    ReportData data;
    const Subject subject = subject_of(checked);
    data.program = std::string(program_version());
    data.date = date;
    data.label = label_of(checked);
    data.revision = checked.revision;
    data.is_complete = checked.run.group.has_value();
    data.units =
        stored_units(checked.units, check::force_factor(subject), check::length_factor(subject));
    data.materials = materials_of(checked);
    data.line_records = line_records(checked.outline);
    if (data.is_complete) {
        data.group = *checked.run.group;
        add_piles(data, checked);
        data.sections = exporting::section_quantities(data.group);
        for (std::size_t i = 1; i <= data.group.sections.size(); ++i)
            data.section_materials.push_back(checked.run.cmn->MATCRS(static_cast<int>(i)));
        data.clashes = check::clashes(data.group);
    } else {
        add_rough_piles(data, checked);
    }
    data.deck = std::move(checked.deck);
    data.log = std::move(checked.run.log);
    return data;
}

void compare(ReportData& data, const std::string& name, group::Group&& other) {
    if (!data.is_complete) {
        data.no_comparison = "Not compared with " + name + ": the deck does not run.";
        return;
    }
    Comparison comparison{.name = name,
                          .other = std::move(other),
                          .differences = {},
                          .changed = {},
                          .only_here = {},
                          .only_there = {}};
    comparison.differences = group::differences(comparison.other, data.group);
    for (const group::Difference& difference : comparison.differences) {
        if (difference.subject != group::Subject::pile) continue;
        std::vector<int>* list = &comparison.changed;
        if (is_pile_in_one_only(difference)) {
            const bool is_there = !std::holds_alternative<std::monostate>(difference.a);
            list = is_there ? &comparison.only_there : &comparison.only_here;
        }
        if (list->empty() || list->back() != difference.number) list->push_back(difference.number);
    }
    data.comparison = std::move(comparison);
}

std::vector<PileType> pile_types(const ReportData& data) {
    std::vector<PileType> types;
    for (std::size_t i = 0; i < data.piles.size(); ++i) {
        const std::vector<PileSegment>& segments = data.piles[i].segments;
        if (segments.empty()) continue;
        const auto has_these = [&](const PileType& type) {
            return data.piles[type.piles.front()].segments == segments;
        };
        const auto found = std::ranges::find_if(types, has_these);
        if (found == types.end()) {
            types.push_back({{i}});
        } else {
            found->piles.push_back(i);
        }
    }
    return types;
}

std::optional<exporting::Quantities> weights_of(const ReportData& data, const group::Pile& pile) {
    if (!data.is_complete) return std::nullopt;
    return exporting::pile_quantities(pile, data.sections);
}

std::string_view name_of(Origin origin) {
    switch (origin) {
    case Origin::given:
        return "given";
    case Origin::copied:
        return "copied";
    case Origin::mirrored:
        return "mirrored";
    case Origin::interpolated:
        return "interpolated";
    }
    return "";
}

} // namespace korvat::report

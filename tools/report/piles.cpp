// The tables of piles and node values.
#include "report/piles.hpp"

#include "report/table.hpp"

#include <algorithm>

namespace korvat::report {
namespace {

std::string segments_text(const PileFacts& facts) {
    std::string text;
    for (const PileSegment& segment : facts.segments)
        text += (text.empty() ? "" : " ") + std::to_string(segment.type);
    return text;
}

std::string origin_text(const PileFacts& facts) {
    std::string text(name_of(facts.origin));
    if (facts.source > 0) text += " from " + std::to_string(facts.source);
    return text;
}

// Consecutive nodes, or elements, of a pile with the same values.
struct ValueRun {
    std::size_t first = 0;
    std::size_t last = 0;
};

bool is_zero(const group::Components& values) {
    return std::ranges::all_of(values, [](double value) { return value == 0.0; });
}

template <typename Items, typename Value>
std::vector<ValueRun> runs_of(const Items& items, const Value& value_of, const auto& is_none) {
    std::vector<ValueRun> runs;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (is_none(value_of(items[i]))) continue;
        const bool goes_on = !runs.empty() && runs.back().last + 1 == i &&
                             value_of(items[i]) == value_of(items[runs.back().last]);
        goes_on ? runs.back().last = i : (runs.push_back({i, i}), i);
    }
    return runs;
}

class NodeValues {
public:
    NodeValues(Markup& page, const ReportData& data)
        : data_(&data), table_(page, {{"id", "node-value-table"}, {"class", "data"}},
                               "Values of nodes and elements, where they are not 0",
                               {{"Pile"},
                                {"Values", "", false},
                                {"Unit", "", false},
                                {"From"},
                                {"To"},
                                {"x"},
                                {"y"},
                                {"z"},
                                {"about x"},
                                {"about y"},
                                {"about z"}}) {}

    void write() {
        for (const group::Pile& pile : data_->group.piles) {
            add(pile, "springs", "F/L", "F L", &group::Node::springs);
            add(pile, "forces", "F", "F L", &group::Node::forces);
            add(pile, "soil displacements", "L", "-", &group::Node::displacements);
            add_strains(pile);
        }
        table_.finish();
    }

private:
    void begin(const group::Pile& pile, std::string_view kind, const std::string& unit,
               const ValueRun& run) {
        table_.begin_row({{"data-pile", pile.number}});
        table_.integer(pile.number);
        table_.text(kind);
        table_.text(unit);
        table_.integer(static_cast<long>(run.first) + 1);
        table_.integer(static_cast<long>(run.last) + 1);
    }

    void add(const group::Pile& pile, std::string_view kind, std::string_view along,
             std::string_view about, group::Components group::Node::*values) {
        const auto value_of = [&](const group::Node& node) { return node.*values; };
        std::string unit = unit_text(along, data_->units);
        if (about != "-") unit += ", " + unit_text(about, data_->units);
        for (const ValueRun& run : runs_of(pile.nodes, value_of, is_zero)) {
            begin(pile, kind, unit, run);
            for (const double value : pile.nodes[run.first].*values)
                table_.number(value);
        }
    }

    void add_strains(const group::Pile& pile) {
        const auto value_of = [](const group::Element& element) { return element.strain; };
        const auto is_none = [](double value) { return value == 0.0; };
        for (const ValueRun& run : runs_of(pile.elements, value_of, is_none)) {
            begin(pile, "temperature strain of elements", "", run);
            table_.number(pile.elements[run.first].strain);
            table_.empty(5);
        }
    }

    const ReportData* data_;
    TableWriter table_;
};

bool has_values(const group::Group& group) {
    return std::ranges::any_of(group.piles, [](const group::Pile& pile) {
        return std::ranges::any_of(pile.nodes,
                                   [](const group::Node& node) {
                                       return !is_zero(node.springs) || !is_zero(node.forces) ||
                                              !is_zero(node.displacements);
                                   }) ||
               std::ranges::any_of(pile.elements, [](const group::Element& element) {
                   return element.strain != 0.0;
               });
    });
}

} // namespace

void write_piles(Markup& page, const ReportData& data) {
    page.open("section", {{"id", "piles"}});
    page.element("h2", "Piles");
    const std::string unit = unit_text("L", data.units);
    TableWriter table(page, {{"id", "pile-table"}, {"class", "data"}},
                      data.is_complete ? "Piles" : "Piles as far as they could be read",
                      {{"Pile"},
                       {"Origin", "", false},
                       {"Segments", "", false},
                       {"Elements"},
                       {"Head x", unit},
                       {"Head y", unit},
                       {"Head z", unit},
                       {"Tip x", unit},
                       {"Tip y", unit},
                       {"Tip z", unit},
                       {"Length", unit},
                       {"Batter", "°"},
                       {"Tip code"},
                       {"Fixed to"},
                       {"Steel", unit_text("F", data.units)}});
    for (std::size_t i = 0; i < data.group.piles.size(); ++i) {
        const group::Pile& pile = data.group.piles[i];
        table.begin_row(
            {{"data-pile", pile.number}, {"id", "pile-" + std::to_string(pile.number)}});
        table.integer(pile.number);
        table.text(origin_text(data.piles[i]));
        table.text(pile.is_dummy() ? "cap point" : segments_text(data.piles[i]));
        data.is_complete ? table.integer(static_cast<long>(pile.elements.size())) : table.empty();
        for (const group::Node* const node : {&pile.nodes.front(), &pile.nodes.back()}) {
            for (const double value : {node->x, node->y, node->z})
                table.number(value);
        }
        table.number(exporting::pile_length(pile));
        pile.is_dummy() ? table.empty() : table.number(exporting::pile_batter(pile));
        data.is_complete ? table.integer(pile.tip_code) : table.empty();
        data.is_complete ? table.integer(pile.fixed_to) : table.empty();
        const auto weights = weights_of(data, pile);
        weights ? table.number(weights->steel_weight) : table.empty();
    }
    table.finish();
    page.close();
}

void write_node_values(Markup& page, const ReportData& data) {
    page.open("section", {{"id", "node-values"}});
    page.element("h2", "Node values");
    if (has_values(data.group)) {
        NodeValues(page, data).write();
    } else {
        page.element("p", data.is_complete ? "No node has a value."
                                           : "Not known: the deck does not run.");
    }
    page.close();
}

} // namespace korvat::report

// The tables of load vectors, sums and differences.
#include "report/piles.hpp"

#include "export/text.hpp"
#include "report/table.hpp"

#include <algorithm>
#include <array>
#include <variant>

namespace korvat::report {
namespace {

using exporting::Quantities;

struct Sum {
    long piles = 0;
    long elements = 0;
    double length = 0.0;
    Quantities quantities;

    void add(const group::Element& element, const std::vector<Quantities>& sections) {
        ++elements;
        length += element.length;
        quantities += element.length * sections.at(static_cast<std::size_t>(element.section) - 1);
    }
    void add(const Sum& other) {
        piles += other.piles;
        elements += other.elements;
        length += other.length;
        quantities += other.quantities;
    }
};

void write_sum(TableWriter& table, const Sum& sum) {
    table.integer(sum.elements);
    table.number(sum.length);
    table.number(sum.quantities.steel_weight);
    table.number(sum.quantities.other_weight);
    table.number(sum.quantities.fluid_weight);
    table.number(sum.quantities.displaced_volume);
}

std::vector<Column> sum_columns(const std::string& first, const Units& units) {
    const std::string force = unit_text("F", units);
    return {{first},
            {"Elements"},
            {"Length", unit_text("L", units)},
            {"Steel", force},
            {"Other walls", force},
            {"Fluid", force},
            {"Displaced volume", unit_text("L3", units)}};
}

void write_total(TableWriter& table, const Sum& total) {
    table.begin_totals();
    table.begin_row();
    table.text("total");
    write_sum(table, total);
    table.finish();
}

// As the listing has them: heads of all piles, tips of those with elements.
void write_check_sums(Markup& page, const ReportData& data) {
    std::array<double, 3> heads{};
    std::array<double, 3> tips{};
    const auto add = [](std::array<double, 3>& sum, const group::Node& node) {
        sum[0] += node.x;
        sum[1] += node.y;
        sum[2] += node.z;
    };
    for (const group::Pile& pile : data.group.piles) {
        add(heads, pile.nodes.front());
        if (!pile.is_dummy()) add(tips, pile.nodes.back());
    }
    const std::string unit = unit_text("L", data.units);
    TableWriter table(page, {{"id", "check-sum-table"}, {"class", "data"}},
                      "Check sums of the coordinates",
                      {{"Sum over", "", false}, {"x", unit}, {"y", unit}, {"z", unit}});
    const auto row = [&](std::string_view name, const std::array<double, 3>& sums) {
        table.begin_row();
        table.text(name);
        for (const double sum : sums)
            table.number(sum);
    };
    row("pile heads", heads);
    row("pile tips", tips);
    table.finish();
}

void write_pile_sums(Markup& page, const ReportData& data) {
    TableWriter table(page, {{"id", "pile-sum-table"}, {"class", "data"}},
                      "Lengths and weights by pile", sum_columns("Pile", data.units));
    Sum total;
    for (const group::Pile& pile : data.group.piles) {
        Sum sum;
        for (const group::Element& element : pile.elements)
            sum.add(element, data.sections);
        table.begin_row({{"data-pile", pile.number}});
        table.integer(pile.number);
        write_sum(table, sum);
        total.add(sum);
    }
    write_total(table, total);
}

void write_section_sums(Markup& page, const ReportData& data) {
    std::vector<Sum> sums(data.group.sections.size());
    for (const group::Pile& pile : data.group.piles) {
        for (const group::Element& element : pile.elements)
            sums.at(static_cast<std::size_t>(element.section) - 1).add(element, data.sections);
    }
    TableWriter table(page, {{"id", "section-sum-table"}, {"class", "data"}},
                      "Lengths and weights by section", sum_columns("Section", data.units));
    Sum total;
    for (std::size_t i = 0; i < sums.size(); ++i) {
        if (sums[i].elements == 0) continue;
        const int number = static_cast<int>(i) + 1;
        table.begin_row({{"data-section", number}});
        table.integer(number);
        write_sum(table, sums[i]);
        total.add(sums[i]);
    }
    write_total(table, total);
}

void write_vector(Markup& page, const ReportData& data, std::size_t index) {
    const group::LoadVector& vector = data.group.load_vectors[index];
    const int number = static_cast<int>(index) + 1;
    const std::string force = unit_text("F", data.units);
    const std::string moment = unit_text("F L", data.units);
    TableWriter table(page, {{"class", "data"}, {"data-vector", number}},
                      "Vector " + std::to_string(number) + ": " + vector.label,
                      {{"Pile"},
                       {"Fx", force},
                       {"Fy", force},
                       {"Fz", force},
                       {"Mx", moment},
                       {"My", moment},
                       {"Mz", moment}});
    std::array<double, 3> sum{};
    for (const group::Load& load : vector.loads) {
        table.begin_row({{"data-pile", load.pile}});
        table.integer(load.pile);
        for (const auto& values : {load.force, load.moment}) {
            for (const double value : values)
                table.number(value);
        }
        for (std::size_t i = 0; i < sum.size(); ++i)
            sum[i] += load.force[i];
    }
    table.begin_totals();
    table.begin_row();
    table.text("sum of forces");
    for (const double value : sum)
        table.number(value);
    table.empty(3); // moments act at different points
    table.finish();
}

std::string subject_text(const group::Difference& difference) {
    std::string text;
    switch (difference.subject) {
    case group::Subject::section:
        text = "section";
        break;
    case group::Subject::pile:
        text = "pile";
        break;
    case group::Subject::load_vector:
        text = "load vector";
        break;
    case group::Subject::group:
        return "group";
    }
    return text + " " + std::to_string(difference.number);
}

void write_value(TableWriter& table, const group::Value& value) {
    if (const int* const integer = std::get_if<int>(&value)) {
        table.integer(*integer);
    } else if (const double* const real = std::get_if<double>(&value)) {
        table.exact_number(*real);
    } else if (const auto* const text = std::get_if<std::string>(&value)) {
        table.text(*text);
    } else {
        table.text("none");
    }
}

std::string place_text(const group::Difference& difference) {
    if (difference.place.empty()) return "";
    std::string text = difference.place + " " + std::to_string(difference.place_number);
    if (difference.count > 1) text += ", one of " + std::to_string(difference.count);
    return text;
}

Attributes row_of(const group::Difference& difference) {
    if (difference.subject == group::Subject::pile) return {{"data-pile", difference.number}};
    if (difference.subject == group::Subject::section) return {{"data-section", difference.number}};
    return {};
}

void write_differences(Markup& page, const ReportData& data) {
    const Comparison& comparison = *data.comparison;
    TableWriter table(page, {{"id", "difference-table"}, {"class", "data"}}, "Differences",
                      {{"Of", "", false},
                       {"Value", "", false},
                       {"Unit", "", false},
                       {"There"},
                       {"Here"},
                       {"At", "", false}});
    for (const group::Difference& difference : comparison.differences) {
        table.begin_row(row_of(difference));
        table.text(subject_text(difference));
        if (difference.quantity.empty()) {
            const bool is_there = !std::holds_alternative<std::monostate>(difference.a);
            table.text(is_there ? "only there" : "only here");
            table.empty(4);
            continue;
        }
        table.text(difference.quantity);
        table.text(unit_text(difference.unit, data.units));
        write_value(table, difference.a);
        write_value(table, difference.b);
        table.text(place_text(difference));
    }
    table.finish();
}

} // namespace

void write_loads(Markup& page, const ReportData& data) {
    page.open("section", {{"id", "loads"}});
    page.element("h2", "Load vectors");
    if (data.group.load_vectors.empty()) {
        page.element("p", data.is_complete ? "The deck has no load vector."
                                           : "Not known: the deck does not run.");
    }
    for (std::size_t i = 0; i < data.group.load_vectors.size(); ++i)
        write_vector(page, data, i);
    page.close();
}

void write_sums(Markup& page, const ReportData& data) {
    page.open("section", {{"id", "sums"}});
    page.element("h2", "Sums");
    if (data.is_complete) {
        write_check_sums(page, data);
        write_section_sums(page, data);
        write_pile_sums(page, data);
    } else {
        page.element("p", "Not known: the deck does not run.");
    }
    page.close();
}

void write_comparison(Markup& page, const ReportData& data) {
    if (!data.comparison && data.no_comparison.empty()) return;
    page.open("section", {{"id", "comparison"}});
    page.element("h2", "Comparison");
    if (!data.comparison) {
        page.element("p", data.no_comparison);
    } else if (data.comparison->differences.empty()) {
        page.element("p", "Nothing differs from " + data.comparison->name + ".");
    } else {
        page.element("p", "Here: this group. There: " + data.comparison->name + ", " +
                              data.comparison->other.label);
        write_differences(page, data);
    }
    page.close();
}

} // namespace korvat::report

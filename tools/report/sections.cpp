#include "report/sections.hpp"

#include "report/section_figures.hpp"
#include "report/table.hpp"

#include <algorithm>

namespace korvat::report {
namespace {

using group::Section;

std::string numbers_of(const Section& section) {
    std::string text;
    for (const int tube : section.tubes)
        text += (text.empty() ? "" : " ") + std::to_string(tube);
    return text;
}

// The composite that a section is a tube of; 0 where it is none.
int composite_of(const group::Group& group, int section) {
    for (std::size_t i = 0; i < group.sections.size(); ++i) {
        if (std::ranges::count(group.sections[i].tubes, section) > 0)
            return static_cast<int>(i) + 1;
    }
    return 0;
}

std::string kind_of(const group::Group& group, int number) {
    const Section& section = group.sections[static_cast<std::size_t>(number) - 1];
    if (section.is_composite()) return "composite of " + numbers_of(section);
    const int composite = composite_of(group, number);
    return composite == 0 ? "tube" : "tube of " + std::to_string(composite);
}

// "1, steel": the number of its material, and what it is.
std::string material_of(const ReportData& data, std::size_t index) {
    const int number = data.section_materials.at(index);
    if (number == 0) return "";
    const auto found = std::ranges::find(data.materials, number, &Material::number);
    std::string text = std::to_string(number);
    if (found != data.materials.end() && found->name) text += ", " + *found->name;
    return text;
}

// Writes the columns of a table of sections: a title, a unit in F and L, and a value for each section.
class Writer {
public:
    Writer(Markup& page, const ReportData& data) : page_(&page), data_(&data) {}

    void sizes() const {
        TableWriter table(*page_, {{"id", "section-table"}, {"class", "data"}}, "Cross sections",
                          {{"Section"},
                           {"Kind", "", false},
                           {"Material", "", false},
                           {"D", unit("L")},
                           {"t", unit("L")},
                           {"D/t"},
                           {"A", unit("L2")},
                           {"W", unit("L3")},
                           {"EA", unit("F")},
                           {"EI", unit("F L2")},
                           {"GA", unit("F")},
                           {"GJ", unit("F L2")},
                           {"Steel", unit("F/L")},
                           {"Other walls", unit("F/L")},
                           {"Fluid", unit("F/L")}});
        for (std::size_t i = 0; i < sections().size(); ++i) {
            const Section& s = sections()[i];
            begin(table, i);
            table.text(kind_of(data_->group, static_cast<int>(i) + 1));
            table.text(material_of(*data_, i));
            table.number(s.diameter);
            s.is_composite() ? table.empty() : table.number(s.wall);
            s.wall > 0.0 ? table.number(s.diameter / s.wall) : table.empty();
            table.number(s.area);
            s.is_composite() ? table.empty() : table.number(s.section_modulus);
            for (const double value :
                 {s.axial_stiffness, s.bending_stiffness, s.shear_stiffness, s.torsional_stiffness})
                table.number(value);
            const exporting::Quantities& q = data_->sections.at(i);
            for (const double value : {q.steel_weight, q.other_weight, q.fluid_weight})
                table.number(value);
        }
        table.finish();
    }

    void materials() const {
        const bool has_five = data_->group.revision == 5;
        std::vector<Column> columns{{"Section"},
                                    {"E", unit("F/L2")},
                                    {"G", unit("F/L2")},
                                    {"Yield stress", unit("F/L2")},
                                    {"Unit weight of wall", unit("F/L3")},
                                    {"Unit weight of fluid", unit("F/L3")},
                                    {"Temperature strain"}};
        if (has_five) {
            for (const Column& column : std::vector<Column>{{"Axial yield force", unit("F")},
                                                            {"Torsional yield moment", unit("F L")},
                                                            {"Eccentricity"},
                                                            {"Miscellaneous 1"},
                                                            {"Miscellaneous 2"},
                                                            {"Miscellaneous 3"},
                                                            {"Curve points"}})
                columns.push_back(column);
        }
        TableWriter table(*page_, {{"id", "section-material-table"}, {"class", "data"}},
                          "Materials and yield values of the cross sections", columns);
        for (std::size_t i = 0; i < sections().size(); ++i) {
            const Section& s = sections()[i];
            begin(table, i);
            for (const double value : {s.elastic_modulus, s.shear_modulus, s.yield_stress,
                                       s.wall_weight, s.fluid_weight, s.temperature_strain})
                s.is_composite() ? table.empty() : table.number(value);
            if (!has_five) continue;
            for (const double value : {s.axial_yield, s.torsional_yield, s.eccentricity,
                                       s.miscellaneous[0], s.miscellaneous[1], s.miscellaneous[2]})
                table.number(value);
            table.integer(s.non_linear_code);
        }
        table.finish();
    }

    // Of a deck that does not run: what the records give.
    void given() const {
        TableWriter table(
            *page_, {{"id", "section-table"}, {"class", "data"}},
            "Cross sections as far as they could be read",
            {{"Section"}, {"Material", "", false}, {"D", unit("L")}, {"t", unit("L")}, {"D/t"}});
        for (std::size_t i = 0; i < sections().size(); ++i) {
            const Section& s = sections()[i];
            if (s.diameter == 0.0) continue; // left out
            begin(table, i);
            table.text(material_of(*data_, i));
            table.number(s.diameter);
            s.wall > 0.0 ? table.number(s.wall) : table.empty();
            s.wall > 0.0 ? table.number(s.diameter / s.wall) : table.empty();
        }
        table.finish();
    }

private:
    [[nodiscard]] std::string unit(std::string_view text) const {
        return unit_text(text, data_->units);
    }
    [[nodiscard]] const std::vector<Section>& sections() const { return data_->group.sections; }

    static void begin(TableWriter& table, std::size_t index) {
        const int number = static_cast<int>(index) + 1;
        table.begin_row({{"data-section", number}});
        table.integer(number);
    }

    Markup* page_;
    const ReportData* data_;
};

} // namespace

void write_sections(Markup& page, const ReportData& data) {
    page.open("section", {{"id", "sections"}});
    page.element("h2", "Sections");
    const Writer writer(page, data);
    if (data.group.sections.empty()) {
        page.element("p", "No cross section of the deck could be read.");
    } else if (!data.is_complete) {
        writer.given();
    } else {
        writer.sizes();
        writer.materials();
        write_section_figures(page, data);
    }
    page.close();
}

} // namespace korvat::report

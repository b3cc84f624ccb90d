#include "report/section_figures.hpp"

#include "report/frame.hpp"
#include "report/table.hpp"

#include <algorithm>
#include <cmath>

namespace korvat::report {
namespace {

using group::Section;
using group::YieldPoint;

constexpr Box diagram{74.0, 14.0, 374.0, 294.0};
constexpr double diagram_width = 392.0;
constexpr double diagram_height = 338.0;
constexpr double tubes_size = 260.0;

struct CurveStyle {
    const char* name;
    const char* colour;
    const char* dashes; // empty: none
    const char* fill;   // of its points
};
constexpr CurveStyle elastic{"elastic", "#1f5fa8", "", "#1f5fa8"};
constexpr CurveStyle plastic{"plastic", "#a84400", "6 3", "#ffffff"};

bool is_finite(const YieldPoint& point) {
    return std::isfinite(point.axial) && std::isfinite(point.moment);
}

class Curves {
public:
    Curves(Markup& page, const ReportData& data, int number)
        : page_(&page), data_(&data), number_(number),
          section_(&data.group.sections[static_cast<std::size_t>(number) - 1]) {
        moments_.include(0.0);
        for (const auto* const curve : {&section_->elastic_curve, &section_->plastic_curve}) {
            for (const YieldPoint& point : *curve) {
                if (!is_finite(point)) continue;
                moments_.include(point.moment);
                axials_.include(point.axial);
            }
        }
        widen(moments_);
        widen(axials_);
        across_ = {moments_.least, diagram.left, (diagram.right - diagram.left) / moments_.size()};
        up_ = {axials_.most, diagram.top, -(diagram.bottom - diagram.top) / axials_.size()};
    }

    void draw() {
        const std::string name = "Section " + std::to_string(number_);
        page_->open("figure", {{"class", "curve"}, {"data-section", number_}});
        open_drawing(*page_, diagram_width, diagram_height, name + ": N–M diagram", "img");
        draw_axes(*page_, diagram, across_, moments_, "M [" + unit("F L") + "]", up_, axials_,
                  "N [" + unit("F") + "], compression positive");
        const double zero = up_.at(0.0);
        draw_line(*page_, diagram.left, zero, diagram.right, zero, "zero", "#444444");
        draw_line(*page_, across_.at(0.0), diagram.top, across_.at(0.0), diagram.bottom, "zero",
                  "#444444");
        draw_curve(section_->elastic_curve, elastic);
        draw_curve(section_->plastic_curve, plastic);
        page_->close();
        page_->element("figcaption",
                       name + ": N–M, elastic (full line) and plastic (broken line).");
        page_->close();
    }

private:
    [[nodiscard]] std::string unit(std::string_view text) const {
        return unit_text(text, data_->units);
    }

    static void widen(Range& range) {
        const double by = range.size() > 0.0 ? 0.08 * range.size() : 1.0;
        range.least -= by;
        range.most += by;
    }

    void draw_curve(const std::vector<YieldPoint>& points, const CurveStyle& style) {
        page_->open("g", {{"class", style.name}});
        std::string path;
        for (const YieldPoint& point : points) {
            if (!is_finite(point)) continue;
            path += (path.empty() ? "M" : "L") + px(across_.at(point.moment), 3) + " " +
                    px(up_.at(point.axial), 3);
        }
        Attributes line{{"class", "line"},
                        {"d", path},
                        {"fill", "none"},
                        {"stroke", style.colour},
                        {"stroke-width", "1.5"}};
        if (*style.dashes != 0) line.emplace_back("stroke-dasharray", style.dashes);
        if (!path.empty()) page_->leaf("path", line);
        for (const YieldPoint& point : points) {
            if (!is_finite(point)) continue;
            page_->open("circle", {{"class", "point"},
                                   {"data-axial", point.axial},
                                   {"data-moment", point.moment},
                                   {"cx", px(across_.at(point.moment), 3)},
                                   {"cy", px(up_.at(point.axial), 3)},
                                   {"r", "3.5"},
                                   {"fill", style.fill},
                                   {"stroke", style.colour},
                                   {"stroke-width", "1.5"}});
            page_->element("title", std::string(style.name) + ": N = " + short_text(point.axial) +
                                        " " + unit("F") + ", M = " + short_text(point.moment) +
                                        " " + unit("F L"));
            page_->close();
        }
        page_->close();
    }

    Markup* page_;
    const ReportData* data_;
    int number_;
    const Section* section_;
    Range moments_ = empty_range();
    Range axials_ = empty_range();
    Scale across_;
    Scale up_;
};

std::string circle_path(double radius) {
    const double middle = 0.5 * tubes_size;
    const std::string r = px(radius, 4);
    return "M" + px(middle - radius, 4) + " " + px(middle) + "a" + r + " " + r + " 0 1 0 " +
           px(2.0 * radius, 4) + " 0a" + r + " " + r + " 0 1 0 " + px(-2.0 * radius, 4) + " 0z";
}

// The walls of a composite as rings, the outer one first; steel and other materials in two colours.
void draw_tubes(Markup& page, const ReportData& data, int number) {
    const auto& sections = data.group.sections;
    const Section& composite = sections[static_cast<std::size_t>(number) - 1];
    const double scale = (tubes_size - 20.0) / composite.diameter;
    const std::string name = "Section " + std::to_string(number);
    const std::string unit = unit_text("L", data.units);
    page.open("figure", {{"class", "tubes"}, {"data-section", number}});
    open_drawing(page, tubes_size, tubes_size, name + ": its tubes, to scale", "img");
    for (const int tube : composite.tubes) {
        const auto index = static_cast<std::size_t>(tube) - 1;
        const Section& section = sections.at(index);
        const bool is_steel = data.sections.at(index).steel_weight > 0.0;
        const double outer = 0.5 * scale * section.diameter;
        const double inner = std::max(0.0, outer - scale * section.wall);
        page.open("path", {{"class", is_steel ? "tube steel" : "tube other"},
                           {"data-section", tube},
                           {"data-diameter", section.diameter},
                           {"data-wall", section.wall},
                           {"d", circle_path(outer) + circle_path(inner)},
                           {"fill", is_steel ? "#7f9dbf" : "#d9cdb4"},
                           {"fill-rule", "evenodd"},
                           {"stroke", "#1f3f66"},
                           {"stroke-width", "0.5"}});
        page.element("title", "section " + std::to_string(tube));
        page.close();
    }
    page.close();
    page.open("figcaption");
    page.element("strong", name);
    page.text(", from outside:");
    page.open("ul");
    for (const int tube : composite.tubes) {
        const Section& section = sections.at(static_cast<std::size_t>(tube) - 1);
        page.element("li", "section " + std::to_string(tube) + ": " + short_text(section.diameter) +
                               " × " + short_text(section.wall) + " " + unit);
    }
    page.close();
    page.close();
    page.close();
}

bool has_curve(const Section& section) {
    return std::ranges::any_of(section.elastic_curve, is_finite) ||
           std::ranges::any_of(section.plastic_curve, is_finite);
}

} // namespace

void write_section_figures(Markup& page, const ReportData& data) {
    page.open("div", {{"class", "figures"}});
    for (std::size_t i = 0; i < data.group.sections.size(); ++i) {
        const Section& section = data.group.sections[i];
        const int number = static_cast<int>(i) + 1;
        if (section.is_composite() && section.diameter > 0.0) draw_tubes(page, data, number);
        if (has_curve(section)) Curves(page, data, number).draw();
    }
    page.close();
}

} // namespace korvat::report

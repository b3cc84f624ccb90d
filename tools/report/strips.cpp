// The strips of the pile types.
#include "report/drawings.hpp"
#include "report/frame.hpp"
#include "report/table.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvat::report {
namespace {

constexpr double height = 420.0;
constexpr Box body{62.0, 34.0, 132.0, 376.0};   // of the tube
constexpr Box walls{190.0, 34.0, 312.0, 376.0}; // of the diagram
constexpr double width = 330.0;
constexpr double label_pitch = 11.0;

// A part of the pile with one section.
struct Part {
    int section = 0;
    double from = 0.0; // distances from the head, L
    double to = 0.0;
    double diameter = 0.0;
    double wall = 0.0; // of a composite all tubes together
    bool is_composite = false;
};

double wall_of(const group::Group& group, const group::Section& section) {
    if (!section.is_composite()) return section.wall;
    double sum = 0.0;
    for (const int tube : section.tubes)
        sum += group.sections.at(static_cast<std::size_t>(tube) - 1).wall;
    return sum;
}

std::vector<Part> parts_of(const group::Group& group, const group::Pile& pile) {
    std::vector<Part> parts;
    double distance = 0.0;
    for (const group::Element& element : pile.elements) {
        if (parts.empty() || parts.back().section != element.section) {
            const group::Section& section =
                group.sections.at(static_cast<std::size_t>(element.section) - 1);
            parts.push_back({element.section, distance, distance, element.diameter,
                             wall_of(group, section), section.is_composite()});
        }
        distance += element.length;
        parts.back().to = distance;
    }
    return parts;
}

class Strip {
public:
    Strip(Markup& page, const ReportData& data, const PileType& type)
        : page_(&page), data_(&data), type_(&type), pile_(&data.group.piles[type.piles.front()]),
          parts_(parts_of(data.group, *pile_)) {
        for (const Part& part : parts_) {
            widest_ = std::max(widest_, part.diameter);
            thickest_ = std::max(thickest_, part.wall);
        }
        length_ = parts_.back().to;
        down_ = {0.0, body.top, (body.bottom - body.top) / length_};
        across_ = {0.0, walls.left, (walls.right - walls.left) / (1.45 * thickest_)};
    }

    [[nodiscard]] bool can_be_drawn() const {
        return std::isfinite(down_.factor) && std::isfinite(across_.factor) && widest_ > 0.0;
    }

    void draw() {
        std::string numbers;
        std::vector<int> list;
        for (const std::size_t index : type_->piles) {
            list.push_back(data_->group.piles[index].number);
            numbers += (numbers.empty() ? "" : " ") + std::to_string(list.back());
        }
        const std::string name = (list.size() == 1 ? "Pile " : "Piles ") +
                                 number_list(list, std::numeric_limits<std::size_t>::max());
        page_->open("figure", {{"class", "strip"}, {"data-piles", numbers}});
        open_drawing(*page_, width, height, name + ": sections and wall thickness", "img");
        draw_text(*page_, 0.5 * (body.left + body.right), 14.0, "section", "middle", "axis-title");
        draw_text(*page_, 0.5 * (walls.left + walls.right), 14.0,
                  "wall [" + unit_text("L", data_->units) + "]", "middle", "axis-title");
        draw_depths();
        draw_body();
        draw_segments();
        draw_walls();
        page_->close();
        page_->open("figcaption");
        page_->element("strong", name);
        page_->text(": " + caption());
        page_->close();
        page_->close();
    }

private:
    [[nodiscard]] const std::vector<PileSegment>& segments() const {
        return data_->piles[type_->piles.front()].segments;
    }

    [[nodiscard]] std::string caption() const {
        const std::string unit = unit_text("L", data_->units);
        std::string text = short_text(length_) + " " + unit + " long; segments ";
        for (std::size_t i = 0; i < segments().size(); ++i) {
            const PileSegment& segment = segments()[i];
            text += (i == 0 ? "" : ", ") + std::to_string(segment.type) + " (" +
                    short_text(segment.length) + " " + unit + ", " +
                    std::to_string(segment.elements) +
                    (segment.elements == 1 ? " element)" : " elements)");
        }
        const bool has_composite = std::ranges::any_of(parts_, &Part::is_composite);
        return text + (has_composite ? ". Walls of composites: all tubes together." : ".");
    }

    void draw_depths() {
        page_->open("g", {{"class", "axes"}});
        for (const double value : ticks({0.0, length_}, 8)) {
            const double y = down_.at(value);
            draw_line(*page_, body.left - 10.0, y, walls.right, y, "grid", "#dddddd");
            draw_text(*page_, body.left - 14.0, y + 4.0, short_text(value), "end", "tick-label");
        }
        const double x = 12.0;
        const double y = 0.5 * (body.top + body.bottom);
        page_->element("text", "from head [" + unit_text("L", data_->units) + "]",
                       {{"class", "axis-title"},
                        {"x", px(x)},
                        {"y", px(y)},
                        {"text-anchor", "middle"},
                        {"fill", "#222222"},
                        {"transform", "rotate(-90 " + px(x) + " " + px(y) + ")"}});
        page_->close();
    }

    void draw_body() {
        const double middle = 0.5 * (body.left + body.right);
        double last_label = -label_pitch;
        page_->open("g", {{"class", "body"}});
        for (const Part& part : parts_) {
            const double half = 0.5 * (body.right - body.left) * part.diameter / widest_;
            page_->leaf("rect", {{"class", part.is_composite ? "wall composite" : "wall"},
                                 {"data-section", part.section},
                                 {"x", px(middle - half)},
                                 {"y", px(down_.at(part.from), 3)},
                                 {"width", px(2.0 * half)},
                                 {"height", px(down_.factor * (part.to - part.from), 3)},
                                 {"fill", part.is_composite ? "#e8d9b8" : "#c9dcf0"},
                                 {"stroke", "#1f3f66"},
                                 {"stroke-width", "0.8"}});
            const double y = down_.at(0.5 * (part.from + part.to));
            if (y - last_label < label_pitch) continue;
            const double room = down_.factor * (part.to - part.from);
            const double size = std::clamp(room, 7.0, 11.0);
            draw_text(*page_, middle, y + 0.36 * size, std::to_string(part.section), "middle",
                      "number", size);
            last_label = y;
        }
        draw_elements();
        page_->close();
    }

    // Marks at the nodes, where they are not too close.
    void draw_elements() {
        const double pitch = (body.bottom - body.top) / static_cast<double>(pile_->elements.size());
        if (pitch < 2.5) return;
        std::string path;
        double distance = 0.0;
        for (const group::Element& element : pile_->elements) {
            distance += element.length;
            path += "M" + px(body.left - 6.0) + " " + px(down_.at(distance)) + "h4";
        }
        page_->leaf("path", {{"class", "element"},
                             {"d", path},
                             {"fill", "none"},
                             {"stroke", "#888888"},
                             {"stroke-width", "0.6"}});
    }

    void draw_segments() {
        double distance = 0.0;
        double last_label = -label_pitch;
        page_->open("g", {{"class", "segments"}});
        for (const PileSegment& segment : segments()) {
            const double y = down_.at(distance + 0.5 * segment.length);
            distance += segment.length;
            draw_line(*page_, body.right, down_.at(distance), body.right + 40.0, down_.at(distance),
                      "segment", "#444444", 0.8);
            if (y - last_label < label_pitch) continue;
            draw_text(*page_, body.right + 6.0, y + 4.0, "seg. " + std::to_string(segment.type),
                      "start", "segment-label", 9.0);
            last_label = y;
        }
        page_->close();
    }

    void draw_walls() {
        page_->open("g", {{"class", "walls"}});
        draw_line(*page_, walls.left, walls.top, walls.left, walls.bottom, "tick", "#444444");
        std::string path = "M" + px(walls.left) + " " + px(walls.top);
        for (const Part& part : parts_) {
            path += "H" + px(across_.at(part.wall)) + "V" + px(down_.at(part.to), 3);
        }
        path += "H" + px(walls.left) + "Z";
        page_->leaf("path", {{"class", "wall-diagram"},
                             {"d", path},
                             {"fill", "#dbe8c8"},
                             {"stroke", "#40602a"},
                             {"stroke-width", "1"}});
        double last_label = -label_pitch;
        for (const Part& part : parts_) {
            const double y = down_.at(0.5 * (part.from + part.to));
            if (y - last_label < label_pitch) continue;
            draw_text(*page_, across_.at(part.wall) + 4.0, y + 4.0, short_text(part.wall), "start",
                      "wall-label", 10.0);
            last_label = y;
        }
        page_->close();
    }

    Markup* page_;
    const ReportData* data_;
    const PileType* type_;
    const group::Pile* pile_;
    std::vector<Part> parts_;
    double widest_ = 0.0;
    double thickest_ = 0.0;
    double length_ = 0.0;
    Scale down_;
    Scale across_;
};

} // namespace

void write_strips(Markup& page, const ReportData& data) {
    page.open("div", {{"class", "strips"}});
    for (const PileType& type : pile_types(data)) {
        const group::Pile& pile = data.group.piles[type.piles.front()];
        if (pile.is_dummy()) continue;
        Strip strip(page, data, type);
        if (strip.can_be_drawn()) strip.draw();
    }
    page.close();
}

} // namespace korvat::report

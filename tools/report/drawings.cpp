#include "report/drawings.hpp"

#include "check/format.hpp"
#include "report/frame.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace korvat::report {
namespace {

using check::Point;

constexpr double drawing_width = 760.0;
constexpr double most_height = 840.0;
constexpr double least_width = 220.0; // of the frame
constexpr double least_height = 120.0;
constexpr Box margins{58.0, 14.0, 18.0, 44.0};
constexpr double drawable = 1.0e15;

// From which side piles are seen.
struct View {
    const char* id;
    const char* title;
    const char* across_name;
    const char* down_name;
    std::size_t across; // coordinate that runs to the right
    std::size_t down;
    std::size_t depth;
    bool is_near_high; // what has more depth is nearer to who looks

    [[nodiscard]] bool is_plan() const { return down == 1; }
};

constexpr std::array views{
    View{"plan", "Plan, seen from above", "x", "y", 0, 1, 2, false},
    View{"elevation-x", "Elevation X–Z", "x", "z", 0, 2, 1, true},
    View{"elevation-y", "Elevation Y–Z", "y", "z", 1, 2, 0, false},
};

Point point_of(const group::Node& node) {
    return {node.x, node.y, node.z};
}

bool is_drawable(const group::Pile& pile) {
    const auto is_small = [](double value) { return std::abs(value) < drawable; };
    return std::ranges::all_of(pile.nodes,
                               [&](const group::Node& node) {
                                   return std::ranges::all_of(point_of(node), is_small);
                               }) &&
           std::ranges::all_of(pile.elements, [&](const group::Element& element) {
               return is_small(element.diameter);
           });
}

double largest_diameter(const group::Pile& pile) {
    double largest = 0.0;
    for (const group::Element& element : pile.elements)
        largest = std::max(largest, element.diameter);
    return largest;
}

constexpr std::size_t many_runs = 2000; // of all piles
constexpr double least_run = 8.0;       // px, where there are many

// A part of a pile of one section, by its first and last node.
struct Run {
    std::size_t first = 0;
    std::size_t last = 0;
    double diameter = 0.0; // the largest in it
};

std::vector<Run> runs_of(const group::Pile& pile) {
    std::vector<Run> runs;
    for (std::size_t i = 0; i < pile.elements.size(); ++i) {
        const bool is_same = i > 0 && pile.elements[i].section == pile.elements[i - 1].section &&
                             pile.elements[i].diameter == pile.elements[i - 1].diameter;
        if (!is_same) runs.push_back({i, i, pile.elements[i].diameter});
        runs.back().last = i + 1;
    }
    return runs;
}

std::string three(const Point& point) {
    std::string text;
    for (const double value : point)
        text += (text.empty() ? "" : " ") + Attribute("", value).value;
    return text;
}

// A drawing of all piles from one side.
class PileDrawing {
public:
    PileDrawing(Markup& page, const ReportData& data, const View& view)
        : page_(&page), data_(&data), view_(view), across_range_(empty_range()),
          down_range_(empty_range()) {
        for (const group::Pile& pile : data.group.piles) {
            if (is_drawable(pile)) piles_.push_back(&pile);
        }
        std::ranges::stable_sort(piles_, {}, [&](const group::Pile* pile) {
            const double depth = point_of(pile->nodes.front())[view_.depth];
            return view_.is_near_high ? depth : -depth;
        });
        find_ranges();
        find_scale();
    }

    void draw() {
        page_->open("figure", {{"id", view_.id}, {"class", "drawing"}});
        const Attributes scales{
            {"data-across", view_.across_name},     {"data-down", view_.down_name},
            {"data-origin-across", across_.origin}, {"data-origin-down", down_.origin},
            {"data-start-across", across_.start},   {"data-start-down", down_.start},
            {"data-scale", across_.factor}};
        open_drawing(*page_, frame_.right + margins.right, frame_.bottom + margins.bottom,
                     view_.title, "group", scales);
        draw_axes(*page_, frame_, across_, across_range_, title(view_.across_name), down_,
                  down_range_, title(view_.down_name) + (view_.is_plan() ? "" : ", downwards"));
        if (!view_.is_plan()) draw_mudline();
        draw_links();
        for (const group::Pile* const pile : piles_)
            draw_pile(*pile);
        draw_numbers();
        draw_clashes();
        page_->close();
        page_->element("figcaption", caption());
        page_->close();
    }

private:
    [[nodiscard]] std::string title(const std::string& axis) const {
        return axis + " [" + unit_text("L", data_->units) + "]";
    }

    [[nodiscard]] std::string caption() const {
        std::string text = view_.title;
        text += view_.is_plan()
                    ? ": circles are heads, to scale; lines lead to the tips, broken circles"
                    : ": diameters to scale";
        const std::size_t hidden = data_->group.piles.size() - piles_.size();
        if (hidden > 0) text += "; " + std::to_string(hidden) + " piles are out of reach";
        return text + '.';
    }

    void find_ranges() {
        for (const group::Pile* const pile : piles_) {
            const double radius = 0.5 * largest_diameter(*pile);
            for (const group::Node* const node : {&pile->nodes.front(), &pile->nodes.back()}) {
                const Point point = point_of(*node);
                across_range_.include(point[view_.across] - radius);
                across_range_.include(point[view_.across] + radius);
                down_range_.include(point[view_.down] - (view_.is_plan() ? radius : 0.0));
                down_range_.include(point[view_.down] + (view_.is_plan() ? radius : 0.0));
            }
        }
    }

    // One scale in both directions; a frame of a decent size around what there is.
    void find_scale() {
        const double width = drawing_width - margins.left - margins.right;
        const double height = most_height - margins.top - margins.bottom;
        const double span = std::max({across_range_.size(), down_range_.size(), 1.0e-12});
        widen(across_range_, 0.05 * span);
        widen(down_range_, 0.05 * span);
        if (!view_.is_plan()) down_range_.least -= 0.06 * span; // for the numbers
        const double scale = std::min(width / across_range_.size(), height / down_range_.size());
        widen(across_range_, 0.5 * (least_width / scale - across_range_.size()));
        widen(down_range_, 0.5 * (least_height / scale - down_range_.size()));
        frame_ = {margins.left, margins.top, margins.left + scale * across_range_.size(),
                  margins.top + scale * down_range_.size()};
        across_ = {across_range_.least, frame_.left, scale};
        down_ = {down_range_.least, frame_.top, scale};
        decimals_ = exact_decimals(scale);
        double widest = 0.0;
        for (const group::Pile* const pile : piles_)
            widest = std::max(widest, largest_diameter(*pile));
        std::size_t runs = 0;
        for (const group::Pile* const pile : piles_)
            runs += runs_of(*pile).size();
        has_many_runs_ = runs > many_runs;
        weight_ = std::clamp(0.1 * scale * widest, 0.35, 1.0);
    }

    static void widen(Range& range, double by) {
        if (by <= 0.0) return;
        range.least -= by;
        range.most += by;
    }

    [[nodiscard]] double x(const Point& point) const { return across_.at(point[view_.across]); }
    [[nodiscard]] double y(const Point& point) const { return down_.at(point[view_.down]); }
    [[nodiscard]] std::string exact(double value) const { return px(value, decimals_); }

    void draw_mudline() {
        const double mudline = down_.at(0.0);
        if (mudline < frame_.top || mudline > frame_.bottom) return;
        page_->open("g", {{"class", "mudline"}});
        draw_line(*page_, frame_.left, mudline, frame_.right, mudline, "mudline", "#8a5a2b", 1.5);
        draw_text(*page_, frame_.right - 4.0, mudline - 4.0, "z = 0", "end", "mudline-label");
        page_->close();
    }

    [[nodiscard]] const group::Pile* pile_numbered(int number) const {
        const auto found = std::ranges::find_if(
            piles_, [&](const group::Pile* pile) { return pile->number == number; });
        return found == piles_.end() ? nullptr : *found;
    }

    void draw_links() {
        page_->open("g", {{"class", "links"}});
        for (const group::Pile* const pile : piles_) {
            const group::Pile* const cap = pile_numbered(pile->fixed_to);
            if (cap == nullptr) continue;
            const Point from = point_of(cap->nodes.front());
            const Point to = point_of(pile->nodes.front());
            page_->leaf("line", {{"class", "link"},
                                 {"x1", px(x(from))},
                                 {"y1", px(y(from))},
                                 {"x2", px(x(to))},
                                 {"y2", px(y(to))},
                                 {"stroke", "#7a7a7a"},
                                 {"stroke-dasharray", "4 3"}});
        }
        page_->close();
    }

    [[nodiscard]] std::string class_of(const group::Pile& pile) const {
        std::string name = pile.is_dummy() ? "pile cap" : "pile";
        if (!data_->comparison) return name;
        const Comparison& comparison = *data_->comparison;
        if (std::ranges::count(comparison.changed, pile.number) > 0) name += " changed";
        if (std::ranges::count(comparison.only_here, pile.number) > 0) name += " added";
        return name;
    }

    void draw_pile(const group::Pile& pile) {
        const Point head = point_of(pile.nodes.front());
        const Point tip = point_of(pile.nodes.back());
        page_->open("g", {{"class", class_of(pile)},
                          {"data-pile", pile.number},
                          {"data-head", three(head)},
                          {"data-tip", three(tip)},
                          {"fill", "#c9dcf0"},
                          {"fill-opacity", "0.8"},
                          {"stroke", "#1f3f66"},
                          {"stroke-width", px(0.6 * weight_)}});
        page_->element("title", "Pile " + std::to_string(pile.number));
        if (pile.is_dummy()) {
            draw_cap(head);
        } else if (view_.is_plan()) {
            draw_circles(pile, head, tip);
        } else {
            for (const Run& run : drawn_runs(pile))
                draw_run(pile, run, head, tip);
        }
        if (!pile.is_dummy()) draw_axis(head, tip);
        page_->close();
    }

    void draw_cap(const Point& at) {
        constexpr double size = 5.0;
        page_->leaf("path", {{"class", "cap-point"},
                             {"d", "M" + exact(x(at)) + " " + exact(y(at)) + "m0 " + px(-size) +
                                       "l" + px(size) + " " + px(size) + "l" + px(-size) + " " +
                                       px(size) + "l" + px(-size) + " " + px(-size) + "z"},
                             {"fill", "#ffffff"},
                             {"fill-opacity", "1"},
                             {"stroke", "#222222"},
                             {"stroke-width", "1.5"}});
    }

    void draw_axis(const Point& head, const Point& tip) {
        page_->leaf("line", {{"class", "axis"},
                             {"x1", exact(x(head))},
                             {"y1", exact(y(head))},
                             {"x2", exact(x(tip))},
                             {"y2", exact(y(tip))},
                             {"stroke", "#1f3f66"},
                             {"stroke-width", px(view_.is_plan() ? 1.0 : 0.6 * weight_)}});
    }

    void draw_circles(const group::Pile& pile, const Point& head, const Point& tip) {
        page_->leaf("circle", {{"class", "tip"},
                               {"cx", exact(x(tip))},
                               {"cy", exact(y(tip))},
                               {"r", px(0.5 * across_.factor * pile.elements.back().diameter, 3)},
                               {"fill", "none"},
                               {"stroke-width", "0.8"},
                               {"stroke-dasharray", "3 2"}});
        page_->leaf("circle", {{"class", "head"},
                               {"cx", exact(x(head))},
                               {"cy", exact(y(head))},
                               {"r", px(0.5 * across_.factor * pile.elements.front().diameter, 3)},
                               {"stroke-width", "1"}});
    }

    // In a large group, what is too short on paper is joined to the part before it.
    [[nodiscard]] std::vector<Run> drawn_runs(const group::Pile& pile) const {
        std::vector<Run> runs = runs_of(pile);
        if (!has_many_runs_) return runs;
        std::vector<Run> joined;
        for (const Run& run : runs) {
            const bool is_short = !joined.empty() && length_of(pile, joined.back()) < least_run;
            if (!is_short) {
                joined.push_back(run);
                continue;
            }
            joined.back().last = run.last;
            joined.back().diameter = std::max(joined.back().diameter, run.diameter);
        }
        return joined;
    }

    // On paper.
    [[nodiscard]] double length_of(const group::Pile& pile, const Run& run) const {
        const Point from = point_of(pile.nodes[run.first]);
        const Point to = point_of(pile.nodes[run.last]);
        return std::hypot(x(to) - x(from), y(to) - y(from));
    }

    // A part of one diameter: its outline is as wide as the diameter, square to the axis as it is seen.
    void draw_run(const group::Pile& pile, const Run& run, const Point& head, const Point& tip) {
        const double dx = x(tip) - x(head);
        const double dy = y(tip) - y(head);
        const double length = std::hypot(dx, dy);
        if (length <= 0.0 || run.diameter <= 0.0) return;
        const double half = 0.5 * across_.factor * run.diameter;
        const double aside = -half * dy / length;
        const double below = half * dx / length;
        const Point from = point_of(pile.nodes[run.first]);
        const Point to = point_of(pile.nodes[run.last]);
        const auto corner = [&](const Point& at, double side) {
            return px(x(at) + side * aside) + "," + px(y(at) + side * below);
        };
        Attributes attributes{{"class", is_composite(pile, run) ? "wall composite" : "wall"},
                              {"data-section", pile.elements[run.first].section},
                              {"points", corner(from, 1.0) + " " + corner(to, 1.0) + " " +
                                             corner(to, -1.0) + " " + corner(from, -1.0)}};
        if (is_composite(pile, run)) attributes.emplace_back("fill", "#e8d9b8");
        page_->leaf("polygon", attributes);
    }

    [[nodiscard]] bool is_composite(const group::Pile& pile, const Run& run) const {
        const int section = pile.elements[run.first].section;
        const auto& sections = data_->group.sections;
        return section >= 1 && static_cast<std::size_t>(section) <= sections.size() &&
               sections[static_cast<std::size_t>(section) - 1].is_composite();
    }

    void draw_clashes() {
        page_->open("g", {{"class", "clashes"}});
        for (const check::Clash& clash : data_->clashes) {
            page_->open("g", {{"class", "clash"}});
            page_->element("title", "Piles " + std::to_string(clash.first_pile) + " and " +
                                        std::to_string(clash.second_pile) + " overlap");
            page_->leaf("circle", {{"cx", px(x(clash.clearance.point))},
                                   {"cy", px(y(clash.clearance.point))},
                                   {"r", "5"},
                                   {"fill", "none"},
                                   {"stroke", "#b00020"},
                                   {"stroke-width", "2"}});
            page_->close();
        }
        page_->close();
    }

    // Piles whose heads are one point here have one label.
    struct Heads {
        double x = 0.0;
        double y = 0.0;
        double radius = 0.0;
        std::vector<int> numbers;
    };

    [[nodiscard]] std::vector<Heads> heads() const {
        std::vector<Heads> found;
        for (const group::Pile* const pile : piles_) {
            const Point head = point_of(pile->nodes.front());
            const Heads here{
                x(head),
                y(head),
                pile->is_dummy() ? 5.0 : 0.5 * across_.factor * pile->elements.front().diameter,
                {}};
            const auto is_here = [&](const Heads& other) {
                return std::hypot(other.x - here.x, other.y - here.y) < 1.0;
            };
            auto place = std::ranges::find_if(found, is_here);
            if (place == found.end()) place = found.insert(found.end(), here);
            place->radius = std::max(place->radius, here.radius);
            place->numbers.push_back(pile->number);
        }
        for (Heads& place : found)
            std::ranges::sort(place.numbers);
        std::ranges::sort(found, {}, [](const Heads& place) { return place.numbers.front(); });
        return found;
    }

    void draw_numbers() {
        constexpr std::size_t many = 60;
        const std::vector<Heads> places = heads();
        Labels labels(places.size() > many ? 8.0 : 11.0);
        if (view_.is_plan()) {
            for (const Heads& place : places) {
                const double reach = 0.7 * place.radius;
                labels.keep_clear(
                    {place.x - reach, place.y - reach, place.x + reach, place.y + reach});
            }
        }
        page_->open("g", {{"class", "numbers"}});
        for (const Heads& place : places) {
            const std::string text = number_list(place.numbers, view_.is_plan() ? 2 : 3);
            const std::vector<LabelPlace> candidates =
                view_.is_plan() ? places_around(place.x, place.y, place.radius, labels.size())
                                : places_above(place.x, place.y, 8.0, labels.size());
            LabelPlace found;
            if (!labels.place(text, candidates, frame_, found)) continue;
            const bool is_one = place.numbers.size() == 1;
            if (is_one) page_->open("g", {{"class", "pile"}, {"data-pile", place.numbers.front()}});
            draw_clear_text(*page_, found.x, found.y, text, "number", labels.size());
            if (is_one) page_->close();
        }
        page_->close();
    }

    Markup* page_;
    const ReportData* data_;
    View view_;
    std::vector<const group::Pile*> piles_; // the farthest first
    Range across_range_;
    Range down_range_;
    Box frame_;
    Scale across_;
    Scale down_;
    int decimals_ = 2;
    bool has_many_runs_ = false;
    double weight_ = 1.0; // of lines: less where piles are thin on paper
};

} // namespace

std::string number_list(const std::vector<int>& numbers, std::size_t most_runs) {
    std::string text;
    std::size_t runs = 0;
    for (std::size_t i = 0; i < numbers.size();) {
        std::size_t end = i + 1;
        while (end < numbers.size() && numbers[end] == numbers[end - 1] + 1)
            ++end;
        if (runs++ == most_runs) return text + ", …";
        if (!text.empty()) text += ", ";
        text += std::to_string(numbers[i]);
        if (end - i > 1) text += (end - i > 2 ? "–" : ", ") + std::to_string(numbers[end - 1]);
        i = end;
    }
    return text;
}

void write_drawings(Markup& page, const ReportData& data) {
    page.open("section", {{"id", "drawings"}});
    page.element("h2", "Drawings");
    const bool has_any = std::ranges::any_of(data.group.piles, is_drawable);
    if (!has_any) page.element("p", "No pile of the deck can be drawn.");
    if (has_any && !data.is_complete) {
        page.element(
            "p", "The deck does not run: heads and tips are shown as far as they could be read.");
    }
    for (const View& view : views) {
        if (has_any) PileDrawing(page, data, view).draw();
    }
    write_strips(page, data);
    page.close();
}

} // namespace korvat::report

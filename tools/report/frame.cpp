#include "report/frame.hpp"

#include "report/table.hpp"
#include "text/utf8.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace korvat::report {
namespace {

constexpr double tick_length = 4.0;

// The characters of a text in UTF-8.
std::size_t length_of(const std::string& text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return !text::is_continuation(c); }));
}

// With a true minus sign.
std::string tick_text(double value) {
    return value < 0.0 ? "−" + short_text(-value) : short_text(value);
}

// 1, 2 or 5 times a power of ten, not below a value.
double round_step(double value) {
    const double power = std::pow(10.0, std::floor(std::log10(value)));
    for (const double step : {1.0, 2.0, 5.0}) {
        if (step * power >= value * (1.0 - 1.0e-9)) return step * power;
    }
    return 10.0 * power;
}

} // namespace

void Range::include(double value) {
    least = std::min(least, value);
    most = std::max(most, value);
}

Range empty_range() {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    return {infinity, -infinity};
}

std::vector<double> ticks(const Range& range, int wanted) {
    std::vector<double> found;
    const double span = range.size();
    if (!(span > 0.0) || !std::isfinite(span)) return found;
    const double step = round_step(span / wanted);
    const double first = std::ceil(range.least / step - 1.0e-9);
    const double last = std::floor(range.most / step + 1.0e-9);
    for (double i = first; i <= last && found.size() < 100; i += 1.0)
        found.push_back(i == 0.0 ? 0.0 : i * step);
    return found;
}

std::string px(double value, int decimals) {
    if (!std::isfinite(value) || std::abs(value) > 1.0e9) return "0";
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::fixed, decimals)
                         .ptr;
    std::string shown(text.data(), end);
    if (shown.find('.') != std::string::npos) {
        shown.erase(shown.find_last_not_of('0') + 1);
        if (shown.back() == '.') shown.pop_back();
    }
    return shown == "-0" ? "0" : shown;
}

int exact_decimals(double factor) {
    constexpr double millionth = 1.0e-6;
    const double needed = std::ceil(-std::log10(std::abs(factor) * millionth));
    return std::clamp(static_cast<int>(std::isfinite(needed) ? needed : 2.0), 2, 12);
}

bool Box::overlaps(const Box& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
}

double text_width(const std::string& text, double size) {
    return 0.6 * size * static_cast<double>(length_of(text));
}

bool Labels::place(const std::string& text, const std::vector<LabelPlace>& places, const Box& paper,
                   LabelPlace& found) {
    const double width = text_width(text, size_);
    for (const LabelPlace& place : places) {
        const double left = place.x - place.part_left * width;
        const Box box{left, place.y - 0.8 * size_, left + width, place.y + 0.15 * size_};
        const bool is_on_paper = box.left >= paper.left && box.right <= paper.right &&
                                 box.top >= paper.top && box.bottom <= paper.bottom;
        const auto is_over = [&](const Box& other) { return box.overlaps(other); };
        if (!is_on_paper || std::ranges::any_of(taken_, is_over)) continue;
        taken_.push_back(box);
        found = {left, place.y, 0.0};
        return true;
    }
    return false;
}

std::vector<LabelPlace> places_around(double x, double y, double distance, double size) {
    const double d = distance + 2.0;
    const double slant = 0.71 * d;
    const double below = 0.75 * size;
    return {{x + slant, y - slant, 0.0},
            {x + d, y + 0.35 * size, 0.0},
            {x, y - d, 0.5},
            {x - d, y + 0.35 * size, 1.0},
            {x, y + d + below, 0.5},
            {x - slant, y - slant, 1.0},
            {x + slant, y + slant + below, 0.0},
            {x - slant, y + slant + below, 1.0}};
}

std::vector<LabelPlace> places_above(double x, double y, double distance, double size) {
    std::vector<LabelPlace> places;
    for (int row = 0; row < 4; ++row) {
        const double base = y - distance - row * 1.15 * size;
        places.push_back({x, base, 0.5});
        places.push_back({x - 4.0, base, 0.0});
        places.push_back({x + 4.0, base, 1.0});
    }
    return places;
}

void open_drawing(Markup& page, double width, double height, const std::string& name,
                  std::string_view role, const Attributes& more) {
    Attributes attributes{{"xmlns", "http://www.w3.org/2000/svg"},
                          {"viewBox", "0 0 " + px(width) + " " + px(height)},
                          {"width", px(width)},
                          {"height", px(height)},
                          {"role", role},
                          {"aria-label", name},
                          {"font-family", "sans-serif"},
                          {"font-size", 11}};
    attributes.insert(attributes.end(), more.begin(), more.end());
    page.open("svg", attributes);
}

void draw_text(Markup& page, double x, double y, const std::string& text, std::string_view anchor,
               std::string_view css_class, double size) {
    Attributes attributes{{"class", css_class}, {"x", px(x)}, {"y", px(y)}, {"fill", "#222222"}};
    if (anchor != "start") attributes.emplace_back("text-anchor", anchor);
    if (size != 11.0) attributes.emplace_back("font-size", px(size));
    page.element("text", text, attributes);
}

void draw_clear_text(Markup& page, double x, double y, const std::string& text,
                     std::string_view css_class, double size) {
    page.element("text", text,
                 {{"class", css_class},
                  {"x", px(x)},
                  {"y", px(y)},
                  {"font-size", px(size)},
                  {"fill", "#222222"},
                  {"stroke", "#ffffff"},
                  {"stroke-width", "3"},
                  {"stroke-linejoin", "round"},
                  {"paint-order", "stroke"}});
}

void draw_line(Markup& page, double x1, double y1, double x2, double y2, std::string_view css_class,
               std::string_view colour, double width) {
    page.leaf("line", {{"class", css_class},
                       {"x1", px(x1)},
                       {"y1", px(y1)},
                       {"x2", px(x2)},
                       {"y2", px(y2)},
                       {"stroke", colour},
                       {"stroke-width", px(width)}});
}

void draw_axes(Markup& page, const Box& box, const Scale& across, const Range& across_range,
               const std::string& across_title, const Scale& down, const Range& down_range,
               const std::string& down_title) {
    constexpr double label_pitch = 48.0; // px for a label
    const auto wanted = [](double length) {
        return std::max(2, static_cast<int>(length / label_pitch));
    };
    page.open("g", {{"class", "axes"}});
    for (const double value : ticks(across_range, wanted(box.right - box.left))) {
        const double x = across.at(value);
        draw_line(page, x, box.top, x, box.bottom, "grid", "#dddddd");
        draw_line(page, x, box.bottom, x, box.bottom + tick_length, "tick", "#444444");
        draw_text(page, x, box.bottom + 16.0, tick_text(value), "middle", "tick-label");
    }
    for (const double value : ticks(down_range, wanted(box.bottom - box.top))) {
        const double y = down.at(value);
        draw_line(page, box.left, y, box.right, y, "grid", "#dddddd");
        draw_line(page, box.left - tick_length, y, box.left, y, "tick", "#444444");
        draw_text(page, box.left - 7.0, y + 4.0, tick_text(value), "end", "tick-label");
    }
    page.leaf("rect", {{"class", "frame"},
                       {"x", px(box.left)},
                       {"y", px(box.top)},
                       {"width", px(box.right - box.left)},
                       {"height", px(box.bottom - box.top)},
                       {"fill", "none"},
                       {"stroke", "#888888"}});
    draw_text(page, 0.5 * (box.left + box.right), box.bottom + 32.0, across_title, "middle",
              "axis-title");
    const double x = 12.0;
    const double y = 0.5 * (box.top + box.bottom);
    page.element("text", down_title,
                 {{"class", "axis-title"},
                  {"x", px(x)},
                  {"y", px(y)},
                  {"text-anchor", "middle"},
                  {"fill", "#222222"},
                  {"transform", "rotate(-90 " + px(x) + " " + px(y) + ")"}});
    page.close();
}

} // namespace korvat::report

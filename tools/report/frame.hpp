// Scales, axes and labels of the drawings. Positions on paper are in px, y downwards.
#pragma once

#include "report/markup.hpp"

#include <string>
#include <vector>

namespace korvat::report {

// From values to places on one direction of the paper.
struct Scale {
    double origin = 0.0; // value at `start`
    double start = 0.0;  // px
    double factor =
        1.0; // px for a unit of the value; below 0 where values rise leftwards or upwards

    [[nodiscard]] double at(double value) const { return start + factor * (value - origin); }
};

struct Range {
    double least = 0.0;
    double most = 0.0;

    [[nodiscard]] double size() const { return most - least; }
    void include(double value);
};

// A range that nothing was included in yet.
[[nodiscard]] Range empty_range();

// Round values within a range, about as many as are wanted.
[[nodiscard]] std::vector<double> ticks(const Range& range, int wanted);

// A place on paper, with so many decimals.
[[nodiscard]] std::string px(double value, int decimals = 2);

// The decimals with which places on paper read back within a millionth of a unit.
[[nodiscard]] int exact_decimals(double factor);

struct Box {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    [[nodiscard]] bool overlaps(const Box& other) const;
};

// Where a label may stand: its base line at y, so that a part of its width is left of x.
struct LabelPlace {
    double x = 0.0;
    double y = 0.0;
    double part_left = 0.0;
};

// Around a point, at that distance; the best place first. Above it, in several rows.
[[nodiscard]] std::vector<LabelPlace> places_around(double x, double y, double distance,
                                                    double size);
[[nodiscard]] std::vector<LabelPlace> places_above(double x, double y, double distance,
                                                   double size);

// Places for labels, none over another.
class Labels {
public:
    explicit Labels(double font_size) : size_(font_size) {}

    void keep_clear(const Box& box) { taken_.push_back(box); }
    // The first place where the text is free within the paper, with its left end at x. False when there
    // is none.
    [[nodiscard]] bool place(const std::string& text, const std::vector<LabelPlace>& places,
                             const Box& paper, LabelPlace& found);
    [[nodiscard]] double size() const { return size_; }

private:
    double size_;
    std::vector<Box> taken_;
};

// The width of a text in the font of the drawings.
[[nodiscard]] double text_width(const std::string& text, double size);

// Axes along the lower and the left side of a box, with grid, ticks and titles.
void draw_axes(Markup& page, const Box& box, const Scale& across, const Range& across_range,
               const std::string& across_title, const Scale& down, const Range& down_range,
               const std::string& down_title);

// Begins a drawing of that size: the element svg is open. `role`: img, or group where parts of it answer.
void open_drawing(Markup& page, double width, double height, const std::string& name,
                  std::string_view role, const Attributes& more = {});

void draw_text(Markup& page, double x, double y, const std::string& text, std::string_view anchor,
               std::string_view css_class = "label", double size = 11.0);
// A text that lines behind it do not cross.
void draw_clear_text(Markup& page, double x, double y, const std::string& text,
                     std::string_view css_class, double size);
void draw_line(Markup& page, double x1, double y1, double x2, double y2, std::string_view css_class,
               std::string_view colour, double width = 1.0);

} // namespace korvat::report

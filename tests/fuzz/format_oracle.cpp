// What a formatted write must give, worked out from the FORMAT without the runtime.
#include "format_oracle.hpp"

#include "require.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace korvat::test {
namespace {

using fortran::Item;

constexpr int longest_f_text = 63;

class FormatParser {
public:
    explicit FormatParser(std::string_view text) : text_(text) {}

    ParsedFormat parse() {
        ParsedFormat format;
        expect('(');
        while (!accept(')')) {
            const std::size_t start = format.steps.size();
            if (item(format.steps)) format.reversion = start;
            accept(',');
        }
        require(position_ == text_.size(), "FORMAT ends with its parenthesis");
        return format;
    }

private:
    [[nodiscard]] char peek() const { return position_ < text_.size() ? text_[position_] : '\0'; }

    bool accept(char c) {
        if (peek() != c) return false;
        ++position_;
        return true;
    }

    void expect(char c) { require(accept(c), "FORMAT: " + std::string(text_)); }

    // `missing` where there are no digits.
    int number(int missing) {
        const std::size_t start = position_;
        int value = 0;
        while (peek() >= '0' && peek() <= '9')
            value = 10 * value + (text_[position_++] - '0');
        return position_ == start ? missing : value;
    }

    std::string quoted() {
        std::string text;
        while (true) {
            require(position_ < text_.size(), "FORMAT: text without an end");
            if (accept('\'')) {
                if (!accept('\'')) return text;
                text += '\'';
                continue;
            }
            text += text_[position_++];
        }
    }

    FormatStep descriptor() {
        FormatStep step{text_[position_++]};
        require(std::string_view("aife").find(step.kind) != std::string_view::npos,
                "FORMAT: " + std::string(text_));
        step.width = number(0);
        if (accept('.')) step.digits = number(0);
        return step;
    }

    // Adds the steps of one item of the list; true when it is a group.
    bool item(std::vector<FormatStep>& steps) {
        const int count = number(1);
        std::vector<FormatStep> once;
        bool is_group = false;
        if (accept('\'')) {
            once.push_back({.kind = '\'', .text = quoted()});
        } else if (accept('x')) {
            steps.push_back({.kind = 'x', .width = count});
            return false;
        } else if (accept('p')) {
            steps.push_back({.kind = 'p', .width = count});
            return false;
        } else if (accept('/')) {
            once.push_back({.kind = '/'});
        } else if (accept('(')) {
            is_group = true;
            while (!accept(')')) {
                item(once);
                accept(',');
            }
        } else {
            once.push_back(descriptor());
        }
        for (int i = 0; i < count; ++i)
            steps.insert(steps.end(), once.begin(), once.end());
        return is_group;
    }

    std::string_view text_;
    std::size_t position_ = 0;
};

std::string edited_integer(int value, const FormatStep& step) {
    char text[64];
    const int size =
        step.digits < 0 ? std::snprintf(text, sizeof text, "%*d", step.width, value)
                        : std::snprintf(text, sizeof text, "%*.*d", step.width, step.digits, value);
    return {text, static_cast<std::size_t>(size)};
}

std::string asterisks(const FormatStep& step) {
    return std::string(static_cast<std::size_t>(step.width), '*');
}

std::string edited_fixed(double value, const FormatStep& step) {
    char text[512];
    const int size = std::snprintf(text, sizeof text, "%*.*f", step.width, step.digits, value);
    if (size > longest_f_text) return asterisks(step);
    return {text, static_cast<std::size_t>(size)};
}

std::string edited_text(const Item& item, const FormatStep& step) {
    std::string text(item.text());
    const bool is_right = item.kind() == Item::Kind::right_text;
    if (is_right) text = text.c_str(); // ends at its first NUL
    if (step.width == 0) return text;
    const auto width = static_cast<std::size_t>(step.width);
    if (text.size() >= width) return text.substr(0, width);
    const std::string blanks(width - text.size(), ' ');
    return is_right ? blanks + text : text + blanks;
}

// A number as "0.1234E+05", "0.1234+105", in its field.
void check_scientific(double value, const FormatStep& step, int scale, std::string_view field) {
    const int before = scale > 0 ? scale : 0; // digits in front of the point
    const int significant = step.digits + (scale > 0 ? 1 : 0);
    const bool has_room = step.width >= (value < 0.0 ? 2 : 1) + significant + 4;
    if (!std::isfinite(value) || !has_room) {
        require(field == asterisks(step), "asterisks instead of a number");
        return;
    }
    std::string text(field);
    const std::size_t sign = text.find_last_of("+-");
    require(sign != std::string::npos && sign > 0, "exponent: " + text);
    const std::size_t mantissa_end = text[sign - 1] == 'E' ? sign - 1 : sign;
    const std::string mantissa = text.substr(0, mantissa_end);
    const std::string exponent = text.substr(sign);
    require(exponent.size() == (mantissa_end == sign ? 4U : 3U), "digits of the exponent: " + text);
    const std::size_t point = mantissa.find('.');
    require(point != std::string::npos, "point: " + text);
    const auto decimals = static_cast<int>(mantissa.size() - point - 1);
    require(decimals == significant - before, "decimals: " + text);
    const long power = std::strtol(exponent.c_str(), nullptr, 10);
    const std::string number = mantissa + "e" + exponent;
    const long double printed = std::strtold(number.c_str(), nullptr);
    const long double unit = std::pow(10.0L, static_cast<long double>(power - decimals));
    const long double exact = value;
    const long double error = std::fabs(printed - exact);
    require(error <= 0.5001L * unit + 1.0e-12L * std::fabs(exact), "value: " + text);
}

// Walks along what was written.
class Comparison {
public:
    explicit Comparison(std::string_view written) : rest_(written) {}

    void blanks(int count) { held_ += static_cast<std::size_t>(count); }

    // Blanks that nothing follows are not written.
    void text(const std::string& expected) {
        const std::string whole = std::string(held_, ' ') + expected;
        held_ = 0;
        require(rest_.substr(0, whole.size()) == whole,
                "'" + whole + "' is due, not '" + std::string(rest_) + "'");
        rest_.remove_prefix(whole.size());
    }

    std::string_view field(std::size_t width) {
        text("");
        require(rest_.size() >= width, "a field of " + std::to_string(width) + " characters");
        const std::string_view field = rest_.substr(0, width);
        rest_.remove_prefix(width);
        return field;
    }

    void end() const { require(rest_.empty(), "more than is due: '" + std::string(rest_) + "'"); }

private:
    std::string_view rest_;
    std::size_t held_ = 0;
};

void check_item(Comparison& written, const Item& item, const FormatStep& step, int scale) {
    switch (step.kind) {
    case 'i':
        written.text(edited_integer(item.integer(), step));
        return;
    case 'f':
        written.text(edited_fixed(item.real(), step));
        return;
    case 'a':
        written.text(edited_text(item, step));
        return;
    default:
        check_scientific(item.real(), step, scale,
                         written.field(static_cast<std::size_t>(step.width)));
    }
}

} // namespace

std::size_t ParsedFormat::item_count() const {
    return static_cast<std::size_t>(std::ranges::count_if(steps, &FormatStep::takes_an_item));
}

std::vector<FormatStep> ParsedFormat::item_steps(std::size_t count) const {
    std::vector<FormatStep> taking;
    for (std::size_t i = 0; taking.size() < count; ++i) {
        if (i == steps.size()) i = reversion;
        if (steps[i].takes_an_item()) taking.push_back(steps[i]);
    }
    return taking;
}

ParsedFormat parsed_format(std::string_view format) {
    return FormatParser(format).parse();
}

void check_written(const ParsedFormat& format, std::span<const Item> items,
                   std::string_view written) {
    Comparison comparison(written);
    int scale = 0;
    std::size_t next_item = 0;
    for (std::size_t i = 0;; ++i) {
        if (i == format.steps.size()) {
            if (next_item == items.size()) break;
            comparison.text("\n");
            i = format.reversion;
        }
        const FormatStep& step = format.steps[i];
        if (step.takes_an_item()) {
            if (next_item == items.size()) break;
            check_item(comparison, items[next_item++], step, scale);
        } else if (step.kind == 'x') {
            comparison.blanks(step.width);
        } else if (step.kind == 'p') {
            scale = step.width;
        } else {
            comparison.text(step.kind == '/' ? "\n" : step.text);
        }
    }
    comparison.end();
}

} // namespace korvat::test

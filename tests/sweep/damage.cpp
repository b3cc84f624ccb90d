// Every damaged copy of a deck: cuts, lines dropped, doubled and swapped, tokens replaced.
#include "damage.hpp"

#include <array>
#include <stdexcept>

namespace korvat::test {

namespace {

constexpr std::size_t line_kinds = 3;
constexpr std::size_t first_token_kind = 1 + line_kinds;

// 200 digits: more than a field, a line of 80 columns and a real number hold.
constexpr std::string_view long_token =
    "99999999999999999999999999999999999999999999999999999999999999999999999999999999"
    "99999999999999999999999999999999999999999999999999999999999999999999999999999999"
    "9999999999999999999999999999999999999999";
static_assert(long_token.size() == 200);

constexpr std::array<std::string_view, 12> replacements = {
    "",    "0",   "-1",          "1e308", "-1e308", "1e-320",
    "nan", "inf", "99999999999", "1,5",   "pile",   long_token};

constexpr std::array<std::string_view, first_token_kind + replacements.size()> kinds = {
    "cut at a byte",        "line dropped",    "line doubled",    "lines swapped",
    "token removed",        "token by 0",      "token by -1",     "token by 1e308",
    "token by -1e308",      "token by 1e-320", "token by nan",    "token by inf",
    "token by 99999999999", "token by 1,5",    "token by a word", "token by 200 digits"};

bool separates(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

} // namespace

std::span<const std::string_view> damage_kinds() {
    return kinds;
}

Damages::Damages(std::string deck) : deck_(std::move(deck)) {
    std::size_t begin = 0;
    while (begin < deck_.size()) {
        const std::size_t feed = deck_.find('\n', begin);
        const std::size_t end = feed == std::string::npos ? deck_.size() : feed + 1;
        lines_.push_back({begin, end - begin});
        begin = end;
    }
    for (std::size_t i = 0; i < deck_.size(); ++i) {
        if (separates(deck_[i])) continue;
        if (i == 0 || separates(deck_[i - 1])) tokens_.push_back({i, 0});
        ++tokens_.back().length;
    }
}

std::size_t Damages::count() const {
    return deck_.size() + line_kinds * lines_.size() + replacements.size() * tokens_.size();
}

std::string_view Damages::line(std::size_t index) const {
    return std::string_view(deck_).substr(lines_[index].begin, lines_[index].length);
}

std::string Damages::with_lines(std::size_t first, std::size_t count, std::string_view by) const {
    const std::size_t begin = lines_[first].begin;
    const Span& last = lines_[first + count - 1];
    return std::string(deck_).replace(begin, last.begin + last.length - begin, by);
}

// A last line without a line feed takes over that of the line that it changes places with.
std::string Damages::swapped(std::size_t first) const {
    if (first + 1 == lines_.size()) return deck_; // no neighbour below
    std::string upper(line(first + 1));
    std::string lower(line(first));
    if (upper.back() != '\n') {
        upper += '\n';
        lower.pop_back();
    }
    return with_lines(first, 2, upper + lower);
}

DamagedDeck Damages::copy(std::size_t number) const {
    if (number >= count()) throw std::out_of_range("no such damage");
    DamagedDeck damaged;
    if (number < deck_.size()) {
        damaged.text = deck_.substr(0, number);
        return damaged;
    }
    number -= deck_.size();
    if (number < line_kinds * lines_.size()) {
        damaged.kind = 1 + number / lines_.size();
        const std::size_t index = number % lines_.size();
        const std::string text(line(index));
        switch (damaged.kind) {
        case 1:
            damaged.text = with_lines(index, 1, "");
            break;
        case 2:
            damaged.text = with_lines(index, 1, text + text);
            break;
        default:
            damaged.text = swapped(index);
        }
    } else {
        number -= line_kinds * lines_.size();
        const std::size_t replacement = number / tokens_.size();
        const Span& token = tokens_[number % tokens_.size()];
        damaged.kind = first_token_kind + replacement;
        damaged.text = deck_;
        damaged.text.replace(token.begin, token.length, replacements[replacement]);
    }
    return damaged;
}

} // namespace korvat::test

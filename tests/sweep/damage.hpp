// Every damaged copy of a deck: cuts, lines dropped, doubled and swapped, tokens replaced.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// The kinds of damage, in the order of their copies.
[[nodiscard]] std::span<const std::string_view> damage_kinds();

struct DamagedDeck {
    std::size_t kind = 0; // index into damage_kinds()
    std::string text;
};

// The copies of one deck, numbered from 0: first all cuts, then all lines dropped, and so on. A line
// is what ends with a line feed or with the deck; a token is a run of characters without blanks,
// tabs and line ends, wherever it stands, comments and headings included.
class Damages {
public:
    explicit Damages(std::string deck);

    [[nodiscard]] std::size_t count() const;

    // Some copies equal the deck: a 0 in place of a 0, two equal lines swapped.
    [[nodiscard]] DamagedDeck copy(std::size_t number) const;

    [[nodiscard]] const std::string& deck() const { return deck_; }

private:
    [[nodiscard]] std::string_view line(std::size_t index) const;
    [[nodiscard]] std::string with_lines(std::size_t first, std::size_t count,
                                         std::string_view by) const;
    [[nodiscard]] std::string swapped(std::size_t first) const;

    struct Span {
        std::size_t begin = 0;
        std::size_t length = 0;
    };

    std::string deck_;
    std::vector<Span> lines_; // line feeds included
    std::vector<Span> tokens_;
};

} // namespace korvat::test

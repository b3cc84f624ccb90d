#include "tools/check/deck_text.hpp"

#include "check/text.hpp"
#include "support/sound_deck.hpp"

#include <stdexcept>

namespace korvat::test {
namespace {

constexpr std::string_view revision_4 = R"(Small frame, two raked piles and a cap point, kN and m
KORVAT Version: 2006-06-11

General values of the run
  1.0     force unit factor
  1.0     length unit factor
  3       piles
  2       cross sections
  1       material types
  2       pile segment types
  1       load vectors
  1       print level
  0       echo level

Material types
  N    E-modulus   shear mod.   yield      unit weight   temp. strain
  1    2.1E8       8.077E7      3.55E5     77.0          1.2E-5

Tubular cross sections
  N  mat  diameter   wall     EA   EI   GA   GJ   fluid inside
  1   1    0.914     0.025    0.   0.   0.   0.   10.0
  2   1    0.914     0.019    0.   0.   0.   0.   10.0

Pile segment types
  N   start  end    length   elements
  1     1     1     10.0        5
  2     2     2     15.0        5

Pile geometry
  NP  gen  sym    x-head   y-head  z-head    x-tip    y-tip   z-tip
  1    0    0       0.0      0.0    -1.0       0.0      0.0    -1.0
  2    0    0       3.0      0.0     0.0      10.0      0.0    24.0
  3    2    2       0.0      0.0     0.0       0.0      0.0     0.0
  NP  NSEG  segment types from head to tip
  1    0
  2    2    1 2
  NP1 NP2  tip  fix
  1    1    0    0
  2    3    0    1

Special pile node values
  NP1 NP2  ND1 ND2  code   six values
  1    1    1   1    2     100.0 0. -50.0   0. 0. 0.
  0    0    0   0    0     0. 0. 0. 0. 0. 0.

Load vectors
Mooring force on the cap point
  1       loaded piles
  1.5     load factor
  NP   Fx     Fy    Fz     Mx     My     Mz
  1    400.   0.    50.    0.   -600.    0.
END
)";

std::size_t index_of(int line) {
    return static_cast<std::size_t>(line) - 1;
}

} // namespace

DeckText::DeckText(std::string_view text) : lines_(check::lines_of(text)) {}

DeckText DeckText::with(int line, std::string_view text) const {
    DeckText changed = *this;
    changed.lines_.at(index_of(line)) = text;
    return changed;
}

DeckText DeckText::with_inserted(int line, std::string_view text) const {
    DeckText changed = *this;
    static_cast<void>(changed.lines_.at(index_of(line)));
    changed.lines_.emplace(changed.lines_.begin() + line - 1, text);
    return changed;
}

DeckText DeckText::without(int line) const {
    DeckText changed = *this;
    static_cast<void>(changed.lines_.at(index_of(line)));
    changed.lines_.erase(changed.lines_.begin() + line - 1);
    return changed;
}

DeckText DeckText::with_changed(int line, std::string_view old,
                                std::string_view replacement) const {
    DeckText changed = *this;
    std::string& text = changed.lines_.at(index_of(line));
    const std::size_t at = text.find(old);
    if (at == std::string::npos || text.find(old, at + 1) != std::string::npos) {
        throw std::invalid_argument("not the only one in its line: " + std::string(old));
    }
    text.replace(at, old.size(), replacement);
    return changed;
}

std::string DeckText::text() const {
    std::string text;
    for (const std::string& line : lines_) {
        text += line + '\n';
    }
    return text;
}

DeckText good_deck() {
    return DeckText(revision_4);
}

DeckText good_deck_5() {
    return DeckText(sound_deck_5());
}

check::CheckedDeck checked(const DeckText& deck, std::string_view name) {
    return check::check_deck({std::string(name), std::string(name), {}, deck.text()}, {});
}

std::vector<std::string> found(const DeckText& deck, std::string_view rule) {
    std::vector<std::string> texts;
    for (const check::Finding& finding : checked(deck).findings) {
        if (finding.rule != rule) continue;
        const check::Place& place = finding.place;
        texts.push_back(std::to_string(place.line) + ":" + std::to_string(place.column) + "+" +
                        std::to_string(place.length) + " " + finding.message);
    }
    return texts;
}

} // namespace korvat::test

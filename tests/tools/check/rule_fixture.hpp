// Runs a deck in a directory of its own and shows a rule what came of it.
#pragma once

#include "support/model_fixture.hpp"
#include "support/scratch_directory.hpp"
#include "support/sound_deck.hpp"

#include "check/rule.hpp"
#include "fortran/stop.hpp"
#include "group/load_file.hpp"
#include "group/pile_file.hpp"
#include "run/contrl.hpp"

#include <algorithm>
#include <charconv>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::check {

inline void PrintTo(const Finding& finding, std::ostream* out) {
    *out << '\n'
         << finding.place.line << ':' << finding.place.column << '+' << finding.place.length << ' '
         << (finding.level == Level::note ? "note" : "warning") << " [" << finding.rule << "]\n  "
         << finding.message << "\n  " << finding.remedy;
}

} // namespace korvat::check

namespace korvat::test {

using check::Finding;
using check::Findings;
using check::Level;
using check::Place;

inline std::vector<std::string> lines_of(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

// Makes the outline of a deck that has all its lines: headings, blank lines and records.
class DeckRows {
public:
    explicit DeckRows(const std::vector<std::string>& lines) : lines_(lines) {
        for (std::size_t i = 0; i < lines.size() && (i == 0 || !lines[i].starts_with("END")); ++i) {
            const bool is_comment = lines[i].find_first_of("*Cc") == 0;
            if (i == 0 || !is_comment) kept_.push_back(i);
        }
    }

    check::Outline outline() {
        skip(1);
        const bool has_version = line().starts_with("KORVAT Version");
        const bool is_revision_5 = has_version && line().find("2009-09-01") != std::string::npos;
        skip((has_version ? 1 : 0) + 2);
        std::array<int, 9> control{};
        for (std::size_t i = 0; i < control.size(); ++i)
            control[i] = static_cast<int>(row(static_cast<deck::RecordId>(i), 0, 1)[0]);
        skip(is_revision_5 ? 4 : 3);
        for (int n = 1; n <= control[4]; ++n)
            row(deck::RecordId::material, n, 6);
        if (is_revision_5) {
            take_sections_of_revision_5(control[3]);
        } else {
            skip(3);
            for (int k = 1, number = 0; number < control[3]; ++k)
                number = static_cast<int>(row(deck::RecordId::cross_section, k, 9)[0]);
        }
        skip(3);
        for (int n = 1; n <= control[5]; ++n)
            row(deck::RecordId::segment_type, n, 5);
        take_piles(control[2]);
        skip(3);
        for (int k = 1; row(deck::RecordId::special_node_values, k, 11)[0] >= 1.0;)
            ++k;
        if (control[6] > 0) skip(2);
        for (int v = 1; v <= control[6]; ++v)
            take_load_vector(v);
        return check::Outline(std::move(rows_));
    }

private:
    [[nodiscard]] const std::string& line() const { return lines_.at(kept_.at(next_)); }
    void skip(int count) { next_ += static_cast<std::size_t>(count); }

    // The numbers of the next line that are wanted still.
    void take_numbers(std::vector<check::Number>& numbers, std::size_t count) {
        const std::string& text = line();
        std::size_t end = 0;
        while (numbers.size() < count) {
            const std::size_t begin = text.find_first_not_of(" ,", end);
            if (begin == std::string::npos) break;
            end = std::min(text.find_first_of(" ,", begin), text.size());
            std::string digits = text.substr(begin, end - begin);
            std::ranges::replace_if(
                digits, [](char c) { return c == 'd' || c == 'D'; }, 'E');
            if (digits.starts_with('+')) digits.erase(0, 1);
            double value = 0.0;
            if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec !=
                std::errc{})
                break;
            numbers.push_back({value,
                               {static_cast<int>(kept_[next_]) + 1, static_cast<int>(begin) + 1,
                                static_cast<int>(end - begin)}});
        }
        ++next_;
    }

    // The values of a record, which has become a row; a count below 0 is that of the segment table.
    std::vector<double> row(deck::RecordId id, int k, int count) {
        check::Row made{id, k, {static_cast<int>(kept_.at(next_)) + 1, 0, 0}, {}};
        std::size_t wanted = static_cast<std::size_t>(std::max(count, 2));
        if (count > 0) wanted = static_cast<std::size_t>(count);
        while (made.numbers.size() < wanted) {
            take_numbers(made.numbers, count > 0 ? wanted : 40);
            if (count < 0 && made.numbers.size() > 1)
                wanted = 2 + static_cast<std::size_t>(std::max(0.0, made.numbers[1].value));
        }
        std::vector<double> values;
        for (const check::Number& number : made.numbers)
            values.push_back(number.value);
        rows_.push_back(std::move(made));
        return values;
    }

    void take_sections_of_revision_5(int count) {
        skip(4);
        std::vector<std::pair<int, int>> curves; // sections and numbers of points
        for (int n = 1; n <= count; ++n) {
            const std::vector<double> values = row(deck::RecordId::cross_section_5, n, 15);
            const int tubes = static_cast<int>(values[1]);
            curves.emplace_back(n, static_cast<int>(values[2]));
            for (int j = 1; tubes > 1 && j <= tubes; ++j)
                row(deck::RecordId::sub_section, 1000 * n + j, 16);
        }
        for (const auto& [n, points] : curves) {
            for (int i = 1; i <= points; ++i)
                row(deck::RecordId::curve_point, 100 * n + i, 6);
        }
    }

    void take_piles(int count) {
        skip(3);
        std::vector<int> generated;
        for (int k = 1, number = 0; number < count; ++k) {
            const std::vector<double> values = row(deck::RecordId::pile_geometry, k, 9);
            number = static_cast<int>(values[0]);
            if (values[1] > 0.0) generated.push_back(number);
        }
        skip(1);
        for (int pile = 1; pile <= count; ++pile) {
            if (std::ranges::count(generated, pile) == 0)
                row(deck::RecordId::pile_segments, pile, -2);
        }
        skip(1);
        for (int k = 1, last = 0; last < count; ++k)
            last = static_cast<int>(row(deck::RecordId::tip_and_fix, k, 4)[1]);
    }

    void take_load_vector(int v) {
        skip(1);
        const int count = static_cast<int>(row(deck::RecordId::loaded_piles, v, 1)[0]);
        row(deck::RecordId::load_factor, v, 1);
        skip(1);
        for (int i = 1; i <= count; ++i)
            row(deck::RecordId::pile_load, 100 * v + i, 7);
    }

    const std::vector<std::string>& lines_;
    std::vector<std::size_t> kept_; // indices of the lines that are no comments
    std::size_t next_ = 0;
    std::vector<check::Row> rows_;
};

// The rules that look at the model, in the order of their groups.
inline std::vector<check::Rule> model_rules() {
    std::vector<check::Rule> rules;
    for (const auto group : {check::unit_rules(), check::section_rules(), check::geometry_rules(),
                             check::element_rules(), check::link_rules()})
        rules.insert(rules.end(), group.begin(), group.end());
    return rules;
}

// A deck after its run. Raises what is missing when the deck has not all its lines.
class CheckedDeck {
public:
    explicit CheckedDeck(const std::string& deck)
        : lines_(lines_of(deck)), outline_(DeckRows(lines_).outline()),
          cmn_(std::make_unique<Store>(0, nullptr)) {
        const ScratchDirectory directory;
        const CurrentDirectory current(directory.path());
        directory.write_file("KORVAT.INP", deck);
        try {
            exit_code_ = contrl(*cmn_, program_steps());
        } catch (const std::exception&) {
            exit_code_ = -1; // a stop of the run
        }
        static_cast<void>(close_outputs(*cmn_));
        if (exit_code_ == 0) read_group(directory);
        cmn_->runtime.close(cmn_->NF6);
    }

    [[nodiscard]] int exit_code() const { return exit_code_; }
    [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

    [[nodiscard]] const check::Outline& outline() const { return outline_; }

    [[nodiscard]] Findings findings(const check::Rule& rule) const {
        return findings(rule, outline_);
    }
    // With other rows than those of the deck.
    [[nodiscard]] Findings findings(const check::Rule& rule, const check::Outline& outline) const {
        const check::Subject subject{lines_, outline, *cmn_, group_ ? &*group_ : nullptr,
                                     exit_code_};
        Findings found;
        rule.look(subject, rule, found);
        return found;
    }

    [[nodiscard]] Findings all_findings() const {
        Findings all;
        for (const check::Rule& rule : model_rules()) {
            const Findings found = findings(rule);
            all.insert(all.end(), found.begin(), found.end());
        }
        return all;
    }

private:
    void read_group(const ScratchDirectory& directory) {
        const group::GroupReading reading = group::read_pile(directory.read_file("PILE.07"));
        if (reading.damage) throw std::runtime_error("PILE.07: " + reading.damage->reason);
        group_ = reading.group;
        if (!directory.has("LOAD.09")) return;
        const group::LoadReading loads = group::read_load(directory.read_file("LOAD.09"));
        if (loads.damage) throw std::runtime_error("LOAD.09: " + loads.damage->reason);
        group_->load_vectors = loads.vectors;
    }

    std::vector<std::string> lines_;
    check::Outline outline_;
    std::unique_ptr<Store> cmn_;
    std::optional<group::Group> group_;
    int exit_code_ = 0;
};

inline check::Rule rule_named(std::string_view name) {
    const std::vector<check::Rule> rules = model_rules();
    const auto found = std::ranges::find(rules, name, &check::Rule::name);
    if (found == rules.end()) throw std::runtime_error("no rule " + std::string(name));
    return *found;
}

// What a rule finds in a deck that the program accepts, or refuses.
inline Findings found_by(std::string_view rule, const std::string& deck) {
    const CheckedDeck checked(deck);
    EXPECT_EQ(checked.exit_code(), 0) << "the program refuses the deck";
    return checked.findings(rule_named(rule));
}
inline Findings found_in_refused(std::string_view rule, const std::string& deck) {
    const CheckedDeck checked(deck);
    EXPECT_NE(checked.exit_code(), 0) << "the program accepts the deck";
    return checked.findings(rule_named(rule));
}

// The deck with a text, which stands in it once, replaced.
inline std::string changed(std::string deck, std::string_view from, std::string_view to) {
    const std::size_t at = deck.find(from);
    if (at == std::string::npos || deck.find(from, at + 1) != std::string::npos)
        throw std::runtime_error("not once in the deck: " + std::string(from));
    return deck.replace(at, from.size(), to);
}

// The place of the word number `word`, from 1, on the line of the deck that begins with a text.
inline Place word_of(const std::string& deck, std::string_view line, int word) {
    const std::vector<std::string> lines = lines_of(deck);
    const auto begins = [&](const std::string& text) { return text.starts_with(line); };
    if (std::ranges::count_if(lines, begins) != 1)
        throw std::runtime_error("not one line: " + std::string(line));
    const auto found = std::ranges::find_if(lines, begins);
    std::size_t begin = 0;
    std::size_t end = 0;
    for (int i = 0; i < word; ++i) {
        begin = found->find_first_not_of(' ', end);
        end = std::min(found->find(' ', begin), found->size());
    }
    return {static_cast<int>(found - lines.begin()) + 1, static_cast<int>(begin) + 1,
            static_cast<int>(end - begin)};
}

inline Finding warning(std::string rule, Place place, std::string message, std::string remedy) {
    return {std::move(rule), Level::warning, place, std::move(message), std::move(remedy)};
}
inline Finding note(std::string rule, Place place, std::string message, std::string remedy) {
    return {std::move(rule), Level::note, place, std::move(message), std::move(remedy)};
}

// Two piles of 24 m and one raked 7 in 24 under a cap point, in which no rule finds anything.
inline const std::string sound_deck = R"(Three piles under a cap point, kN and m

General values of the run
  1.0     force factor
  1.0     length factor
  4       piles
  3       cross sections
  1       material types
  3       segment types
  1       load vectors
  0       print level
  0       echo level

Material types
  N    E-modulus   shear mod.   yield      unit weight   temp. strain
  1    2.1E8       8.077E7      3.55E5     77.0          1.2E-5

Tubular sections
  N  mat  diameter  wall    EA  EI  GA  GJ  fluid
  1  1    1.0       0.030   0.  0.  0.  0.  10.0
  2  1    1.0       0.025   0.  0.  0.  0.  10.0
  3  1    1.0       0.020   0.  0.  0.  0.  10.0

Pile segment types
  N  start  end  length  elements
  1  1      1    12.0    12
  2  1      3    12.0    12
  3  3      3    13.0    10

Pile geometry
  NP gen sym  xh   yh   zh    xt   yt   zt
  1  0   0    0.0  0.0  -1.0  0.0  0.0  -1.0
  2  0   0    3.0  2.0  0.0   3.0  2.0  24.0
  3  2   2    0.0  0.0  0.0   0.0  0.0  0.0
  4  0   0    3.0  -2.0 0.0   10.0 -2.0 24.0
  NP NSEG  types
  1  0
  2  2     1 2
  4  2     1 3
  NP1 NP2  tip  fix
  1   1    0    0
  2   4    0    1

Special pile node values
  NP1 NP2 ND1 ND2 code  values
  1   1   1   1   1     100.0 100.0 0.0  0.0 0.0 50.0
  2   3   1   5   4     15.0 0.0 0.0  0.0 0.0 0.0
  4   4   3   7   3     0.03 0.0 0.0  0.0 0.0 0.0
  0   0   0   0   0     0.0 0.0 0.0  0.0 0.0 0.0

Load vectors
Wave on the cap point
  1       loaded piles
  1.5     load factor
  NP   Fx     Fy    Fz     Mx     My     Mz
  1    400.0  0.0   50.0   0.0    -600.0 0.0
END
)";

} // namespace korvat::test

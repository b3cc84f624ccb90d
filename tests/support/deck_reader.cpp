// Independent reader of an input deck: the records as they are given, neither scaled nor completed.
#include "deck_reader.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <set>
#include <stdexcept>

namespace korvat::test {

namespace {

constexpr std::size_t copied_columns = 120;
constexpr std::size_t number_columns = 80;
constexpr std::size_t label_columns = 80;
constexpr std::size_t token_columns = 50;
constexpr std::size_t most_numbers = 40;
constexpr std::size_t searched_lines = 10;

bool starts_with(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

bool is_blank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

// The lines that count: without comments, and without END and what follows it.
std::vector<std::string> lines_of_deck(std::string_view content) {
    std::vector<std::string> lines;
    bool first = true;
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        std::string_view line = content.substr(0, end);
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        line = line.substr(0, copied_columns);
        if (starts_with(line, "END")) return lines;
        const bool comment = !first && !line.empty() &&
                             std::string_view("*Cc").find(line[0]) != std::string_view::npos;
        first = false;
        if (!comment) lines.emplace_back(line);
    }
    throw std::runtime_error("the deck has no END line");
}

bool has_number_form(std::string_view token) {
    std::size_t i = 0;
    const auto skip_sign = [&] {
        if (i < token.size() && (token[i] == '+' || token[i] == '-')) ++i;
    };
    const auto skip_digits = [&] {
        const std::size_t from = i;
        while (i < token.size() && token[i] >= '0' && token[i] <= '9')
            ++i;
        return i - from;
    };
    skip_sign();
    std::size_t digits = skip_digits();
    if (i < token.size() && token[i] == '.') {
        ++i;
        digits += skip_digits();
    }
    if (digits == 0) return false;
    if (i == token.size()) return true;
    if (std::string_view("eEdD").find(token[i]) == std::string_view::npos) return false;
    ++i;
    skip_sign();
    return skip_digits() > 0 && i == token.size();
}

double number_of(std::string_view token) {
    std::string text(token.substr(0, token_columns));
    if (!has_number_form(text)) throw std::runtime_error("'" + text + "' is no number");
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == 'd' || c == 'D'; }, 'e');
    const double value = std::strtod(text.c_str(), nullptr);
    if (!std::isfinite(value)) throw std::runtime_error("'" + text + "' is too large");
    return value;
}

int integer_of(double value) {
    const double rounded = std::floor(value + 0.5);
    if (std::abs(rounded) > 1.0e9) throw std::runtime_error("an integer item is out of reach");
    return static_cast<int>(rounded);
}

std::vector<std::string_view> tokens_of(std::string_view line) {
    constexpr std::string_view skipped("\0 ", 2);
    line = line.substr(0, number_columns);
    std::vector<std::string_view> tokens;
    for (;;) {
        const std::size_t from = line.find_first_not_of(skipped);
        if (from == std::string_view::npos) return tokens;
        line.remove_prefix(from);
        const std::size_t length = std::min(line.find(' '), line.size());
        tokens.push_back(line.substr(0, length));
        line.remove_prefix(length);
    }
}

// Hands out the lines and the numeric records of a deck in order.
class DeckSource {
public:
    explicit DeckSource(std::vector<std::string> lines) : lines_(std::move(lines)) {}

    [[noreturn]] void fail(const std::string& what) const {
        throw std::runtime_error("line " + std::to_string(next_) + " of the deck: " + what);
    }

    const std::string& line() {
        if (next_ == lines_.size()) fail("the deck ends too early");
        return lines_[next_++];
    }

    void go_to(std::size_t line) { next_ = line; }

    void section_start(const char* name, int headings) {
        if (!is_blank(line())) fail(std::string("no blank line before ") + name);
        for (int i = 0; i < headings; ++i)
            line();
    }

    // A record of a known number of values: what follows them on the first line is not looked at.
    std::vector<double> numbers(std::size_t count) {
        std::vector<double> values;
        append(values, count);
        fill(values, count);
        return values;
    }

    double number() { return numbers(1)[0]; }

    // A record whose second value says how many values follow it.
    std::vector<double> counted_numbers() {
        std::vector<double> values;
        append(values, most_numbers);
        const int following = values.size() > 1 ? integer_of(values[1]) : 0;
        if (following < -2) fail("the count of values is negative");
        const auto expected = static_cast<std::size_t>(following + 2);
        // The count -2 makes the record one of any number of values.
        if (expected > 0) fill(values, expected);
        if (values.size() < 2) values.resize(2, 0.0);
        return values;
    }

private:
    void append(std::vector<double>& values, std::size_t most) {
        const std::string& text = line();
        const std::vector<std::string_view> tokens = tokens_of(text);
        if (tokens.empty()) fail("no numbers");
        for (std::size_t i = 0; i < std::min(most, tokens.size()); ++i) {
            try {
                values.push_back(number_of(tokens[i]));
            } catch (const std::runtime_error& error) {
                fail(error.what());
            }
        }
    }

    void fill(std::vector<double>& values, std::size_t expected) {
        while (values.size() < expected)
            append(values, most_numbers - values.size());
        if (values.size() != expected) fail("the record has too many values");
    }

    std::vector<std::string> lines_;
    std::size_t next_ = 0;
};

// The columns between the parts of the date may hold anything; a zero in front may be a blank.
bool has_date(std::string line, std::string_view year, std::string_view month,
              std::string_view day) {
    line.resize(copied_columns, ' ');
    const auto part = [&](std::size_t from, std::size_t count) {
        std::string text = line.substr(from, count);
        std::replace(text.begin(), text.end(), ' ', '0');
        return text;
    };
    return part(16, 4) == year && part(21, 2) == month && part(24, 2) == day;
}

// Leaves the source at the control section and returns the revision.
int find_revision(DeckSource& source) {
    while (is_blank(source.line())) {
    }
    for (std::size_t i = 0; i < searched_lines; ++i) {
        const std::string line = source.line();
        if (!starts_with(line, "KORVAT Version:") && !starts_with(line, "KORVAT version:"))
            continue;
        if (has_date(line, "2006", "06", "11")) return 4;
        if (has_date(line, "2009", "09", "01")) return 5;
        source.fail("the version line names no revision");
    }
    source.go_to(1);
    return 4;
}

template <std::size_t N>
std::array<double, N> part_of(const std::vector<double>& values, std::size_t from) {
    std::array<double, N> part{};
    std::copy_n(values.begin() + static_cast<std::ptrdiff_t>(from), N, part.begin());
    return part;
}

void read_materials(DeckSource& source, int count, Deck& deck) {
    source.section_start("the materials", 2);
    for (int n = 1; n <= count; ++n) {
        const std::vector<double> v = source.numbers(6);
        if (integer_of(v[0]) != n) source.fail("material out of sequence");
        deck.materials.push_back({v[1], v[2], v[3], v[4], v[5]});
    }
}

void read_sections(DeckSource& source, Deck& deck) {
    source.section_start("the cross sections", 2);
    int last = 0;
    while (last < deck.sections) {
        const std::vector<double> v = source.numbers(9);
        const int number = integer_of(v[0]);
        if (number <= last || (last == 0 && number != 1)) source.fail("section out of sequence");
        deck.section_records.push_back(
            {number, integer_of(v[1]), v[2], v[3], v[4], v[5], v[6], v[7], v[8]});
        last = number;
    }
    if (last > deck.sections) source.fail("too large a cross-section number");
}

void read_segments(DeckSource& source, int count, Deck& deck) {
    source.section_start("the segment types", 2);
    for (int n = 1; n <= count; ++n) {
        const std::vector<double> v = source.numbers(5);
        if (integer_of(v[0]) != n) source.fail("segment type out of sequence");
        deck.segments.push_back({integer_of(v[1]), integer_of(v[2]), v[3], integer_of(v[4])});
    }
}

void read_piles(DeckSource& source, Deck& deck) {
    source.section_start("the pile geometry", 2);
    int last = 0;
    while (last < deck.piles) {
        const std::vector<double> v = source.numbers(9);
        const int number = integer_of(v[0]);
        if (number <= last || (last == 0 && number != 1)) source.fail("pile out of sequence");
        deck.pile_records.push_back(
            {number, integer_of(v[1]), integer_of(v[2]), part_of<3>(v, 3), part_of<3>(v, 6)});
        last = number;
    }
    if (last > deck.piles) source.fail("too large a pile number");
}

void read_pile_segments(DeckSource& source, Deck& deck) {
    std::set<int> generated;
    for (const PileRecord& pile : deck.pile_records) {
        if (pile.source != 0) generated.insert(pile.number);
    }
    source.line(); // heading
    for (int pile = 1; pile <= deck.piles; ++pile) {
        if (generated.count(pile) != 0) continue;
        const std::vector<double> v = source.counted_numbers();
        if (integer_of(v[0]) != pile) source.fail("pile out of sequence in the segment table");
        std::vector<int>& segments = deck.pile_segments[pile];
        const int count = integer_of(v[1]);
        for (int i = 0; i < count; ++i) {
            segments.push_back(integer_of(v.at(static_cast<std::size_t>(i) + 2)));
        }
    }
}

void read_tips(DeckSource& source, Deck& deck) {
    source.line(); // heading
    int last = 0;
    while (last < deck.piles) {
        const std::vector<double> v = source.numbers(4);
        const TipRecord tip = {integer_of(v[0]), integer_of(v[1]), integer_of(v[2]),
                               integer_of(v[3])};
        if (tip.first_pile <= last || tip.first_pile > tip.last_pile) {
            source.fail("tip record out of sequence");
        }
        deck.tips.push_back(tip);
        last = tip.last_pile;
    }
}

void read_node_values(DeckSource& source, Deck& deck) {
    source.section_start("the special node values", 2);
    for (;;) {
        const std::vector<double> v = source.numbers(11);
        if (integer_of(v[0]) < 1) return;
        deck.node_values.push_back({integer_of(v[0]), integer_of(v[1]), integer_of(v[2]),
                                    integer_of(v[3]), integer_of(v[4]), part_of<6>(v, 5)});
    }
}

} // namespace

int deck_revision(std::string_view content) {
    DeckSource source(lines_of_deck(content));
    return find_revision(source);
}

Deck parse_deck(std::string_view content) {
    const std::vector<std::string> lines = lines_of_deck(content);
    DeckSource source(lines);
    if (find_revision(source) != 4) source.fail("the deck is not of revision 4");
    Deck deck;
    deck.label = lines.front();
    deck.label.resize(label_columns, ' ');
    source.section_start("the control values", 1);
    deck.force_factor = source.number();
    deck.length_factor = source.number();
    deck.piles = integer_of(source.number());
    deck.sections = integer_of(source.number());
    const int materials = integer_of(source.number());
    const int segments = integer_of(source.number());
    for (int unused = 0; unused < 3; ++unused)
        source.number(); // load vectors, print, echo
    read_materials(source, materials, deck);
    read_sections(source, deck);
    read_segments(source, segments, deck);
    read_piles(source, deck);
    read_pile_segments(source, deck);
    read_tips(source, deck);
    read_node_values(source, deck);
    return deck;
}

} // namespace korvat::test

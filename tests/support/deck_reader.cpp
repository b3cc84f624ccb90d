// Independent reader of an input deck: the records as they are given, neither scaled nor completed.
#include "deck_reader.hpp"

#include "deck_sections.hpp"
#include "deck_source.hpp"

#include <algorithm>
#include <cstddef>
#include <set>

namespace korvat::test {

namespace {

constexpr std::size_t dated_columns = 80;
constexpr std::size_t label_columns = 80;
constexpr std::size_t searched_lines = 10;

std::string padded_label(std::string_view line) {
    std::string label(line.substr(0, label_columns));
    label.resize(label_columns, ' ');
    return label;
}

// The columns between the parts of the date may hold anything; a zero in front may be a blank.
bool has_date(std::string line, std::string_view year, std::string_view month,
              std::string_view day) {
    line.resize(dated_columns, ' ');
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
        const std::string key = line.substr(0, 15);
        if (key != "KORVAT Version:" && key != "KORVAT version:") continue;
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
    source.section_start("the materials", deck.revision == 5 ? 3 : 2);
    for (int n = 1; n <= count; ++n) {
        const std::vector<double> v = source.numbers(6);
        if (integer_of(v[0]) != n) source.fail("material out of sequence");
        deck.materials.push_back({v[1], v[2], v[3], v[4], v[5]});
    }
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

// Begins behind the blank line that ends the node values.
void read_loads(DeckSource& source, Deck& deck, int vectors) {
    if (!is_blank(source.line())) source.fail("no blank line before the load vectors");
    source.line(); // heading
    for (int v = 0; v < vectors; ++v) {
        LoadVector vector;
        vector.label = padded_label(source.line());
        const int loaded = integer_of(source.number());
        vector.factor = source.number();
        source.line(); // heading of the piles
        if (loaded < 1 || loaded > deck.piles) source.fail("the number of loaded piles");
        for (int i = 0; i < loaded; ++i) {
            const std::vector<double> values = source.numbers(7);
            const int pile = integer_of(values[0]);
            if (pile < 1 || pile > deck.piles) source.fail("there is no such pile to load");
            vector.loads.push_back({pile, part_of<6>(values, 1)});
        }
        deck.load_vectors.push_back(vector);
    }
}

} // namespace

int deck_revision(std::string_view content) {
    DeckSource source(content);
    return find_revision(source);
}

Deck parse_deck(std::string_view content) {
    DeckSource source(content);
    Deck deck;
    deck.revision = find_revision(source);
    deck.label = padded_label(source.first_line());
    source.section_start("the control values", 1);
    deck.force_factor = source.number();
    deck.length_factor = source.number();
    deck.piles = integer_of(source.number());
    deck.sections = integer_of(source.number());
    const int materials = integer_of(source.number());
    const int segments = integer_of(source.number());
    const int vectors = integer_of(source.number());
    deck.print_level = std::clamp(integer_of(source.number()), 0, 2);
    source.number(); // echo
    read_materials(source, materials, deck);
    if (deck.revision == 5) {
        read_sections_of_revision_5(source, deck);
    } else {
        read_sections_of_revision_4(source, deck);
    }
    read_segments(source, segments, deck);
    read_piles(source, deck);
    read_pile_segments(source, deck);
    read_tips(source, deck);
    read_node_values(source, deck);
    if (vectors > 0) read_loads(source, deck, vectors);
    return deck;
}

} // namespace korvat::test

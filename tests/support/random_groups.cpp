// Decks of random pile groups, and what is known of every pile from the way it was made.
#include "random_groups.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace korvat::test {

namespace {

constexpr std::size_t most_piles = 200;
constexpr int most_in_group = 12;
constexpr int most_segments = 5;
constexpr int most_elements = 450;

struct RandomSegment {
    int first_section = 0;
    int last_section = 0;
    std::string length; // as it stands in the deck
    int elements = 0;
};

// A value with a fixed number of decimals, as a text of the deck.
std::string decimal_text(double value, int decimals) {
    std::array<char, 64> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%.*f", decimals, value);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

std::string spaced(const std::array<double, 3>& point) {
    std::string text;
    for (const double value : point)
        text += " " + decimal_text(value, 3);
    return text;
}

class DeckMaker {
public:
    explicit DeckMaker(std::mt19937& engine) : engine_(engine) {}

    RandomDeck make() {
        // A group and its mirror take no more places than the largest group.
        while (deck_.piles.size() + most_in_group <= most_piles)
            add_group(group_size());
        deck_.text = text();
        return deck_;
    }

private:
    // The distributions of the library differ between platforms; this does not.
    int pick(int low, int high) {
        const auto count = static_cast<std::uint_fast32_t>(high - low + 1);
        return low + static_cast<int>(engine_() % count);
    }

    // In thousandths, so that the deck holds the value in full.
    double pick_length(int low, int high) { return pick(low * 1000, high * 1000) / 1000.0; }

    // Small groups more often than large ones.
    int group_size() {
        const int size = pick(1, most_in_group);
        return std::min(size, pick(1, most_in_group));
    }

    int size() const { return static_cast<int>(deck_.piles.size()); }

    void add_group(int count) {
        const int first = size() + 1;
        const int last = size() + count;
        add_given(pick(1, 5) > 1);
        while (size() < last) {
            const bool after_given = deck_.piles.back().source == 0;
            switch (pick(1, 5)) {
            case 1:
                add_given(pick(1, 4) > 1);
                break;
            case 2:
                if (after_given && last - size() >= 2) add_omitted(pick(1, last - size() - 1));
                break;
            case 3:
                add_copy(pick(first, size()));
                break;
            default:
                add_mirror(pick(first, size()), pick(1, 2));
                break;
            }
        }
        deck_.groups.push_back({first, last, 0, 0});
        if (2 * count > most_in_group || pick(1, 3) > 1) return;
        const int mirror = pick(1, 2);
        for (int number = first; number <= last; ++number)
            add_mirror(number, mirror);
        deck_.groups.push_back({last + 1, size(), first, mirror});
    }

    void add_given(bool with_segments) {
        RandomPile pile;
        pile.head = {pick_length(-50, 50), pick_length(-50, 50), pick_length(-10, 10)};
        pile.tip = pile.head;
        if (with_segments) {
            // Raked, vertical or lying.
            const int kind = pick(1, 6);
            if (kind != 1) pile.tip[0] += pick_length(-15, 15);
            if (kind != 1) pile.tip[1] += pick_length(1, 15);
            if (kind != 2) pile.tip[2] += pick_length(5, 60);
            add_segments(pile);
        }
        deck_.piles.push_back(pile);
    }

    // Piles between the last one and a further given one, which follows them.
    void add_omitted(int count) {
        const std::size_t before = deck_.piles.size() - 1;
        add_given(true);
        const RandomPile next = deck_.piles.back();
        const RandomPile previous = deck_.piles[before];
        deck_.piles.pop_back();
        for (int i = 1; i <= count; ++i) {
            const double share = static_cast<double>(i) / (count + 1);
            RandomPile pile;
            pile.omitted = true;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                pile.head[axis] =
                    previous.head[axis] + share * (next.head[axis] - previous.head[axis]);
                pile.tip[axis] = previous.tip[axis] + share * (next.tip[axis] - previous.tip[axis]);
            }
            add_segments(pile);
            deck_.piles.push_back(pile);
        }
        deck_.piles.push_back(next);
    }

    void add_copy(int source) {
        RandomPile pile;
        pile.source = source;
        pile.head = {pick_length(-20, 20), pick_length(-20, 20), pick_length(-3, 3)};
        pile.tip = pile.head;
        add_generated(pile);
    }

    void add_mirror(int source, int mirror) {
        RandomPile pile;
        pile.source = source;
        pile.mirror = mirror;
        add_generated(pile);
    }

    void add_generated(RandomPile pile) {
        pile.elements = deck_.piles[static_cast<std::size_t>(pile.source) - 1].elements;
        deck_.piles.push_back(pile);
    }

    // Segments of random shares, whose sum misses the distance from head to tip by less than the
    // 0.1 % that are allowed.
    void add_segments(RandomPile& pile) {
        const double distance = std::hypot(pile.tip[0] - pile.head[0], pile.tip[1] - pile.head[1],
                                           pile.tip[2] - pile.head[2]);
        const double sum = distance * (1.0 + pick(-900, 900) / 1.0e6);
        const int count = pick(1, most_segments);
        std::vector<int> shares;
        int all_shares = 0;
        for (int i = 0; i < count; ++i) {
            shares.push_back(pick(1, 20));
            all_shares += shares.back();
        }
        // Few piles have as many elements as a pile may have: they take most of the time.
        const bool longest = pick(1, 150) == 1;
        for (const int share : shares) {
            RandomSegment segment;
            segment.first_section = pick(1, 5);
            segment.last_section = pick(1, 5);
            segment.length = decimal_text(sum * share / all_shares, 9);
            segment.elements = longest ? most_elements / count : pick(1, 7);
            pile.segment_sum += std::stod(segment.length);
            pile.elements += segment.elements;
            segments_.push_back(segment);
            pile.segments.push_back(static_cast<int>(segments_.size()));
        }
    }

    std::string text() const {
        std::string text =
            "Random pile groups\n\nheading\n1\n1\n" + std::to_string(size()) + "\n5\n1\n" +
            std::to_string(segments_.size()) + "\n0\n1\n0\n" +
            "\nheading\nheading\n1 2.1e8 8.0e7 355000 77.0 1.2e-5\n" +
            "\nheading\nheading\n1 1 0.6 0.012 0 0 0 0 0\n5 1 1.4 0.045 0 0 0 0 0\n" +
            "\nheading\nheading\n";
        for (std::size_t i = 0; i < segments_.size(); ++i) {
            const RandomSegment& segment = segments_[i];
            text += std::to_string(i + 1) + " " + std::to_string(segment.first_section) + " " +
                    std::to_string(segment.last_section) + " " + segment.length + " " +
                    std::to_string(segment.elements) + "\n";
        }
        text += "\nheading\nheading\n";
        std::string table = "heading\n";
        for (std::size_t i = 0; i < deck_.piles.size(); ++i) {
            const RandomPile& pile = deck_.piles[i];
            const std::string number = std::to_string(i + 1);
            if (!pile.omitted) {
                text += number + " " + std::to_string(pile.source) + " " +
                        std::to_string(pile.mirror) + spaced(pile.head) + spaced(pile.tip) + "\n";
            }
            if (pile.source != 0) continue;
            table += number + " " + std::to_string(pile.segments.size());
            for (const int segment : pile.segments)
                table += " " + std::to_string(segment);
            table += "\n";
        }
        return text + table + "heading\n1 " + std::to_string(size()) +
               " 0 0\n\nheading\nheading\n0 0 0 0 0 0 0 0 0 0 0\nEND\n";
    }

    std::mt19937& engine_;
    RandomDeck deck_;
    std::vector<RandomSegment> segments_;
};

} // namespace

RandomDeck random_deck(std::mt19937& engine) {
    return DeckMaker(engine).make();
}

} // namespace korvat::test

#include "check/rows.hpp"

#include "check/text.hpp"
#include "model/store/integer.hpp"

#include <algorithm>
#include <optional>

namespace korvat::check {
namespace {

using deck::RecordId;

constexpr std::size_t record_width = 80;
constexpr std::size_t list_width = 120; // of the cross sections of revision 5
constexpr std::size_t most_numbers = 40;
constexpr int most_repeats = 1'000'000; // of a section or vector: their k stays within its range

int integer(const Row& row, std::size_t i) {
    return i < row.numbers.size() ? nearest_integer(row.numbers[i].value) : 0;
}

// Takes records from the lines of a section.
class Scanner {
public:
    Scanner(const Section& section, int revision)
        : result_{.section = section.id, .rows = {}, .stopped_at = 0}, lines_(section.lines),
          revision_(revision) {}

    [[nodiscard]] SectionRows take() {
        if (!take_section()) result_.stopped_at = line_number();
        return std::move(result_);
    }

private:
    [[nodiscard]] bool at_end() const { return next_ >= lines_.size(); }
    [[nodiscard]] bool at_record() const {
        return !at_end() && looks_like_record(lines_[next_].text);
    }

    // Of the line that comes next, or of the last.
    [[nodiscard]] int line_number() const {
        return at_end() ? lines_.back().number : lines_[next_].number;
    }

    bool take_section() {
        const int headings = headings_of(result_.section, revision_);
        if (!skip_headings(headings)) return false;
        switch (result_.section) {
        case SectionId::control:
            return take_control();
        case SectionId::materials:
            return take_all(RecordId::material);
        case SectionId::cross_sections:
            return revision_ == 5 ? take_cross_sections_of_5() : take_all(RecordId::cross_section);
        case SectionId::segment_types:
            return take_all(RecordId::segment_type);
        case SectionId::geometry:
            return take_tables();
        case SectionId::node_values:
            return take_all(RecordId::special_node_values);
        case SectionId::loads:
            return take_vectors();
        }
        return false;
    }

    // A heading that looks like a record makes it doubtful where the records begin.
    bool skip_headings(int count) {
        for (int i = 0; i < count; ++i) {
            if (at_end() || at_record()) return false;
            ++next_;
        }
        return true;
    }

    bool skip_heading() { return skip_headings(1); }

    // Numbers of the line that comes next; none when it has none.
    bool add_line(Row& row, std::size_t wanted) {
        const DeckLine& line = lines_[next_];
        bool found = false;
        for (const Token& token : tokens(line.text.substr(0, record_width))) {
            if (row.numbers.size() == wanted) break;
            const auto value = number_of(token.text);
            if (!value) return false;
            found = true;
            row.numbers.push_back({*value, place_of(line.text, line.number, token)});
        }
        ++next_;
        return found;
    }

    // Takes the next record. A negative count is that of the number that tells how many follow.
    bool take_record(RecordId id, int k) {
        const int count = deck::record(id).count;
        std::size_t wanted = static_cast<std::size_t>(std::max(count, -count));
        Row row{.id = id, .k = k, .place = {.line = line_number()}, .numbers = {}};
        const std::size_t first = next_;
        while (row.numbers.size() < wanted) {
            if (at_end() || !add_line(row, count < 0 ? most_numbers : wanted)) {
                next_ = first;
                return false;
            }
            if (count < 0 && row.numbers.size() >= wanted) {
                wanted += static_cast<std::size_t>(std::clamp(integer(row, wanted - 1), 0, 20));
                while (row.numbers.size() < wanted && !at_end() && add_line(row, wanted)) {
                }
                if (row.numbers.size() != wanted) {
                    next_ = first;
                    return false;
                }
                row.k = integer(row, 0);
                break;
            }
        }
        result_.rows.push_back(std::move(row));
        return true;
    }

    bool take_all(RecordId id) {
        for (int k = 1; !at_end(); ++k) {
            if (!take_record(id, k)) return false;
        }
        return true;
    }

    bool take_while_records(RecordId id) {
        for (int k = 1; at_record(); ++k) {
            if (!take_record(id, k)) return false;
        }
        return true;
    }

    bool take_control() {
        constexpr int values = 9;
        for (int i = 0; i < values; ++i) {
            if (!take_record(static_cast<RecordId>(i), 0)) return false;
        }
        return at_end();
    }

    bool take_tables() {
        if (!take_while_records(RecordId::pile_geometry) || !skip_heading()) return false;
        if (!take_while_records(RecordId::pile_segments) || !skip_heading()) return false;
        return take_all(RecordId::tip_and_fix);
    }

    bool take_vectors() {
        for (int v = 1; !at_end() && v < most_repeats; ++v) {
            ++next_; // the label
            if (!take_record(RecordId::loaded_piles, v)) return false;
            const int piles = integer(result_.rows.back(), 0);
            if (!take_record(RecordId::load_factor, v) || !skip_heading()) return false;
            for (int i = 1; i <= piles; ++i) {
                if (!take_record(RecordId::pile_load, 100 * v + i)) return false;
            }
        }
        return at_end();
    }

    // Values may be separated by commas too, and what follows the last one is dropped.
    bool take_list(RecordId id, int k) {
        const std::size_t wanted = deck::record(id).items.size();
        Row row{.id = id, .k = k, .place = {.line = line_number()}, .numbers = {}};
        const std::size_t first = next_;
        for (; row.numbers.size() < wanted && !at_end(); ++next_) {
            const DeckLine& line = lines_[next_];
            for (const Token& token : tokens(line.text.substr(0, list_width), " \t,")) {
                if (row.numbers.size() == wanted) break;
                const auto value = number_of(token.text);
                if (!value) {
                    next_ = first;
                    return false;
                }
                row.numbers.push_back({*value, place_of(line.text, line.number, token)});
            }
        }
        if (row.numbers.size() != wanted) {
            next_ = first;
            return false;
        }
        result_.rows.push_back(std::move(row));
        return true;
    }

    // A section, then its tubes; the points of the curves come behind the last section.
    bool take_cross_sections_of_5() {
        std::vector<std::pair<int, int>> curves; // number and points of a section
        const auto is_point = [&] {
            return !curves.empty() &&
                   tokens(lines_[next_].text.substr(0, list_width), " \t,").size() <
                       deck::record(RecordId::cross_section_5).items.size();
        };
        for (int N = 1; !at_end() && !is_point() && N < most_repeats; ++N) {
            if (!take_list(RecordId::cross_section_5, N)) return false;
            const int type = integer(result_.rows.back(), 1);
            const int points = integer(result_.rows.back(), 2);
            if (points > 0) curves.emplace_back(N, points);
            for (int j = 1; type >= 2 && j <= type; ++j) {
                if (!take_list(RecordId::sub_section, 1000 * N + j)) return false;
            }
        }
        for (const auto& [N, points] : curves) {
            for (int i = 1; i <= points; ++i) {
                if (!take_list(RecordId::curve_point, 100 * N + i)) return false;
            }
        }
        return at_end();
    }

    SectionRows result_;
    std::span<const DeckLine> lines_;
    int revision_;
    std::size_t next_ = 0;
};

} // namespace

std::vector<SectionRows> scan_rows(const Layout& layout) {
    std::vector<SectionRows> sections;
    for (const Section& section : layout.sections()) {
        sections.push_back(Scanner(section, layout.revision()).take());
    }
    return sections;
}

} // namespace korvat::check

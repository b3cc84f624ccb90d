#include "cli/record_text.hpp"

#include "cli/table.hpp"
#include "export/text.hpp"

#include <array>
#include <utility>
#include <vector>

namespace korvat::cli {
namespace {

using group::FileKind;
using group::Items;
using group::Record;
using group::Records;

constexpr std::size_t integer_size = 4;
constexpr std::size_t real_size = 8;
constexpr std::size_t label_size = 80;

// The items of a record: texts, integers, then reals; the whole pattern again until the record ends.
struct Pattern {
    bool is_text = false;
    std::size_t integers = 0;
    std::size_t reals = 0;

    [[nodiscard]] std::size_t size() const {
        return is_text ? label_size : integers * integer_size + reals * real_size;
    }
};

constexpr Pattern text{true, 0, 0};
constexpr Pattern integers{false, 1, 0};
constexpr Pattern reals{false, 0, 1};
constexpr Pattern integer_and_real{false, 1, 1};
constexpr Pattern pile_load{false, 1, 6};

std::string escaped_bytes(const std::vector<char>& bytes) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string shown;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!shown.empty()) shown += ' ';
        shown += digits[byte / 16];
        shown += digits[byte % 16];
    }
    return shown;
}

std::string offset_text(std::size_t offset) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string shown;
    for (std::size_t rest = offset; rest > 0 || shown.size() < 4; rest /= 16)
        shown.insert(shown.begin(), digits[rest % 16]);
    return shown;
}

class RecordTexts {
public:
    RecordTexts(const Records& records, std::optional<FileKind> kind)
        : records_(records.records), is_known_(kind.has_value()) {
        if (kind == FileKind::load) {
            show_load_file();
        } else if (kind) {
            show_pile_file(*kind == FileKind::pile_revision_5);
        }
        while (next_ < records_.size())
            show_bytes();
    }

    [[nodiscard]] std::string take() { return std::move(text_); }

private:
    void show_heading(const std::string& name) {
        const Record& record = records_[next_];
        text_ += "record " + std::to_string(next_ + 1) + " at " + offset_text(record.offset) +
                 ", " + counted(record.bytes.size(), "byte") + ": " + name + '\n';
        ++next_;
    }

    void show_bytes() {
        const std::string bytes = escaped_bytes(records_[next_].bytes);
        show_heading("unknown");
        text_ += "  " + bytes + '\n';
    }

    void append(const std::string& item, std::size_t times) {
        text_ += "  " + item;
        if (times > 1) text_ += " (" + std::to_string(times) + " times)";
    }

    // Shows the next record, when it is there and has the size; 0 stands for any multiple of the pattern's.
    // Otherwise nothing is known of what follows.
    bool show(const std::string& name, const Pattern& pattern, std::size_t size = 0) {
        if (!is_known_ || next_ == records_.size()) return false;
        const Record& record = records_[next_];
        const bool fits =
            size == 0 ? record.bytes.size() % pattern.size() == 0 : record.bytes.size() == size;
        if (!fits) return is_known_ = false;
        show_heading(name);
        Items items(record);
        if (pattern.is_text) {
            text_ += "  " + shown_text(items.text()) + '\n';
            return true;
        }
        const std::size_t groups = record.bytes.size() / pattern.size();
        std::string last;
        std::size_t times = 0;
        for (std::size_t i = 0; i < groups; ++i) {
            std::string item;
            for (std::size_t k = 0; k < pattern.integers; ++k)
                item += (item.empty() ? "" : " ") + std::to_string(items.integer());
            for (std::size_t k = 0; k < pattern.reals; ++k)
                item += (item.empty() ? "" : " ") + exporting::number_text(items.real());
            if (times > 0 && item != last) {
                append(last, times);
                times = 0;
            }
            last = std::move(item);
            ++times;
        }
        append(last, times);
        text_ += '\n';
        return true;
    }

    // Two integers of the record shown last.
    [[nodiscard]] int integer_before(std::size_t place) const {
        Items items(records_[next_ - 1]);
        for (std::size_t i = 0; i < place; ++i)
            (void)items.integer();
        return items.integer();
    }

    void show_pile_file(bool is_revision_5) {
        if (is_revision_5 && !show("date of the revision", integers, 3 * integer_size)) return;
        if (!show("label", text, label_size)) return;
        if (!show("number of piles, number of cross sections", integers, 2 * integer_size)) return;
        const int piles = integer_before(0);
        const int sections = integer_before(1);
        for (int i = 1; i <= sections; ++i) {
            if (!show("section " + std::to_string(i), reals, 20 * real_size)) return;
        }
        if (is_revision_5 && (!show("types, non-linear codes and tubes of sections", integers) ||
                              !show("yield curves", reals))) {
            return;
        }
        for (int i = 1; i <= piles && show_pile(i); ++i) {
        }
    }

    bool show_pile(int number) {
        const std::string pile = "pile " + std::to_string(number);
        if (!show(pile + ": number, fixed to, elements, tip code", integers, 4 * integer_size))
            return false;
        const bool has_elements = integer_before(2) > 0;
        for (const char* const axis : {"X", "Y", "Z"}) {
            if (!show(pile + ": " + axis, reals)) return false;
        }
        for (const char* const direction : {"x", "y", "z", "about x", "about y", "about z"}) {
            for (const char* const kind : {"springs", "forces", "soil displacements"}) {
                if (!show(pile + ": " + kind + ' ' + direction, reals)) return false;
            }
        }
        return !has_elements ||
               (show(pile + ": diameters and lengths of elements", reals) &&
                show(pile + ": sections and strains of elements", integer_and_real));
    }

    void show_load_file() {
        for (std::size_t vector = 1; next_ < records_.size(); ++vector) {
            const std::string name = "load vector " + std::to_string(vector);
            if (!show(name + ": label", text, label_size) ||
                !show(name + ": number of loads", integers, integer_size)) {
                return;
            }
            const int loads = integer_before(0);
            for (int i = 1; i <= loads; ++i) {
                if (!show(name + ": load " + std::to_string(i), pile_load, pile_load.size()))
                    return;
            }
        }
    }

    const std::vector<Record>& records_;
    bool is_known_;
    std::size_t next_ = 0;
    std::string text_;
};

} // namespace

std::string records_text(const Records& records, std::optional<FileKind> kind) {
    return RecordTexts(records, kind).take();
}

} // namespace korvat::cli

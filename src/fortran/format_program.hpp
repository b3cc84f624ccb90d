// A FORMAT taken apart into the steps that a formatted write goes through.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korvat::fortran {

// One step of a FORMAT. The last four kinds take an item each.
struct FormatStep {
    enum class Kind {
        literal,     // characters, a line end among them
        blanks,      // nx: `width` blanks, held back until something follows them
        scale,       // nP: from here on `width` digits before the point under e
        colon,       // ends the record where no item is left
        no_line_end, // $
        text,        // aw
        integer,     // iw.m
        fixed,       // fw.d
        exponent     // ew.d
    };
    Kind kind;
    int width = 0;  // w; -1 for an a without a width
    int digits = 0; // d or m
    std::string literal{};

    [[nodiscard]] bool takes_an_item() const { return kind >= Kind::text; }
};

// The steps of a FORMAT, its groups and repeat counts written out. The runtime takes the FORMAT
// apart and walks through it; what it refuses is refused here with its own exception.
class FormatProgram {
public:
    // Raises std::runtime_error also for what this program's FORMATs do not have: the descriptors
    // d, g, l and z, an e without a width, negative scale factors, widths that begin with a 0 or
    // pass 62 (i), 255 (f, e), and more than 10,000 steps.
    explicit FormatProgram(std::string_view format);

    [[nodiscard]] const std::vector<FormatStep>& steps() const { return steps_; }

    // The end of the first pass through the FORMAT. Where items are left there, a write goes on
    // with the steps behind it, again and again: a line end, then the last group. There are none
    // where they would take no item.
    [[nodiscard]] std::size_t reversion() const { return reversion_; }

    // The kind of step that item i (from 0) of a write goes under. Raises std::runtime_error where
    // there is none.
    [[nodiscard]] FormatStep::Kind kind_of_item(std::size_t i) const {
        return data_kinds_[i < first_pass_items_ ? i : place_in_reversion(i)];
    }

    [[nodiscard]] const std::string& format() const { return format_; }

    // For an item that finds no descriptor: raises std::runtime_error.
    [[noreturn]] void refuse_more_items() const;

private:
    void list_data_kinds();
    [[nodiscard]] std::size_t place_in_reversion(std::size_t item) const;

    std::string format_;
    std::vector<FormatStep> steps_;
    std::size_t reversion_ = 0;
    std::vector<FormatStep::Kind> data_kinds_; // of the steps that take an item
    std::size_t first_pass_items_ = 0;         // as many of them belong to the first pass
};

// The FORMATs of a run, each taken apart once.
class FormatPrograms {
public:
    [[nodiscard]] const FormatProgram& of(std::string_view format);

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };
    std::unordered_map<std::string, std::unique_ptr<FormatProgram>, Hash, std::equal_to<>> known_;
    // Where a FORMAT of the same address was found last: most are constants, which stay where they
    // are.
    std::array<const FormatProgram*, 256> at_address_{};
};

} // namespace korvat::fortran

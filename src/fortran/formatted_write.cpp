#include "fortran/formatted_write.hpp"

#include "fortran/digits.hpp"
#include "fortran/edit_exponent.hpp"
#include "fortran/edit_fixed.hpp"
#include "fortran/edit_integer.hpp"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

namespace korvat::fortran {
namespace {

using Kind = FormatStep::Kind;

char letter_of(Kind descriptor) {
    switch (descriptor) {
    case Kind::integer:
        return 'i';
    case Kind::fixed:
        return 'f';
    case Kind::exponent:
        return 'e';
    default:
        return 'a';
    }
}

// The way of one write through the steps of its FORMAT. The characters go through a cursor of its
// own and are the sink's only once the write is through.
class FormattedWrite {
public:
    FormattedWrite(CharacterSink& out, const FormatProgram& program)
        : out_(out), program_(program), next_(program.steps().data()),
          end_(next_ + program.reversion()), to_(out.room(most_at_once)),
          room_end_(out.room_end()) {}

    void edit(std::span<const Item> items) {
        for (const Item& item : items) {
            const FormatStep& step = next_data_step();
            if (!edit(item, step)) refuse(static_cast<std::size_t>(&item - items.data()), step);
        }
    }

    // Behind the last item: literals up to the next descriptor, or to the end of the FORMAT.
    void finish(std::string_view line_end) {
        while (next_ < end_ && !next_->takes_an_item() && next_->kind != Kind::colon) {
            pass(*next_++);
        }
        if (!no_line_end_) put(line_end);
        out_.took_up_to(to_);
    }

private:
    // Longer than any number's field with the blanks that are stored behind it.
    static constexpr std::size_t most_at_once = 320;

    // False where the item is not of the kind that the descriptor takes.
    bool edit(const Item& item, const FormatStep& step) {
        put_held_blanks();
        make_room();
        switch (step.kind) {
        case Kind::integer:
            if (item.kind() != Item::Kind::integer) return false;
            to_ += edit_integer(to_, item.integer(), step.width, step.digits);
            return true;
        case Kind::fixed:
            if (item.kind() != Item::Kind::real) return false;
            to_ += edit_fixed(to_, item.real(), step.width, step.digits);
            return true;
        case Kind::exponent:
            if (item.kind() != Item::Kind::real) return false;
            to_ += edit_exponent(to_, item.real(), step.width, step.digits, scale_);
            return true;
        default:
            if (item.kind() != Item::Kind::text && item.kind() != Item::Kind::right_text) {
                return false;
            }
            edit_text(item, step.width);
            return true;
        }
    }

    // The runtime would lose the width of another kind of item without a word.
    [[noreturn]] void refuse(std::size_t item, const FormatStep& step) const {
        throw std::logic_error(
            "item " + std::to_string(item + 1) + " does not fit its descriptor '" +
            std::string(1, letter_of(step.kind)) + "' in FORMAT " + program_.format());
    }

    const FormatStep& next_data_step() {
        while (true) {
            if (next_ == end_) revert();
            const FormatStep& step = *next_++;
            if (step.takes_an_item()) return step;
            pass(step);
        }
    }

    // The first pass ends where the reversion begins, every later one behind the last step.
    void revert() {
        const std::span<const FormatStep> steps = program_.steps();
        if (steps.size() == program_.reversion()) program_.refuse_more_items();
        next_ = steps.data() + program_.reversion();
        end_ = steps.data() + steps.size();
    }

    void pass(const FormatStep& step) {
        switch (step.kind) {
        case Kind::literal:
            put_held_blanks();
            put(step.literal);
            return;
        case Kind::blanks:
            held_blanks_ += static_cast<std::size_t>(step.width);
            return;
        case Kind::scale:
            scale_ = step.width;
            return;
        case Kind::no_line_end:
            no_line_end_ = true;
            return;
        default:
            return;
        }
    }

    void edit_text(const Item& item, int width) {
        std::string_view text = item.text();
        const bool is_right = item.kind() == Item::Kind::right_text;
        if (is_right) text = text.substr(0, text.find('\0')); // the runtime takes it for a C string
        if (width < 0) {
            put(text);
            return;
        }
        const auto columns = static_cast<std::size_t>(width);
        const std::size_t shown = std::min(text.size(), columns);
        if (is_right) put_blanks_of(columns - shown);
        put(text.substr(0, shown));
        if (!is_right) put_blanks_of(columns - shown);
    }

    void put_held_blanks() {
        if (held_blanks_ == 0) return;
        put_blanks_of(held_blanks_);
        held_blanks_ = 0;
    }

    void put_blanks_of(std::size_t count) {
        for (; count > most_columns; count -= most_columns) {
            make_room();
            put_blanks(to_);
            to_ += most_columns;
        }
        make_room();
        put_blanks(to_);
        to_ += count;
    }

    void put(std::string_view text) {
        for (; text.size() > most_at_once; text.remove_prefix(most_at_once)) {
            make_room();
            std::memcpy(to_, text.data(), most_at_once);
            to_ += most_at_once;
        }
        make_room();
        std::memcpy(to_, text.data(), text.size());
        to_ += text.size();
    }

    void make_room() {
        if (static_cast<std::size_t>(room_end_ - to_) >= most_at_once) return;
        out_.took_up_to(to_);
        to_ = out_.room(most_at_once);
        room_end_ = out_.room_end();
    }

    CharacterSink& out_;
    const FormatProgram& program_;
    const FormatStep* next_;
    const FormatStep* end_; // of the pass
    char* to_;
    char* room_end_;
    std::size_t held_blanks_ = 0;
    int scale_ = 0;
    bool no_line_end_ = false;
};

} // namespace

void edit_items(CharacterSink& out, const FormatProgram& program, std::span<const Item> items,
                std::string_view line_end) {
    FormattedWrite write(out, program);
    write.edit(items);
    write.finish(line_end);
}

} // namespace korvat::fortran

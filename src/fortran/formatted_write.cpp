#include "fortran/formatted_write.hpp"

#include "fortran/edit_exponent.hpp"
#include "fortran/edit_fixed.hpp"
#include "fortran/edit_integer.hpp"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace korvat::fortran {
namespace {

using Kind = FormatStep::Kind;

bool agrees(const Item& item, Kind descriptor) {
    switch (item.kind()) {
    case Item::Kind::integer:
        return descriptor == Kind::integer;
    case Item::Kind::real:
        return descriptor == Kind::fixed || descriptor == Kind::exponent;
    case Item::Kind::text:
    case Item::Kind::right_text:
        return descriptor == Kind::text;
    }
    return false;
}

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

// The runtime would lose the width of another kind of item without a word.
void require_kinds(const FormatProgram& program, std::span<const Item> items) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Kind descriptor = program.kind_of_item(i);
        if (agrees(items[i], descriptor)) continue;
        throw std::logic_error("item " + std::to_string(i + 1) + " does not fit its descriptor '" +
                               std::string(1, letter_of(descriptor)) + "' in FORMAT " +
                               program.format());
    }
}

// The way of one write through the steps of its FORMAT.
class FormattedWrite {
public:
    FormattedWrite(CharacterSink& out, const FormatProgram& program)
        : out_(out), program_(program), steps_(program.steps()) {}

    void edit(const Item& item) {
        const FormatStep& step = next_data_step();
        out_.fill(held_blanks_, ' ');
        held_blanks_ = 0;
        switch (step.kind) {
        case Kind::integer:
            out_.took(edit_integer(out_.room(80), item.integer(), step.width, step.digits));
            return;
        case Kind::fixed:
            out_.took(edit_fixed(out_.room(256), item.real(), step.width, step.digits));
            return;
        case Kind::exponent:
            out_.took(edit_exponent(out_.room(256), item.real(), step.width, step.digits, scale_));
            return;
        default:
            edit_text(item, step.width);
            return;
        }
    }

    // Behind the last item: literals up to the next descriptor, or to the end of the FORMAT.
    void finish(std::string_view line_end) {
        while (next_ < end() && !steps_[next_].takes_an_item() &&
               steps_[next_].kind != Kind::colon) {
            pass(steps_[next_++]);
        }
        if (!no_line_end_) out_.put(line_end);
    }

private:
    // The first pass ends where the reversion begins, every later one behind the last step.
    [[nodiscard]] std::size_t end() const {
        return in_reversion_ ? steps_.size() : program_.reversion();
    }

    const FormatStep& next_data_step() {
        while (true) {
            if (next_ == end()) revert();
            const FormatStep& step = steps_[next_++];
            if (step.takes_an_item()) return step;
            pass(step);
        }
    }

    void revert() {
        in_reversion_ = true;
        next_ = program_.reversion();
    }

    void pass(const FormatStep& step) {
        switch (step.kind) {
        case Kind::literal:
            out_.fill(held_blanks_, ' ');
            held_blanks_ = 0;
            out_.put(step.literal);
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
            out_.put(text);
            return;
        }
        const auto columns = static_cast<std::size_t>(width);
        const std::size_t shown = std::min(text.size(), columns);
        if (is_right) out_.fill(columns - shown, ' ');
        out_.put(text.substr(0, shown));
        if (!is_right) out_.fill(columns - shown, ' ');
    }

    CharacterSink& out_;
    const FormatProgram& program_;
    const std::vector<FormatStep>& steps_;
    std::size_t next_ = 0;
    std::size_t held_blanks_ = 0;
    int scale_ = 0;
    bool in_reversion_ = false;
    bool no_line_end_ = false;
};

} // namespace

void edit_items(CharacterSink& out, const FormatProgram& program, std::span<const Item> items,
                std::string_view line_end) {
    require_kinds(program, items);
    FormattedWrite write(out, program);
    for (const Item& item : items) {
        write.edit(item);
    }
    write.finish(line_end);
}

} // namespace korvat::fortran

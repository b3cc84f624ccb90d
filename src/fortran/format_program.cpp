#include "fortran/format_program.hpp"

#include "fortran/as_fem.hpp"

#include <bit>
#include <charconv>
#include <cstdint>
#include <stdexcept>

namespace korvat::fortran {
namespace {

using Kind = FormatStep::Kind;

constexpr std::size_t most_steps = 10'000;
constexpr int no_width = -1;
constexpr int widest_integer = 62; // the runtime edits an integer in 64 bytes
constexpr int widest_real = 255;   // and under e in 256

[[noreturn]] void refuse(const std::string& token) {
    throw std::runtime_error("FORMAT with a descriptor that cannot be edited: " + token);
}

// The numbers w and d behind a descriptor's letter; where they are missing, the given ones stay.
void read_width(const std::string& token, int& width, int& digits) {
    const char* const end = token.data() + token.size();
    const auto read = std::from_chars(token.data() + 1, end, width);
    if (read.ptr == end || *read.ptr != '.') return;
    std::from_chars(read.ptr + 1, end, digits);
}

bool begins_with_zero(const std::string& token) {
    return token.size() > 2 && token[1] == '0' && token[2] != '.';
}

FormatStep data_step(const std::string& token) {
    FormatStep step{.kind = Kind::text, .width = no_width};
    switch (token.front()) {
    case 'a':
        read_width(token, step.width, step.digits);
        return step;
    case 'i':
        step = {.kind = Kind::integer, .digits = 1};
        break;
    case 'f':
        step = {.kind = Kind::fixed, .digits = 6}; // as many as printf takes for none
        break;
    case 'e':
        if (token.size() == 1) refuse(token);
        step.kind = Kind::exponent;
        step.width = 0;
        break;
    default:
        refuse(token);
    }
    if (begins_with_zero(token)) refuse(token); // printf would fill with zeros
    read_width(token, step.width, step.digits);
    const int widest = step.kind == Kind::integer ? widest_integer : widest_real;
    if (step.width > widest || step.digits > widest) refuse(token);
    if (step.kind == Kind::exponent && step.width == 0) refuse(token);
    return step;
}

// The number in front of a letter, with its sign; 1 where there is none.
int leading_number(const std::string& token) {
    int number = 1;
    const char* const start = token.data() + (token.front() == '+' ? 1 : 0);
    std::from_chars(start, token.data() + token.size(), number);
    return number;
}

FormatStep operation(const std::string& token) {
    switch (token.front()) {
    case '/':
        return {.kind = Kind::literal, .literal = "\n"};
    case ':':
        return {.kind = Kind::colon};
    case '$':
        return {.kind = Kind::no_line_end};
    default:
        refuse(token);
    }
}

FormatStep step_of(const fem::utils::token& token) {
    if (token.type == "string") return {.kind = Kind::literal, .literal = token.value};
    if (token.type == "op") return operation(token.value);
    if (token.value.ends_with('x')) {
        return {.kind = Kind::blanks, .width = leading_number(token.value)};
    }
    if (token.value.ends_with('p')) {
        const int scale = leading_number(token.value);
        if (scale < 0) refuse(token.value); // the runtime would write outside its buffer
        return {.kind = Kind::scale, .width = scale};
    }
    return data_step(token.value);
}

} // namespace

FormatProgram::FormatProgram(std::string_view format) : format_(format) {
    fem::format::token_loop loop(as_fem(format_));
    const auto walk_to_end = [&] {
        while (const fem::utils::token* const token = loop.next_executable_token(/*final*/ true)) {
            if (steps_.size() == most_steps) refuse(format_);
            steps_.push_back(step_of(*token));
        }
    };
    walk_to_end();
    reversion_ = steps_.size();
    if (steps_.empty()) return;
    steps_.push_back(step_of(*loop.next_executable_token())); // the line end of the reversion
    walk_to_end();
    list_data_kinds();
    if (data_kinds_.size() == first_pass_items_) { // the reversion would take no item
        steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(reversion_), steps_.end());
    }
}

void FormatProgram::list_data_kinds() {
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        if (!steps_[i].takes_an_item()) continue;
        data_kinds_.push_back(steps_[i].kind);
        if (i < reversion_) ++first_pass_items_;
    }
}

std::size_t FormatProgram::place_in_reversion(std::size_t item) const {
    const std::size_t per_pass = data_kinds_.size() - first_pass_items_;
    if (per_pass == 0) refuse_more_items();
    return first_pass_items_ + (item - first_pass_items_) % per_pass;
}

void FormatProgram::refuse_more_items() const {
    throw std::runtime_error("FORMAT without a descriptor for every item: " + format_);
}

const FormatProgram& FormatPrograms::of(std::string_view format) {
    const auto address = std::bit_cast<std::uintptr_t>(format.data());
    const FormatProgram*& guess = at_address_[address / 8 % at_address_.size()];
    if (guess != nullptr && guess->format() == format) return *guess;
    auto found = known_.find(format);
    if (found == known_.end()) {
        auto program = std::make_unique<FormatProgram>(format);
        found = known_.emplace(std::string(format), std::move(program)).first;
    }
    guess = found->second.get();
    return *guess;
}

} // namespace korvat::fortran

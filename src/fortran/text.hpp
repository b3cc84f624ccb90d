// Fixed-length, blank-filled character fields: what a CHARACTER*N is to the decks and FORMATs.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace korvat::fortran {

// N characters, blank at construction. Assignment cuts a longer text and pads a shorter one with
// blanks on the right, so a Text never holds anything undefined.
template <std::size_t N>
class Text {
public:
    static constexpr std::size_t length = N;

    Text() { chars_.fill(' '); }
    explicit Text(std::string_view text) { assign(text); }

    void assign(std::string_view text) { assign_from(1, text, N); }

    // Stores the first `width` characters of `text`, blank-padded to `width`, from column `from`
    // (1-based) on; what would pass column N is dropped.
    void assign_from(std::size_t from, std::string_view text, std::size_t width) {
        if (from < 1 || from > N) return;
        const std::size_t room = std::min(width, N - from + 1);
        const std::size_t kept = std::min(room, text.size());
        const auto start = chars_.begin() + static_cast<std::ptrdiff_t>(from - 1);
        std::copy_n(text.begin(), kept, start);
        std::fill_n(start + static_cast<std::ptrdiff_t>(kept), room - kept, ' ');
    }

    void fill_blank() { chars_.fill(' '); }

    [[nodiscard]] std::string_view view() const { return {chars_.data(), N}; }

    // The first `count` characters (all of them when there are fewer).
    [[nodiscard]] std::string_view first(std::size_t count) const {
        return view().substr(0, count);
    }

    // Columns first..last, 1-based and inclusive; clipped to the field.
    [[nodiscard]] std::string_view columns(std::size_t first, std::size_t last) const {
        const std::size_t stop = std::min(last, N);
        if (first < 1 || first > stop) return {};
        return view().substr(first - 1, stop - first + 1);
    }

    [[nodiscard]] bool is_blank() const {
        return std::all_of(chars_.begin(), chars_.end(), [](char c) { return c == ' '; });
    }

    [[nodiscard]] char* data() { return chars_.data(); }

    friend bool operator==(const Text&, const Text&) = default;

private:
    std::array<char, N> chars_;
};

// Position of the last non-blank character, 1-based; 0 for an all-blank text.
[[nodiscard]] constexpr std::size_t last_non_blank(std::string_view text) {
    return text.find_last_not_of(' ') + 1; // npos + 1 is 0
}

// The text without its trailing blanks.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text) {
    return text.substr(0, last_non_blank(text));
}

} // namespace korvat::fortran

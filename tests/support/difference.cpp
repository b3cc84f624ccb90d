// The longest common subsequence of the lines, found in the part between equal beginnings and ends.
#include "difference.hpp"

#include "text.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvat::test {

namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t context_lines = 3;
constexpr std::size_t most_lines_shown = 60;
// Of each text, from the first difference on; the work grows with the square.
constexpr std::size_t most_lines_compared = 1000;
constexpr std::size_t context_bytes = 8;

std::string hexadecimal(char c) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    return {digits[byte / 16U], digits[byte % 16U]};
}

std::string visible(std::string_view line) {
    const std::size_t last = line.find_last_not_of(' ');
    const std::size_t end = last == std::string_view::npos ? 0 : last + 1;
    std::string text;
    for (const char c : line.substr(0, end)) {
        const bool prints = c >= 0x20 && c < 0x7F;
        text += prints ? std::string(1, c) : "\\x" + hexadecimal(c);
    }
    for (std::size_t i = end; i < line.size(); ++i)
        text += "\xC2\xB7";
    return text;
}

// One line of a diff, ' ', '-' or '+', with the number of lines before it in each text.
struct Edit {
    char mark = ' ';
    std::size_t expected = 0;
    std::size_t found = 0;
};

// Lengths of the longest common subsequences of what is left of two texts after i and j lines.
class CommonLengths {
public:
    CommonLengths(const Lines& expected, const Lines& found)
        : width_(found.size() + 1), lengths_((expected.size() + 1) * width_) {
        for (std::size_t i = expected.size(); i-- > 0;) {
            for (std::size_t j = found.size(); j-- > 0;) {
                const bool same = expected[i] == found[j];
                const auto one_more = static_cast<std::uint16_t>(after(i + 1, j + 1) + 1U);
                lengths_[(i * width_) + j] =
                    same ? one_more : std::max(after(i + 1, j), after(i, j + 1));
            }
        }
    }

    std::uint16_t after(std::size_t i, std::size_t j) const { return lengths_[(i * width_) + j]; }

private:
    std::size_t width_;
    std::vector<std::uint16_t> lengths_;
};

// What leads from one text to the other, where the texts begin after a number of equal lines.
std::vector<Edit> edits_between(const Lines& expected, const Lines& found, std::size_t before) {
    const CommonLengths common(expected, found);
    std::vector<Edit> edits;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < expected.size() || j < found.size()) {
        Edit edit{.mark = ' ', .expected = before + i, .found = before + j};
        if (i == expected.size()) {
            edit.mark = '+';
        } else if (j == found.size()) {
            edit.mark = '-';
        } else if (expected[i] != found[j]) {
            edit.mark = common.after(i + 1, j) >= common.after(i, j + 1) ? '-' : '+';
        }
        edits.push_back(edit);
        if (edit.mark != '+') ++i;
        if (edit.mark != '-') ++j;
    }
    return edits;
}

Lines slice(const Lines& lines, std::size_t begin, std::size_t end) {
    const auto at = [&](std::size_t i) { return lines.begin() + static_cast<std::ptrdiff_t>(i); };
    return {at(begin), at(end)};
}

// Two lists of lines, and what leads from one to the other with some equal lines on either side.
struct Diff {
    Lines expected;
    Lines found;
    std::vector<Edit> edits;
    bool is_cut = false; // the texts go on after the last edit, and differ there
};

// Where the texts are cut, a line has lost the one that it is equal to: the last edits prove nothing,
// unless there are no others.
void drop_unproved(std::vector<Edit>& edits) {
    const auto is_equal = [](const Edit& edit) { return edit.mark == ' '; };
    const auto last_equal = std::find_if(edits.rbegin(), edits.rend(), is_equal);
    if (last_equal != edits.rend()) edits.erase(last_equal.base(), edits.end());
}

Diff diff_of(Lines expected, Lines found) {
    const std::size_t shorter = std::min(expected.size(), found.size());
    std::size_t before = 0;
    while (before < shorter && expected[before] == found[before])
        ++before;
    std::size_t after = 0;
    while (after < shorter - before &&
           expected[expected.size() - 1 - after] == found[found.size() - 1 - after])
        ++after;
    const std::size_t expected_end =
        std::min(expected.size() - after, before + most_lines_compared);
    const std::size_t found_end = std::min(found.size() - after, before + most_lines_compared);

    Diff diff;
    diff.is_cut = expected_end + after < expected.size() || found_end + after < found.size();
    for (std::size_t i = before - std::min(before, context_lines); i < before; ++i)
        diff.edits.push_back({.mark = ' ', .expected = i, .found = i});
    std::vector<Edit> between = edits_between(slice(expected, before, expected_end),
                                              slice(found, before, found_end), before);
    if (diff.is_cut) drop_unproved(between);
    diff.edits.insert(diff.edits.end(), between.begin(), between.end());
    for (std::size_t i = 0; !diff.is_cut && i < std::min(after, context_lines); ++i)
        diff.edits.push_back({.mark = ' ', .expected = expected_end + i, .found = found_end + i});
    diff.expected = std::move(expected);
    diff.found = std::move(found);
    return diff;
}

// Runs of edits, from the first to the one behind the last, each a change with the equal lines near it.
std::vector<std::pair<std::size_t, std::size_t>> hunks_of(const std::vector<Edit>& edits) {
    std::vector<std::pair<std::size_t, std::size_t>> hunks;
    for (std::size_t i = 0; i < edits.size(); ++i) {
        if (edits[i].mark == ' ') continue;
        const std::size_t begin = i - std::min(i, context_lines);
        const std::size_t end = std::min(edits.size(), i + 1 + context_lines);
        if (!hunks.empty() && begin <= hunks.back().second) {
            hunks.back().second = end;
        } else {
            hunks.emplace_back(begin, end);
        }
    }
    return hunks;
}

// "FIRST,COUNT", or the line before and a count of 0.
std::string range(std::size_t lines_before, std::size_t count) {
    return std::to_string(lines_before + (count > 0 ? 1 : 0)) + "," + std::to_string(count);
}

void show_hunk(const Diff& diff, std::size_t begin, std::size_t end, Lines& shown) {
    std::size_t in_expected = 0;
    std::size_t in_found = 0;
    for (std::size_t i = begin; i < end; ++i) {
        if (diff.edits[i].mark != '+') ++in_expected;
        if (diff.edits[i].mark != '-') ++in_found;
    }
    const Edit& first = diff.edits[begin];
    shown.push_back("@@ -" + range(first.expected, in_expected) + " +" +
                    range(first.found, in_found) + " @@");
    for (std::size_t i = begin; i < end; ++i) {
        const Edit& edit = diff.edits[i];
        const std::string& line =
            edit.mark == '+' ? diff.found[edit.found] : diff.expected[edit.expected];
        shown.push_back(edit.mark + visible(line));
    }
}

// The bytes near an offset, the one there in brackets.
std::string bytes_around(std::string_view bytes, std::size_t offset) {
    const std::size_t begin = offset - std::min(offset, context_bytes);
    std::string text = "from " + std::to_string(begin) + ":";
    const std::size_t end = std::min(bytes.size(), offset + 1 + context_bytes);
    for (std::size_t i = begin; i < end; ++i) {
        const std::string byte = hexadecimal(bytes[i]);
        text += i == offset ? " [" + byte + "]" : " " + byte;
    }
    return offset < bytes.size() ? text : text + " [end]";
}

} // namespace

std::string text_difference(std::string_view found, std::string_view expected) {
    if (found == expected) return "";
    const Diff diff = diff_of(split_lines(expected), split_lines(found));
    Lines shown;
    for (const auto& [begin, end] : hunks_of(diff.edits))
        show_hunk(diff, begin, end, shown);
    std::string text = "--- expected\n+++ found";
    for (std::size_t i = 0; i < std::min(shown.size(), most_lines_shown); ++i)
        text += "\n" + shown[i];
    if (shown.size() > most_lines_shown || diff.is_cut) text += "\n... more differs";
    return text;
}

std::string byte_difference(std::string_view found, std::string_view expected) {
    if (found == expected) return "";
    const std::size_t common = std::min(found.size(), expected.size());
    std::size_t offset = 0;
    while (offset < common && found[offset] == expected[offset])
        ++offset;
    return "first difference at offset " + std::to_string(offset) + "; " +
           std::to_string(expected.size()) + " bytes expected, " + std::to_string(found.size()) +
           " found\n- " + bytes_around(expected, offset) + "\n+ " + bytes_around(found, offset);
}

} // namespace korvat::test

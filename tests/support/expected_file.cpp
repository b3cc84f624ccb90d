// What the analysis file and the plot file must hold, and the comparison with what they do hold.
#include "expected_file.hpp"

#include "text.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <iomanip>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace korvat::test {

namespace {

constexpr double relative_tolerance = 1.0e-12;
constexpr std::size_t most_differences = 12;

std::string shown(const ExpectedItem& item) {
    std::ostringstream text;
    if (const auto* const integer = std::get_if<std::int32_t>(&item)) {
        text << "integer " << *integer;
    } else if (const auto* const real = std::get_if<double>(&item)) {
        text << "real " << std::setprecision(std::numeric_limits<double>::max_digits10) << *real;
    } else {
        text << "text '" << std::get<std::string>(item) << "'";
    }
    return text.str();
}

// Takes an item of the kind that is expected.
ExpectedItem take_like(const ExpectedItem& expected, RecordCursor& cursor) {
    if (std::holds_alternative<std::int32_t>(expected)) return cursor.take_int();
    if (std::holds_alternative<double>(expected)) return cursor.take_double();
    return cursor.take_text(std::get<std::string>(expected).size());
}

bool agree(const ExpectedItem& actual, const ExpectedItem& expected, double absolute_tolerance) {
    const auto* const real = std::get_if<double>(&expected);
    if (real == nullptr) return actual == expected;
    const double tolerance = std::max(relative_tolerance * std::abs(*real), absolute_tolerance);
    // Written so that a value that is not a number never agrees.
    return std::abs(std::get<double>(actual) - *real) <= tolerance;
}

std::string name_of_item(const ExpectedRecord& record, std::size_t index) {
    const std::size_t count = record.item_names.size();
    if (count == 0) return "item " + std::to_string(index + 1);
    const std::string& name = record.item_names[index % count];
    if (count > 1 && count == record.items.size()) return name;
    return name + " " + std::to_string(index / count + 1);
}

std::string name_of_record(const ExpectedRecord& record, std::size_t index) {
    std::string name = "record " + std::to_string(index + 1) + " (" + record.what;
    if (record.pile != 0) name += " of pile " + std::to_string(record.pile);
    return name + ")";
}

// Shows only the first item that differs: the rest of a record tends to follow it.
std::string record_difference(const Record& actual, const ExpectedRecord& expected) {
    RecordCursor cursor(actual);
    for (std::size_t i = 0; i < expected.items.size(); ++i) {
        const ExpectedItem& due = expected.items[i];
        ExpectedItem found;
        try {
            found = take_like(due, cursor);
        } catch (const std::runtime_error& error) {
            return name_of_item(expected, i) + ": " + error.what();
        }
        if (agree(found, due, expected.absolute_tolerance)) continue;
        const auto other = expected.alternatives.find(i);
        if (other != expected.alternatives.end() &&
            agree(found, other->second, expected.absolute_tolerance)) {
            continue;
        }
        return name_of_item(expected, i) + ": found " + shown(found) + ", expected " + shown(due);
    }
    if (cursor.finished()) return "";
    return std::to_string(cursor.remaining()) + " bytes follow the last item";
}

bool line_agrees(std::string_view actual, const PlotLine& expected) {
    for (const PlotPiece& piece : expected) {
        const auto form = std::find_if(piece.begin(), piece.end(), [&](const std::string& text) {
            return actual.substr(0, text.size()) == text;
        });
        if (form == piece.end()) return false;
        actual.remove_prefix(form->size());
    }
    return actual.empty();
}

std::string line_text(const PlotLine& line) {
    std::string text;
    for (const PlotPiece& piece : line)
        text += piece.front();
    return text;
}

} // namespace

std::vector<std::string> pile_file_differences(const std::vector<Record>& actual,
                                               const ExpectedFile& expected) {
    std::vector<std::string> differences;
    if (actual.size() != expected.size()) {
        differences.push_back("the file has " + std::to_string(actual.size()) + " records, not " +
                              std::to_string(expected.size()));
    }
    const std::size_t common = std::min(actual.size(), expected.size());
    for (std::size_t i = 0; i < common && differences.size() < most_differences; ++i) {
        const std::string difference = record_difference(actual[i], expected[i]);
        if (difference.empty()) continue;
        differences.push_back(name_of_record(expected[i], i) + ", " + difference);
    }
    return differences;
}

std::vector<std::string> plot_differences(std::string_view actual, const ExpectedPlot& expected) {
    const std::vector<std::string> lines = split_lines(actual);
    std::vector<std::string> differences;
    if (lines.size() != expected.size()) {
        differences.push_back("the plot file has " + std::to_string(lines.size()) + " lines, not " +
                              std::to_string(expected.size()));
    }
    const std::size_t common = std::min(lines.size(), expected.size());
    for (std::size_t i = 0; i < common && differences.size() < most_differences; ++i) {
        if (line_agrees(lines[i], expected[i])) continue;
        differences.push_back("line " + std::to_string(i + 1) + " of the plot file\n  found    [" +
                              lines[i] + "]\n  expected [" + line_text(expected[i]) + "]");
    }
    return differences;
}

void expect_same_pile_file(const std::vector<Record>& actual, const ExpectedFile& expected) {
    for (const std::string& text : pile_file_differences(actual, expected))
        ADD_FAILURE() << text;
}

void expect_same_plot(std::string_view actual, const ExpectedPlot& expected) {
    for (const std::string& text : plot_differences(actual, expected))
        ADD_FAILURE() << text;
}

std::string plot_text(const ExpectedPlot& plot) {
    std::string text;
    for (const PlotLine& line : plot)
        text += line_text(line) + "\n";
    return text;
}

} // namespace korvat::test

// Fuzz target: the search for the version line, against a plain account of its rule.
#include "deck_unit.hpp"
#include "require.hpp"

#include "input/get_revision.hpp"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

constexpr std::size_t width = 80;
constexpr int accepted_faults[] = {0, 2, 3, 4};

struct Expected {
    bool is_known = true; // false: a date that is not of digits alone
    int revision = 0;
    int fault = 0;
    int lines = 0;
    std::string label;
};

bool is_digits(const std::string& text) {
    return text.find_first_not_of("0123456789") == std::string::npos;
}

void judge_date(const std::string& line, Expected& expected) {
    const std::string year = line.substr(16, 4);
    const std::string month = line.substr(21, 2);
    const std::string day = line.substr(24, 2);
    // A comma cuts the field that stands behind it as well.
    expected.is_known = is_digits(year + month + day) &&
                        line.substr(0, 26).find_first_of(",\r\n") == std::string::npos;
    if (!expected.is_known) return;
    const bool is_date = year >= "1980" && year <= "2030" && month >= "01" && month <= "12" &&
                         day >= "01" && day <= "31";
    const std::string date = year + month + day;
    if (!is_date) {
        expected.fault = 2;
    } else if (date == "20060611") {
        expected.revision = 4;
    } else if (date == "20090901") {
        expected.revision = 5;
    } else {
        expected.fault = 3;
    }
}

Expected expected_revision(const std::vector<std::string>& lines) {
    Expected expected;
    expected.label = lines.empty() ? std::string(width, ' ') : lines.front();
    std::size_t next = 0;
    while (next < lines.size() && lines[next] == std::string(width, ' '))
        ++next;
    ++next; // the first line with text is the label
    for (std::size_t i = next; i < next + 10; ++i) {
        if (i >= lines.size()) {
            expected.fault = 4;
            expected.lines = static_cast<int>(lines.size());
            return expected;
        }
        const std::string key = lines[i].substr(0, 15);
        if (key != "KORVAT Version:" && key != "KORVAT version:") continue;
        expected.lines = static_cast<int>(i) + 1;
        judge_date(lines[i], expected);
        return expected;
    }
    expected.revision = 4;
    expected.lines = 1;
    return expected;
}

struct Found {
    Label label;
    Table1<int, 3> date;
    int revision = 0;
    int fault = 0;
    int lines = 0;
};

void check_invariants(const Found& found, const std::string& messages) {
    require(std::ranges::count(accepted_faults, found.fault) == 1, "IERR is one of its codes");
    require((found.revision == 0) == (found.fault != 0), "a revision or a fault");
    const bool is_message =
        messages.find(" **** Error message from SR/GetRevision:") != std::string::npos;
    require(is_message == (found.fault != 0), "a message for each fault");
    if (found.revision == 0) return;
    require(messages ==
                "\n Input data is for revision " +
                    (found.revision == 4 ? std::string("4 : 2006-06-11") : "5 : 2009-09-01") +
                    "\n \n",
            "message of the revision");
    const bool has_date = found.date(1) == 2009 && found.date(2) == 9 && found.date(3) == 1;
    const bool has_none = found.date(1) == 0 && found.date(2) == 0 && found.date(3) == 0;
    require(found.revision == 5 ? has_date : has_none, "IDATE of revision 5 only");
}

void check_expected(const Found& found, const Expected& expected) {
    require(found.lines == expected.lines, "NLINE");
    require(found.label.view() == expected.label, "LABEL");
    if (!expected.is_known) return;
    require(found.revision == expected.revision, "IREV");
    require(found.fault == expected.fault, "IERR");
}

} // namespace
} // namespace korvat::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvat;
    using namespace korvat::test;
    const std::string deck(reinterpret_cast<const char*>(data), size);
    const DeckUnit unit(deck);
    Found found;
    GetRevision(DeckUnit::store(), DeckUnit::input, DeckUnit::messages, found.label, found.revision,
                found.date, found.lines, found.fault, "KORVAT");
    // Reading goes on behind the lines that were counted.
    fortran::Text<width> line;
    const auto status = DeckUnit::store().runtime.read_line(DeckUnit::input, line);
    check_invariants(found, DeckUnit::written());
    if (has_lone_return(deck)) return 0;
    const std::vector<std::string> lines = padded_lines(deck, width);
    check_expected(found, expected_revision(lines));
    const auto next = static_cast<std::size_t>(found.lines);
    require((status == fortran::ReadStatus::line) == (next < lines.size()), "a line is left");
    if (next < lines.size()) require(line.view() == lines[next], "the next line");
    return 0;
}

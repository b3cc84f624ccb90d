// Fuzz target: the record reader, against a plain account of its rules.
#include "bytes.hpp"
#include "deck_unit.hpp"
#include "number_oracle.hpp"
#include "require.hpp"

#include "fortran/number.hpp"
#include "input/read.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace korvat::test {
namespace {

constexpr std::size_t width = 80;
constexpr std::size_t longest_record = limits::line_length;
constexpr std::size_t most_values = limits::record_values;
constexpr double untouched = 12345.678;

constexpr const char* end_of_file = "END-OF-FILE AT";
constexpr const char* no_numbers = "NO NUMBERS FOUND";
constexpr const char* wrong_count = "WAS NOT EQUAL TO NUMBER OF INPUT";
constexpr const char* too_long = "LENGTH OF ONE LOGICAL INPUT LINE";

struct Expected {
    const char* fault = nullptr; // a part of the message
    int count = 0;               // NVAR
    int lines = 0;               // physical lines read
    std::string joined;          // without trailing blanks
    std::vector<double> values;
};

std::string trimmed_text(const std::string& text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

// NUL characters are passed over in front of a token and belong to it elsewhere.
std::vector<std::string> tokens_of(const std::string& line) {
    std::vector<std::string> tokens;
    const std::string text = trimmed_text(line);
    std::size_t position = 0;
    while (true) {
        while (position < text.size() && (text[position] == ' ' || text[position] == '\0'))
            ++position;
        if (position >= text.size()) return tokens;
        const std::size_t end = std::min(text.find(' ', position), text.size());
        tokens.push_back(text.substr(position, end - position));
        position = end;
    }
}

// False when the token is no number. Where only the runtime can tell, it is asked.
bool worth(const std::string& token, double& value) {
    const std::string seen = token.substr(0, 50);
    const JudgedNumber judged = judged_number(seen);
    value = judged.value;
    if (judged.verdict != JudgedNumber::Verdict::either) {
        return judged.verdict == JudgedNumber::Verdict::number;
    }
    const auto converted = fortran::convert_number(seen);
    if (converted) value = *converted;
    return converted.has_value();
}

int count_from(double value, int place) {
    const double count = std::floor(value + 0.5);
    constexpr double highest = 2147483647.0;
    const double rounded = std::clamp(count, -highest - 1.0, highest);
    return static_cast<int>(std::min(rounded + place, highest));
}

Expected expected_record(const std::vector<std::string>& lines, std::size_t next, int count) {
    Expected record;
    const int count_place = count < 0 ? -count : 0;
    record.count = count;
    std::size_t start = 0; // column of LINE, from 0
    while (true) {
        if (next == lines.size()) {
            record.fault = end_of_file;
            return record;
        }
        // What finds no room is lost on the left.
        const std::size_t room = std::min(width, longest_record - start);
        const std::string line = lines[next++].substr(width - room);
        const bool is_first = record.lines == 0;
        ++record.lines;
        record.joined.resize(start, ' ');
        record.joined += trimmed_text(line);

        std::vector<std::string> tokens = tokens_of(line);
        const std::size_t places = most_values - record.values.size();
        const bool is_limited = is_first && count >= 1;
        tokens.resize(std::min(
            {tokens.size(), places, is_limited ? static_cast<std::size_t>(count) : places}));
        std::size_t taken = 0;
        double value = 0.0;
        while (taken < tokens.size() && worth(tokens[taken], value)) {
            record.values.push_back(value);
            ++taken;
        }
        if (taken < tokens.size()) {
            record.fault = wrong_count;
            return record;
        }
        if (count_place != 0 && is_first) {
            const auto place = static_cast<std::size_t>(count_place - 1);
            record.count =
                count_from(place < record.values.size() ? record.values[place] : 0.0, count_place);
        }
        if (tokens.empty()) {
            record.fault = no_numbers;
            return record;
        }
        start = record.joined.size() + 1;
        if (start >= longest_record) {
            record.fault = too_long;
            return record;
        }
        const int found = static_cast<int>(record.values.size());
        if (found < record.count) continue;
        if (record.count == 0) record.count = found;
        if (found != record.count) record.fault = wrong_count;
        return record;
    }
}

void check_values(const Expected& expected, const Values& VAR) {
    for (std::size_t i = 0; i < most_values; ++i) {
        const double found = VAR(static_cast<int>(i) + 1);
        if (i < expected.values.size()) {
            require(may_stand_for(found, expected.values[i]), "value " + std::to_string(i + 1));
        } else if (expected.fault == nullptr) {
            require(found == 0.0, "0 behind the values found");
        }
    }
}

void check_record(const Expected& expected, int NVAR, int NPHYS, const Line& LINE,
                  const Values& VAR, int IERR) {
    require(IERR == (expected.fault == nullptr ? 0 : 1), "IERR");
    require(NPHYS == expected.lines, "NPHYS");
    check_values(expected, VAR);
    require(fortran::trimmed(LINE.view()) == trimmed_text(expected.joined), "joined lines");
    if (expected.fault == nullptr) require(NVAR == expected.count, "NVAR");
}

// What holds of any text.
void check_invariants(int NVAR, int NPHYS, const Values& VAR, int IERR) {
    require(IERR == 0 || IERR == 1, "IERR is 0 or 1");
    require(NPHYS >= 0 && NPHYS <= limits::record_values + 1, "NPHYS within its range");
    if (IERR != 0) return;
    require(NPHYS >= 1 && NVAR >= 1 && NVAR <= limits::record_values, "counts of a success");
    for (int i = 1; i <= limits::record_values; ++i) {
        require(std::isfinite(VAR(i)), "finite value");
        if (i > NVAR) require(VAR(i) == 0.0, "0 behind the values found");
    }
}

void check_messages(const std::string& messages, const char* fault) {
    if (fault == nullptr) {
        require(messages.empty(), "no message after a success");
    } else {
        require(messages.starts_with("\n **** SR/READ : "), "message of the reader");
        require(messages.find(fault) != std::string::npos, std::string("message: ") + fault);
    }
}

} // namespace
} // namespace korvat::test

// Four bytes with NVAR of the records, one with the length of the line above, that line, the deck.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace korvat;
    using namespace korvat::test;
    Bytes bytes(data, size);
    int counts[4];
    for (int& count : counts)
        count = static_cast<std::int8_t>(bytes.take_byte()) % (limits::record_values + 1);
    Line LINE(bytes.take_text(bytes.take_byte()));
    const std::string deck = bytes.take_rest();
    const bool is_plain = !has_lone_return(deck);
    const std::vector<std::string> lines = padded_lines(deck, width);

    const DeckUnit unit(deck);
    const char* fault = nullptr;
    int IERR = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < 12 && IERR == 0; ++i) {
        int NVAR = counts[i % 4];
        const Expected expected = is_plain ? expected_record(lines, next, NVAR) : Expected{};
        int NPHYS = 0;
        Values VAR;
        for (double& value : VAR.all())
            value = untouched;
        read(DeckUnit::store(), NVAR, 777, DeckUnit::input, DeckUnit::messages, NPHYS, LINE, VAR,
             IERR);
        check_invariants(NVAR, NPHYS, VAR, IERR);
        if (is_plain) check_record(expected, NVAR, NPHYS, LINE, VAR, IERR);
        next += static_cast<std::size_t>(NPHYS);
        fault = expected.fault;
    }
    const std::string messages = DeckUnit::written();
    if (is_plain) check_messages(messages, fault);
    return 0;
}

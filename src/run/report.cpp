#include "run/report.hpp"

#include "fortran/text.hpp"
#include "platform/files.hpp"

#include <algorithm>
#include <fstream>
#include <functional>
#include <limits>
#include <optional>

namespace korvat {
namespace {

constexpr int shown_columns = 120; // of a deck line; the copy holds no more

bool is_control(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

// Bytes behind the first of a character in UTF-8.
bool is_continuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

std::string_view stripped(std::string_view line) {
    const std::size_t first = line.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return fortran::trimmed(line.substr(first));
}

// The lines of a message as one, without the mark of an error or a warning in front.
std::string one_line(std::string_view message) {
    std::string text;
    while (!message.empty()) {
        const std::size_t end = std::min(message.find('\n'), message.size());
        const std::string_view line = stripped(message.substr(0, end));
        if (!line.empty()) {
            if (!text.empty()) text += ' ';
            text += line;
        }
        message.remove_prefix(std::min(end + 1, message.size()));
    }
    for (const std::string_view mark : {"**** ", "WARNING FROM "}) {
        if (text.starts_with(mark)) text.erase(0, mark.size());
    }
    std::ranges::replace_if(text, is_control, '?');
    return text;
}

// The number in the deck of a line of the copy; 0 when there is none.
int deck_line_number(const Report& run, int line) {
    if (line < 1) return 0;
    const auto index = static_cast<std::size_t>(line - 1);
    return index < run.deck_lines.size() ? run.deck_lines[index] : run.deck_end;
}

// A line of the deck as the user sees it, at most so much of it as the program reads.
std::optional<std::string> deck_line(const std::string& file, int number) {
    std::ifstream deck(file, std::ios::binary);
    for (int i = 1; i < number; ++i) {
        deck.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    if (!deck || deck.peek() == std::ifstream::traits_type::eof()) return std::nullopt;
    std::string line;
    for (char c = ' '; line.size() < shown_columns && deck.get(c) && c != '\n';) {
        line += c;
    }
    line.erase(line.find_last_not_of(" \r") + 1);
    const auto is_shown = [](char c) { return !is_control(c) || c == '\t'; };
    std::ranges::replace_if(line, std::not_fn(is_shown), '?');
    return line;
}

// A caret under a column of a line, whatever the width of the line's tabs.
std::string caret_line(std::string_view line, int column) {
    std::string text;
    for (std::size_t i = 0; i + 1 < static_cast<std::size_t>(column); ++i) {
        const char c = i < line.size() ? line[i] : ' '; // a value that is missing stands behind it
        if (!is_continuation(c)) text += c == '\t' ? '\t' : ' ';
    }
    return text + "^";
}

void tell_fault(const Report& run, std::string& report) {
    const Fault& fault = run.fault;
    const int number = deck_line_number(run, fault.place.line);
    report += "korvat: " + fault.file + ":";
    if (number > 0) report += std::to_string(number) + ":";
    report += " " + one_line(fault.message) + "\n";
    if (number > 0) {
        if (const auto line = deck_line(fault.file, number)) {
            report += *line + "\n";
            if (fault.place.column > 0) report += caret_line(*line, fault.place.column) + "\n";
        }
    }
    const bool has_log = std::ranges::find(run.outputs, "KORVAT.MLG") != run.outputs.end();
    if (has_log) report += "see KORVAT.MLG\n";
}

} // namespace

std::string failure_report(const Report& run, const std::vector<fortran::WriteFault>& lost,
                           std::string_view exception) {
    std::string report;
    if (!run.fault.message.empty()) tell_fault(run, report);
    for (const fortran::WriteFault& fault : lost) {
        report += "korvat: cannot write " + fault.file + ": " + platform::error_text(fault.error);
        report += '\n';
    }
    if (report.empty()) report = "korvat: " + one_line(exception) + "\n";
    return report;
}

std::string warning_report(const Report& run, const std::vector<fortran::WriteFault>& lost) {
    std::string report;
    for (const Warning& warning : run.warnings) {
        const int number = deck_line_number(run, warning.place.line);
        report += "korvat: ";
        if (number > 0) report += "KORVAT.INP:" + std::to_string(number) + ": ";
        report += "warning: " + one_line(warning.text) + "\n";
    }
    for (const fortran::WriteFault& fault : lost) {
        report += "korvat: warning: cannot write " + fault.file + ": " +
                  platform::error_text(fault.error) + "\n";
    }
    return report;
}

std::string argument_warning(int argc, const char* const* argv) {
    const auto is_unused = [](std::string_view argument) {
        return !argument.starts_with("--fem-dynamic-parameters");
    };
    if (argc < 2 || std::none_of(argv + 1, argv + argc, is_unused)) return "";
    return "korvat: warning: arguments are not used; the deck is always KORVAT.INP in the current "
           "directory\n";
}

} // namespace korvat

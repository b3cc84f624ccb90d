// Judges what one run of the sweep left behind.
#include "verdict.hpp"

#include "../support/record_file.hpp"
#include "../support/text.hpp"
#include "report_check.hpp"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <span>
#include <vector>

namespace korvat::test {

namespace {

constexpr std::string_view error_mark = " **** ";
constexpr std::string_view warning_mark = " WARNING FROM ";
constexpr std::string_view normal_exit = " NORMAL EXIT FROM KORVAT";
constexpr std::string_view error_exit = " ERROR EXIT FROM KORVAT";
constexpr const char* pile_file = "PILE.07";
constexpr const char* load_file = "LOAD.09";

using Lines = std::vector<std::string>;

struct Messages {
    std::size_t count = 0;
    std::string unknown; // the first that has no form
};

Messages messages_of(const Lines& lines, const MessageForms& forms) {
    Messages found;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].starts_with(error_mark)) continue;
        const std::size_t length = forms.message_at(lines, i);
        if (length == 0 && found.unknown.empty()) found.unknown = lines[i];
        ++found.count;
        if (length > 0) i += length - 1;
    }
    return found;
}

// The line behind a message of the console that came several times.
bool is_repetition(std::string_view line) {
    constexpr std::string_view start = " (the message above came ";
    constexpr std::string_view end = " times)";
    if (!line.starts_with(start) || !line.ends_with(end)) return false;
    line.remove_prefix(start.size());
    line.remove_suffix(end.size());
    return !line.empty() && line.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string fault_of_console(const std::string& text, const MessageForms& forms) {
    const Lines lines = split_lines(text);
    std::size_t i = 0;
    while (i < lines.size()) {
        if (lines[i].empty() || (i > 0 && is_repetition(lines[i]))) {
            ++i;
            continue;
        }
        const std::size_t length = forms.console_at(lines, i);
        if (length == 0) return "not specified on the console: " + lines[i];
        i += length;
    }
    return "";
}

std::string fault_of_record_file(const char* name) {
    try {
        if (read_record_file(name).empty()) return std::string(name) + " has no records";
        return "";
    } catch (const std::exception& error) {
        return std::string(name) + ": " + error.what();
    }
}

// The exit line fills a field of 50 characters behind its blank.
bool is_exit_line(const std::string& line, std::string_view text) {
    return line.starts_with(text) && line.size() == 51 &&
           line.find_first_not_of(' ', text.size()) == std::string::npos;
}

bool is_warning_line(std::string_view line) {
    constexpr std::string_view in_deck = "korvat: KORVAT.INP:";
    if (line.starts_with("korvat: warning: ")) return true;
    if (!line.starts_with(in_deck)) return false;
    line.remove_prefix(in_deck.size());
    const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
    return digits > 0 && line.substr(digits).starts_with(": warning: ");
}

// The report of a good run has warnings alone, those of the log among them.
std::string fault_of_warnings(const std::string& report, const Lines& log) {
    for (const std::string& line : split_lines(report)) {
        if (!is_warning_line(line)) return "no warning, and exit code 0: " + line;
    }
    for (const std::string& line : log) {
        if (!line.starts_with(warning_mark)) continue;
        const std::string due = ": warning: " + line.substr(warning_mark.size()) + "\n";
        if (report.find(due) == std::string::npos) return "not reported:" + line;
    }
    return "";
}

std::string fault_of_good_run(const RunTraces& run, const Lines& lines, const Messages& messages) {
    const std::string warning_fault = fault_of_warnings(run.report, lines);
    if (!warning_fault.empty()) return warning_fault;
    if (messages.count > 0) return "an error message, and exit code 0";
    if (!is_exit_line(lines.back(), normal_exit)) return "no normal exit line";
    const std::string fault = fault_of_record_file(pile_file);
    if (!fault.empty() || !std::filesystem::exists(load_file)) return fault;
    return fault_of_record_file(load_file);
}

std::string fault_of_failed_run(const RunTraces& run, const Lines& lines, const Messages& messages,
                                const MessageForms& forms) {
    if (messages.count == 0) return "no error message";
    if (run.exit_code == -1 && !forms.ends_with_stop(lines)) {
        return "the log does not end with the message of a stop";
    }
    if (run.exit_code != -1 && !is_exit_line(lines.back(), error_exit)) {
        return "no error exit line";
    }
    return fault_of_report(run.report, lines, run.deck, forms);
}

} // namespace

std::string fault_of_run(const RunTraces& run, const MessageForms& forms) {
    const Lines lines = split_lines(run.log);
    if (lines.empty()) return "no log";
    if (lines.back() == unfinished_line) return "the last line of the log is unfinished";
    const Messages messages = messages_of(lines, forms);
    if (!messages.unknown.empty()) return "unknown message: " + messages.unknown;
    const std::string console = fault_of_console(run.console, forms);
    if (!console.empty()) return console;
    switch (run.exit_code) {
    case 0:
        return fault_of_good_run(run, lines, messages);
    case 1:
    case 2:
    case -1:
        return fault_of_failed_run(run, lines, messages, forms);
    default:
        return "exit code " + std::to_string(run.exit_code);
    }
}

} // namespace korvat::test

// Runs a case folder, a deck with what its run must leave behind, and compares.
#include "case.hpp"

#include "masks.hpp"
#include "program.hpp"
#include "scratch_directory.hpp"
#include "text.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>

namespace korvat::test {

namespace {

const std::filesystem::path deck_name = "KORVAT.INP";
constexpr std::string_view standard_error_name = "standard-error";
constexpr std::string_view standard_output_name = "standard-output";
constexpr std::array<std::string_view, 4> control_files = {
    "exit-code", "outputs", standard_error_name, standard_output_name};

// Blanks at the end of a line as middle dots, bytes that do not print as their numbers.
std::string visible(std::string_view line) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const std::size_t last = line.find_last_not_of(' ');
    const std::size_t end = last == std::string_view::npos ? 0 : last + 1;
    std::string text;
    for (const char c : line.substr(0, end)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte < 0x7F) {
            text += c;
        } else {
            text += std::string("\\x") + digits[byte / 16U] + digits[byte % 16U];
        }
    }
    for (std::size_t i = end; i < line.size(); ++i)
        text += "\xC2\xB7";
    return "[" + text + "]";
}

std::string shown_line(const std::vector<std::string>& lines, std::size_t index) {
    return index < lines.size() ? visible(lines[index]) : "(no such line)";
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : " ") + name;
    return text;
}

std::vector<std::string> expected_outputs(const std::filesystem::path& case_dir) {
    return split_lines(read_whole_file(case_dir / "expected" / "outputs"));
}

std::string masked(const std::string& name, const std::string& content) {
    if (name == "KORVAT.MLG") return mask_log(content);
    if (name == "KORVAT.LIS") return mask_listing(content);
    return content;
}

bool is_text(const std::string& name) {
    return name == "KORVAT.MLG" || name == "KORVAT.LIS" || name == "PILEPLOT.TXT" ||
           name == "KORVAT.INP";
}

void compare_file(const std::filesystem::path& expected, CaseResult& result) {
    const std::string name = expected.filename().string();
    const auto found = result.files.find(name);
    if (found == result.files.end()) {
        result.differences.push_back(name + " was not written");
        return;
    }
    const std::string content = masked(name, found->second);
    const std::string due = read_whole_file(expected);
    const std::string difference =
        is_text(name) ? text_difference(content, due) : byte_difference(content, due);
    if (!difference.empty()) result.differences.push_back(name + ", " + difference);
}

// The standard streams are text: on Windows their lines end with CR LF.
std::string without_returns(std::string text) {
    std::erase(text, '\r');
    return text;
}

// Without an expected file a stream stays empty.
void compare_stream(const std::string& name, const std::string& found,
                    const std::filesystem::path& expected, CaseResult& result) {
    const std::string due = std::filesystem::exists(expected) ? read_whole_file(expected) : "";
    const std::string difference = text_difference(found, due);
    if (!difference.empty()) result.differences.push_back(name + ", " + difference);
}

// Without a log its lines go to standard output.
void compare_streams(const std::filesystem::path& expected_dir, CaseResult& result) {
    compare_stream("standard error", without_returns(result.standard_error),
                   expected_dir / standard_error_name, result);
    compare_stream("standard output", mask_log(without_returns(result.standard_output)),
                   expected_dir / standard_output_name, result);
}

std::vector<std::filesystem::path> sorted_entries(const std::filesystem::path& directory) {
    std::vector<std::filesystem::path> entries;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        entries.push_back(entry.path());
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

// A sanitizer may end the program with a code that the case expects.
void check_streams(CaseResult& result) {
    const bool reported = result.standard_error.find("Sanitizer") != std::string::npos ||
                          result.standard_error.find("runtime error:") != std::string::npos;
    if (reported) result.differences.push_back("standard error:\n" + result.standard_error);
}

std::vector<std::filesystem::path> folders_of_cases(const std::filesystem::path& directory,
                                                    bool with_fault) {
    std::vector<std::filesystem::path> folders;
    if (!std::filesystem::is_directory(directory)) return folders;
    for (const std::filesystem::path& entry : sorted_entries(directory)) {
        const bool has_fault = std::filesystem::exists(entry / "fault");
        if (std::filesystem::is_directory(entry / "expected") && has_fault == with_fault) {
            folders.push_back(entry);
        }
    }
    return folders;
}

// Names of directories that stand in the way of the program's files; a name may have others above it.
void make_directories(const std::filesystem::path& list, const ScratchDirectory& directory) {
    if (!std::filesystem::exists(list)) return;
    for (const std::string& name : split_lines(read_whole_file(list))) {
        std::filesystem::create_directories(directory.path() / name);
    }
}

CaseResult run_in(const ScratchDirectory& directory, const std::filesystem::path& program) {
    CaseResult result;
    ProgramOutput output;
    result.exit_code = run_program(program, directory.path(), output);
    result.standard_output = output.standard_output;
    result.standard_error = output.standard_error;
    result.outputs = directory.list();
    for (const std::string& name : result.outputs) {
        if (std::filesystem::is_regular_file(directory.path() / name)) {
            result.files[name] = directory.read_file(name);
        }
    }
    check_streams(result);
    return result;
}

} // namespace

std::vector<std::filesystem::path> case_folders(const std::filesystem::path& directory) {
    return folders_of_cases(directory, false);
}

std::vector<std::filesystem::path> fault_case_folders(const std::filesystem::path& directory) {
    return folders_of_cases(directory, true);
}

int expected_exit_code(const std::filesystem::path& case_dir) {
    return std::stoi(read_whole_file(case_dir / "expected" / "exit-code"));
}

CaseResult run_deck(const std::filesystem::path& program, const std::string* deck) {
    const ScratchDirectory directory;
    if (deck != nullptr) directory.write_file(deck_name.string(), *deck);
    return run_in(directory, program);
}

void lay_out_case(const std::filesystem::path& case_dir, const ScratchDirectory& directory) {
    make_directories(case_dir / "directories", directory);
    if (std::filesystem::exists(case_dir / deck_name)) {
        std::filesystem::copy_file(case_dir / deck_name, directory.path() / deck_name);
    }
}

void compare_with_case(const std::filesystem::path& case_dir, CaseResult& result) {
    const int exit_code = expected_exit_code(case_dir);
    if (result.exit_code != exit_code) {
        result.differences.push_back("exit code " + std::to_string(result.exit_code) + ", not " +
                                     std::to_string(exit_code));
    }
    const std::vector<std::string> outputs = expected_outputs(case_dir);
    if (result.outputs != outputs) {
        result.differences.push_back("files left: " + joined(result.outputs) +
                                     "\n  expected:   " + joined(outputs));
    }
    if (exit_code != 0 && !std::filesystem::exists(case_dir / "expected" / standard_error_name)) {
        result.differences.emplace_back("the case has no expected standard error");
    }
    compare_streams(case_dir / "expected", result);
    for (const std::filesystem::path& expected : sorted_entries(case_dir / "expected")) {
        const std::string name = expected.filename().string();
        const bool control =
            std::find(control_files.begin(), control_files.end(), name) != control_files.end();
        if (!control) compare_file(expected, result);
    }
    if (!result.differences.empty() && !result.standard_error.empty()) {
        result.differences.push_back("standard error:\n" + result.standard_error);
    }
}

CaseResult run_case(const std::filesystem::path& program, const std::filesystem::path& case_dir) {
    const ScratchDirectory directory;
    lay_out_case(case_dir, directory);
    CaseResult result = run_in(directory, program);
    compare_with_case(case_dir, result);
    return result;
}

std::string text_difference(std::string_view found, std::string_view expected) {
    if (found == expected) return "";
    const std::vector<std::string> found_lines = split_lines(found);
    const std::vector<std::string> expected_lines = split_lines(expected);
    const std::size_t common = std::min(found_lines.size(), expected_lines.size());
    std::size_t line = 0;
    while (line < common && found_lines[line] == expected_lines[line])
        ++line;
    return "line " + std::to_string(line + 1) + "\n  found    " + shown_line(found_lines, line) +
           "\n  expected " + shown_line(expected_lines, line);
}

std::string byte_difference(std::string_view found, std::string_view expected) {
    if (found == expected) return "";
    const std::size_t common = std::min(found.size(), expected.size());
    std::size_t offset = 0;
    while (offset < common && found[offset] == expected[offset])
        ++offset;
    return "first differing byte at offset " + std::to_string(offset) + ", " +
           std::to_string(found.size()) + " bytes found, " + std::to_string(expected.size()) +
           " expected";
}

} // namespace korvat::test

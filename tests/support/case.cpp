// Runs a case folder, a deck with what its run must leave behind, and compares.
#include "case.hpp"

#include "difference.hpp"
#include "masks.hpp"
#include "program.hpp"
#include "scratch_directory.hpp"
#include "text.hpp"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

namespace korvat::test {

namespace {

const std::filesystem::path deck_name = "KORVAT.INP";
constexpr std::string_view standard_error_name = "standard-error";
constexpr std::string_view standard_output_name = "standard-output";
constexpr std::string_view run_name = "run";
constexpr std::array<std::string_view, 3> control_files = {run_name, standard_error_name,
                                                           standard_output_name};
constexpr std::string_view no_records = "K\x82"; // a record file's first byte and its last

// What expected/run says of a file that needs no more than a word.
std::string word_for(std::string_view content) {
    if (content.empty()) return " empty";
    return content == no_records ? " no records" : "";
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

void compare_file(const std::string& name, std::string_view due, CaseResult& result) {
    const auto found = result.files.find(name);
    if (found == result.files.end()) {
        result.differences.push_back(name + " was not written");
        return;
    }
    const std::string content = masked(name, found->second);
    const std::string difference =
        is_text(name) ? text_difference(content, due) : byte_difference(content, due);
    if (!difference.empty()) result.differences.push_back(name + ":\n" + difference);
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
    if (!difference.empty()) result.differences.push_back(name + ":\n" + difference);
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
    std::istringstream first_line(read_whole_file(case_dir / "expected" / run_name));
    std::string exit;
    std::string code;
    int number = 0;
    if (!(first_line >> exit >> code >> number) || exit != "exit" || code != "code") {
        throw std::runtime_error("no exit code in expected/run of " + case_dir.string());
    }
    return number;
}

std::string described_run(const CaseResult& run) {
    std::string text = "exit code " + std::to_string(run.exit_code) + "\n";
    for (const std::string& name : run.outputs) {
        const auto file = run.files.find(name);
        const bool is_file = file != run.files.end();
        text += name + (is_file ? word_for(file->second) : " directory") + "\n";
    }
    return text;
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
    const std::filesystem::path expected_dir = case_dir / "expected";
    const std::string run_difference =
        text_difference(described_run(result), read_whole_file(expected_dir / run_name));
    if (!run_difference.empty()) result.differences.push_back("run:\n" + run_difference);
    if (expected_exit_code(case_dir) != 0 &&
        !std::filesystem::exists(expected_dir / standard_error_name)) {
        result.differences.emplace_back("the case has no expected standard error");
    }
    compare_streams(expected_dir, result);
    for (const std::filesystem::path& expected : sorted_entries(expected_dir)) {
        const std::string name = expected.filename().string();
        const std::string due = read_whole_file(expected);
        const bool control =
            std::find(control_files.begin(), control_files.end(), name) != control_files.end();
        if (!control) compare_file(name, due, result);
        if (due.empty() || due == no_records) {
            result.differences.push_back("expected/" + name +
                                         " says no more than a word in expected/run would");
        }
    }
}

CaseResult run_case(const std::filesystem::path& program, const std::filesystem::path& case_dir) {
    const ScratchDirectory directory;
    lay_out_case(case_dir, directory);
    CaseResult result = run_in(directory, program);
    compare_with_case(case_dir, result);
    return result;
}

} // namespace korvat::test

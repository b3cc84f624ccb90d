#include "study/run_program.hpp"

#include "platform/paths.hpp"
#include "platform/programs.hpp"
#include "study/digest.hpp"
#include "study/study_error.hpp"
#include "study/whole_file.hpp"

#include <optional>
#include <utility>

namespace korvat::study {
namespace {

namespace fs = std::filesystem;

constexpr const char* program_name = "korvat";

std::string absolute(const std::string& name) {
    return platform::name_of(fs::absolute(platform::path_of(name)));
}

bool has_directory(const std::string& name) {
    return platform::path_of(name).has_parent_path();
}

std::string asked_program(const std::string& asked) {
    if (!has_directory(asked)) {
        if (const auto found = platform::program_on_path(asked)) return *found;
        throw StudyError("--program " + asked + ": it is not on the PATH");
    }
    if (platform::is_program(asked)) return absolute(asked);
    std::error_code ignored;
    const bool is_there = fs::exists(platform::path_of(asked), ignored);
    throw StudyError(
        "--program " + asked +
        (is_there ? ": it is no program that you may run" : ": there is no such file"));
}

std::string trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(" \r") - first + 1));
}

} // namespace

std::string find_run_program(const std::string& asked) {
    if (!asked.empty()) return asked_program(asked);
    const fs::path own = platform::path_of(platform::own_program());
    std::string beside = platform::name_of(
        own.parent_path() / platform::path_of(platform::file_of_program(program_name)));
    if (!own.empty() && platform::is_program(beside)) return beside;
    if (const auto found = platform::program_on_path(program_name)) return *found;
    throw StudyError("there is no korvat beside korvat-tools and none on the PATH; name it by "
                     "--program");
}

RunProgram::RunProgram(std::string path)
    : path_(std::move(path)), stamp_(stamp()), digest_(study::digest(content())) {}

std::string RunProgram::content() const {
    auto bytes = file_bytes(platform::path_of(path_));
    if (!bytes) throw StudyError(path_ + ": the program cannot be read");
    return std::move(*bytes);
}

RunProgram::Stamp RunProgram::stamp() const {
    std::error_code error;
    const fs::path file = platform::path_of(path_);
    const Stamp found{fs::file_size(file, error), fs::last_write_time(file, error)};
    if (error) throw StudyError(path_ + ": the program is gone");
    return found;
}

bool RunProgram::has_changed() {
    const Stamp now = stamp();
    if (now == stamp_) return false;
    stamp_ = now;
    std::string other = study::digest(content());
    if (other == digest_) return false;
    digest_ = std::move(other);
    version_.clear();
    return true;
}

const std::string& RunProgram::version_by_log(const std::string& log) {
    if (!version_.empty()) return version_;
    const auto text = file_bytes(platform::path_of(log));
    if (!text) return version_;
    constexpr std::string_view mark = "START PROGRAM KORVAT   VERSION =";
    const std::size_t begin = text->find(mark);
    if (begin == std::string::npos) return version_;
    const std::size_t first = begin + mark.size();
    version_ = trimmed(std::string_view(*text).substr(first, text->find('\n', first) - first));
    return version_;
}

} // namespace korvat::study

#include "study/outputs.hpp"

#include "platform/paths.hpp"
#include "study/digest.hpp"
#include "study/whole_file.hpp"

#include <algorithm>
#include <array>
#include <filesystem>

namespace korvat::study {
namespace {

namespace fs = std::filesystem;

constexpr std::array texts = {"KORVAT.MLG", "KORVAT.LIS", "PILEPLOT.TXT"};
constexpr std::array results = {"PILE.07", "LOAD.09"};

bool is_result(const std::string& name) {
    return std::ranges::find(results, name) != results.end();
}

// None where there is no such file.
std::optional<OutputFile> output(const std::string& directory, const std::string& name,
                                 bool has_digest) {
    const fs::path path = platform::path_of(below(directory, name));
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return std::nullopt;
    if (!has_digest) {
        const std::uint64_t size = fs::file_size(path, error);
        return error ? std::nullopt : std::optional(OutputFile{name, size, {}});
    }
    const auto bytes = file_bytes(path);
    if (!bytes) return std::nullopt;
    return OutputFile{name, bytes->size(), digest(*bytes)};
}

// Whether an output of a record has stayed in its folder.
bool has_stayed(const CaseRecord& record, const std::string& name) {
    if (record.state != CaseState::fine || record.kept == Keep::all) return true;
    return record.kept == Keep::results && is_result(name);
}

void remove(const std::string& directory, const std::string& name) {
    std::error_code ignored; // what cannot be removed stays
    const fs::path path = platform::path_of(below(directory, name));
    if (fs::is_regular_file(fs::symlink_status(path, ignored))) fs::remove(path, ignored);
}

} // namespace

std::string below(const std::string& directory, const std::string& name) {
    if (directory.empty() || platform::path_of(name).is_absolute()) return name;
    return directory.ends_with('/') ? directory + name : directory + '/' + name;
}

std::optional<std::string> deck_digest(const std::string& directory) {
    const auto deck = output(directory, deck_name, /*has_digest*/ true);
    return deck ? std::optional(deck->digest) : std::nullopt;
}

std::vector<OutputFile> present_outputs(const std::string& directory,
                                        const std::vector<RunMessage>& messages) {
    std::vector<OutputFile> found;
    const auto add = [&](const std::string& name) {
        const bool is_old = std::ranges::count(messages, name, old_output) != 0;
        if (is_old) return;
        if (auto file = output(directory, name, is_result(name))) found.push_back(std::move(*file));
    };
    std::ranges::for_each(texts, add);
    std::ranges::for_each(results, add);
    return found;
}

bool has_outputs(const std::string& directory, const CaseRecord& record) {
    return std::ranges::all_of(record.outputs, [&](const OutputFile& expected) {
        if (!has_stayed(record, expected.name)) return true;
        return output(directory, expected.name, !expected.digest.empty()) == expected;
    });
}

void remove_outputs(const std::string& directory, Keep keep) {
    if (keep == Keep::all) return;
    for (const std::string name : texts) {
        remove(directory, name);
        remove(directory, name + ".bak");
    }
    if (keep == Keep::results) return;
    for (const std::string name : results)
        remove(directory, name);
}

} // namespace korvat::study

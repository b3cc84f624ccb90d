// A fresh directory for one test, removed with all it holds when the object is destroyed.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

class ScratchDirectory {
public:
    explicit ScratchDirectory(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path());
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }
    bool has(const std::string& name) const;
    void write_file(const std::string& name, std::string_view content) const;
    std::string read_file(const std::string& name) const;
    // The names of all entries, sorted by the values of their bytes.
    std::vector<std::string> list() const;

private:
    std::filesystem::path path_;
};

// Both work on bytes, without any line-end translation, and throw std::runtime_error on failure.
std::string read_whole_file(const std::filesystem::path& path);
void write_whole_file(const std::filesystem::path& path, std::string_view content);

} // namespace korvat::test

// A fresh directory for one test, removed with all it holds when the object is destroyed.
#include "scratch_directory.hpp"

#include <algorithm>
#include <fstream>
#include <random>
#include <stdexcept>
#include <system_error>

namespace korvat::test {

namespace {

std::filesystem::path make_fresh_directory(const std::filesystem::path& parent) {
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::string name =
            "korvat-test-" + std::to_string(random()) + "-" + std::to_string(random());
        // False means that the name is taken, by an earlier run or by another process.
        if (std::filesystem::create_directory(parent / name)) return parent / name;
    }
    throw std::runtime_error("no free name for a scratch directory in " + parent.string());
}

} // namespace

ScratchDirectory::ScratchDirectory(const std::filesystem::path& parent)
    : path_(make_fresh_directory(parent)) {}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    // A test may have taken the write permission away.
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
}

bool ScratchDirectory::has(const std::string& name) const {
    return std::filesystem::exists(path_ / name);
}

void ScratchDirectory::write_file(const std::string& name, std::string_view content) const {
    write_whole_file(path_ / name, content);
}

std::string ScratchDirectory::read_file(const std::string& name) const {
    return read_whole_file(path_ / name);
}

std::vector<std::string> ScratchDirectory::list() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string read_whole_file(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream || std::filesystem::is_directory(path)) {
        throw std::runtime_error("cannot read " + path.string());
    }
    // Not every file tells its size, those of /proc do not.
    constexpr std::size_t least_room = 4096;
    std::string content;
    std::size_t size = 0;
    do {
        content.resize(2 * size + least_room);
        stream.read(content.data() + size, static_cast<std::streamsize>(content.size() - size));
        size += static_cast<std::size_t>(stream.gcount());
    } while (stream);
    content.resize(size);
    return content;
}

void write_whole_file(const std::filesystem::path& path, std::string_view content) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream) throw std::runtime_error("cannot write " + path.string());
}

} // namespace korvat::test

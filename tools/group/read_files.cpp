#include "group/read_files.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>
#include <utility>

namespace korvat::group {
namespace {

constexpr unsigned header_byte = 0x4B;
constexpr unsigned date_length = 12;
constexpr unsigned label_length = 80;
constexpr unsigned end_byte = 0x82;
constexpr std::size_t behind_label = 1 + 1 + label_length + 1;
constexpr unsigned counts_length = 8;
constexpr unsigned load_count_length = 4;

unsigned byte_at(std::span<const char> file, std::size_t i) {
    return static_cast<unsigned char>(file[i]);
}

// With slashes and in UTF-8 on every system.
std::system_error failure(std::error_code code, const std::filesystem::path& path) {
    const std::u8string name = path.generic_u8string();
    return {code, std::string(name.begin(), name.end())};
}

// What the system said last, or that reading failed when it said nothing.
std::error_code last_error() {
    return errno != 0 ? std::error_code(errno, std::generic_category())
                      : std::make_error_code(std::errc::io_error);
}

} // namespace

std::optional<FileKind> file_kind(std::span<const char> file) {
    if (file.size() < 2 || byte_at(file, 0) != header_byte) return std::nullopt;
    if (byte_at(file, 1) == date_length) return FileKind::pile_revision_5;
    if (byte_at(file, 1) != label_length || file.size() <= behind_label) return std::nullopt;
    if (byte_at(file, behind_label) == counts_length) return FileKind::pile_revision_4;
    if (byte_at(file, behind_label) == load_count_length) return FileKind::load;
    return std::nullopt;
}

bool begins_as_record_file(std::span<const char> file) {
    if (file.size() < 2 || byte_at(file, 0) != header_byte) return false;
    const unsigned second = byte_at(file, 1);
    if (second == date_length || second == end_byte) return true;
    if (second != label_length) return false;
    // The length of a label is a letter, and the first line of a deck may begin with both.
    if (file.size() < behind_label) return std::ranges::find(file, '\n') == file.end();
    return byte_at(file, behind_label - 1) == label_length;
}

std::vector<char> read_bytes(std::istream& in, std::size_t most) {
    std::vector<char> bytes;
    std::array<char, 65536> block;
    errno = 0;
    while (in.read(block.data(), block.size()) || in.gcount() > 0) {
        bytes.insert(bytes.end(), block.begin(), block.begin() + in.gcount());
        if (bytes.size() > most) {
            throw std::system_error(std::make_error_code(std::errc::file_too_large));
        }
    }
    if (in.bad()) throw std::system_error(last_error());
    return bytes;
}

std::vector<char> read_bytes(const std::filesystem::path& path, std::size_t most) {
    std::error_code unknown; // what cannot be asked, opening shows
    if (std::filesystem::is_directory(path, unknown)) {
        throw failure(std::make_error_code(std::errc::is_a_directory), path);
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) throw failure(last_error(), path);
    try {
        return read_bytes(file, most);
    } catch (const std::system_error& error) {
        throw failure(error.code(), path);
    }
}

GroupReading read_pile_file(const std::filesystem::path& path) {
    return read_pile(read_bytes(path));
}

LoadReading read_load_file(const std::filesystem::path& path) {
    return read_load(read_bytes(path));
}

ResultReading read_group(const std::filesystem::path& directory) {
    GroupReading piles = read_pile_file(directory / "PILE.07");
    ResultReading result{std::move(piles.group), false, std::move(piles.damage), std::nullopt};
    const std::filesystem::path loads = directory / "LOAD.09";
    std::error_code unknown;
    result.has_load_file = std::filesystem::exists(loads, unknown) || unknown;
    if (!result.has_load_file) return result;
    LoadReading reading = read_load_file(loads);
    result.group.load_vectors = std::move(reading.vectors);
    result.load_damage = std::move(reading.damage);
    return result;
}

} // namespace korvat::group

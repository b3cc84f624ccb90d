#include "check/deck_file.hpp"

#include "check/text.hpp"
#include "platform/files.hpp"
#include "platform/paths.hpp"

#include <array>
#include <cerrno>
#include <fstream>
#include <iostream>

namespace korvat::check {
namespace {

constexpr std::string_view deck_name = "KORVAT.INP";
constexpr std::size_t most_bytes = 16'000'000;

// Reads in blocks: a pipe or a device does not tell its size, and may have no end.
std::string bytes_of(std::istream& stream, const std::string& shown) {
    std::string bytes;
    std::array<char, 65536> block{};
    while (stream) {
        stream.read(block.data(), block.size());
        bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
        if (bytes.size() > most_bytes)
            throw CannotRead(shown + ": larger than 16 MB, more than is looked at");
    }
    if (stream.bad()) throw CannotRead(shown + ": it cannot be read");
    return bytes;
}

DeckFile read_file(const std::filesystem::path& path) {
    const std::string shown = platform::name_of(path);
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throw CannotRead(shown + ": " + platform::error_text(errno));
    std::filesystem::path directory = path.parent_path();
    if (directory.empty()) directory = ".";
    return {shown, platform::name_of(path.filename()), directory, bytes_of(stream, shown)};
}

// The name of a directory's deck, if in other letters.
std::filesystem::path deck_in(const std::filesystem::path& directory) {
    std::string other;
    for (const std::string& name : platform::directory_entries(platform::name_of(directory))) {
        if (name == deck_name) return directory / name;
        if (lower_case(name) == lower_case(deck_name)) other = name;
    }
    if (other.empty())
        throw CannotRead(platform::name_of(directory) + ": no KORVAT.INP in this directory");
    return directory / other;
}

} // namespace

DeckFile read_deck(const std::string& argument) {
    if (argument == "-") return {"<stdin>", "", {}, bytes_of(std::cin, "<stdin>")};
    const std::filesystem::path path = platform::path_of(argument);
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status)) throw CannotRead(argument + ": " + error.message());
    if (!std::filesystem::is_directory(status)) return read_file(path);
    try {
        return read_file(deck_in(path));
    } catch (const CannotRead&) {
        throw;
    } catch (const std::runtime_error&) {
        throw CannotRead(argument + ": this directory cannot be read");
    }
}

} // namespace korvat::check

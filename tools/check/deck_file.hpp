// The file of a deck, whatever its name is.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

namespace korvat::check {

// Why a case cannot be looked at.
class CannotRead : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct DeckFile {
    std::string shown;            // the name in messages
    std::string name;             // without its directory; empty: standard input
    std::filesystem::path beside; // the directory that it is in; empty: standard input
    std::string bytes;
};

// A case is a directory with a KORVAT.INP, a file of any name, or "-" for standard input. A directory
// without a file of that name may have one in other letters. Raises CannotRead: there is no such file,
// it cannot be read, or it is larger than 16 megabytes.
[[nodiscard]] DeckFile read_deck(const std::string& argument);

// The deck of an argument that is no directory, from its bytes. Raises CannotRead when they are more than
// 16 megabytes.
[[nodiscard]] DeckFile deck_of(const std::string& argument, std::span<const char> bytes);

// The deck in a directory; none where there is none. Raises CannotRead when the directory cannot be read.
[[nodiscard]] std::optional<std::filesystem::path> deck_in(const std::filesystem::path& directory);

} // namespace korvat::check

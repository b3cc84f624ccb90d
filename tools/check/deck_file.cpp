#include "check/deck_file.hpp"
#include "platform/paths.hpp"

#include "check/text.hpp"
#include "group/read_files.hpp"
#include "platform/files.hpp"

#include <iostream>
#include <system_error>

namespace korvat::check {
namespace {

constexpr std::string_view deck_name = "KORVAT.INP";
constexpr std::size_t most_bytes = 16'000'000;

std::string shown_name(const std::string& argument) {
    return argument == "-" ? "<stdin>" : argument;
}

CannotRead too_large(const std::string& argument) {
    return CannotRead(shown_name(argument) + ": larger than 16 MB, more than is looked at");
}

DeckFile read_file(const std::string& argument) {
    try {
        return deck_of(argument, argument == "-"
                                     ? group::read_bytes(std::cin, most_bytes)
                                     : group::read_bytes(platform::path_of(argument), most_bytes));
    } catch (const std::system_error& error) {
        if (error.code() == std::errc::file_too_large) throw too_large(argument);
        throw CannotRead(shown_name(argument) + ": " + error.code().message());
    }
}

} // namespace

DeckFile deck_of(const std::string& argument, std::span<const char> bytes) {
    if (bytes.size() > most_bytes) throw too_large(argument);
    std::string text(bytes.begin(), bytes.end());
    if (argument == "-") return {shown_name(argument), "", {}, std::move(text)};
    const std::filesystem::path path = platform::path_of(argument);
    std::filesystem::path directory = path.parent_path();
    if (directory.empty()) directory = ".";
    return {shown_name(argument), platform::name_of(path.filename()), directory, std::move(text)};
}

// A name in other letters is taken where there is no better one.
std::optional<std::filesystem::path> deck_in(const std::filesystem::path& directory) {
    std::string other;
    try {
        for (const std::string& name : platform::directory_entries(platform::name_of(directory))) {
            if (name == deck_name) return directory / name;
            if (lower_case(name) == lower_case(deck_name)) other = name;
        }
    } catch (const std::runtime_error&) {
        throw CannotRead(platform::name_of(directory) + ": this directory cannot be read");
    }
    if (other.empty()) return std::nullopt;
    return directory / other;
}

DeckFile read_deck(const std::string& argument) {
    if (argument == "-") return read_file(argument);
    const std::filesystem::path path = platform::path_of(argument);
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status)) throw CannotRead(argument + ": " + error.message());
    if (!std::filesystem::is_directory(status)) return read_file(argument);
    const auto deck = deck_in(path);
    if (!deck) throw CannotRead(argument + ": no KORVAT.INP in this directory");
    return read_file(platform::name_of(*deck));
}

} // namespace korvat::check

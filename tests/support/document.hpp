// Blocks of text that a document shows, such as decks and parts of a listing.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// The text between each line "```kind" and the next line "```", every line with its line end.
std::vector<std::string> blocks_shown_in(const std::filesystem::path& document,
                                         std::string_view kind);

} // namespace korvat::test

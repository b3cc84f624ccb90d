// The file korvat-check.toml beside a deck: rules that are switched off for it, each with a reason.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace korvat::check {

struct SwitchedOff {
    std::string rule;
    std::string reason;

    bool operator==(const SwitchedOff&) const = default;
};

// What the file in a directory switches off; nothing where there is none. Raises CannotRead: the file is
// no TOML, names a rule that does not exist, gives no reason, or has anything else in it.
[[nodiscard]] std::vector<SwitchedOff> read_settings(const std::filesystem::path& directory);

} // namespace korvat::check

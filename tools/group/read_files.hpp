// Reads PILE.07 and LOAD.09 from the disk, and tells by content which of them a file is.
#pragma once

#include "group/group.hpp"
#include "group/load_file.hpp"
#include "group/pile_file.hpp"
#include "group/records.hpp"

#include <cstddef>
#include <filesystem>
#include <istream>
#include <optional>
#include <span>
#include <vector>

namespace korvat::group {

enum class FileKind { pile_revision_4, pile_revision_5, load };

// What the bytes of a file are by their first two records, whole or not; none where these do not tell: a
// file that is cut before, has no records, or is of another kind.
[[nodiscard]] std::optional<FileKind> file_kind(std::span<const char> file);

// Whether bytes begin as a record file does, be it whole, cut or damaged, and not as a text such as a deck:
// behind their first byte stands a date, a label or the end of the file.
[[nodiscard]] bool begins_as_record_file(std::span<const char> file);

// More than the greatest group has, four times over.
inline constexpr std::size_t largest_file = std::size_t{64} << 20U;

// The bytes of a file. Raises std::system_error, with the reason of the system, when it cannot be read: it is
// not there, the user may not read it, it is a directory, or it has more than `most` bytes.
[[nodiscard]] std::vector<char> read_bytes(const std::filesystem::path& path,
                                           std::size_t most = largest_file);
[[nodiscard]] std::vector<char> read_bytes(std::istream& in, std::size_t most = largest_file);

// Both raise what read_bytes raises; a damaged file is no error, but a part of the result.
[[nodiscard]] GroupReading read_pile_file(const std::filesystem::path& path);
[[nodiscard]] LoadReading read_load_file(const std::filesystem::path& path);

// The files of a run.
struct ResultReading {
    Group group; // with the load vectors, where there are any
    bool has_load_file = false;
    std::optional<Damage> pile_damage; // of PILE.07
    std::optional<Damage> load_damage; // of LOAD.09
};

// PILE.07 and, where there is one, LOAD.09 of a directory. Raises what read_bytes raises. That a LOAD.09 is
// of the same run cannot be seen: a run without load vectors leaves an earlier one as it is.
[[nodiscard]] ResultReading read_group(const std::filesystem::path& directory);

} // namespace korvat::group

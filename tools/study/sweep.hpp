// A study on the disk: one folder for each row of a table, with its deck, and a manifest of them.
#pragma once

#include "study/deck_template.hpp"
#include "study/table.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace korvat::study {

inline constexpr const char* manifest_name = "manifest.csv";

// The cases of a table: folder i belongs to row i.
struct Sweep {
    std::vector<std::string> folders;
    std::vector<std::string> digests; // of the decks
};

// Works out every deck once. The folders have the names in the column `named_by`, or where it is empty the
// numbers of the rows from 1 with as many digits as the last one has. Raises StudyError, and nothing is
// written, where a place takes a name that no column has, a column is taken by no place and names no folder,
// a value does not fit, two rows give the same deck or the same folder, or a name cannot be that of a folder
// on each system. `table_name` stands in the messages.
[[nodiscard]] Sweep plan(const DeckTemplate& deck, const Table& table, const std::string& named_by,
                         const std::string& table_name);

struct Written {
    std::size_t decks = 0; // written anew
    std::size_t kept = 0;  // that stood there already, byte for byte
    std::vector<std::string>
        left_over; // folders of an earlier manifest that this one does not have
};

// Writes what differs from what stands there, each file under another name first. Raises std::system_error
// or std::filesystem::filesystem_error where the disk does not take it.
Written write(const Sweep& sweep, const DeckTemplate& deck, const Table& table,
              const std::filesystem::path& directory);

// The manifest: row, folder, the columns of the table, digest of the deck.
[[nodiscard]] std::string manifest(const Sweep& sweep, const Table& table);

} // namespace korvat::study

#include "study/sweep.hpp"

#include "check/text.hpp"
#include "export/csv_table.hpp"
#include "platform/paths.hpp"
#include "study/digest.hpp"
#include "study/study_error.hpp"
#include "study/whole_file.hpp"

#include <algorithm>
#include <array>
#include <set>
#include <unordered_map>

namespace korvat::study {
namespace {

namespace fs = std::filesystem;

constexpr const char* deck_name = "KORVAT.INP";
constexpr std::size_t longest_name = 100; // bytes; paths below it must fit too

std::string row_name(std::size_t index) {
    return "row " + std::to_string(index + 1);
}

bool has(const std::vector<std::string>& names, const std::string& name) {
    return std::ranges::find(names, name) != names.end();
}

// Names of devices, which no folder may have on Windows, whatever stands behind a point.
bool is_device(std::string_view name) {
    constexpr std::array<std::string_view, 4> plain = {"con", "prn", "aux", "nul"};
    const std::string lower = check::lower_case(name.substr(0, name.find('.')));
    const bool is_numbered = lower.size() == 4 && lower[3] >= '1' && lower[3] <= '9' &&
                             (lower.starts_with("com") || lower.starts_with("lpt"));
    return is_numbered || std::ranges::find(plain, lower) != plain.end();
}

// Why a name cannot be that of a folder; empty where it can.
std::string fault_of_name(std::string_view name) {
    if (name.empty()) return "it is empty";
    if (name.size() > longest_name) return "it is longer than 100 bytes";
    const auto is_refused = [](char c) {
        return check::is_control(c) || c == '\t' || c == '\r' ||
               std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos;
    };
    if (std::ranges::any_of(name, is_refused)) return "it has one of / \\ : * ? \" < > | in it";
    if (name.front() == '.' || name.front() == '-' || name.front() == ' ') {
        return "it begins with a point, a minus sign or a blank";
    }
    if (name.back() == '.' || name.back() == ' ') return "it ends with a point or a blank";
    if (is_device(name)) return "it is that of a device";
    if (check::lower_case(name) == manifest_name) return "it is that of the manifest";
    return {};
}

std::string numbered(std::size_t index, std::size_t count) {
    const std::string number = std::to_string(index + 1);
    return std::string(std::to_string(count).size() - number.size(), '0') + number;
}

std::vector<std::string> folder_names(const Table& table, const std::string& named_by,
                                      const std::string& table_name) {
    std::vector<std::string> names;
    const auto column = std::ranges::find(table.columns, named_by) - table.columns.begin();
    std::unordered_map<std::string, std::size_t> first; // rows, by their names in small letters
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        std::string name = named_by.empty() ? numbered(i, table.rows.size())
                                            : table.rows[i][static_cast<std::size_t>(column)];
        const std::string fault = fault_of_name(name);
        const std::string place = table_name + ": " + row_name(i) + ": ";
        if (!fault.empty()) {
            throw StudyError(place + "'" + name + "' cannot name a folder: " + fault);
        }
        const auto [other, is_new] = first.emplace(check::lower_case(name), i);
        if (!is_new) {
            throw StudyError(place + "the folder '" + name + "' is that of " +
                             row_name(other->second) + " too");
        }
        names.push_back(std::move(name));
    }
    return names;
}

void check_names(const DeckTemplate& deck, const Table& table, const std::string& named_by,
                 const std::string& table_name) {
    for (const std::string& name : deck.names()) {
        if (!has(table.columns, name)) {
            throw StudyError(table_name + ": the template takes {" + name +
                             "}, and there is no such column");
        }
    }
    if (!named_by.empty() && !has(table.columns, named_by)) {
        throw StudyError(table_name + ": there is no column " + named_by +
                         " to name the folders by");
    }
    for (const std::string& column : table.columns) {
        if (column != named_by && !has(deck.names(), column)) {
            throw StudyError(table_name + ": no place of the template takes the column " + column);
        }
    }
}

// The folders of a manifest that stands there; none where there is none, or none that can be read.
std::vector<std::string> earlier_folders(const fs::path& directory) {
    std::vector<std::string> folders;
    const auto text = file_bytes(directory / manifest_name);
    if (!text) return folders;
    try {
        const Table table = read_table(*text, manifest_name);
        if (table.columns.size() < 2 || table.columns[1] != "folder") return folders;
        for (const auto& row : table.rows)
            folders.push_back(row[1]);
    } catch (const StudyError&) {
        folders.clear();
    }
    return folders;
}

} // namespace

Sweep plan(const DeckTemplate& deck, const Table& table, const std::string& named_by,
           const std::string& table_name) {
    check_names(deck, table, named_by, table_name);
    Sweep sweep{folder_names(table, named_by, table_name), {}};
    std::unordered_map<std::string, std::size_t> first; // rows, by the digests of their decks
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        try {
            sweep.digests.push_back(digest(deck.deck(row_of(table, i))));
        } catch (const StudyError& error) {
            throw StudyError(table_name + ": " + row_name(i) + ": " + error.what());
        }
        const auto [other, is_new] = first.emplace(sweep.digests.back(), i);
        if (!is_new) {
            throw StudyError(table_name + ": " + row_name(other->second) + " and " + row_name(i) +
                             " give the same deck");
        }
    }
    return sweep;
}

std::string manifest(const Sweep& sweep, const Table& table) {
    std::vector<std::string> header = {"row", "folder"};
    header.insert(header.end(), table.columns.begin(), table.columns.end());
    header.emplace_back("deck");
    exporting::CsvTable csv(header);
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        csv.add(static_cast<int>(i) + 1).add(sweep.folders[i]);
        for (const std::string& value : table.rows[i])
            csv.add(value);
        csv.add(sweep.digests[i]).end_row();
    }
    return csv.text();
}

Written write(const Sweep& sweep, const DeckTemplate& deck, const Table& table,
              const fs::path& directory) {
    Written written;
    fs::create_directories(directory);
    const std::set<std::string> folders(sweep.folders.begin(), sweep.folders.end());
    for (std::string& folder : earlier_folders(directory)) {
        if (!folders.contains(folder)) written.left_over.push_back(std::move(folder));
    }
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const fs::path folder = directory / platform::path_of(sweep.folders[i]);
        fs::create_directory(folder);
        const bool is_new = replace_file(folder / deck_name, deck.deck(row_of(table, i)));
        ++(is_new ? written.decks : written.kept);
    }
    // The manifest comes last: where it stands, its decks do.
    replace_file(directory / manifest_name, manifest(sweep, table));
    return written;
}

} // namespace korvat::study

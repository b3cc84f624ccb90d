// The command sweep: one deck for each row of a table.
#include "cli/commands.hpp"
#include "platform/paths.hpp"

#include "study/study_error.hpp"
#include "study/sweep.hpp"
#include "study/whole_file.hpp"

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace korvat::cli {
namespace {

namespace fs = std::filesystem;
using study::StudyError;

struct Wishes {
    std::string deck;
    std::string table;
    std::vector<std::string> grid;
    std::string directory;
    std::string named_by;
};

std::string read(const std::string& name) {
    std::optional<std::string> bytes = study::file_bytes(platform::path_of(name));
    if (!bytes) throw StudyError(name + ": it cannot be read");
    return std::move(*bytes);
}

// The rows of the table, each with every point of the grid.
study::Table table_of(const Wishes& wishes) {
    std::optional<study::Table> table;
    if (!wishes.table.empty()) table = study::read_table(read(wishes.table), wishes.table);
    for (const std::string& axis : wishes.grid) {
        const study::Table values = study::grid_axis(axis);
        table = table ? study::product(*table, values) : values;
    }
    if (!table) throw StudyError("there is neither a TABLE nor a --grid");
    return *table;
}

void tell(const study::Sweep& sweep, const study::Written& written, const Wishes& wishes) {
    std::cout << sweep.folders.size() << (sweep.folders.size() == 1 ? " case in " : " cases in ")
              << wishes.directory << ": " << written.decks << " written, " << written.kept
              << " as they were\n";
    if (written.left_over.empty()) return;
    std::cerr << "korvat-tools sweep: of an earlier table, " << written.left_over.size()
              << (written.left_over.size() == 1 ? " folder is" : " folders are")
              << " left, such as " << written.left_over.front() << '\n';
}

int sweep(const Wishes& wishes) {
    try {
        const study::DeckTemplate deck(read(wishes.deck), wishes.deck);
        const study::Table table = table_of(wishes);
        const std::string table_name = wishes.table.empty() ? "the grid" : wishes.table;
        const study::Sweep sweep = study::plan(deck, table, wishes.named_by, table_name);
        tell(sweep, study::write(sweep, deck, table, platform::path_of(wishes.directory)), wishes);
        return exit_code::fine;
    } catch (const StudyError& error) {
        std::cerr << "korvat-tools sweep: " << error.what() << '\n';
    } catch (const fs::filesystem_error& error) {
        std::cerr << "korvat-tools sweep: " << platform::name_of(error.path1()) << ": "
                  << error.code().message() << '\n';
    } catch (const std::system_error& error) {
        std::cerr << "korvat-tools sweep: " << error.what() << '\n';
    }
    return exit_code::wrong_use;
}

} // namespace

void add_sweep(CLI::App& program, int& code) {
    CLI::App* const command =
        program.add_subcommand("sweep", "Make one deck for each row of a table");
    const auto wishes = std::make_shared<Wishes>();
    command
        ->add_option("TEMPLATE", wishes->deck,
                     "a deck with named places, such as {wall}, {d+0.1} or {wall:10.4f}")
        ->required()
        ->type_name("");
    command
        ->add_option("TABLE", wishes->table,
                     "values separated by commas, the names of the columns in the first row")
        ->type_name("");
    command
        ->add_option("--grid", wishes->grid,
                     "an axis: NAME=FROM:TO:STEP or NAME=VALUE,...; each row of the table and each "
                     "point of the other axes with each of its values")
        ->allow_extra_args(false)
        ->type_name("AXIS");
    command->add_option("-o,--output", wishes->directory, "where the folders go; made when missing")
        ->required()
        ->type_name("DIR");
    command
        ->add_option(
            "--name", wishes->named_by,
            "the column that names the folders; without it they have the numbers of the rows")
        ->type_name("COLUMN");
    command->footer(
        "Each folder gets a KORVAT.INP; DIR/manifest.csv lists row, folder, values and "
        "digest of the deck. Nothing is written where a name or a column is left over, a "
        "value does not fit its columns, or two rows give the same deck. What stands there "
        "as it would be written is left as it is.");
    command->callback([&code, wishes] { code = sweep(*wishes); });
}

} // namespace korvat::cli

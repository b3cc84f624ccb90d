// The command export: what a run produced, as files that other programs open.
#include "cli/case.hpp"
#include "cli/commands.hpp"
#include "export/csv.hpp"
#include "export/group_json.hpp"
#include "export/loaded_piles.hpp"
#include "export/vtp.hpp"
#include "export/vtu.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace korvat::cli {
namespace {

using exporting::ExportedFile;
namespace fs = std::filesystem;

struct Wishes {
    std::vector<std::string> formats;
    std::string directory;
    std::string from;
};

// Ends the command with a message and an exit code.
class Failure : public std::runtime_error {
public:
    Failure(int code, const std::string& message) : std::runtime_error(message), code_(code) {}

    [[nodiscard]] int code() const { return code_; }

private:
    int code_;
};

Failure system_failure(const fs::path& path, const std::error_code& reason) {
    return {exit_code::wrong_use, platform::name_of(path) + ": " + reason.message()};
}

group::Group read_group(const std::string& from) {
    Results results = read_results(from);
    tell("export", results.note);
    if (results.is_load_file) {
        throw Failure(exit_code::wrong_use,
                      from + ": a LOAD.09 has no piles; name the directory of its run");
    }
    if (const auto stray = exporting::stray_load(results.group))
        throw Failure(exit_code::found, results.loads_from + ": " + *stray);
    return std::move(results.group);
}

std::vector<ExportedFile> files_of(const group::Group& group, const std::string& format) {
    if (format == "vtp") return exporting::vtp_files(group);
    if (format == "vtu") return {exporting::vtu_file(group)};
    if (format == "json") return {{"group.json", exporting::group_json(group)}};
    return exporting::csv_files(group);
}

void write_file(const fs::path& path, const std::string& content) {
    std::error_code unknown;             // what cannot be asked, writing shows
    if (fs::is_directory(path, unknown)) // Windows would only say that it is not permitted
        throw system_failure(path, std::make_error_code(std::errc::is_a_directory));
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream) throw system_failure(path, {errno, std::generic_category()});
}

// All files are made before the first one is written.
void export_case(const Wishes& wishes) {
    const group::Group group = read_group(wishes.from);
    std::vector<ExportedFile> files;
    for (const std::string& format : wishes.formats) {
        for (ExportedFile& file : files_of(group, format)) {
            if (std::find(files.begin(), files.end(), file) == files.end())
                files.push_back(std::move(file));
        }
    }
    const fs::path directory = platform::path_of(wishes.directory);
    std::error_code error;
    fs::create_directories(directory, error);
    if (error) throw system_failure(directory, error);
    for (const ExportedFile& file : files) {
        write_file(directory / file.name, file.content);
        std::cout << platform::name_of(directory / file.name) << '\n';
    }
}

} // namespace

void add_export(CLI::App& program, int& code) {
    CLI::App* const command = program.add_subcommand(
        "export", "Write the piles and loads of a run as files that other programs open");
    const auto wishes = std::make_shared<Wishes>();
    command->add_option("--to", wishes->formats, "the formats, with commas between them")
        ->required()
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"vtp", "vtu", "csv", "json"}));
    command->add_option("-o,--output", wishes->directory, "where the files go; made when missing")
        ->required()
        ->type_name("DIR");
    command
        ->add_option("CASE", wishes->from,
                     "a directory with a deck or with the files of a run, a deck of any name, a "
                     "PILE.07, or - for standard input")
        ->required()
        ->type_name("");
    command->footer(
        "vtp: piles, nodes and load vectors for ParaView. vtu: the group as a mesh. "
        "csv: tables of sections, elements, nodes, curves, loads and piles. "
        "json: the whole group. "
        "A deck without results, or newer than they are, is run in a private directory; "
        "nothing is written into the case. Files of the same names are overwritten.");
    command->callback([&code, wishes] {
        try {
            export_case(*wishes);
            code = exit_code::fine;
        } catch (const NoResults& reason) {
            tell("export", reason);
            const bool cannot_be_read = reason.cause() == NoResults::Cause::cannot_be_read ||
                                        reason.cause() == NoResults::Cause::run_was_stopped;
            code = cannot_be_read ? exit_code::wrong_use : exit_code::found;
        } catch (const Failure& failure) {
            tell("export", failure.what());
            code = failure.code();
        }
    });
}

} // namespace korvat::cli

// The command export: what a run produced, as files that other programs open.
#include "cli/commands.hpp"
#include "export/csv.hpp"
#include "export/group_json.hpp"
#include "export/loaded_piles.hpp"
#include "export/vtp.hpp"
#include "export/vtu.hpp"
#include "group/load_file.hpp"
#include "group/pile_file.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <array>
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

std::string read_file(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::string bytes;
    if (stream) {
        std::array<char, 65536> block;
        do {
            stream.read(block.data(), block.size());
            bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
        } while (stream);
    }
    if (!stream.eof()) throw system_failure(path, {errno, std::generic_category()});
    return bytes;
}

void refuse_damage(const fs::path& path, const std::optional<group::Damage>& damage) {
    if (!damage) return;
    throw Failure(exit_code::found, platform::name_of(path) + ": byte " +
                                        std::to_string(damage->offset) + ": " + damage->reason);
}

// Whether bytes begin as a PILE.07 does: with the date or the label, or as that of a run that failed. A deck
// may begin with the letters too, but has the end of a line where the label would be.
bool begins_as_pile_file(const std::string& bytes) {
    constexpr char date_length = 12;
    constexpr char label_length = 80;
    constexpr auto end_byte = static_cast<char>(0x82);
    if (bytes.size() < 2 || bytes[0] != 'K') return false;
    if (bytes[1] != label_length) return bytes[1] == date_length || bytes[1] == end_byte;
    return bytes.find('\n') > 2 + label_length;
}

group::Group read_group(const fs::path& path) {
    const std::string bytes = read_file(path);
    if (path.filename() != "PILE.07" && !begins_as_pile_file(bytes)) {
        throw Failure(exit_code::wrong_use,
                      platform::name_of(path) +
                          " is no PILE.07; if it is a deck, run korvat first");
    }
    group::GroupReading reading = group::read_pile(bytes);
    refuse_damage(path, reading.damage);
    return std::move(reading.group);
}

void read_loads(const fs::path& path, group::Group& group) {
    group::LoadReading reading = group::read_load(read_file(path));
    refuse_damage(path, reading.damage);
    group.load_vectors = std::move(reading.vectors);
    if (const auto stray = exporting::stray_load(group))
        throw Failure(exit_code::found, platform::name_of(path) + ": " + *stray);
}

// A directory with the files of a run, or a PILE.07, which stands for itself: a LOAD.09 beside it may
// belong to another run.
group::Group read_case(const fs::path& from) {
    std::error_code error;
    const fs::file_status status = fs::status(from, error);
    if (status.type() == fs::file_type::regular) return read_group(from);
    if (status.type() == fs::file_type::not_found || status.type() == fs::file_type::none)
        throw system_failure(from, error);
    if (status.type() != fs::file_type::directory) {
        throw Failure(exit_code::wrong_use,
                      platform::name_of(from) + " is neither a file nor a directory");
    }
    if (!fs::is_regular_file(from / "PILE.07", error)) {
        throw Failure(exit_code::wrong_use,
                      "there is no PILE.07 in " + platform::name_of(from) + "; run korvat first");
    }
    group::Group group = read_group(from / "PILE.07");
    if (fs::exists(from / "LOAD.09", error)) read_loads(from / "LOAD.09", group);
    return group;
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
    const group::Group group = read_case(platform::path_of(wishes.from));
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
                     "a directory with the PILE.07 (and LOAD.09) of a run, or a PILE.07")
        ->required()
        ->type_name("");
    command->footer("vtp: piles, nodes and load vectors for ParaView. vtu: the group as a mesh. "
                    "csv: tables of sections, elements, nodes, curves, loads and piles. "
                    "json: the whole group. "
                    "Files of the same names are overwritten.");
    command->callback([&code, wishes] {
        try {
            export_case(*wishes);
            code = exit_code::fine;
        } catch (const Failure& failure) {
            std::cerr << "korvat-tools export: " << failure.what() << '\n';
            code = failure.code();
        }
    });
}

} // namespace korvat::cli

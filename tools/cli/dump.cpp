// The command dump: a PILE.07 or LOAD.09 as tables, as JSON, or record by record.
#include "check/text.hpp"
#include "cli/case.hpp"
#include "cli/commands.hpp"
#include "cli/group_text.hpp"
#include "cli/record_text.hpp"
#include "cli/result_input.hpp"
#include "export/group_json.hpp"

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

namespace korvat::cli {
namespace {

struct Wishes {
    std::string file;
    bool is_json = false;
    bool is_records = false;
};

struct Shown {
    std::string text;
    std::optional<group::Damage> damage;
};

Shown shown_pile_file(const std::vector<char>& bytes, bool is_json) {
    const group::GroupReading reading = group::read_pile(bytes);
    return {is_json ? exporting::group_json(reading.group) : group_text(reading.group),
            reading.damage};
}

Shown shown_load_file(const std::vector<char>& bytes, bool is_json) {
    const group::LoadReading reading = group::read_load(bytes);
    return {is_json ? exporting::load_vectors_json(reading.vectors)
                    : load_vectors_text(reading.vectors),
            reading.damage};
}

Shown shown_file(const std::vector<char>& bytes, bool is_json) {
    const auto kind = group::file_kind(bytes);
    if (!kind) return {"", unknown_kind(group::read_records(bytes))};
    return kind == group::FileKind::load ? shown_load_file(bytes, is_json)
                                         : shown_pile_file(bytes, is_json);
}

// The records, and the damage that reading their items finds too.
Shown shown_records(const std::vector<char>& bytes) {
    return {records_text(group::read_records(bytes), group::file_kind(bytes)),
            shown_file(bytes, false).damage};
}

// What to do with a case, which is no file of a run; empty where the name is none.
std::string advice(const std::string& name) {
    std::error_code unknown; // what cannot be asked, reading shows
    if (name == "-" || !std::filesystem::is_directory(name, unknown)) return {};
    return name + ": a directory; name the PILE.07 or LOAD.09 in it";
}

// Whether it may be a deck.
bool is_text(const std::vector<char>& bytes) {
    const std::string_view text(bytes.data(), bytes.size());
    return !text.empty() && !group::begins_as_record_file(bytes) &&
           check::is_text(check::lines_of(text));
}

int dump(const Wishes& wishes) {
    if (const std::string text = advice(wishes.file); !text.empty()) {
        tell("dump", text);
        return exit_code::wrong_use;
    }
    try {
        const std::vector<char> bytes = input_bytes(wishes.file);
        const Shown shown =
            wishes.is_records ? shown_records(bytes) : shown_file(bytes, wishes.is_json);
        std::cout << shown.text;
        if (!shown.damage) return exit_code::fine;
        tell("dump", damage_text(wishes.file, *shown.damage));
        if (is_text(bytes)) tell("dump", "a deck is looked at by check, diff and export");
        return exit_code::found;
    } catch (const std::system_error& error) {
        tell("dump", unreadable_text(wishes.file, error));
        return exit_code::wrong_use;
    }
}

} // namespace

void add_dump(CLI::App& program, int& code) {
    CLI::App* const command =
        program.add_subcommand("dump", "Show what a PILE.07 or LOAD.09 holds");
    const auto wishes = std::make_shared<Wishes>();
    CLI::Option* const json = command->add_flag("--json", wishes->is_json, "as JSON on one line");
    command
        ->add_flag("--records", wishes->is_records,
                   "record by record, with offsets, sizes and items")
        ->excludes(json);
    command->add_option("FILE", wishes->file, "the file, whatever its name; - is standard input")
        ->required()
        ->type_name("");
    command->footer("Of a damaged file what stands before the damage is shown; its offset and the "
                    "reason go to standard error. F and L are the units of force and length of the "
                    "deck after its factors FACF and FACL.");
    command->callback([&code, wishes] { code = dump(*wishes); });
}

} // namespace korvat::cli

#include "cli/case.hpp"
#include "platform/paths.hpp"

#include "check/checker.hpp"
#include "check/format.hpp"
#include "check/scratch_run.hpp"
#include "cli/result_input.hpp"

#include <filesystem>
#include <iostream>
#include <new>
#include <optional>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

namespace korvat::cli {
namespace {

namespace fs = std::filesystem;
using Cause = NoResults::Cause;

void refuse_damage(const std::string& name, const std::optional<group::Damage>& damage) {
    if (damage) throw NoResults(Cause::is_damaged, damage_text(name, *damage));
}

check::ScratchRun run_of(const check::DeckFile& deck) {
    try {
        return check::run_in_scratch(deck.bytes);
    } catch (const std::runtime_error& error) { // there can be no directory for it
        throw NoResults(Cause::cannot_be_read, deck.shown + ": " + error.what());
    }
}

Results results_of(const check::DeckFile& deck) {
    check::ScratchRun run = run_of(deck);
    if (run.group) return {.group = std::move(*run.group), .loads_from = deck.shown, .note = {}};
    const bool is_stopped = run.cmn->report.fault.message.empty(); // by the machine
    throw NoResults(is_stopped ? Cause::run_was_stopped : Cause::deck_has_errors,
                    check::findings_text(check::error_of(deck, run)));
}

Results results_of_files(const fs::path& directory) {
    group::ResultReading reading;
    try {
        reading = group::read_group(directory);
    } catch (const std::system_error& error) {
        throw NoResults(Cause::cannot_be_read, error.what());
    }
    const std::string loads = platform::name_of(directory / "LOAD.09");
    refuse_damage(platform::name_of(directory / "PILE.07"), reading.pile_damage);
    refuse_damage(loads, reading.load_damage);
    return {.group = std::move(reading.group), .loads_from = loads, .note = {}};
}

// False where a time cannot be told.
bool is_newer(const fs::path& deck, const fs::path& result) {
    std::error_code of_deck;
    std::error_code of_result;
    const auto deck_time = fs::last_write_time(deck, of_deck);
    const auto result_time = fs::last_write_time(result, of_result);
    return !of_deck && !of_result && deck_time > result_time;
}

Results results_of_directory(const std::string& name) {
    const fs::path directory = platform::path_of(name);
    const std::optional<fs::path> deck = check::deck_in(directory);
    std::error_code unknown; // what cannot be asked, reading shows
    const bool has_results = fs::exists(directory / "PILE.07", unknown) || unknown;
    if (!has_results && !deck) {
        throw NoResults(Cause::cannot_be_read,
                        name + ": neither a PILE.07 nor a KORVAT.INP in this directory");
    }
    if (!has_results) return results_of(check::read_deck(name));
    for (const char* const result : {"PILE.07", "LOAD.09"}) {
        if (!deck || !is_newer(*deck, directory / result)) continue;
        Results results = results_of(check::read_deck(name));
        results.note = platform::name_of(*deck) + " is newer than its " + result +
                       ": the results are those of a run of the deck";
        return results;
    }
    return results_of_files(directory);
}

Results results_of_load_file(const std::string& name, std::span<const char> bytes) {
    group::LoadReading reading = group::read_load(bytes);
    refuse_damage(name, reading.damage);
    Results results{.group = {}, .is_load_file = true, .loads_from = name, .note = {}};
    results.group.load_vectors = std::move(reading.vectors);
    return results;
}

Results results_of_file(const std::string& name) {
    const std::vector<char> bytes = input_bytes(name);
    const auto kind = group::file_kind(bytes);
    if (kind == group::FileKind::load) return results_of_load_file(name, bytes);
    if (kind) {
        group::GroupReading reading = group::read_pile(bytes);
        refuse_damage(name, reading.damage);
        return {.group = std::move(reading.group), .loads_from = name, .note = {}};
    }
    const fs::path file = platform::path_of(name).filename();
    if (file == "PILE.07" || file == "LOAD.09" || group::begins_as_record_file(bytes))
        refuse_damage(name, unknown_kind(group::read_records(bytes)));
    return results_of(check::deck_of(name, bytes));
}

} // namespace

Results read_results(const std::string& name) {
    try {
        std::error_code unknown;
        const bool is_directory = name != "-" && fs::is_directory(platform::path_of(name), unknown);
        return is_directory ? results_of_directory(name) : results_of_file(name);
    } catch (const check::CannotRead& error) {
        throw NoResults(Cause::cannot_be_read, error.what());
    } catch (const std::system_error& error) {
        throw NoResults(Cause::cannot_be_read, unreadable_text(name, error));
    } catch (const std::bad_alloc&) {
        throw NoResults(Cause::cannot_be_read, name + ": out of memory");
    }
}

void tell(const std::string& command, const std::string& text) {
    if (!text.empty()) std::cerr << "korvat-tools " << command << ": " << text << '\n';
}

void tell(const std::string& command, const NoResults& reason) {
    const bool has_run =
        reason.cause() == Cause::deck_has_errors || reason.cause() == Cause::run_was_stopped;
    if (has_run) std::cerr << reason.what();
    tell(command, has_run ? "the run of the deck ends without results" : reason.what());
}

} // namespace korvat::cli

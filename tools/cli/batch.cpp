// The command batch: runs of many cases, and one table of them.
#include "cli/commands.hpp"

#include "platform/paths.hpp"
#include "platform/processes.hpp"
#include "platform/terminal.hpp"
#include "study/batch.hpp"
#include "study/study_error.hpp"
#include "study/summary.hpp"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

namespace korvat::cli {
namespace {

using study::StudyError;

struct Wishes {
    int jobs = 0; // 0: as many as the machine is good for
    study::BatchWishes batch;
    std::string keep = "all";
    std::string program;
    std::string summary;
    std::string format = "csv";
    std::string journal;
    std::string shard;
    bool is_quiet = false;
    study::CaseNames names;
};

void tell_line(const std::string& text) {
    std::cerr << "korvat-tools batch: " << text << '\n';
}

study::Keep keep_of(const std::string& name) {
    if (name == "results") return study::Keep::results;
    return name == "failed" ? study::Keep::failed : study::Keep::all;
}

study::SummaryFormat format_of(const std::string& name) {
    return name == "json" ? study::SummaryFormat::json : study::SummaryFormat::csv;
}

// "-3-of-8" behind the names of the files of a part.
std::string part_of_name(const study::Shard& shard) {
    if (shard.is_all()) return {};
    return '-' + std::to_string(shard.number) + "-of-" + std::to_string(shard.count);
}

// What was not said, as it is when nothing is said.
void complete(Wishes& wishes) {
    if (wishes.names.arguments.empty() == wishes.names.list.empty())
        throw StudyError("name the cases, or their list by -f");
    if (!wishes.shard.empty()) wishes.batch.shard = study::shard_of(wishes.shard);
    const std::string home = study::CaseList::home(wishes.names);
    const std::string part = part_of_name(wishes.batch.shard);
    if (wishes.journal.empty()) wishes.journal = home + "batch" + part + ".jsonl";
    const bool has_summary = !wishes.summary.empty() || wishes.batch.shard.is_all();
    if (wishes.summary.empty() && has_summary) wishes.summary = home + "summary." + wishes.format;
    wishes.batch.keep = keep_of(wishes.keep);
    wishes.batch.jobs = wishes.jobs > 0 ? std::min(wishes.jobs, platform::Processes::most_at_once())
                                        : study::usable_jobs();
}

// How many cases there are, which also finds what is wrong with a list before anything runs; none where the list
// can be read only once.
std::optional<std::uint64_t> counted(const Wishes& wishes) {
    if (wishes.names.list == "-") return std::nullopt;
    study::CaseList list(wishes.names, std::cin);
    std::uint64_t position = 0;
    std::uint64_t count = 0;
    while (list.next()) {
        if (wishes.batch.shard.has(position++)) ++count;
    }
    return count;
}

void write_summary(const Wishes& wishes, const study::BatchOutcome& outcome,
                   study::Journal& journal, const std::vector<std::string>& columns) {
    if (wishes.summary.empty()) return;
    study::SummaryFile file(wishes.summary);
    study::SummaryWriter summary(file.stream(), format_of(wishes.format), columns);
    for (const std::uint64_t offset : outcome.offsets)
        summary.add(journal.at(offset));
    summary.finish();
    file.finish();
}

std::string told_counts(const study::BatchOutcome& outcome, double seconds) {
    const study::BatchCounts& counts = outcome.counts;
    std::ostringstream text;
    text << counts.done() << (counts.done() == 1 ? " case, " : " cases, ") << counts.failed
         << " failed";
    if (counts.skipped > 0) text << ", " << counts.skipped << " as the journal has them";
    text << ", " << study::duration_text(seconds);
    return text.str();
}

void tell_notes(const Wishes& wishes, const study::BatchOutcome& outcome,
                const study::Journal& journal) {
    if (!journal.is_locked()) {
        tell_line(wishes.journal +
                  ": the file system has no locks, so that a second batch would not be noticed");
    }
    if (journal.damaged() > 0) {
        tell_line(wishes.journal +
                  ": lines that are no records: " + std::to_string(journal.damaged()));
    }
    if (outcome.other_decks > 0) {
        tell_line("decks that have changed since the manifest was written: " +
                  std::to_string(outcome.other_decks));
    }
}

int run_batch(Wishes& wishes) {
    complete(wishes);
    study::RunProgram program(study::find_run_program(wishes.program));
    const auto total = counted(wishes);
    study::Journal journal(wishes.journal, wishes.batch.is_resumed);
    study::CaseList cases(wishes.names, std::cin);
    study::Progress progress(std::cerr, total, platform::columns_of_terminal(), wishes.is_quiet);
    const study::BatchOutcome outcome =
        study::run_batch(wishes.batch, cases, program, journal, progress);
    tell_notes(wishes, outcome, journal);
    if (outcome.end_request != 0) {
        constexpr int of_signals = 128;
        tell_line("interrupted after " + told_counts(outcome, progress.seconds()) +
                  "; go on with --resume");
        return of_signals + outcome.end_request;
    }
    if (!outcome.stop.empty()) {
        tell_line(outcome.stop + "; " + told_counts(outcome, progress.seconds()) +
                  "; go on with --resume");
        return exit_code::wrong_use;
    }
    write_summary(wishes, outcome, journal, cases.columns());
    if (!wishes.is_quiet && wishes.summary != "-")
        std::cout << told_counts(outcome, progress.seconds()) << '\n';
    return outcome.counts.failed == 0 ? exit_code::fine : exit_code::found;
}

int batch(Wishes& wishes) {
    try {
        return run_batch(wishes);
    } catch (const platform::HeldByAnother&) {
        tell_line("another batch is running with the journal " + wishes.journal +
                  "; nothing was done");
    } catch (const StudyError& error) {
        tell_line(error.what());
    } catch (const std::filesystem::filesystem_error& error) {
        tell_line(platform::name_of(error.path1()) + ": " + error.code().message());
    } catch (const std::system_error& error) {
        tell_line(error.what());
    }
    return exit_code::wrong_use;
}

void add_run_options(CLI::App& command, Wishes& wishes) {
    command
        .add_option("-j,--jobs", wishes.jobs,
                    "runs at once; without it, as many as the cores and the memory are good for "
                    "that batch may use")
        ->check(CLI::Range(1, 100000))
        ->type_name("N");
    command.add_flag("--resume", wishes.batch.is_resumed,
                     "skip what the journal has, where deck, program and files are as it says");
    command
        .add_option("--retry", wishes.batch.retries,
                    "more tries for a case whose program crashed or took too long")
        ->check(CLI::Range(0, 1000))
        ->type_name("N");
    command
        .add_option("--timeout", wishes.batch.timeout,
                    "end a run that takes longer, with all that it has started")
        ->check(CLI::Range(0.001, 1.0e9))
        ->type_name("SECONDS");
    command
        .add_option("--program", wishes.program,
                    "the program to run; without it, the korvat beside korvat-tools, else that on "
                    "the PATH")
        ->type_name("PATH");
    command
        .add_option("--keep", wishes.keep,
                    "what stays of fine cases beside the deck: all files, PILE.07 and LOAD.09, or "
                    "none, so that only failed cases keep theirs")
        ->type_name("WHAT")
        ->check(CLI::IsMember({"all", "results", "failed"}));
    command.add_option("--shard", wishes.shard, "run the K-th of N parts of the cases")
        ->type_name("K/N");
}

void add_file_options(CLI::App& command, Wishes& wishes) {
    command
        .add_option("--summary", wishes.summary,
                    "where the table goes, - for standard output; without it summary.csv or "
                    "summary.json beside the manifest, else here; a part writes none unless told")
        ->type_name("FILE");
    command.add_option("--format", wishes.format, "of the table")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"csv", "json"}));
    command
        .add_option("--journal", wishes.journal,
                    "where the journal goes; without it batch.jsonl beside the manifest, else here")
        ->type_name("FILE");
    command.add_flag("--quiet", wishes.is_quiet, "do not show how far it is");
    command
        .add_option("-f,--file", wishes.names.list,
                    "names of cases, one a line, or a manifest.csv; - for standard input")
        ->type_name("LIST");
    command
        .add_option("CASE", wishes.names.arguments,
                    "a directory with a deck, or that of a sweep with all its cases")
        ->type_name("");
}

} // namespace

void add_batch(CLI::App& program, int& code) {
    CLI::App* const command =
        program.add_subcommand("batch", "Run many cases, and make one table of them");
    const auto wishes = std::make_shared<Wishes>();
    add_run_options(*command, *wishes);
    add_file_options(*command, *wishes);
    command->footer(
        "Each case is run by a process of its own in its own directory. The journal gets a line "
        "when a case has ended; with --resume a batch that was interrupted goes on from there. "
        "Rows of the table are in the order of the cases. The exit code is 1 where a case has "
        "failed, 128 and the number of the signal after an interrupt.");
    command->callback([&code, wishes] { code = batch(*wishes); });
}

} // namespace korvat::cli

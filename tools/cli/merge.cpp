// The command merge: one table of several journals of batch.
#include "study/merge.hpp"

#include "cli/commands.hpp"
#include "platform/paths.hpp"
#include "study/study_error.hpp"

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace korvat::cli {
namespace {

struct Wishes {
    std::vector<std::string> journals;
    std::string summary = "-";
    std::string format = "csv";
    std::string list;
};

void tell_count(std::uint64_t count, const std::string& what) {
    if (count > 0) std::cerr << "korvat-tools merge: " << what << ": " << count << '\n';
}

int merge(const Wishes& wishes) {
    try {
        const auto format =
            wishes.format == "json" ? study::SummaryFormat::json : study::SummaryFormat::csv;
        std::optional<study::CaseNames> list;
        if (!wishes.list.empty()) list = study::CaseNames{{}, wishes.list};
        study::SummaryFile file(wishes.summary);
        const study::MergeOutcome outcome =
            study::merge(wishes.journals, list, std::cin, file.stream(), format);
        file.finish();
        tell_count(outcome.missing, "cases that are in no journal");
        tell_count(outcome.unlisted, "cases that the list does not have");
        tell_count(outcome.damaged, "lines that are no records");
        const bool is_fine = outcome.failed == 0 && outcome.missing == 0;
        return is_fine ? exit_code::fine : exit_code::found;
    } catch (const study::StudyError& error) {
        std::cerr << "korvat-tools merge: " << error.what() << '\n';
    } catch (const std::filesystem::filesystem_error& error) {
        std::cerr << "korvat-tools merge: " << platform::name_of(error.path1()) << ": "
                  << error.code().message() << '\n';
    } catch (const std::system_error& error) {
        std::cerr << "korvat-tools merge: " << error.what() << '\n';
    }
    return exit_code::wrong_use;
}

} // namespace

void add_merge(CLI::App& program, int& code) {
    CLI::App* const command =
        program.add_subcommand("merge", "Make one table of several journals of batch");
    const auto wishes = std::make_shared<Wishes>();
    command->add_option("JOURNAL", wishes->journals, "a journal of korvat-tools batch")
        ->required()
        ->type_name("");
    command
        ->add_option("--summary", wishes->summary,
                     "where the table goes; without it standard output")
        ->type_name("FILE");
    command->add_option("--format", wishes->format, "of the table")
        ->type_name("FORMAT")
        ->check(CLI::IsMember({"csv", "json"}));
    command
        ->add_option("-f,--file", wishes->list,
                     "names of cases, one a line, or a manifest.csv: the rows of the table, in "
                     "this order")
        ->type_name("LIST");
    command->footer("Rows are in the order of the list, else in that of the cases when they were "
                    "run. Where several journals have a case, the last of them counts. The exit "
                    "code is 1 where a case has failed or is in no journal.");
    command->callback([&code, wishes] { code = merge(*wishes); });
}

} // namespace korvat::cli

// Manual pages and completion hold every command and option that the help shows.
#include "cli/command_table.hpp"
#include "cli/completion_script.hpp"
#include "cli/man_page.hpp"
#include "cli/program.hpp"

#include <gtest/gtest.h>

namespace korvat::test {
namespace {

using cli::CommandEntry;
using cli::OptionEntry;

class ToolsDocuments : public testing::Test {
protected:
    int code = 0;
    std::unique_ptr<CLI::App> program = cli::make_program(code);
    std::vector<CommandEntry> table = cli::command_table(*program);
};

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// A page with its roff taken away.
std::string plain(const std::string& page) {
    std::string text;
    for (std::size_t i = 0; i < page.size(); ++i) {
        if (page[i] != '\\') {
            text += page[i];
        } else if (page[i + 1] == 'f') {
            i += 2;
        } else {
            if (page[i + 1] != '&') text += page[i + 1];
            ++i;
        }
    }
    return text;
}

TEST_F(ToolsDocuments, TheTableHasTheProgramAndItsCommands) {
    EXPECT_EQ(table.front().name, "korvat-tools");
    std::vector<std::string> names;
    for (const CommandEntry& entry : table)
        names.push_back(entry.name);
    names.erase(names.begin());
    EXPECT_EQ(names, cli::command_names(*program));
    EXPECT_TRUE(std::ranges::is_sorted(names));
}

TEST_F(ToolsDocuments, EveryOptionIsDescribed) {
    for (const CommandEntry& entry : table) {
        EXPECT_FALSE(entry.description.empty()) << entry.name;
        for (const auto* const list : {&entry.options, &entry.arguments}) {
            for (const OptionEntry& option : *list)
                EXPECT_FALSE(option.description.empty()) << entry.name << " " << option.argument;
        }
    }
}

TEST_F(ToolsDocuments, EveryOptionOfTheHelpIsInTheManualPage) {
    for (const CommandEntry& entry : table) {
        const std::string page = plain(cli::man_page(table, entry, "1.2.3.4"));
        const std::string help = entry.name == "korvat-tools"
                                     ? program->help()
                                     : program->get_subcommand(entry.name)->help();
        EXPECT_TRUE(holds(page, "\"korvat 1.2.3.4\"\n"));
        for (const auto* const list : {&entry.options, &entry.arguments}) {
            for (const OptionEntry& option : *list) {
                EXPECT_TRUE(holds(page, option.description)) << option.description << page;
                EXPECT_TRUE(holds(help, option.description)) << option.description << help;
                for (const std::string& name : option.names) {
                    EXPECT_TRUE(holds(page, name)) << name;
                    EXPECT_TRUE(holds(help, name)) << name;
                }
            }
        }
    }
}

TEST_F(ToolsDocuments, AManualPageIsWholeAndSafe) {
    const CommandEntry entry{
        .name = "weigh",
        .description = "Weigh a group.",
        .footer = ".hidden\\n",
        .options = {{{"-f", "--format"}, "FORM", "how it is shown", {"text", "csv"}, false},
                    {{"--all"}, "", "every pile", {}, false}},
        .arguments = {{{}, "CASE", "what to weigh", {}, true}}};
    const std::vector<CommandEntry> small{
        {.name = "korvat-tools", .description = "", .footer = "", .options = {}, .arguments = {}},
        entry};
    EXPECT_EQ(
        cli::man_page(small, small[1], "7"),
        ".TH KORVAT-TOOLS-WEIGH 1 \"\" \"korvat 7\"\n"
        ".SH NAME\nkorvat\\-tools\\-weigh \\- weigh a group.\n"
        ".SH SYNOPSIS\n.B korvat\\-tools\n\\fBweigh\\fR\n[\\fB\\-\\-format\\fR \\fIFORM\\fR]\n"
        "[\\fB\\-\\-all\\fR]\n\\fICASE\\fR ...\n"
        ".SH ARGUMENTS\n.TP\n\\fICASE\\fR\nwhat to weigh\n"
        ".SH OPTIONS\n.TP\n\\fB\\-f\\fR, \\fB\\-\\-format\\fR \\fIFORM\\fR\n"
        "how it is shown (\\fBtext\\fR, \\fBcsv\\fR)\n"
        ".TP\n\\fB\\-\\-all\\fR\nevery pile\n"
        ".SH NOTES\n\\&.hidden\\en\n"
        ".SH EXIT STATUS\n.TP\n0\nfine\n"
        ".TP\n1\nthe deck has errors, a comparison differences, a file damage\n"
        ".TP\n2\nwrong use, or a file that cannot be read\n"
        ".SH SEE ALSO\n.BR korvat (1),\n.BR korvat\\-tools (1)\n");
}

TEST_F(ToolsDocuments, CompletionKnowsEveryOption) {
    const std::string scripts[] = {cli::bash_completion(table), cli::zsh_completion(table)};
    for (const CommandEntry& entry : table) {
        for (const OptionEntry& option : entry.options) {
            for (const std::string& name : option.names) {
                if (entry.name == "korvat-tools") continue;
                for (const std::string& script : scripts)
                    EXPECT_TRUE(holds(script, name)) << name;
                const bool is_long = name.starts_with("--");
                EXPECT_TRUE(holds(cli::fish_completion(table),
                                  is_long ? " -l " + name.substr(2) : " -s " + name.substr(1)))
                    << name;
            }
        }
    }
}

} // namespace
} // namespace korvat::test

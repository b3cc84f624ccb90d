#include "cli/command_table.hpp"

#include "check/nearest_name.hpp"

#include <algorithm>
#include <sstream>

namespace korvat::cli {
namespace {

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

// The parser shows a choice as TYPE:{a,b}.
std::vector<std::string> choices_of(const std::string& type) {
    const std::size_t begin = type.find('{');
    const std::size_t end = type.find('}', begin);
    if (begin == std::string::npos || end == std::string::npos) return {};
    return split(type.substr(begin + 1, end - begin - 1), ',');
}

std::string argument_of(const std::string& type) {
    return type.substr(0, type.find(':'));
}

OptionEntry entry_of(const CLI::Option& option) {
    OptionEntry entry;
    for (const std::string& name : option.get_snames())
        entry.names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        entry.names.push_back("--" + name);
    const std::string type = option.get_type_name();
    const bool takes_one = option.get_items_expected_max() > 0;
    if (takes_one) entry.argument = argument_of(type);
    if (option.get_positional()) entry.argument = option.get_name(/*positional*/ true);
    entry.description = option.get_description();
    entry.choices = choices_of(type);
    entry.is_repeated = option.get_items_expected_max() > 1;
    return entry;
}

CommandEntry command_of(const CLI::App& command) {
    CommandEntry entry;
    entry.name = command.get_name();
    entry.description = command.get_description();
    entry.footer = command.get_footer();
    for (const CLI::Option* const option : command.get_options()) {
        auto& list = option->get_positional() ? entry.arguments : entry.options;
        list.push_back(entry_of(*option));
    }
    return entry;
}

std::vector<const CLI::App*> commands_of(const CLI::App& program) {
    std::vector<const CLI::App*> commands =
        program.get_subcommands([](const CLI::App*) { return true; });
    std::ranges::sort(commands, {}, [](const CLI::App* command) { return command->get_name(); });
    return commands;
}

std::string meant(const std::string& written, const std::vector<std::string>& names) {
    const auto nearest = check::nearest_name(written, names);
    return nearest ? "; did you mean '" + *nearest + "'?" : std::string();
}

} // namespace

std::vector<CommandEntry> command_table(const CLI::App& program) {
    std::vector<CommandEntry> table{command_of(program)};
    for (const CLI::App* const command : commands_of(program))
        table.push_back(command_of(*command));
    return table;
}

std::vector<std::string> option_names(const CLI::App& command) {
    std::vector<std::string> names;
    for (const OptionEntry& option : command_of(command).options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

std::vector<std::string> command_names(const CLI::App& program) {
    std::vector<std::string> names;
    for (const CLI::App* const command : commands_of(program))
        names.push_back(command->get_name());
    return names;
}

std::string unknown_command(const CLI::App& program, const std::string& written) {
    return "there is no command '" + written + "'" + meant(written, command_names(program));
}

std::string unknown_option(const CLI::App& command, const std::string& written) {
    return "there is no option '" + written + "'" + meant(written, option_names(command));
}

} // namespace korvat::cli

#include "cli/completion_script.hpp"

#include <algorithm>
#include <span>
#include <string_view>

namespace korvat::cli {
namespace {

std::span<const CommandEntry> commands(const std::vector<CommandEntry>& table) {
    return std::span(table).subspan(1); // behind the program itself
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

std::string command_list(const std::vector<CommandEntry>& table) {
    std::vector<std::string> names;
    for (const CommandEntry& command : commands(table))
        names.push_back(command.name);
    return joined(names);
}

std::string option_list(const CommandEntry& command) {
    std::vector<std::string> names;
    for (const OptionEntry& option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return joined(names);
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

std::string in_single_quotes(const std::string& text) {
    return "'" + replaced(text, "'", R"('\'')") + "'";
}

// Between quotes, zsh takes brackets and colons of a description for its own.
std::string zsh_text(const std::string& text) {
    return replaced(replaced(replaced(text, "[", R"(\[)"), "]", R"(\])"), ":", R"(\:)");
}

std::string zsh_values(const OptionEntry& option) {
    if (option.argument.empty()) return {};
    const std::string values =
        option.choices.empty() ? "_files" : "(" + joined(option.choices) + ")";
    return ":" + option.argument + ":" + values;
}

// What a command's argument may be, where it is no file.
std::string argument_values(const CommandEntry& command, const std::vector<CommandEntry>& table) {
    if (command.name == "help") return command_list(table);
    return command.arguments.empty() ? std::string() : joined(command.arguments.front().choices);
}

void add_bash_choices(std::string& script, const CommandEntry& command) {
    for (const OptionEntry& option : command.options) {
        if (option.choices.empty()) continue;
        for (const std::string& name : option.names) {
            script += "    " + command.name + name + ")\n        COMPREPLY=($(compgen -W '" +
                      joined(option.choices) + "' -- \"$word\"))\n        return\n        ;;\n";
        }
    }
}

} // namespace

std::string bash_completion(const std::vector<CommandEntry>& table) {
    std::string script = "# Completion of korvat-tools for bash.\n"
                         "_korvat_tools() {\n"
                         "    local word=${COMP_WORDS[COMP_CWORD]} command=${COMP_WORDS[1]}\n"
                         "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
                         "        COMPREPLY=($(compgen -W '" +
                         command_list(table) + " " + option_list(table.front()) +
                         "' -- \"$word\"))\n"
                         "        return\n"
                         "    fi\n"
                         "    case $command${COMP_WORDS[COMP_CWORD - 1]} in\n";
    for (const CommandEntry& command : commands(table))
        add_bash_choices(script, command);
    script += "    esac\n"
              "    case $command$word in\n";
    for (const CommandEntry& command : commands(table)) {
        script += "    " + command.name + "-*) COMPREPLY=($(compgen -W '" + option_list(command) +
                  "' -- \"$word\")) ;;\n";
        const std::string values = argument_values(command, table);
        if (values.empty()) continue;
        script += "    " + command.name + "*) COMPREPLY=($(compgen -W '" + values +
                  "' -- \"$word\")) ;;\n";
    }
    return script + "    *) COMPREPLY=($(compgen -f -- \"$word\")) ;;\n    esac\n}\n"
                    "complete -o filenames -F _korvat_tools korvat-tools\n";
}

std::string zsh_completion(const std::vector<CommandEntry>& table) {
    std::string script = "#compdef korvat-tools\n"
                         "# Completion of korvat-tools for zsh.\n"
                         "_korvat_tools() {\n"
                         "    if (( CURRENT == 2 )); then\n"
                         "        local -a commands=(\n";
    for (const CommandEntry& command : commands(table)) {
        script += "            " +
                  in_single_quotes(command.name + ":" + zsh_text(command.description)) + "\n";
    }
    script +=
        "        )\n        _describe command commands\n        return\n    fi\n"
        "    local command=$words[2]\n    shift words\n    (( CURRENT-- ))\n    case $command in\n";
    for (const CommandEntry& command : commands(table)) {
        script += "    " + command.name + ")\n        _arguments -s";
        for (const OptionEntry& option : command.options) {
            for (const std::string& name : option.names) {
                script += " \\\n            " +
                          in_single_quotes(name + "[" + zsh_text(option.description) + "]" +
                                           zsh_values(option));
            }
        }
        const std::string values = argument_values(command, table);
        script += " \\\n            '*:" +
                  (values.empty() ? std::string("file:_files") : "argument:(" + values + ")") +
                  "'\n        ;;\n";
    }
    return script + "    esac\n}\n_korvat_tools \"$@\"\n";
}

std::string fish_completion(const std::vector<CommandEntry>& table) {
    std::string script = "# Completion of korvat-tools for fish.\n";
    for (const CommandEntry& command : commands(table)) {
        script += "complete -c korvat-tools -n __fish_use_subcommand -f -a " + command.name +
                  " -d " + in_single_quotes(command.description) + "\n";
        const std::string values = argument_values(command, table);
        if (!values.empty()) {
            script += "complete -c korvat-tools -n '__fish_seen_subcommand_from " + command.name +
                      "' -f -a '" + values + "'\n";
        }
        for (const OptionEntry& option : command.options) {
            script +=
                "complete -c korvat-tools -n '__fish_seen_subcommand_from " + command.name + "'";
            for (const std::string& name : option.names) {
                script +=
                    name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
            }
            if (!option.argument.empty()) script += " -r";
            if (!option.choices.empty())
                script += " -f -a " + in_single_quotes(joined(option.choices));
            script += " -d " + in_single_quotes(option.description) + "\n";
        }
    }
    return script;
}

} // namespace korvat::cli

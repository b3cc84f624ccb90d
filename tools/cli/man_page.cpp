#include "cli/man_page.hpp"

#include <algorithm>
#include <cctype>

namespace korvat::cli {
namespace {

// Hyphens as they are typed, and no line that begins with a control character.
std::string roff(std::string_view text) {
    std::string escaped;
    bool begins_line = true;
    for (const char c : text) {
        if (begins_line && (c == '.' || c == '\'')) escaped += R"(\&)";
        if (c == '\\') {
            escaped += R"(\e)";
        } else if (c == '-') {
            escaped += R"(\-)";
        } else {
            escaped += c;
        }
        begins_line = c == '\n';
    }
    return escaped;
}

std::string bold(std::string_view text) {
    return R"(\fB)" + roff(text) + R"(\fR)";
}

std::string italic(std::string_view text) {
    return R"(\fI)" + roff(text) + R"(\fR)";
}

std::string page_name(const CommandEntry& entry) {
    return entry.name == "korvat-tools" ? entry.name : "korvat-tools-" + entry.name;
}

std::string with_small_initial(std::string text) {
    if (!text.empty())
        text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
    return text;
}

std::string synopsis(const CommandEntry& entry, bool is_program) {
    std::string line = ".B korvat\\-tools\n";
    if (is_program) return line + italic("COMMAND") + " ...\n";
    line += bold(entry.name) + "\n";
    for (const OptionEntry& option : entry.options) {
        line += "[" + bold(option.names.back());
        if (!option.argument.empty()) line += " " + italic(option.argument);
        line += "]\n";
    }
    for (const OptionEntry& argument : entry.arguments)
        line += italic(argument.argument) + (argument.is_repeated ? " ...\n" : "\n");
    return line;
}

std::string sentence(const OptionEntry& option) {
    std::string text = roff(option.description);
    if (option.choices.empty()) return text;
    text += " (";
    for (const std::string& choice : option.choices)
        text += (&choice == &option.choices.front() ? "" : ", ") + bold(choice);
    return text + ")";
}

std::string entry_text(const OptionEntry& option) {
    std::string heading;
    for (const std::string& name : option.names)
        heading += (heading.empty() ? "" : ", ") + bold(name);
    if (!option.argument.empty()) heading += (heading.empty() ? "" : " ") + italic(option.argument);
    return ".TP\n" + heading + "\n" + sentence(option) + "\n";
}

} // namespace

std::string man_page(const std::vector<CommandEntry>& table, const CommandEntry& entry,
                     std::string_view version) {
    const bool is_program = &entry == &table.front();
    std::string title = page_name(entry);
    std::ranges::transform(title, title.begin(), [](unsigned char c) { return std::toupper(c); });
    std::string page = ".TH " + title + " 1 \"\" \"korvat " + std::string(version) + "\"\n";
    page += ".SH NAME\n" + roff(page_name(entry)) + " \\- " +
            roff(with_small_initial(entry.description)) + "\n";
    page += ".SH SYNOPSIS\n" + synopsis(entry, is_program);
    if (!entry.arguments.empty()) page += ".SH ARGUMENTS\n";
    for (const OptionEntry& argument : entry.arguments)
        page += entry_text(argument);
    page += ".SH OPTIONS\n";
    for (const OptionEntry& option : entry.options)
        page += entry_text(option);
    if (is_program) {
        page += ".SH COMMANDS\n";
        for (std::size_t i = 1; i < table.size(); ++i)
            page += ".TP\n" + bold(table[i].name) + "\n" + roff(table[i].description) + "\n";
    }
    if (!entry.footer.empty()) page += ".SH NOTES\n" + roff(entry.footer) + "\n";
    page += ".SH EXIT STATUS\n"
            ".TP\n0\nfine\n"
            ".TP\n1\nthe deck has errors, a comparison differences, a file damage\n"
            ".TP\n2\nwrong use, or a file that cannot be read\n";
    page += ".SH SEE ALSO\n.BR korvat (1)";
    for (const CommandEntry& other : table) {
        if (&other != &entry) page += ",\n.BR " + roff(page_name(other)) + " (1)";
    }
    return page + "\n";
}

} // namespace korvat::cli

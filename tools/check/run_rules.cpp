// What the run itself says: its first error, its warnings, and what could not be looked at behind an error.
#include "check/message_table.hpp"
#include "check/read_outline.hpp"
#include "check/rows.hpp"
#include "check/tell.hpp"
#include "check/text.hpp"

#include <algorithm>

namespace korvat::check {
namespace {

constexpr std::string_view other_machine = "Run it where there is room for its files, and look at "
                                           "KORVAT.MLG.";

// What a message means, without the list of the values that it shows.
std::string meaning_of(const MessageEntry& entry) {
    std::string_view text = entry.meaning.substr(0, entry.meaning.find(" Shown:"));
    if (text.ends_with('.') && !text.ends_with("..")) text.remove_suffix(1);
    return std::string(text);
}

// The message as it is specified, and behind it what it means.
std::string explained(std::string_view message, const MessageEntry* entry) {
    std::string text = one_line(message);
    if (entry == nullptr) return text;
    const std::string_view number = meaning_of_number(*entry, message);
    return text + " - " + (number.empty() ? meaning_of(*entry) : std::string(number));
}

std::string remedy_of(const MessageEntry* entry) {
    if (entry == nullptr) return "";
    constexpr std::string_view reference = "See IERR.";
    std::string text = "Usual cause: " + std::string(entry->cause);
    std::string_view remedy = entry->remedy;
    if (remedy.starts_with(reference)) remedy.remove_prefix(reference.size());
    if (!remedy.empty()) text += (remedy.starts_with(' ') ? "" : " ") + std::string(remedy);
    return text;
}

void look_at_error(const Subject& subject, const Rule& rule, Findings& findings) {
    const Fault& fault = subject.cmn.report.fault;
    if (subject.exit_code == 0) return;
    if (fault.message.empty()) {
        const std::string_view what = subject.stop.empty() ? "no message" : subject.stop;
        tell(findings, rule, {}, "the run was stopped: " + std::string(what),
             std::string(other_machine));
        return;
    }
    const MessageEntry* const entry = entry_of(fault.message);
    tell(findings, rule, file_place(subject.cmn.report, subject.lines, fault.place),
         explained(fault.message, entry), remedy_of(entry));
}

void look_at_warnings(const Subject& subject, const Rule& rule, Findings& findings) {
    for (const Warning& warning : subject.cmn.report.warnings) {
        const MessageEntry* const entry = entry_of(warning.text);
        if (entry == nullptr) continue; // of files, or of lines that rules of their own look at
        tell(findings, rule, file_place(subject.cmn.report, subject.lines, warning.place),
             explained(warning.text, entry), remedy_of(entry));
    }
}

bool has_loads(const Subject& subject) {
    const std::vector<const Row*> rows = subject.outline.rows(deck::RecordId::load_vectors);
    return !rows.empty() && rows.front()->numbers.front().value >= 0.5;
}

// What is missing of a section behind an error, in words; empty where nothing is.
std::string missing_part(const Subject& subject, SectionId id, const Layout& layout,
                         const std::vector<SectionRows>& scanned) {
    const auto found = std::ranges::find(scanned, id, &SectionRows::section);
    const std::string name(name_of(id));
    if (found == scanned.end()) {
        const bool is_begun =
            id == section_reached(subject.cmn.report) && !subject.cmn.report.records.empty();
        return is_begun ? "the rest of the " + name : name;
    }
    const int last_read = last_line_read(subject.cmn.report, subject.cmn.NLINE);
    const bool is_read = layout.section(id)->lines.back().number <= last_read;
    if (found->stopped_at == 0 || is_read) return "";
    const int first = std::max(found->stopped_at, last_read + 1);
    return name + " from line " + std::to_string(first) + " on";
}

void look_at_rest(const Subject& subject, const Rule& rule, Findings& findings) {
    if (subject.exit_code == 0 || !is_text(subject.lines)) return;
    std::string parts;
    const Layout& layout = *subject.layout;
    const std::vector<SectionRows> scanned = scan_rows(layout);
    constexpr SectionId sections[] = {SectionId::control,        SectionId::materials,
                                      SectionId::cross_sections, SectionId::segment_types,
                                      SectionId::geometry,       SectionId::node_values,
                                      SectionId::loads};
    for (const SectionId id : sections) {
        if (id < section_reached(subject.cmn.report)) continue;
        if (id == SectionId::loads && !has_loads(subject)) continue;
        const std::string part = missing_part(subject, id, layout, scanned);
        if (!part.empty()) parts += part + ", ";
    }
    tell(findings, rule, {},
         "not looked at, as the run ends with an error: " + parts + (parts.empty() ? "" : "and ") +
             "what follows from the whole model",
         "Correct the errors and check again.");
}

constexpr Rule rules[] = {
    {"run-error", Level::error, "the first error of the run", look_at_error},
    {"run-warning", Level::warning, "the warnings of the run", look_at_warnings},
    {"not-looked-at", Level::note, "what an error keeps from being looked at", look_at_rest},
};

} // namespace

std::span<const Rule> run_rules() {
    return rules;
}

} // namespace korvat::check

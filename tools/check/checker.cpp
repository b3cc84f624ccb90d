#include "check/checker.hpp"
#include "platform/paths.hpp"

#include "check/layout.hpp"
#include "check/read_outline.hpp"
#include "check/rules.hpp"
#include "check/text.hpp"
#include "platform/files.hpp"

#include <algorithm>

namespace korvat::check {
namespace {

constexpr std::size_t groups_about_the_run = 3; // the first ones
constexpr std::size_t group_of_characters = 1;

bool has(const std::vector<std::string>& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

bool is_asked_for(const Rule& rule, const Selection& selection, const CheckedDeck& deck) {
    if (!selection.only.empty() && !has(selection.only, rule.name)) return false;
    return !has(selection.off, rule.name) &&
           std::ranges::find(deck.off, rule.name, &SwitchedOff::rule) == deck.off.end();
}

std::string stop_of(const ScratchRun& run) {
    if (!run.exception.empty() || run.lost.empty()) return run.exception;
    const fortran::WriteFault& fault = run.lost.front();
    return "cannot write " + fault.file + ": " + platform::error_text(fault.error);
}

Made made_of(const group::Group& group) {
    Made made{.piles = group.piles.size(), .elements = 0, .sections = group.sections.size()};
    for (const group::Pile& pile : group.piles) {
        made.elements += pile.elements.size();
    }
    return made;
}

// What is missing behind the last line is told at that line: an editor has none behind it.
void keep_in_deck(Findings& findings, const std::vector<std::string>& lines) {
    const int last = static_cast<int>(lines.size());
    for (Finding& finding : findings) {
        if (finding.place.column == 0) finding.place.line = std::min(finding.place.line, last);
    }
}

// What the run says comes first, then what explains it, then the rest in the order of the lines.
void look(const Subject& subject, const Selection& selection, CheckedDeck& deck) {
    std::size_t about_the_run = 0;
    const auto groups = rule_groups();
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (i == groups_about_the_run) about_the_run = deck.findings.size();
        if (i > group_of_characters && !is_text(subject.lines)) continue; // no lines to look at
        for (const Rule& rule : groups[i]) {
            if (is_asked_for(rule, selection, deck)) rule.look(subject, rule, deck.findings);
        }
    }
    keep_in_deck(deck.findings, subject.lines);
    const auto line_of = [](const Finding& finding) { return finding.place.line; };
    std::ranges::stable_sort(std::span(deck.findings).subspan(about_the_run), {}, line_of);
}

CheckedDeck unchecked(const DeckFile& file) {
    return {
        .file = file.shown, .lines = lines_of(file.bytes), .made = {}, .findings = {}, .off = {}};
}

// What the rules have looked at, without the deck and the run.
struct Seen {
    Outline outline;
    int revision = 4;
    std::optional<UnitSystem> units;
};

Seen look_at_run(const DeckFile& file, const ScratchRun& run, const Selection& selection,
                 CheckedDeck& deck) {
    const Layout layout(deck.lines);
    Seen seen{.outline = read_outline(run.cmn->report, run.cmn->NLINE, deck.lines, layout),
              .revision = layout.revision(),
              .units = {}};
    const std::string stop = stop_of(run);
    const Subject subject{.lines = deck.lines,
                          .outline = seen.outline,
                          .cmn = *run.cmn,
                          .group = run.group ? &*run.group : nullptr,
                          .exit_code = run.exit_code,
                          .deck_name = file.name,
                          .stop = stop,
                          .layout = &layout};
    look(subject, selection, deck);
    seen.units = deck_units(subject);
    return seen;
}

} // namespace

long count(const CheckedDeck& deck, Level level) {
    return static_cast<long>(std::ranges::count(deck.findings, level, &Finding::level));
}

CheckedDeck error_of(const DeckFile& file, const ScratchRun& run) {
    CheckedDeck deck = unchecked(file);
    look_at_run(file, run, {.only = {"run-error"}, .off = {}}, deck);
    return deck;
}

CheckedRun check_run(const DeckFile& file, const Selection& selection) {
    CheckedDeck deck = unchecked(file);
    if (!file.beside.empty()) deck.off = read_settings(file.beside);
    ScratchRun run = run_in_scratch(file.bytes);
    Seen seen = look_at_run(file, run, selection, deck);
    if (run.group) deck.made = made_of(*run.group);
    return {.deck = std::move(deck),
            .run = std::move(run),
            .outline = std::move(seen.outline),
            .revision = seen.revision,
            .units = seen.units};
}

CheckedDeck check_deck(const DeckFile& file, const Selection& selection) {
    return check_run(file, selection).deck;
}

} // namespace korvat::check

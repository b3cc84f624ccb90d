#include "report/deck_listing.hpp"

#include "check/format.hpp"
#include "check/layout.hpp"
#include "check/text.hpp"
#include "report/record_names.hpp"
#include "text/utf8.hpp"

#include <algorithm>
#include <map>

namespace korvat::report {
namespace {

using check::Finding;

// What is more, nobody reads; a deck at all limits has less.
constexpr std::size_t most_lines = 20'000;
constexpr std::size_t most_characters = 2'000; // of a line
constexpr std::size_t most_findings = 2'000;
constexpr std::size_t most_log = 2'000'000; // bytes

std::string line_id(int line) {
    return "L" + std::to_string(line);
}

bool has_line(const ReportData& data, int line) {
    const std::size_t count = std::min(data.deck.lines.size(), most_lines);
    return line >= 1 && static_cast<std::size_t>(line) <= count;
}

// The characters of a readable text: where each begins.
std::vector<std::size_t> characters_of(std::string_view line) {
    std::vector<std::size_t> begins;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (!text::is_continuation(line[i])) begins.push_back(i);
    }
    return begins;
}

// Of each character of a line the findings there, by their index.
using Marks = std::vector<std::vector<const Finding*>>;

Marks marks_of(const std::vector<const Finding*>& findings, std::size_t characters) {
    Marks marks(characters);
    for (const Finding* const finding : findings) {
        const bool is_whole = finding->place.column < 1;
        const std::size_t first =
            is_whole ? 0 : static_cast<std::size_t>(finding->place.column) - 1;
        const std::size_t length =
            is_whole ? characters : static_cast<std::size_t>(std::max(finding->place.length, 1));
        for (std::size_t i = first; i < std::min(first + length, characters); ++i)
            marks[i].push_back(finding);
    }
    return marks;
}

void open_mark(Markup& page, const std::vector<const Finding*>& findings) {
    const Finding* const worst = *std::ranges::min_element(findings, {}, &Finding::level);
    std::string title;
    for (const Finding* const finding : findings)
        title += (title.empty() ? "" : "; ") + finding->message;
    page.open(
        "mark",
        {{"class", check::name_of(worst->level)}, {"data-rule", worst->rule}, {"title", title}});
}

void write_line(Markup& page, std::string_view line, const std::vector<const Finding*>& findings) {
    // A character may have four bytes.
    std::string text = readable(line.substr(0, 4 * most_characters));
    std::vector<std::size_t> begins = characters_of(text);
    const bool is_cut = begins.size() > most_characters || line.size() > 4 * most_characters;
    if (begins.size() > most_characters) {
        text.resize(begins[most_characters]);
        begins.resize(most_characters);
    }
    const Marks marks = marks_of(findings, begins.size());
    for (std::size_t i = 0; i < begins.size();) {
        std::size_t end = i + 1;
        while (end < begins.size() && marks[end] == marks[i])
            ++end;
        const std::size_t last = end < begins.size() ? begins[end] : text.size();
        const std::string_view part = std::string_view(text).substr(begins[i], last - begins[i]);
        if (!marks[i].empty()) open_mark(page, marks[i]);
        page.text(part);
        if (!marks[i].empty()) page.close_inline();
        i = end;
    }
    if (is_cut) page.text(" …");
}

class DeckLines {
public:
    DeckLines(Markup& page, const ReportData& data)
        : page_(&page), data_(&data), end_line_(check::Layout(data.deck.lines).end_line()) {
        for (const Finding& finding : data.deck.findings)
            findings_[finding.place.line].push_back(&finding);
        for (const LineRecord& record : data.line_records)
            records_[record.line] = &record;
    }

    void write(int number) {
        const std::string& line = data_->deck.lines[static_cast<std::size_t>(number) - 1];
        page_->open("li", attributes_of(number, line));
        page_->open("bdi", {{"dir", "ltr"}});
        write_line(*page_, line, findings_[number]);
        page_->close_inline();
        page_->close();
    }

private:
    // Nor is what stands behind END read.
    [[nodiscard]] bool is_comment(int number, const std::string& line) const {
        const bool is_behind_end = end_line_ > 0 && number > end_line_;
        return is_behind_end || (number > 1 && check::is_comment(line));
    }

    [[nodiscard]] Attributes attributes_of(int number, const std::string& line) const {
        Attributes attributes{{"id", line_id(number)}, {"value", number}};
        if (is_comment(number, line)) attributes.emplace_back("class", "comment");
        const auto found = records_.find(number);
        if (found == records_.end()) return attributes;
        const LineRecord& record = *found->second;
        attributes.emplace_back("data-r", record_name(record.id).key);
        attributes.emplace_back("data-i", record.first_item);
        if (record.pile > 0) attributes.emplace_back("data-pile", record.pile);
        return attributes;
    }

    Markup* page_;
    const ReportData* data_;
    std::map<int, std::vector<const Finding*>> findings_; // by line
    std::map<int, const LineRecord*> records_;            // by line
    int end_line_;
};

void write_finding(Markup& page, const ReportData& data, const Finding& finding) {
    const std::string level = check::name_of(finding.level);
    Attributes attributes{{"class", level}, {"data-rule", finding.rule}};
    if (finding.place.line > 0) attributes.emplace_back("data-line", finding.place.line);
    page.open("li", attributes);
    page.element("strong", level);
    if (finding.place.line > 0) {
        const std::string place = "line " + std::to_string(finding.place.line);
        if (has_line(data, finding.place.line)) {
            page.text(", ");
            page.element("a", place, {{"href", "#" + line_id(finding.place.line)}});
        } else {
            page.text(", " + place);
        }
    }
    page.text(": ");
    page.element("bdi", finding.message, {{"class", "message"}});
    page.text(" ");
    page.element("code", finding.rule, {{"class", "rule"}});
    if (!finding.remedy.empty()) page.element("p", finding.remedy, {{"class", "remedy"}});
    page.close();
}

} // namespace

std::string counts_text(const check::CheckedDeck& deck) {
    using check::Level;
    return check::counted(count(deck, Level::error), "error") + ", " +
           check::counted(count(deck, Level::warning), "warning") + ", " +
           check::counted(count(deck, Level::note), "note");
}

void write_findings(Markup& page, const ReportData& data) {
    page.open("section", {{"id", "findings"}});
    page.element("h2", "Check");
    const std::vector<Finding>& findings = data.deck.findings;
    page.element("p", (data.is_complete ? "The deck runs: " : "The run ends with an error: ") +
                          counts_text(data.deck) + ".");
    if (!findings.empty()) {
        page.open("ul", {{"class", "findings"}});
        for (std::size_t i = 0; i < std::min(findings.size(), most_findings); ++i)
            write_finding(page, data, findings[i]);
        page.close();
    }
    if (findings.size() > most_findings) {
        page.element("p", std::to_string(findings.size() - most_findings) +
                              " more are not shown; korvat-tools check shows all.");
    }
    for (const check::SwitchedOff& off : data.deck.off) {
        page.element("p", off.rule + " is switched off: " + off.reason, {{"class", "off"}});
    }
    page.close();
}

void write_deck(Markup& page, const ReportData& data) {
    page.open("section", {{"id", "deck"}});
    page.element("h2", "Deck");
    const std::size_t count = data.deck.lines.size();
    if (count == 0) {
        page.element("p", "The deck is empty.");
    } else {
        page.open("ol", {{"id", "deck-lines"}});
        DeckLines lines(page, data);
        for (std::size_t i = 1; i <= std::min(count, most_lines); ++i)
            lines.write(static_cast<int>(i));
        page.close();
    }
    if (count > most_lines) {
        page.element("p", std::to_string(count - most_lines) + " more lines are not shown.");
    }
    page.close();
}

void write_log(Markup& page, const ReportData& data) {
    page.open("section", {{"id", "log"}});
    page.element("h2", "Log of the run");
    if (data.log.empty()) page.element("p", "The run has left no log.");
    if (!data.log.empty()) {
        page.open("pre", {{"tabindex", 0}});
        page.open("bdi", {{"dir", "ltr"}});
        for (const std::string& line :
             check::lines_of(std::string_view(data.log).substr(0, most_log)))
            page.text(line), page.raw("\n");
        page.close_inline();
        page.close();
    }
    if (data.log.size() > most_log) page.element("p", "The rest of the log is not shown.");
    page.close();
}

} // namespace korvat::report

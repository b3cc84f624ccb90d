#include "report/page.hpp"

#include "report/data_block.hpp"
#include "report/deck_listing.hpp"
#include "report/drawings.hpp"
#include "report/markup.hpp"
#include "report/piles.hpp"
#include "report/resources.hpp"
#include "report/sections.hpp"

#include "check/text.hpp"

namespace korvat::report {
namespace {

struct Entry {
    std::string_view id;
    std::string_view title;
};

const Resource& script_of(const PageOptions& options) {
    return options.has_view ? viewer_script() : small_viewer_script();
}

std::string policy(const PageOptions& options) {
    return "default-src 'none'; script-src '" + std::string(script_of(options).hash) +
           "'; style-src '" + std::string(viewer_style().hash) +
           "'; img-src data:; base-uri 'none'; form-action 'none'";
}

std::string title_of(const ReportData& data) {
    return data.label.empty() ? "A deck without a label" : data.label;
}

void write_head(Markup& page, const ReportData& data, const PageOptions& options) {
    page.open("head");
    page.leaf("meta", {{"charset", "utf-8"}});
    page.leaf("meta", {{"http-equiv", "Content-Security-Policy"}, {"content", policy(options)}});
    page.leaf("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
    page.element("title", title_of(data) + " - KORVAT");
    page.open("style");
    page.raw(viewer_style().text);
    page.close_inline();
    page.close();
}

std::string units_of(const ReportData& data) {
    const Units& units = data.units;
    if (!units.force || !units.length) return "as given: F and L stand for the units of the deck";
    return *units.force + " and " + *units.length + ", as factors and materials suggest";
}

std::string revision_of(const ReportData& data) {
    return data.revision == 5 ? "5 (2009-09-01)" : "4 (2006-06-11)";
}

std::string size_of(const ReportData& data) {
    const check::Made& made = *data.deck.made;
    const auto counted = [](std::size_t count, std::string_view noun) {
        return check::counted(static_cast<long>(count), noun);
    };
    return counted(made.piles, "pile") + ", " + counted(made.elements, "element") + ", " +
           counted(made.sections, "section") + ", " +
           counted(data.group.load_vectors.size(), "load vector");
}

void write_facts(Markup& page, const ReportData& data) {
    page.open("header", {{"id", "head"}});
    page.open("h1");
    page.element("bdi", title_of(data));
    page.close();
    page.open("dl", {{"class", "facts"}});
    const auto fact = [&](std::string_view name, std::string_view value) {
        page.open("div");
        page.element("dt", name);
        page.element("dd", value);
        page.close();
    };
    fact("Deck", data.deck.file);
    fact("Revision", revision_of(data));
    fact("Date", data.date);
    fact("Program", "KORVAT " + data.program);
    fact("Units", units_of(data));
    if (data.deck.made) fact("Group", size_of(data));
    fact("Check",
         counts_text(data.deck) + (data.is_complete ? "" : "; the run ends with an error"));
    page.close();
    page.close();
}

void write_contents(Markup& page, const ReportData& data, const PageOptions& options) {
    std::vector<Entry> entries{{"findings", "Check"}};
    if (data.comparison || !data.no_comparison.empty())
        entries.push_back({"comparison", "Comparison"});
    if (options.has_view) entries.push_back({"view", "View"});
    for (const Entry& entry :
         {Entry{"drawings", "Drawings"}, Entry{"sections", "Sections"}, Entry{"piles", "Piles"},
          Entry{"node-values", "Node values"}, Entry{"loads", "Load vectors"},
          Entry{"sums", "Sums"}, Entry{"deck", "Deck"}, Entry{"log", "Log"}})
        entries.push_back(entry);
    page.open("nav", {{"id", "contents"}, {"aria-label", "Contents"}});
    page.open("ul");
    for (const Entry& entry : entries) {
        page.open("li");
        page.element("a", entry.title, {{"href", "#" + std::string(entry.id)}});
        page.close();
    }
    page.close();
    page.close();
}

void write_view(Markup& page) {
    page.open("section", {{"id", "view"}});
    page.element("h2", "View");
    page.element(
        "p",
        "Without script and WebGL there is no view in three dimensions; the drawings below "
        "show the group.",
        {{"id", "no-3d"}, {"hidden", ""}});
    page.open("noscript");
    page.element("p",
                 "Without script there is no view in three dimensions; the drawings below show "
                 "the group.");
    page.close();
    page.element("div", "", {{"id", "scene"}});
    page.element("aside", "",
                 {{"id", "details"}, {"aria-live", "polite"}, {"aria-label", "Details"}});
    page.close();
}

void write_main(Markup& page, const ReportData& data, const PageOptions& options) {
    page.open("main", {{"id", "main"}});
    write_findings(page, data);
    write_comparison(page, data);
    if (options.has_view) write_view(page);
    write_drawings(page, data);
    write_sections(page, data);
    write_piles(page, data);
    write_node_values(page, data);
    write_loads(page, data);
    write_sums(page, data);
    write_deck(page, data);
    write_log(page, data);
    page.close();
}

void write_licences(Markup& page) {
    page.open("footer");
    page.open("details", {{"id", "licences"}});
    page.element("summary", "Licences of what is inside");
    page.element("pre", viewer_licences());
    page.close();
    page.close();
}

} // namespace

std::string page(const ReportData& data, const PageOptions& options) {
    Markup page;
    page.raw("<!doctype html>\n");
    page.open("html", {{"lang", "en"}});
    write_head(page, data, options);
    page.open("body");
    page.element("a", "Skip to the content", {{"class", "skip"}, {"href", "#main"}});
    write_facts(page, data);
    write_contents(page, data, options);
    write_main(page, data, options);
    if (options.has_view) write_licences(page);
    page.open("script", {{"type", "application/json"}, {"id", "korvat-data"}});
    page.raw(data_block(data, options.has_view));
    page.close();
    page.open("script");
    page.raw(script_of(options).text);
    page.close_inline();
    return page.finish();
}

} // namespace korvat::report

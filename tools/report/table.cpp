#include "report/table.hpp"

#include "check/text.hpp"
#include "export/text.hpp"

#include <cmath>

namespace korvat::report {

std::string short_text(double value) {
    return std::isfinite(value) ? check::text_of(value) : exporting::number_text(value);
}

TableWriter::TableWriter(Markup& page, const Attributes& attributes, std::string_view caption,
                         const std::vector<Column>& columns)
    : page_(&page) {
    // A wide table scrolls, by the keyboard too.
    page.open(
        "div",
        {{"class", "table-wrap"}, {"tabindex", 0}, {"role", "region"}, {"aria-label", caption}});
    page.open("table", attributes);
    page.element("caption", caption);
    page.open("thead");
    page.open("tr");
    for (const Column& column : columns) {
        page.open("th", {{"scope", "col"}, {"class", column.is_number ? "n" : "t"}});
        page.text(column.title);
        if (!column.unit.empty())
            page.element("span", " [" + column.unit + "]", {{"class", "unit"}});
        page.close();
    }
    page.close();
    page.close();
    page.open("tbody");
}

void TableWriter::end_row() {
    if (is_in_row_) page_->close();
    is_in_row_ = false;
}

void TableWriter::begin_row(const Attributes& attributes) {
    end_row();
    page_->open("tr", attributes);
    is_in_row_ = true;
}

void TableWriter::begin_totals() {
    end_row();
    page_->close();
    page_->open("tfoot");
}

void TableWriter::number(double value) {
    page_->element("td", short_text(value), {{"class", "n"}, {"data-value", value}});
}

void TableWriter::exact_number(double value) {
    const std::string text = exporting::number_text(value);
    page_->element("td", text, {{"class", "n"}, {"data-value", text}});
}

void TableWriter::integer(long value) {
    const std::string text = std::to_string(value);
    page_->element("td", text, {{"class", "n"}, {"data-value", text}});
}

void TableWriter::text(std::string_view text) {
    page_->element("td", text, {{"class", "t"}});
}

void TableWriter::empty(int count) {
    for (int i = 0; i < count; ++i)
        page_->element("td", "", {{"class", "t"}});
}

void TableWriter::finish() {
    end_row();
    page_->close(); // the rows
    page_->close(); // the table
    page_->close(); // what it scrolls in
}

} // namespace korvat::report

#include "report/markup.hpp"

#include "check/format.hpp"
#include "export/text.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace korvat::report {
namespace {

// Marks, embeddings, overrides and isolates of right-to-left writing.
constexpr std::array<std::string_view, 12> turning{
    "\xD8\x9C",     "\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xAA", "\xE2\x80\xAB", "\xE2\x80\xAC",
    "\xE2\x80\xAD", "\xE2\x80\xAE", "\xE2\x81\xA6", "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9"};

// The length of such a character at the beginning of a text; 0 where there is none.
std::size_t turning_length(std::string_view text) {
    const auto* const found = std::ranges::find_if(
        turning, [&](std::string_view character) { return text.starts_with(character); });
    return found == turning.end() ? 0 : found->size();
}

std::string_view entity_of(char c) {
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    default:
        return {};
    }
}

} // namespace

std::string readable(std::string_view text) {
    const std::string printable = check::printable(text);
    std::string result;
    for (std::size_t i = 0; i < printable.size();) {
        const std::size_t length = turning_length(std::string_view(printable).substr(i));
        result += length == 0 ? printable[i] : '?';
        i += std::max<std::size_t>(length, 1);
    }
    return result;
}

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : readable(text)) {
        const std::string_view entity = entity_of(c);
        entity.empty() ? result += c : result += entity;
    }
    return result;
}

Attribute::Attribute(std::string_view its_name, std::string_view its_value)
    : name(its_name), value(its_value) {}
Attribute::Attribute(std::string_view its_name, const char* its_value)
    : name(its_name), value(its_value) {}
Attribute::Attribute(std::string_view its_name, const std::string& its_value)
    : name(its_name), value(its_value) {}
Attribute::Attribute(std::string_view its_name, double its_value)
    : name(its_name), value(exporting::number_text(its_value)) {}
Attribute::Attribute(std::string_view its_name, int its_value)
    : name(its_name), value(std::to_string(its_value)) {}

void Markup::begin(std::string_view name, const Attributes& attributes) {
    markup_ += '<';
    markup_ += name;
    for (const Attribute& attribute : attributes) {
        markup_ += ' ';
        markup_ += attribute.name;
        markup_ += "=\"";
        markup_ += escaped(attribute.value);
        markup_ += '"';
    }
}

void Markup::open(std::string_view name, const Attributes& attributes) {
    begin(name, attributes);
    markup_ += '>';
    open_.emplace_back(name);
}

void Markup::close() {
    close_inline();
    markup_ += '\n';
}

void Markup::close_inline() {
    markup_ += "</" + open_.back() + ">";
    open_.pop_back();
}

void Markup::leaf(std::string_view name, const Attributes& attributes) {
    begin(name, attributes);
    markup_ += "/>\n";
}

void Markup::text(std::string_view text) {
    markup_ += escaped(text);
}

void Markup::element(std::string_view name, std::string_view content,
                     const Attributes& attributes) {
    open(name, attributes);
    text(content);
    close_inline();
}

void Markup::raw(std::string_view markup) {
    markup_ += markup;
}

std::string Markup::finish() {
    while (!open_.empty())
        close();
    return std::move(markup_);
}

} // namespace korvat::report

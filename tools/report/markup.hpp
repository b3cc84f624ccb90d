// The markup of the page. Every text that comes from a deck goes through here, and nowhere else.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvat::report {

// A text that shows what it holds and does nothing else: bytes that are no UTF-8, control characters but
// tabs, and characters that turn the direction of writing become question marks.
[[nodiscard]] std::string readable(std::string_view text);

// A text for markup, as content or as a quoted attribute; it is readable.
[[nodiscard]] std::string escaped(std::string_view text);

// An attribute of an element. Numbers are written so that they read back as the same.
struct Attribute {
    Attribute(std::string_view its_name, std::string_view its_value);
    Attribute(std::string_view its_name, const char* its_value);
    Attribute(std::string_view its_name, const std::string& its_value);
    Attribute(std::string_view its_name, double its_value);
    Attribute(std::string_view its_name, int its_value);

    std::string_view name;
    std::string value;
};

using Attributes = std::vector<Attribute>;

// Elements one behind and within the other. What comes out is HTML and, but for scripts, XML.
class Markup {
public:
    void open(std::string_view name, const Attributes& attributes = {});
    void close();        // the last that is open
    void close_inline(); // the same, without the line end behind it
    // With no content; in HTML itself only for the elements that cannot have any.
    void leaf(std::string_view name, const Attributes& attributes = {});
    void text(std::string_view text);
    void element(std::string_view name, std::string_view text, const Attributes& attributes = {});
    // As it is: the project's own scripts and styles, and markup that was made here.
    void raw(std::string_view markup);

    // All of it; what is open is closed.
    [[nodiscard]] std::string finish();

private:
    void begin(std::string_view name, const Attributes& attributes);

    std::string markup_;
    std::vector<std::string> open_;
};

} // namespace korvat::report

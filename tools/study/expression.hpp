// What stands in a named place of a template before its format: a name, a number, or a sum of such.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::study {

// The value of a name; raises StudyError where it has none.
using Lookup = std::function<double(const std::string& name)>;

// A node of an expression: a number, a name, or an operation on two others.
class Expression {
public:
    // Names begin with a letter or an underscore; numbers are decimal; + - * / and parentheses, with the
    // signs for minus, times and division that word processors write. Raises StudyError, with what is wrong,
    // where the text is no expression.
    explicit Expression(std::string_view text);
    ~Expression();
    Expression(Expression&&) noexcept;
    Expression& operator=(Expression&&) noexcept;

    // Raises StudyError where a name has no value or the result is not finite.
    [[nodiscard]] double value(const Lookup& lookup) const;

    // The names in it, in the order of the text, each once.
    [[nodiscard]] std::vector<std::string> names() const;

    // The name, where it is nothing but that; else empty. Its place takes a text as well as a number.
    [[nodiscard]] std::string only_name() const;

    struct Node;

private:
    std::unique_ptr<Node> root_;
};

// Whether a text can be a name.
[[nodiscard]] bool is_name(std::string_view text);

} // namespace korvat::study

#include "study/expression.hpp"

#include "study/study_error.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace korvat::study {

struct Expression::Node {
    char operation = 0; // one of + - * /; 0: a number or a name
    double number = 0.0;
    std::string name; // empty: a number
    std::unique_ptr<Node> left;
    std::unique_ptr<Node> right;
};

namespace {

using Node = Expression::Node;
using NodePointer = std::unique_ptr<Node>;

constexpr int most_nested = 100; // of parentheses and signs

bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

// The signs of word processors, in UTF-8, and what they stand for.
constexpr std::pair<std::string_view, char> other_signs[] = {
    {"\xE2\x88\x92", '-'}, {"\xC3\x97", '*'}, {"\xC3\xB7", '/'}};

NodePointer operation(char sign, NodePointer left, NodePointer right) {
    auto node = std::make_unique<Node>();
    node->operation = sign;
    node->left = std::move(left);
    node->right = std::move(right);
    return node;
}

class Parser {
public:
    explicit Parser(std::string_view text) : all_(text), rest_(text) {}

    NodePointer parse() {
        NodePointer node = sum(0);
        if (next() != 0) refuse("'" + std::string(rest_) + "' cannot stand there");
        return node;
    }

private:
    [[noreturn]] void refuse(const std::string& what) const {
        throw StudyError("'" + std::string(all_) + "' is no expression: " + what);
    }

    // The next character that is not blank, signs as + - * /; 0 at the end.
    char next() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
        if (rest_.empty()) return 0;
        for (const auto& [sign, meaning] : other_signs) {
            if (rest_.starts_with(sign)) return meaning;
        }
        return rest_.front();
    }

    void take_sign() {
        for (const auto& [sign, meaning] : other_signs) {
            if (rest_.starts_with(sign)) return rest_.remove_prefix(sign.size());
        }
        rest_.remove_prefix(1);
    }

    NodePointer sum(int depth) {
        NodePointer node = product(depth);
        for (char sign = next(); sign == '+' || sign == '-'; sign = next()) {
            take_sign();
            node = operation(sign, std::move(node), product(depth));
        }
        return node;
    }

    NodePointer product(int depth) {
        NodePointer node = factor(depth);
        for (char sign = next(); sign == '*' || sign == '/'; sign = next()) {
            take_sign();
            node = operation(sign, std::move(node), factor(depth));
        }
        return node;
    }

    NodePointer factor(int depth) {
        if (depth > most_nested) refuse("it is nested too deeply");
        const char first = next();
        if (first == '-' || first == '+') {
            take_sign();
            NodePointer operand = factor(depth + 1);
            return first == '+' ? std::move(operand)
                                : operation('-', std::make_unique<Node>(), std::move(operand));
        }
        if (first == '(') {
            take_sign();
            NodePointer inner = sum(depth + 1);
            if (next() != ')') refuse("a parenthesis is not closed");
            take_sign();
            return inner;
        }
        if (is_letter(first)) return name();
        if (is_digit(first) || first == '.') return number();
        if (first == 0) refuse("a name or a number is missing at its end");
        refuse("'" + std::string(rest_) + "' begins with neither a name nor a number");
    }

    NodePointer name() {
        const auto end =
            std::ranges::find_if_not(rest_, [](char c) { return is_letter(c) || is_digit(c); });
        const auto length = static_cast<std::size_t>(end - rest_.begin());
        auto node = std::make_unique<Node>();
        node->name = std::string(rest_.substr(0, length));
        rest_.remove_prefix(length);
        return node;
    }

    NodePointer number() {
        auto node = std::make_unique<Node>();
        const char* const end = rest_.data() + rest_.size();
        const auto [stop, error] = std::from_chars(rest_.data(), end, node->number);
        if (error != std::errc()) refuse("'" + std::string(rest_) + "' is no number");
        rest_.remove_prefix(static_cast<std::size_t>(stop - rest_.data()));
        return node;
    }

    std::string_view all_;
    std::string_view rest_;
};

double value_of(const Node& node, const Lookup& lookup) {
    if (node.operation == 0) return node.name.empty() ? node.number : lookup(node.name);
    const double left = value_of(*node.left, lookup);
    const double right = value_of(*node.right, lookup);
    switch (node.operation) {
    case '+':
        return left + right;
    case '-':
        return left - right;
    case '*':
        return left * right;
    default:
        return left / right;
    }
}

void add_names(const Node& node, std::vector<std::string>& names) {
    if (node.operation != 0) {
        add_names(*node.left, names);
        add_names(*node.right, names);
    } else if (!node.name.empty() && std::ranges::find(names, node.name) == names.end()) {
        names.push_back(node.name);
    }
}

} // namespace

Expression::Expression(std::string_view text) : root_(Parser(text).parse()) {}
Expression::~Expression() = default;
Expression::Expression(Expression&&) noexcept = default;
Expression& Expression::operator=(Expression&&) noexcept = default;

double Expression::value(const Lookup& lookup) const {
    const double value = value_of(*root_, lookup);
    if (!std::isfinite(value)) throw StudyError("its value is not finite");
    return value;
}

std::vector<std::string> Expression::names() const {
    std::vector<std::string> names;
    add_names(*root_, names);
    return names;
}

std::string Expression::only_name() const {
    return root_->operation == 0 ? root_->name : std::string();
}

bool is_name(std::string_view text) {
    return !text.empty() && is_letter(text.front()) &&
           std::ranges::all_of(text, [](char c) { return is_letter(c) || is_digit(c); });
}

} // namespace korvat::study

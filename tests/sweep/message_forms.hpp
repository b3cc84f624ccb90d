// The messages that a log may hold, as forms with fields for their items.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// One line of a form: text, each piece with the field that follows it.
struct FormPiece {
    std::string text;
    char letter = ' '; // of the edit descriptor: i, f, e, a; blank when no field follows
    std::size_t width = 0;
};
using FormLine = std::vector<FormPiece>;

// Forms are read from text: a line "message", "stop" (the last message of a stopped run) or
// "console" (a message for standard error), then the lines of the message, each behind a "|", with
// edit descriptors in braces where items stand: "|Pile {i5} , {f10}".
class MessageForms {
public:
    explicit MessageForms(std::string_view text);

    // How many lines from the index on are one message, 0 when they are none.
    [[nodiscard]] std::size_t message_at(std::span<const std::string> lines,
                                         std::size_t index) const;
    [[nodiscard]] std::size_t console_at(std::span<const std::string> lines,
                                         std::size_t index) const;

    // The last message is one that a stopped run ends with.
    [[nodiscard]] bool ends_with_stop(std::span<const std::string> lines) const;

    [[nodiscard]] std::size_t count() const { return messages_.size(); }

private:
    using Form = std::vector<FormLine>;

    static bool stands_at(std::span<const std::string> lines, std::size_t index, const Form& form);
    static std::size_t length_at(std::span<const std::string> lines, std::size_t index,
                                 const std::vector<Form>& forms);

    std::vector<Form> messages_;
    std::vector<Form> stops_;
    std::vector<Form> console_;
};

} // namespace korvat::test

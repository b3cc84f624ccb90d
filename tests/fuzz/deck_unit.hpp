// A store with a deck on its input unit and an empty file on its message unit, for one fuzz run.
#pragma once

#include "require.hpp"
#include "scratch.hpp"

#include "model/store/store.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// The lines that the runtime finds in a text, cut to a width and padded to it.
inline std::vector<std::string> padded_lines(std::string_view text, std::size_t width) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) line.pop_back();
        line.resize(width, ' ');
        lines.push_back(std::move(line));
    }
    return lines;
}

// A return character that no line feed follows is read in ways that padded_lines does not know.
inline bool has_lone_return(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && (i + 1 == text.size() || text[i + 1] != '\n')) return true;
    }
    return false;
}

class DeckUnit {
public:
    static constexpr int input = 12;
    static constexpr int messages = 20;

    explicit DeckUnit(std::string_view deck) {
        fuzz_scratch().write_file("deck", deck);
        fuzz_scratch().write_file("messages", "");
        require(store().runtime.open(input, "deck", fortran::OpenStatus::old_file) == 0, "deck");
        require(store().runtime.open(messages, "messages", fortran::OpenStatus::old_file) == 0,
                "messages");
    }
    ~DeckUnit() {
        store().runtime.close(input);
        store().runtime.close(messages);
    }
    DeckUnit(const DeckUnit&) = delete;
    DeckUnit& operator=(const DeckUnit&) = delete;

    // One for the process: it takes longer to make than a record to read.
    static Store& store() {
        static Store store(0, nullptr);
        return store;
    }

    // What has been written to the message unit, which is closed.
    static std::string written() {
        store().runtime.close(messages);
        return fuzz_scratch().read_file("messages");
    }

private:
    InFuzzScratch current_;
};

} // namespace korvat::test

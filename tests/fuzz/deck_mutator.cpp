// Changes of a deck by lines and tokens, beside the fuzzer's own changes of bytes.
#include "require.hpp"
#include "support/scratch_directory.hpp"

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

namespace korvat::test {
namespace {

// The entries of the fuzzer's dictionary: texts in double quotes, with \\, \" and \xNN.
std::vector<std::string> read_dictionary() {
    const std::string file = read_whole_file(KORVAT_FUZZ_DICTIONARY);
    std::vector<std::string> entries;
    std::size_t from = 0;
    while (from < file.size()) {
        const std::size_t end = std::min(file.find('\n', from), file.size());
        const std::string line = file.substr(from, end - from);
        from = end + 1;
        if (!line.starts_with('"')) continue;
        std::string entry;
        for (std::size_t i = 1; i + 1 < line.size(); ++i) {
            if (line[i] != '\\') {
                entry += line[i];
            } else if (line[i + 1] == 'x') {
                entry += static_cast<char>(std::stoi(line.substr(i + 2, 2), nullptr, 16));
                i += 3;
            } else {
                entry += line[++i];
            }
        }
        entries.push_back(std::move(entry));
    }
    require(!entries.empty(), "a dictionary");
    return entries;
}

const std::vector<std::string>& dictionary() {
    static const std::vector<std::string> entries = read_dictionary();
    return entries;
}

// Without its line end; the last line needs none.
std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::size_t from = 0;
    while (from < text.size()) {
        const std::size_t end = std::min(text.find(separator, from), text.size());
        parts.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return parts;
}

class DeckMutation {
public:
    DeckMutation(const std::string& deck, unsigned seed)
        : engine_(seed), lines_(split(deck, '\n')) {}

    std::string mutated() {
        const std::size_t changes = 1 + below(3);
        for (std::size_t i = 0; i < changes; ++i)
            change();
        std::string deck;
        for (const std::string& line : lines_)
            deck += line + '\n';
        return deck;
    }

private:
    std::size_t below(std::size_t count) { return engine_() % count; }

    const std::string& evil_token() { return dictionary()[below(dictionary().size())]; }

    void change() {
        if (lines_.empty()) lines_.emplace_back(evil_token());
        if (below(4) == 0) {
            change_lines();
        } else {
            change_tokens();
        }
    }

    void change_lines() {
        const std::size_t i = below(lines_.size());
        const auto place = lines_.begin() + static_cast<std::ptrdiff_t>(i);
        const std::string other = lines_[below(lines_.size())];
        switch (below(7)) {
        case 0:
            lines_.erase(place);
            return;
        case 1:
            lines_.insert(place, std::string(*place));
            return;
        case 2:
            std::swap(*place, lines_[(i + 1) % lines_.size()]);
            return;
        case 3:
            lines_.insert(place, other);
            return;
        case 4:
            lines_.insert(place, evil_token());
            return;
        case 5:
            lines_.resize(i + 1);
            return;
        default:
            *place += ' ' + other;
        }
    }

    void change_tokens() {
        std::string& line = lines_[below(lines_.size())];
        std::vector<std::string> tokens = split(line, ' ');
        std::erase(tokens, "");
        if (tokens.empty()) {
            line = evil_token();
            return;
        }
        const std::size_t i = below(tokens.size());
        const auto place = tokens.begin() + static_cast<std::ptrdiff_t>(i);
        switch (below(8)) {
        case 0:
            tokens.erase(place);
            break;
        case 1:
            tokens.insert(place, std::string(*place));
            break;
        case 2:
            std::swap(*place, tokens[below(tokens.size())]);
            break;
        case 3:
            *place = std::to_string(static_cast<int>(below(24)) - 2);
            break;
        case 4:
            *place = std::to_string(below(2000)) + '.' + std::to_string(below(100));
            break;
        case 5:
            tokens.insert(place, evil_token());
            break;
        default:
            *place = evil_token();
        }
        line = " ";
        for (const std::string& token : tokens)
            line += ' ' + token;
    }

    std::minstd_rand engine_;
    std::vector<std::string> lines_;
};

} // namespace
} // namespace korvat::test

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t max_size, unsigned seed) {
    if (seed % 4 == 0) return LLVMFuzzerMutate(data, size, max_size);
    const std::string deck(reinterpret_cast<const char*>(data), size);
    const std::string mutated = korvat::test::DeckMutation(deck, seed).mutated();
    const std::size_t kept = std::min(mutated.size(), max_size);
    std::copy_n(mutated.begin(), kept, data);
    return kept;
}

// The first error of a run, its warnings and their places in the deck, for the report on standard error.
#pragma once

#include <string>

namespace korvat {

// A place in the comment-free copy of the deck.
struct DeckPlace {
    int line = 0;   // from 1; beyond the copy's last line: where the input ended; 0: no place
    int column = 0; // of a value's first character, from 1; 0: the whole line

    friend bool operator==(const DeckPlace&, const DeckPlace&) = default;
};

struct Fault {
    std::string message;             // as the message log has it, with line ends; empty: no fault
    std::string file = "KORVAT.INP"; // that it concerns
    DeckPlace place;
};

// What a run that goes on has to say.
struct Warning {
    std::string text; // one of the message log as the log has it, with line ends
    DeckPlace place;
};

} // namespace korvat

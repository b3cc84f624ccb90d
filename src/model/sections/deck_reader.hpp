// Reads text lines and the numeric records that the deck's table of records describes.
#pragma once

#include "input/read.hpp"
#include "model/sections/deck_lines.hpp"
#include "model/sections/deck_records.hpp"

namespace korvat {

class DeckReader : public DeckLines {
public:
    using DeckLines::DeckLines;

    // Reads a text line of `Width` columns into LINE.
    template <std::size_t Width>
    Cause read_text_line() {
        fortran::Text<Width> line;
        if (const Cause fault = fetch(line)) return fault;
        cmn.LINE.assign(line.view());
        return Cause::none;
    }

    // Reads the k-th record of its kind into VAR and sets LOC to its location code.
    Cause read_record(deck::RecordId id, int k = 0);

    // Number i (from 1) of the record just read; the line just read when it has no such number.
    [[nodiscard]] DeckPlace place(int i) const;

    // Number i of the record just read, as the nearest integer.
    [[nodiscard]] int integer(int i) const;

    int NPHYS = 0; // physical lines of the record just read
    Values VAR;    // the record just read; keeps its numbers between records

private:
    [[nodiscard]] int first_line() const; // of the record just read
    void keep_record(deck::RecordId id, int k, int count);
};

} // namespace korvat

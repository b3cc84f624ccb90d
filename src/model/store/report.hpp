// What the report on standard error is made of. No output file of a run depends on it.
#pragma once

#include "fortran/runtime.hpp"
#include "model/store/fault.hpp"
#include "model/store/limits.hpp"
#include "model/store/table.hpp"

#include <array>
#include <string>
#include <vector>

namespace korvat {

// First and last column of a physical line inside LINE, 1-based.
struct LineColumns {
    int first = 1;
    int last = 1;
    int unseen = 0; // columns of the deck's line that found no room in front of them
};

// The physical lines of a record. Every line but the last has a number on it, and the last may find
// the value list full.
using RecordLines = std::array<LineColumns, limits::record_values + 1>;

// Where the deck gave values that are checked after its sections have been read; each table is named
// after the store's field and has its index.
struct Places {
    Table1<DeckPlace, limits::piles> NSEGP; // the pile's record in the segment table
    Table1<DeckPlace, limits::piles> ITIP;
    Table1<DeckPlace, limits::piles> IFIX;
    Table1<DeckPlace, limits::cross_sections> NLCRS;   // revision 5
    Table1<DeckPlace, limits::special_records> ISPNOD; // the record's last node
};

// A number of the deck as it is written there, before any factor.
struct GivenNumber {
    double value = 0.0;
    DeckPlace place;
};

// A record that a reader has taken, before its values were checked.
struct GivenRecord {
    int kind = 0;       // position in the deck's table of records, from 0
    int k = 0;          // as in its location code; 0 where it is single
    int first_line = 0; // of NF12
    std::vector<GivenNumber> numbers = {};
};

struct Report {
    Fault fault; // the run's first error
    std::vector<Warning> warnings;

    // Of each line of NF12, in order, its number in KORVAT.INP.
    std::vector<int> deck_lines;
    // The number in KORVAT.INP of the line that ended the copying: END, the last line, or the one
    // that could not be read; 0 when there is no line.
    int deck_end = 0;
    // The lines of NF12 that are not blank, by their numbers there.
    std::vector<int> text_lines;
    RecordLines record_lines; // of the record that LINE holds
    Places places;

    bool keeps_records = false;       // set before a run whose records somebody asks for
    std::vector<GivenRecord> records; // in the order of the deck; none unless they are kept

    std::vector<std::string> outputs;              // names of the output files that could be opened
    std::vector<fortran::WriteFault> lost_records; // record files that could not be written whole
};

} // namespace korvat

// What the parts of the revision-5 cross-section reader share.
#pragma once

#include "fortran/list_directed.hpp"
#include "model/sections/deck_lines.hpp"
#include "model/sections/deck_records.hpp"
#include "model/sections/tube_record.hpp"

#include <array>
#include <initializer_list>

namespace korvat {

// The values of a section line or a sub-section line behind its leading integers.
struct Rev5Tube {
    TubeRecord tube;
    double ECC = 0.0;
    double CMISC[3] = {};
};

// Stores a tube in internal units as cross section `number`.
void store_rev5_tube(Store& cmn, int number, const Rev5Tube& tube);

// Reads list-directed records, each from a line of its own on.
class Rev5Reader : public DeckLines {
public:
    explicit Rev5Reader(Store& store);

    // Begins the k-th record of its kind: sets LOC to its location code.
    void begin_record(deck::RecordId id, int k);

    // Reads the values of the record that was begun; they may go on over several lines.
    template <typename... Values>
    Cause read_values(Values&... values) {
        static_assert(sizeof...(Values) <= most_values);
        fortran::ListDirected list;
        first_line_ = cmn.NLINE + 1;
        count_ = 0;
        Cause fault = Cause::none;
        // Stops at the first value that faults.
        static_cast<void>((!(fault = take(list, values)) && ...));
        if (!fault && cmn.report.keeps_records) keep_record({static_cast<double>(values)...});
        return fault;
    }

    // Reads the leading integers of a line and the values of its tube.
    template <typename... Integers>
    Cause read_tube(Rev5Tube& line, Integers&... leading) {
        TubeRecord& tube = line.tube;
        return read_values(leading..., tube.MATCRS, tube.DIAM, tube.WALL, tube.STFAX, tube.STFBN,
                           tube.STFSH, tube.STFTO, tube.UWFLD, line.ECC, line.CMISC[0],
                           line.CMISC[1], line.CMISC[2]);
    }

    // Value i (from 1) of the record just read; its first line when i is 0.
    [[nodiscard]] DeckPlace place(int i) const {
        if (i == 0) return {.line = places_.front().line};
        return places_.at(static_cast<std::size_t>(i - 1));
    }

private:
    static constexpr std::size_t most_values = 16;

    void keep_place(const fortran::ListDirected::Position& position) {
        places_.at(count_) = {.line = first_line_ + position.line, .column = position.column};
        ++count_;
    }

    template <typename Value>
    Cause take(fortran::ListDirected& list, Value& value) {
        using Result = fortran::ListDirected::Result;
        Result result = list.take(value);
        while (result == Result::end_of_text) {
            fortran::Text<120> line;
            if (const Cause fault = fetch(line)) return fault;
            list.add_line(line.view());
            result = list.take(value);
        }
        keep_place(list.last_position());
        if (result == Result::bad_value) return report_format_error(places_.at(count_ - 1));
        return Cause::none;
    }

    void keep_record(std::initializer_list<double> values);

    deck::RecordId id_ = deck::RecordId::cross_section_5; // of the record that was begun
    int k_ = 0;                                           // of that record
    int first_line_ = 0;                                  // of the record just read
    std::array<DeckPlace, most_values> places_{};         // of its values
    std::size_t count_ = 0;                               // of the places that are set
};

// The parts of the section, in deck order.
Cause read_cross_section_lines(Rev5Reader& in);
Cause read_curve_points(Rev5Reader& in);

// Reads the sub-sections of composite N, `type` of them, into the slots behind `slot`, which is
// advanced. `type` was given at `type_place`.
Cause read_sub_sections(Rev5Reader& in, int N, int type, const DeckPlace& type_place, int& slot);

} // namespace korvat

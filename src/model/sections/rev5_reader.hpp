// What the parts of the revision-5 cross-section reader share.
#pragma once

#include "fortran/list_directed.hpp"
#include "model/sections/deck_lines.hpp"
#include "model/sections/deck_records.hpp"
#include "model/sections/tube_record.hpp"

#include <array>

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

    // Reads the values of one record; they may go on over several lines.
    template <typename... Values>
    [[nodiscard]] int read_values(Values&... values) {
        static_assert(sizeof...(Values) <= most_values);
        fortran::ListDirected list;
        first_line_ = cmn.NLINE + 1;
        count_ = 0;
        int fault = no_fault;
        // Stops at the first value that faults.
        static_cast<void>((((fault = take(list, values)) == no_fault) && ...));
        return fault;
    }

    // Reads the leading integers of a line and the values of its tube.
    template <typename... Integers>
    [[nodiscard]] int read_tube(Rev5Tube& line, Integers&... leading) {
        TubeRecord& tube = line.tube;
        return read_values(leading..., tube.MATCRS, tube.DIAM, tube.WALL, tube.STFAX, tube.STFBN,
                           tube.STFSH, tube.STFTO, tube.UWFLD, line.ECC, line.CMISC[0],
                           line.CMISC[1], line.CMISC[2]);
    }

    // Writes the second line of a message whose first has just been written.
    template <fortran::Writable... Items>
    [[nodiscard]] int add_to_message(std::string_view format, const Items&... items) {
        continue_error(cmn, cmn.NF6, format, items...);
        return cause::bad_value;
    }

    // Value i (from 1) of the record just read.
    [[nodiscard]] DeckPlace place(int i) const {
        return places_.at(static_cast<std::size_t>(i - 1));
    }

private:
    static constexpr std::size_t most_values = 16;

    void keep_place(const fortran::ListDirected::Position& position) {
        places_.at(count_) = {.line = first_line_ + position.line, .column = position.column};
        ++count_;
    }

    template <typename Value>
    int take(fortran::ListDirected& list, Value& value) {
        while (true) {
            const auto result = list.take(value);
            if (result != fortran::ListDirected::Result::end_of_text) {
                keep_place(list.last_position());
            }
            if (result == fortran::ListDirected::Result::value) return no_fault;
            if (result == fortran::ListDirected::Result::bad_value) {
                return report_format_error(places_.at(count_ - 1));
            }
            fortran::Text<120> line;
            if (const int fault = fetch(line)) return fault;
            list.add_line(line.view());
        }
    }

    int first_line_ = 0;                          // of the record just read
    std::array<DeckPlace, most_values> places_{}; // of its values
    std::size_t count_ = 0;                       // of the places that are set
};

// The parts of the section, in deck order.
[[nodiscard]] int read_cross_section_lines(Rev5Reader& in);
[[nodiscard]] int read_curve_points(Rev5Reader& in);

// Reads the sub-sections of composite N, `type` of them, into the slots behind `slot`, which is
// advanced. `type` was given at `type_place`.
[[nodiscard]] int read_sub_sections(Rev5Reader& in, int N, int type, const DeckPlace& type_place,
                                    int& slot);

} // namespace korvat

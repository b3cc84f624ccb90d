// The parts of the result listing.
#pragma once

#include "fortran/text.hpp"
#include "model/store/store.hpp"
#include "model/store/time_fields.hpp"

#include <array>
#include <string_view>

namespace korvat {

// Saved state of printpil: the names of the months in a page header, index 0..11.
struct printpil_save {
    std::array<std::string_view, 12> months = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                               "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
};

// What every page header shows.
struct PageTexts {
    const fortran::Text<10>& version;
    const fortran::Text<11>& release_date;
    const TimeFields& ITIME;
};

// Begins a page: the carriage control, the version, the time and the label.
void write_page_header(Store& cmn, const PageTexts& texts);

// Sizes, stiffnesses and sums of all cross sections, sub-sections included.
void write_cross_section_tables(Store& cmn);

// What composite cross sections are made of.
void write_composite_table(Store& cmn);

// Points of the yield curves.
void write_curve_table(Store& cmn);

// A page for each pile that has elements.
void write_pile_tables(Store& cmn, const PageTexts& texts);

// A page of dummy pile heads and the piles fixed to them, when there is a dummy pile.
void write_dummy_pile_heads(Store& cmn, const PageTexts& texts);

// A page with the sums of the head and tip coordinates.
void write_check_sums(Store& cmn, const PageTexts& texts);

} // namespace korvat

// Identification strings of the program.
#pragma once

#include "fortran/text.hpp"

#include <string_view>

namespace korvat {

struct Identification {
    fortran::Text<10> program_name;
    fortran::Text<100> program_description;
    fortran::Text<10> version;
    fortran::Text<11> release_date;
    fortran::Text<10> update;        // of the implementation; blank in this program
    fortran::Text<100> installation; // blank in this program
};

// The texts of this build.
[[nodiscard]] Identification identification();

// Day, month and year of a build date like "Feb  4 2020", as 04-Feb-2020.
[[nodiscard]] fortran::Text<11> release_date_text(std::string_view build_date);

} // namespace korvat

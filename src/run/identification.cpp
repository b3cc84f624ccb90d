#include "run/identification.hpp"

#include "run/build_date.hpp"
#include "run/program_version.hpp"

#include <string>

namespace korvat {

fortran::Text<11> release_date_text(std::string_view build_date) {
    std::string date(build_date.substr(0, 11));
    date.resize(11, ' ');
    if (date[4] == ' ') date[4] = '0';
    // The composed text has a trailing blank, which falls outside the field.
    return fortran::Text<11>(date.substr(4, 2) + "-" + date.substr(0, 3) + "-" + date.substr(7, 4) +
                             " ");
}

Identification identification() {
    Identification texts;
    texts.program_name.assign("Korvat");
    texts.program_description.assign("Structure/Pile/Soil Interaction Analysis");
    texts.version.assign(program_version());
    texts.release_date = release_date_text(build_date());
    return texts;
}

} // namespace korvat

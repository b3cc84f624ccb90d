// How the page calls the records of a deck.
#pragma once

#include "model/sections/deck_records.hpp"

#include <string_view>

namespace korvat::report {

struct RecordName {
    std::string_view key;   // as the page's data have it: "pile_geometry"
    std::string_view title; // "Pile geometry"
};

[[nodiscard]] const RecordName& record_name(deck::RecordId id);

} // namespace korvat::report

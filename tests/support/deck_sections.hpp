// The cross sections of an input deck, in the layouts of both revisions.
#pragma once

#include "deck_reader.hpp"
#include "deck_source.hpp"

namespace korvat::test {

// Each begins at the blank line of its section and leaves the source behind the last record.
void read_sections_of_revision_4(DeckSource& source, Deck& deck);
void read_sections_of_revision_5(DeckSource& source, Deck& deck);

} // namespace korvat::test

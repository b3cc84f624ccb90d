// The description of the deck in docs/deck.md lists every record and item that the reader knows.
#include "model/sections/deck_records.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace korvat::test {
namespace {

std::string deck_document() {
    const std::ifstream file(std::string(KORVAT_DOCS_DIR) + "/deck.md", std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string location_text(const deck::Record& record) {
    return std::to_string(record.location) + (record.is_repeated ? " + k" : "");
}

// One row an item; the location stands in the first row of its record.
std::string records_at_a_glance() {
    std::string table = "| Location | Section | Item | Name | Meaning | Stored unit |\n"
                        "|----------|---------|-----:|------|---------|-------------|\n";
    for (const deck::Record& record : deck::records()) {
        int number = 0;
        for (const deck::RecordItem& item : record.items) {
            ++number;
            const bool is_first = number == 1;
            table += "| " + (is_first ? location_text(record) : "") + " | " +
                     (is_first ? std::string(record.section) : "") + " | " +
                     std::to_string(number) + " | `" + std::string(item.name) + "` | " +
                     std::string(item.meaning) + " | " + std::string(item.unit) + " |\n";
        }
    }
    return table;
}

TEST(DeckDocument, ItsTableOfRecordsIsThatOfTheReader) {
    const std::string expected = records_at_a_glance();
    EXPECT_NE(deck_document().find(expected), std::string::npos)
        << "docs/deck.md, \"Records at a glance\", must hold:\n"
        << expected;
}

} // namespace
} // namespace korvat::test

// The records of a deck with the places of their numbers in the file.
#pragma once

#include "check/finding.hpp"
#include "model/sections/deck_records.hpp"

#include <utility>
#include <vector>

namespace korvat::check {

// A number of a record as it stands in the deck, before any factor.
struct Number {
    double value = 0.0;
    Place place;
};

// A record that the reader has taken, or one behind its first error that could still be made out.
struct Row {
    deck::RecordId id = deck::RecordId::force_factor;
    int k =
        0; // as in its location code: the number of the row in its section, from 1; 0 where it is single
    Place place; // its first line
    std::vector<Number> numbers;
};

class Outline {
public:
    Outline() = default;
    explicit Outline(std::vector<Row> rows) : rows_(std::move(rows)) {}

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }

    // The rows of one kind in the order of the deck.
    [[nodiscard]] std::vector<const Row*> rows(deck::RecordId id) const;

    // The first row of its kind whose first number is `number`, such as material 3; null where there is none.
    [[nodiscard]] const Row* numbered(deck::RecordId id, int number) const;

private:
    std::vector<Row> rows_;
};

// The place of item i (from 1) of a row: that of the number, else that of the row, else the whole file.
[[nodiscard]] Place place_of(const Row* row, std::size_t i);

} // namespace korvat::check

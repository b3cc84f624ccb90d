// What is wrong with a study: its template, its table, or a value.
#pragma once

#include <stdexcept>

namespace korvat::study {

// The text names the file and the line or row.
class StudyError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace korvat::study

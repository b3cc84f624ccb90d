// What a check of a record's values finds.
#pragma once

namespace korvat {

// The error number that the message shows, and the value that it is about.
struct ValueError {
    int number = 0; // 0: every value is accepted
    int value = 0;  // its place in the record, from 1; 0: the line as a whole

    [[nodiscard]] explicit operator bool() const { return number != 0; }
};

} // namespace korvat

// Why the reading of a deck ends.
#pragma once

namespace korvat {

// The cause code that linerd explains. A routine that gets one from another ends with it:
//
//     if (const Cause fault = read_point(in, place, point)) return fault;
class [[nodiscard]] Cause {
public:
    enum Code {
        none = 0,         // reading goes on
        format_error = 1, // a line could not be read
        end_of_file = 2,  // the input ended inside a section
        record_fault = 3, // read reported a fault
        bad_value = 4     // a value failed a check
    };

    constexpr Cause(Code code) : code_(code) {} // implicit: `return Cause::bad_value;`

    [[nodiscard]] constexpr Code code() const { return code_; }
    [[nodiscard]] constexpr explicit operator bool() const { return code_ != none; }

    friend constexpr bool operator==(const Cause&, const Cause&) = default;

private:
    Code code_;
};

} // namespace korvat

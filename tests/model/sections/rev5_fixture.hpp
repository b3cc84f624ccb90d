// The cross-section section of revision 5, read from lines given by a test.
#pragma once

#include "support/model_fixture.hpp"

#include "model/sections/rev5inp.hpp"

namespace korvat::test {

using Lines = std::vector<std::string>;

// Lines in front of the first cross section: a blank one and three headings.
constexpr int lines_in_front = 4;

// The blanks behind the numbers of a line: axial, bending, shear and torsional stiffness, fluid
// weight, eccentricity and three miscellaneous values, all 0.
constexpr std::string_view no_extras = " 0 0 0 0 0 0 0 0 0";

// "N type code material D t" with zeros behind.
inline std::string section(const std::string& numbers) {
    return numbers + std::string(no_extras);
}

class Rev5Test : public ModelTest {
protected:
    Rev5Test() {
        cmn().FACF = 1.0;
        cmn().FACL = 1.0;
        cmn().NUMMAT = 2;
        cmn().NUMCRS = 1;
    }

    // Reads the lines as they are; returns what was written meanwhile.
    std::string read_lines(const Lines& lines) {
        give_copy(joined(lines));
        cmn().NLINE = 0;
        cmn().IERR = -1;
        const std::size_t start = log().size();
        EXPECT_EQ(rev5inp(cmn()).code(), cmn().IERR);
        return log().substr(start);
    }

    // Reads the lines behind a blank line and three headings.
    std::string read_section(const Lines& lines) { return read_lines(under_headings(lines)); }

    static Lines under_headings(Lines lines) {
        lines.insert(lines.begin(), {"", "heading 1", "heading 2", "heading 3"});
        return lines;
    }

    static std::string bad_data(const std::string& location) {
        return "\n **** SR/REV5INP : Input data format error  LOC=" + location + "\n";
    }

    static std::string end_of_file(const std::string& location) {
        return "\n **** SR/REV5INP : End-of-file at unit NF12  LOC=" + location + "\n";
    }
};

} // namespace korvat::test

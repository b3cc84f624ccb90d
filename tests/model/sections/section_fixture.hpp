// A section reader on a copy that holds one section of a deck only.
#pragma once

#include "support/model_fixture.hpp"

#include "model/sections/section_reader.hpp"

namespace korvat::test {

class SectionTest : public ModelTest {
protected:
    using Section = Cause (*)(SectionReader&);

    SectionTest() : in(cmn()) { set_factors(1.0, 1.0); }

    void set_factors(double force, double length) {
        cmn().FACF = force;
        cmn().FACL = length;
    }

    // Reads one section from its first line; returns its cause.
    Cause read_section(Section section, const std::vector<std::string>& lines) {
        give_copy(joined(lines));
        cmn().NLINE = 0;
        return section(in);
    }

    // Lines behind a blank line and so many heading lines.
    static std::vector<std::string> under_headings(int count, std::vector<std::string> lines) {
        lines.insert(lines.begin(), static_cast<std::size_t>(count), "heading");
        lines.insert(lines.begin(), "");
        return lines;
    }

    SectionReader in;
};

} // namespace korvat::test

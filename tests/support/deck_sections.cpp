// The cross sections of an input deck, in the layouts of both revisions.
#include "deck_sections.hpp"

#include <cstddef>

namespace korvat::test {

namespace {

constexpr std::size_t text_columns = 80;
constexpr std::size_t section_reals = 11;

// The values from the material number on, which both kinds of lines share.
SectionRecord shared_items(const std::vector<double>& v, std::size_t from) {
    SectionRecord section;
    section.material = integer_of(v[from]);
    section.diameter = v[from + 1];
    section.wall = v[from + 2];
    section.axial = v[from + 3];
    section.bending = v[from + 4];
    section.shear = v[from + 5];
    section.torsion = v[from + 6];
    section.fluid_weight = v[from + 7];
    section.eccentricity = v[from + 8];
    section.miscellaneous = {v[from + 9], v[from + 10], v[from + 11]};
    return section;
}

std::vector<SectionRecord> read_sub_sections(DeckSource& source, int number, int count) {
    std::vector<SectionRecord> sub_sections;
    for (int j = 1; j <= count; ++j) {
        const std::vector<double> v = source.list_values(5, section_reals);
        if (integer_of(v[0]) != number || integer_of(v[1]) != j) {
            source.fail("sub-section out of sequence");
        }
        if (integer_of(v[2]) != 1 || integer_of(v[3]) != 0) {
            source.fail("a sub-section must be plain and linear");
        }
        sub_sections.push_back(shared_items(v, 4));
        sub_sections.back().type = 1;
    }
    return sub_sections;
}

void read_yield_points(DeckSource& source, const SectionRecord& section, Deck& deck) {
    for (int i = 1; i <= section.nonlinear; ++i) {
        const std::vector<double> v = source.list_values(2, 4);
        if (integer_of(v[0]) != section.number || integer_of(v[1]) != i) {
            source.fail("point out of sequence");
        }
        deck.yield_points[section.number].push_back({v[2], v[3], v[4], v[5]});
    }
}

} // namespace

void read_sections_of_revision_4(DeckSource& source, Deck& deck) {
    source.section_start("the cross sections", 2);
    int last = 0;
    while (last < deck.sections) {
        const std::vector<double> v = source.numbers(9);
        SectionRecord section;
        section.number = integer_of(v[0]);
        if (section.number <= last || (last == 0 && section.number != 1)) {
            source.fail("section out of sequence");
        }
        section.material = integer_of(v[1]);
        section.diameter = v[2];
        section.wall = v[3];
        section.axial = v[4];
        section.bending = v[5];
        section.shear = v[6];
        section.torsion = v[7];
        section.fluid_weight = v[8];
        deck.section_records.push_back(section);
        last = section.number;
    }
    if (last > deck.sections) source.fail("too large a cross-section number");
}

void read_sections_of_revision_5(DeckSource& source, Deck& deck) {
    if (!is_blank(source.line().substr(0, text_columns))) {
        source.fail("no blank line before the cross sections");
    }
    for (int heading = 0; heading < 3; ++heading)
        source.line();
    for (int number = 1; number <= deck.sections; ++number) {
        const std::vector<double> v = source.list_values(4, section_reals);
        if (integer_of(v[0]) != number) source.fail("section out of sequence");
        SectionRecord section = shared_items(v, 3);
        section.number = number;
        section.type = integer_of(v[1]);
        section.nonlinear = integer_of(v[2]);
        if (section.type < 1) source.fail("cross-section type below 1");
        if (section.nonlinear > 10) source.fail("non-linear code above 10");
        deck.section_records.push_back(section);
        if (section.type > 1) {
            deck.sub_sections[number] = read_sub_sections(source, number, section.type);
        }
    }
    for (const SectionRecord& section : deck.section_records)
        read_yield_points(source, section, deck);
}

} // namespace korvat::test

// Independent calculation of the cross-section values of a deck.
#include "section_model.hpp"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <stdexcept>
#include <string>

namespace korvat::test {

namespace {

using Extended = Units::Extended;

constexpr double smallest = 1.0e-10;
constexpr std::size_t most_sections = 200;
constexpr std::size_t most_sub_sections = 12;

[[noreturn]] void fail_at_section(int number, const std::string& why) {
    throw std::runtime_error("cross section " + std::to_string(number) + ": " + why);
}

SectionRecord scaled_section(const SectionRecord& section, const Units& units) {
    SectionRecord result = section;
    result.diameter = scaled(section.diameter, units.length);
    result.wall = scaled(section.wall, units.length);
    result.axial = scaled(section.axial, units.force);
    result.shear = scaled(section.shear, units.force);
    result.bending = scaled(section.bending, units.stiffness());
    result.torsion = scaled(section.torsion, units.stiffness());
    result.fluid_weight = scaled(section.fluid_weight, units.weight());
    return result;
}

// The omitted sections sit at the middles of as many equal parts as there are omitted sections.
SectionRecord omitted_section(const SectionRecord& from, const SectionRecord& to, int number) {
    const Extended share =
        (Extended(number) - from.number - 0.5L) / Extended(to.number - from.number - 1);
    const auto between = [&](double a, double b) {
        return static_cast<double>(Extended(a) * (1.0L - share) + Extended(b) * share);
    };
    SectionRecord result;
    result.number = number;
    result.material = from.material;
    result.diameter = between(from.diameter, to.diameter);
    result.wall = between(from.wall, to.wall);
    result.axial = between(from.axial, to.axial);
    result.bending = between(from.bending, to.bending);
    result.shear = between(from.shear, to.shear);
    result.torsion = between(from.torsion, to.torsion);
    result.fluid_weight = between(from.fluid_weight, to.fluid_weight);
    return result;
}

std::vector<SectionRecord> all_records(const Deck& deck, const Units& units) {
    std::vector<SectionRecord> sections;
    for (const SectionRecord& given : deck.section_records) {
        const SectionRecord next = scaled_section(given, units);
        const SectionRecord previous = sections.empty() ? SectionRecord{} : sections.back();
        for (int number = previous.number + 1; number < next.number; ++number) {
            sections.push_back(omitted_section(previous, next, number));
        }
        sections.push_back(next);
    }
    return sections;
}

// Slots 15 to 20 are filled for revision 5 only.
ModelSection tube(const SectionRecord& section, const std::vector<MaterialRecord>& materials,
                  int revision) {
    if (section.material < 1 || static_cast<std::size_t>(section.material) > materials.size()) {
        fail_at_section(section.number, "there is no such material");
    }
    const MaterialRecord& material = materials[static_cast<std::size_t>(section.material) - 1];
    const Extended outer = section.diameter;
    const Extended inner = outer - 2.0L * section.wall;
    const Extended pi = std::numbers::pi_v<Extended>;
    const Extended area = pi / 4.0L * (outer - inner) * (outer + inner);
    const Extended inertia =
        pi / 64.0L * (outer - inner) * (outer + inner) * (outer * outer + inner * inner);
    const auto given_or = [](double given, Extended computed) {
        return given > smallest ? given : static_cast<double>(computed);
    };
    ModelSection result;
    result.material = section.material;
    result.diameter = section.diameter;
    result.wall = section.wall;
    result.type = section.type;
    result.nonlinear = section.nonlinear;
    result.values = {section.diameter,
                     section.wall,
                     static_cast<double>(area),
                     static_cast<double>(2.0L * inertia / outer),
                     given_or(section.axial, area * material.young),
                     given_or(section.shear, area * material.shear),
                     given_or(section.bending, inertia * material.young),
                     given_or(section.torsion, 2.0L * inertia * material.shear),
                     material.wall_weight,
                     section.fluid_weight,
                     material.temperature_strain,
                     material.yield,
                     material.young,
                     material.shear};
    if (revision < 5) return result;
    // The force at yield, and the torque at half the yield stress at the middle of the wall.
    const Extended radius = (outer + inner) / 4.0L;
    result.values[14] = section.eccentricity;
    result.values[15] = static_cast<double>(area * material.yield);
    result.values[16] = static_cast<double>(area * material.yield * radius / 2.0L);
    for (std::size_t i = 0; i < 3; ++i)
        result.values[17 + i] = section.miscellaneous[i];
    return result;
}

// Each sub-section must fill the one before it.
void check_nesting(const std::vector<SectionRecord>& records, int number) {
    if (records.size() > most_sub_sections) fail_at_section(number, "too many sub-sections");
    double inside = records.front().diameter;
    for (const SectionRecord& record : records) {
        if (std::abs(inside - record.diameter) > smallest) {
            fail_at_section(number, "a sub-section does not fit into the one before");
        }
        if (record.eccentricity > smallest) fail_at_section(number, "eccentric sub-section");
        inside = record.diameter - 2.0 * record.wall;
    }
}

ModelSection composite(const SectionRecord& record, const std::vector<ModelSection>& parts) {
    ModelSection result;
    result.diameter = record.diameter;
    result.wall = record.wall;
    result.type = record.type;
    result.nonlinear = record.nonlinear;
    for (const ModelSection& part : parts) {
        if (part.diameter > result.values[0]) result.values[0] = part.diameter;
    }
    // Area, the stiffnesses and both capacities of the parts add up.
    for (const std::size_t slot : {3U, 5U, 6U, 7U, 8U, 16U, 17U}) {
        Extended sum = 0.0L;
        for (const ModelSection& part : parts)
            sum += part.values[slot - 1];
        result.values[slot - 1] = static_cast<double>(sum);
    }
    result.values[14] = record.eccentricity;
    for (std::size_t i = 0; i < 3; ++i)
        result.values[17 + i] = record.miscellaneous[i];
    return result;
}

} // namespace

std::vector<ModelSection> model_sections(const Deck& deck, const Units& units,
                                         const std::vector<MaterialRecord>& materials) {
    std::vector<ModelSection> sections;
    std::vector<ModelSection> behind;
    const std::vector<SectionRecord> records = all_records(deck, units);
    for (const SectionRecord& record : records) {
        if (record.type < 2) {
            sections.push_back(tube(record, materials, deck.revision));
        } else {
            std::vector<SectionRecord> scaled_parts;
            for (const SectionRecord& part : deck.sub_sections.at(record.number))
                scaled_parts.push_back(scaled_section(part, units));
            check_nesting(scaled_parts, record.number);
            std::vector<ModelSection> parts;
            for (const SectionRecord& part : scaled_parts)
                parts.push_back(tube(part, materials, deck.revision));
            sections.push_back(composite(record, parts));
            for (const ModelSection& part : parts) {
                behind.push_back(part);
                sections.back().sub_sections.push_back(
                    static_cast<int>(records.size() + behind.size()));
            }
        }
        const auto points = deck.yield_points.find(record.number);
        if (points != deck.yield_points.end()) sections.back().points = points->second;
    }
    sections.insert(sections.end(), behind.begin(), behind.end());
    if (sections.size() > most_sections) throw std::runtime_error("too many cross sections");
    return sections;
}

} // namespace korvat::test

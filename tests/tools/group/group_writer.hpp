// Writes the bytes of PILE.07 and LOAD.09 from a group, byte by byte as docs/files.md describes them, and
// without anything of the reader.
#pragma once

#include "group/group.hpp"

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

namespace korvat::test {

class RecordBytes {
public:
    RecordBytes& integer(int value) {
        little_endian(static_cast<std::uint32_t>(value), 4);
        return *this;
    }
    RecordBytes& real(double value) {
        little_endian(std::bit_cast<std::uint64_t>(value), 8);
        return *this;
    }
    RecordBytes& label(std::string text) {
        text.resize(80, ' ');
        data_ += text;
        return *this;
    }
    RecordBytes& reals(const std::vector<double>& values) {
        for (const double value : values)
            real(value);
        return *this;
    }

    // With its segments.
    [[nodiscard]] std::string framed() const {
        if (data_.size() < 128) return segment(static_cast<char>(data_.size()), data_);
        std::string bytes;
        std::size_t at = 0;
        for (; data_.size() - at >= 128; at += 128) {
            const bool is_only = data_.size() == 128;
            bytes += (is_only ? '\x80' : '\x81') + data_.substr(at, 128) + '\x81';
        }
        return bytes + segment(static_cast<char>(data_.size() - at), data_.substr(at));
    }

private:
    static std::string segment(char length, const std::string& data) {
        return length + data + length;
    }
    void little_endian(std::uint64_t value, int count) {
        for (int i = 0; i < count; ++i)
            data_ += static_cast<char>(value >> (8 * i) & 0xFFU);
    }

    std::string data_;
};

inline std::string written_section(const group::Section& s) {
    return RecordBytes()
        .reals({s.diameter,
                s.wall,
                s.area,
                s.section_modulus,
                s.axial_stiffness,
                s.shear_stiffness,
                s.bending_stiffness,
                s.torsional_stiffness,
                s.wall_weight,
                s.fluid_weight,
                s.temperature_strain,
                s.yield_stress,
                s.elastic_modulus,
                s.shear_modulus,
                s.eccentricity,
                s.axial_yield,
                s.torsional_yield,
                s.miscellaneous[0],
                s.miscellaneous[1],
                s.miscellaneous[2]})
        .framed();
}

// The two records of revision 5, with 200 places each.
inline std::string written_section_integers(std::vector<group::Section> sections) {
    sections.resize(200);
    RecordBytes integers;
    for (const auto& section : sections)
        integers.integer(section.type);
    for (const auto& section : sections)
        integers.integer(section.non_linear_code);
    for (const auto& section : sections) {
        for (std::size_t i = 0; i < 12; ++i)
            integers.integer(i < section.tubes.size() ? section.tubes[i] : 0);
    }
    return integers.framed();
}

inline std::string written_curves(std::vector<group::Section> sections) {
    sections.resize(200);
    RecordBytes reals;
    for (const auto curve : {&group::Section::elastic_curve, &group::Section::plastic_curve}) {
        for (const auto value : {&group::YieldPoint::axial, &group::YieldPoint::moment}) {
            for (const auto& section : sections) {
                for (std::size_t i = 0; i < 10; ++i) {
                    const auto& points = section.*curve;
                    reals.real(i < points.size() ? points[i].*value : 0.0);
                }
            }
        }
    }
    return reals.framed();
}

inline std::string written_pile(const group::Pile& pile) {
    std::string bytes = RecordBytes()
                            .integer(pile.number)
                            .integer(pile.fixed_to)
                            .integer(static_cast<int>(pile.elements.size()))
                            .integer(pile.tip_code)
                            .framed();
    RecordBytes x;
    RecordBytes y;
    RecordBytes z;
    for (const auto& node : pile.nodes) {
        x.real(node.x);
        y.real(node.y);
        z.real(node.z);
    }
    bytes += x.framed() + y.framed() + z.framed();
    for (std::size_t k = 0; k < 6; ++k) {
        RecordBytes springs;
        RecordBytes forces;
        RecordBytes displacements;
        for (const auto& node : pile.nodes) {
            springs.real(node.springs[k]);
            forces.real(node.forces[k]);
            displacements.real(node.displacements[k]);
        }
        bytes += springs.framed() + forces.framed() + displacements.framed();
    }
    if (pile.elements.empty()) return bytes;
    RecordBytes sizes;
    RecordBytes sections;
    for (const auto& element : pile.elements) {
        sizes.real(element.diameter).real(element.length);
        sections.integer(element.section).real(element.strain);
    }
    return bytes + sizes.framed() + sections.framed();
}

// Header byte, records, end byte.
inline std::string written_pile_file(const group::Group& group) {
    std::string bytes = "K";
    if (group.revision == 5)
        bytes += RecordBytes()
                     .integer(group.date[0])
                     .integer(group.date[1])
                     .integer(group.date[2])
                     .framed();
    bytes += RecordBytes().label(group.label).framed();
    bytes += RecordBytes()
                 .integer(static_cast<int>(group.piles.size()))
                 .integer(static_cast<int>(group.sections.size()))
                 .framed();
    for (const auto& section : group.sections)
        bytes += written_section(section);
    if (group.revision == 5)
        bytes += written_section_integers(group.sections) + written_curves(group.sections);
    for (const auto& pile : group.piles)
        bytes += written_pile(pile);
    return bytes + '\x82';
}

inline std::string written_load_file(const std::vector<group::LoadVector>& vectors) {
    std::string bytes = "K";
    for (const auto& vector : vectors) {
        bytes += RecordBytes().label(vector.label).framed();
        bytes += RecordBytes().integer(static_cast<int>(vector.loads.size())).framed();
        for (const auto& load : vector.loads) {
            RecordBytes record;
            record.integer(load.pile);
            for (const double value : load.force)
                record.real(value);
            for (const double value : load.moment)
                record.real(value);
            bytes += record.framed();
        }
    }
    return bytes + '\x82';
}

} // namespace korvat::test

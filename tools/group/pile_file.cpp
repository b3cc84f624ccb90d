#include "group/pile_file.hpp"

#include <algorithm>
#include <utility>

namespace korvat::group {
namespace {

constexpr std::size_t integer_size = 4;
constexpr std::size_t real_size = 8;
constexpr std::size_t label_length = 80;
// Of the integers and curves, whatever the number of sections is.
constexpr int section_places = 200;
constexpr int tube_places = 12;
constexpr int curve_points = 10;
constexpr std::size_t node_components = 6;

class PileReader {
public:
    explicit PileReader(std::span<const char> file) : records_(read_records(file)) {}

    GroupReading read() {
        read_all();
        return {std::move(group_), std::move(damage_)};
    }

private:
    void read_all() {
        if (records_.records.empty() && !records_.damage) {
            damage_ = Damage{records_.end, "the file has no records"};
            return;
        }
        if (!read_heading() || !read_sections()) return;
        if (group_.revision == 5 && (!read_section_integers() || !read_curves())) return;
        for (int i = 0; i < pile_count_; ++i) {
            if (!read_one_pile()) return;
        }
        if (next_ < records_.records.size()) {
            damage_at(records_.records[next_], "there are more records than the piles have");
        } else {
            damage_ = records_.damage;
        }
    }

    // The next record, when there is one of that size; otherwise that is the damage.
    const Record* record(std::size_t size, const std::string& name) {
        if (next_ == records_.records.size()) {
            damage_ =
                records_.damage ? records_.damage : Damage{records_.end, name + " is missing"};
            return nullptr;
        }
        const Record& found = records_.records[next_];
        if (found.bytes.size() != size) {
            damage_at(found, name + " has " + std::to_string(found.bytes.size()) + " bytes, not " +
                                 std::to_string(size));
            return nullptr;
        }
        ++next_;
        return &found;
    }

    bool damage_at(const Record& at, std::string reason) {
        damage_ = Damage{at.offset, std::move(reason)};
        return false;
    }

    bool read_heading() {
        const bool is_revision_5 =
            !records_.records.empty() && records_.records.front().bytes.size() == 3 * integer_size;
        group_.revision = is_revision_5 ? 5 : 4;
        if (is_revision_5) {
            const Record* const date = record(3 * integer_size, "the date of the revision");
            Items items(*date);
            for (int& part : group_.date)
                part = items.integer();
        }
        const Record* const label = record(label_length, "the label");
        if (label == nullptr) return false;
        group_.label = Items(*label).text();
        const Record* const counts = record(2 * integer_size, "the record of counts");
        if (counts == nullptr) return false;
        Items items(*counts);
        pile_count_ = items.integer();
        section_count_ = items.integer();
        if (pile_count_ < 0 || section_count_ < 0 || section_count_ > section_places) {
            return damage_at(*counts, "there cannot be " + std::to_string(pile_count_) +
                                          " piles and " + std::to_string(section_count_) +
                                          " sections");
        }
        return true;
    }

    bool read_sections() {
        for (int i = 1; i <= section_count_; ++i) {
            const Record* const values = record(20 * real_size, "section " + std::to_string(i));
            if (values == nullptr) return false;
            Items items(*values);
            Section s;
            for (double* const value : {&s.diameter,
                                        &s.wall,
                                        &s.area,
                                        &s.section_modulus,
                                        &s.axial_stiffness,
                                        &s.shear_stiffness,
                                        &s.bending_stiffness,
                                        &s.torsional_stiffness,
                                        &s.wall_weight,
                                        &s.fluid_weight,
                                        &s.temperature_strain,
                                        &s.yield_stress,
                                        &s.elastic_modulus,
                                        &s.shear_modulus,
                                        &s.eccentricity,
                                        &s.axial_yield,
                                        &s.torsional_yield,
                                        &s.miscellaneous[0],
                                        &s.miscellaneous[1],
                                        &s.miscellaneous[2]}) {
                *value = items.real();
            }
            group_.sections.push_back(std::move(s));
        }
        return true;
    }

    [[nodiscard]] bool is_section(int number) const {
        return number >= 1 && number <= section_count_;
    }

    bool read_section_integers() {
        const Record* const integers =
            record(std::size_t{section_places} * (2 + tube_places) * integer_size,
                   "the record of section integers");
        if (integers == nullptr) return false;
        Items items(*integers);
        std::vector<Section> sections = group_.sections;
        sections.resize(section_places);
        for (Section& section : sections)
            section.type = items.integer();
        for (Section& section : sections)
            section.non_linear_code = items.integer();
        bool is_sound = true;
        for (Section& section : sections) {
            for (int i = 0; i < tube_places; ++i) {
                const int tube = items.integer();
                if (!section.is_composite() || i >= section.type) continue;
                section.tubes.push_back(tube);
                is_sound = is_sound && is_section(tube);
            }
            is_sound = is_sound && section.type >= 0 && section.type <= tube_places &&
                       section.non_linear_code >= 0 && section.non_linear_code <= curve_points;
        }
        if (!is_sound) return damage_at(*integers, "a type, code or tube that no section has");
        sections.resize(group_.sections.size());
        group_.sections = std::move(sections);
        return true;
    }

    bool read_curves() {
        const Record* const curves =
            record(std::size_t{4} * section_places * curve_points * real_size,
                   "the record of yield curves");
        if (curves == nullptr) return false;
        Items items(*curves);
        for (const auto& [curve, value] :
             {std::pair(&Section::elastic_curve, &YieldPoint::axial),
              std::pair(&Section::elastic_curve, &YieldPoint::moment),
              std::pair(&Section::plastic_curve, &YieldPoint::axial),
              std::pair(&Section::plastic_curve, &YieldPoint::moment)}) {
            for (int place = 0; place < section_places; ++place) {
                for (int point = 0; point < curve_points; ++point) {
                    const double number = items.real();
                    if (place >= section_count_) continue;
                    Section& section = group_.sections[static_cast<std::size_t>(place)];
                    if (point >= section.non_linear_code) continue;
                    std::vector<YieldPoint>& points = section.*curve;
                    points.resize(static_cast<std::size_t>(section.non_linear_code));
                    points[static_cast<std::size_t>(point)].*value = number;
                }
            }
        }
        return true;
    }

    bool read_one_pile() {
        const std::string name = "pile " + std::to_string(group_.piles.size() + 1);
        const Record* const head = record(4 * integer_size, name);
        if (head == nullptr) return false;
        Items items(*head);
        Pile pile;
        pile.number = items.integer();
        pile.fixed_to = items.integer();
        const int elements = items.integer();
        pile.tip_code = items.integer();
        if (pile.number != static_cast<int>(group_.piles.size()) + 1) {
            return damage_at(*head, name + " has the number " + std::to_string(pile.number));
        }
        if (elements < 0) {
            return damage_at(*head, name + " has " + std::to_string(elements) + " elements");
        }
        if (next_ == records_.records.size()) return record(0, name + ": X") != nullptr;
        // The count is not believed before the next record turns out to have that many nodes.
        const std::size_t nodes = static_cast<std::size_t>(elements) + 1;
        const Record& next = records_.records[next_];
        if (next.bytes.size() != nodes * real_size) {
            return damage_at(next, name + ": X has " + std::to_string(next.bytes.size()) +
                                       " bytes, not " + std::to_string(nodes * real_size));
        }
        pile.nodes.resize(nodes);
        if (!read_nodes(pile, name)) return false;
        pile.elements.resize(static_cast<std::size_t>(elements));
        if (elements > 0 && !read_elements(pile, name)) return false;
        group_.piles.push_back(std::move(pile));
        return true;
    }

    template <typename Store>
    bool read_row(std::vector<Node>& nodes, const std::string& name, Store store) {
        const Record* const row = record(nodes.size() * real_size, name);
        if (row == nullptr) return false;
        Items items(*row);
        for (Node& node : nodes)
            store(node, items.real());
        return true;
    }

    bool read_nodes(Pile& pile, const std::string& name) {
        using Coordinate = std::pair<double Node::*, const char*>;
        for (const auto& [coordinate, axis] :
             {Coordinate(&Node::x, "X"), Coordinate(&Node::y, "Y"), Coordinate(&Node::z, "Z")}) {
            const auto store = [member = coordinate](Node& node, double value) {
                node.*member = value;
            };
            if (!read_row(pile.nodes, name + ": " + axis, store)) return false;
        }
        using Values = std::pair<Components Node::*, const char*>;
        for (std::size_t k = 0; k < node_components; ++k) {
            for (const auto& [values, kind] :
                 {Values(&Node::springs, "springs"), Values(&Node::forces, "forces"),
                  Values(&Node::displacements, "displacements")}) {
                const auto store = [member = values, k](Node& node, double value) {
                    (node.*member)[k] = value;
                };
                const std::string row =
                    name + ": component " + std::to_string(k + 1) + " of the " + kind;
                if (!read_row(pile.nodes, row, store)) return false;
            }
        }
        return true;
    }

    bool read_elements(Pile& pile, const std::string& name) {
        const Record* const sizes =
            record(pile.elements.size() * 2 * real_size, name + ": the record of element sizes");
        if (sizes == nullptr) return false;
        Items values(*sizes);
        for (Element& element : pile.elements) {
            element.diameter = values.real();
            element.length = values.real();
        }
        const Record* const sections = record(pile.elements.size() * (integer_size + real_size),
                                              name + ": the record of element sections");
        if (sections == nullptr) return false;
        Items items(*sections);
        for (Element& element : pile.elements) {
            element.section = items.integer();
            element.strain = items.real();
            if (!is_section(element.section)) {
                return damage_at(*sections, name + " has an element of section " +
                                                std::to_string(element.section));
            }
        }
        return true;
    }

    Records records_;
    std::size_t next_ = 0;
    Group group_;
    std::optional<Damage> damage_;
    int pile_count_ = 0;
    int section_count_ = 0;
};

} // namespace

GroupReading read_pile(std::span<const char> file) {
    return PileReader(file).read();
}

} // namespace korvat::group

// The content of an analysis file, taken from its records without knowledge of the deck.
#include "pile_file.hpp"

#include <cstddef>
#include <stdexcept>

namespace korvat::test {

namespace {

constexpr std::size_t date_bytes = 12;
constexpr std::size_t label_bytes = 80;
constexpr std::size_t section_slots = 200;
constexpr int node_value_records = 18;

class PileFileParser {
public:
    explicit PileFileParser(const std::vector<Record>& records) : records_(records) {}

    PileFile parse() {
        PileFile file;
        file.has_curves = !records_.empty() && records_.front().size() == date_bytes;
        if (file.has_curves) next();
        RecordCursor label(next());
        file.label = label.take_text(label_bytes);
        RecordCursor counts(next());
        const int piles = counts.take_int();
        const int sections = counts.take_int();
        for (int i = 0; i < sections; ++i) {
            RecordCursor cursor(next());
            file.sections.emplace_back();
            for (double& value : file.sections.back())
                value = cursor.take_double();
        }
        if (file.has_curves) take_curves(file);
        for (int number = 1; number <= piles; ++number)
            file.piles.push_back(pile(number));
        if (next_ != records_.size()) throw std::runtime_error("records follow the last pile");
        return file;
    }

private:
    const Record& next() {
        if (next_ == records_.size()) throw std::runtime_error("the file has too few records");
        return records_[next_++];
    }

    void take_curves(PileFile& file) {
        RecordCursor kinds(next());
        for (auto* const list : {&file.section_types, &file.point_counts}) {
            for (std::size_t i = 0; i < section_slots; ++i)
                list->push_back(kinds.take_int());
        }
        RecordCursor values(next());
        file.yield_points.resize(section_slots);
        for (const auto value : {&YieldPoint::elastic_axial, &YieldPoint::elastic_moment,
                                 &YieldPoint::plastic_axial, &YieldPoint::plastic_moment}) {
            for (auto& points : file.yield_points) {
                for (YieldPoint& point : points)
                    point.*value = values.take_double();
            }
        }
    }

    std::vector<double> coordinates(std::size_t nodes) {
        RecordCursor cursor(next());
        std::vector<double> values;
        for (std::size_t n = 0; n < nodes; ++n)
            values.push_back(cursor.take_double());
        if (!cursor.finished()) throw std::runtime_error("a coordinate record is too long");
        return values;
    }

    FilePile pile(int number) {
        RecordCursor head(next());
        if (head.take_int() != number) throw std::runtime_error("piles out of sequence");
        FilePile result;
        result.fixed_to = head.take_int();
        const int count = head.take_int();
        if (count < 0) throw std::runtime_error("the number of elements is negative");
        const auto elements = static_cast<std::size_t>(count);
        result.tip_code = head.take_int();
        result.x = coordinates(elements + 1);
        result.y = coordinates(elements + 1);
        result.z = coordinates(elements + 1);
        for (int i = 0; i < node_value_records; ++i)
            coordinates(elements + 1);
        if (elements == 0) return result;
        RecordCursor sizes(next());
        RecordCursor types(next());
        for (std::size_t e = 0; e < elements; ++e) {
            result.diameters.push_back(sizes.take_double());
            result.lengths.push_back(sizes.take_double());
            result.sections.push_back(types.take_int());
            result.temperature_strains.push_back(types.take_double());
        }
        return result;
    }

    const std::vector<Record>& records_;
    std::size_t next_ = 0;
};

} // namespace

PileFile parse_pile_file(const std::vector<Record>& records) {
    return PileFileParser(records).parse();
}

CoordinateSums coordinate_sums(const PileFile& file, int first_pile, int last_pile) {
    CoordinateSums sums;
    for (int number = first_pile; number <= last_pile; ++number) {
        const FilePile& pile = file.piles.at(static_cast<std::size_t>(number) - 1);
        const std::array<const std::vector<double>*, 3> axes = {&pile.x, &pile.y, &pile.z};
        for (std::size_t axis = 0; axis < axes.size(); ++axis) {
            sums.heads[axis] += axes[axis]->front();
            if (!pile.lengths.empty()) sums.tips[axis] += axes[axis]->back();
        }
    }
    return sums;
}

} // namespace korvat::test

#include "report/rough_group.hpp"

#include "check/deck_view.hpp"
#include "model/store/limits.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace korvat::report {
namespace {

using check::PileView;
using Point = std::array<double, 3>;

constexpr int mirror_in_y = 1;
constexpr double largest = 1.0e15; // beyond it a drawing shows nothing

// A pile as far as it can be drawn.
struct RoughPile {
    Point head{};
    Point tip{};
    Origin origin = Origin::given;
    int source = 0;
    int section = 0; // of its head
};

bool can_be_drawn(const Point& point) {
    return std::ranges::all_of(point, [](double value) { return std::abs(value) < largest; });
}

class Reader {
public:
    explicit Reader(const check::Subject& subject)
        : subject_(&subject), factor_(check::length_factor(subject)),
          lists_(check::segment_lists(subject)), segments_(check::segments(subject)) {}

    [[nodiscard]] RoughGroup read() {
        read_sections();
        for (const PileView& view : check::piles(*subject_)) {
            if (view.number >= 1 && view.number <= limits::piles) read_pile(view);
        }
        for (const auto& [number, pile] : piles_)
            add(number, pile);
        return std::move(result_);
    }

private:
    void read_sections() {
        for (const check::TubeView& tube : check::tubes(*subject_)) {
            if (tube.section < 1 || tube.section > limits::cross_sections) continue;
            const auto count = static_cast<std::size_t>(tube.section);
            if (result_.group.sections.size() < count) {
                result_.group.sections.resize(count);
                result_.section_materials.resize(count);
            }
            group::Section& section = result_.group.sections[count - 1];
            section.diameter = std::max(section.diameter, factor_ * tube.diameter);
            if (tube.tube > 0) continue;
            section.wall = factor_ * tube.wall;
            result_.section_materials[count - 1] = tube.material;
        }
    }

    [[nodiscard]] Point scaled(const Point& point) const {
        return {factor_ * point[0], factor_ * point[1], factor_ * point[2]};
    }

    void read_pile(const PileView& view) {
        RoughPile pile{.head = scaled(view.head),
                       .tip = scaled(view.tip),
                       .section = section_at_head(view.number)};
        if (!view.is_given()) {
            const auto source = piles_.find(view.source);
            if (source == piles_.end()) return;
            pile = generated(source->second, view);
        }
        fill_gap(view.number, pile);
        piles_[view.number] = pile;
    }

    [[nodiscard]] RoughPile generated(const RoughPile& source, const PileView& view) const {
        RoughPile pile = source;
        pile.source = view.source;
        pile.origin = view.mirror == 0 ? Origin::copied : Origin::mirrored;
        const Point shift = scaled(view.head);
        for (Point* const end : {&pile.head, &pile.tip}) {
            if (view.mirror != 0) {
                double& coordinate = (*end)[view.mirror == mirror_in_y ? 1 : 0];
                coordinate = -coordinate;
                continue;
            }
            for (std::size_t i = 0; i < 3; ++i)
                (*end)[i] += shift[i];
        }
        return pile;
    }

    // Piles that are left out stand between the last one and this one, at equal distances.
    void fill_gap(int number, const RoughPile& next) {
        if (piles_.empty() || piles_.rbegin()->first >= number) return;
        const auto [first, before] = *piles_.rbegin();
        for (int between = first + 1; between < number; ++between) {
            const double part = static_cast<double>(between - first) / (number - first);
            RoughPile pile{.origin = Origin::interpolated, .section = section_at_head(between)};
            for (std::size_t i = 0; i < 3; ++i) {
                pile.head[i] = before.head[i] + part * (next.head[i] - before.head[i]);
                pile.tip[i] = before.tip[i] + part * (next.tip[i] - before.tip[i]);
            }
            piles_[between] = pile;
        }
    }

    [[nodiscard]] int section_at_head(int pile) const {
        const auto list = std::ranges::find(lists_, pile, &check::SegmentListView::pile);
        if (list == lists_.end() || list->types.empty()) return 0;
        const auto segment =
            std::ranges::find(segments_, list->types.front(), &check::SegmentView::number);
        return segment == segments_.end() ? 0 : segment->first_section;
    }

    void add(int number, const RoughPile& rough) {
        if (!can_be_drawn(rough.head) || !can_be_drawn(rough.tip)) return;
        group::Pile pile;
        pile.number = number;
        pile.nodes.push_back({.x = rough.head[0], .y = rough.head[1], .z = rough.head[2]});
        if (rough.head != rough.tip) {
            pile.nodes.push_back({.x = rough.tip[0], .y = rough.tip[1], .z = rough.tip[2]});
            const auto count = static_cast<int>(result_.group.sections.size());
            const bool is_known = rough.section >= 1 && rough.section <= count;
            group::Element element{.length = std::hypot(rough.tip[0] - rough.head[0],
                                                        rough.tip[1] - rough.head[1],
                                                        rough.tip[2] - rough.head[2])};
            if (is_known) {
                const auto index = static_cast<std::size_t>(rough.section) - 1;
                const double diameter = result_.group.sections[index].diameter;
                element.section = rough.section;
                element.diameter = diameter > 0.0 && diameter < largest ? diameter : 0.0;
            }
            pile.elements.push_back(element);
        }
        result_.group.piles.push_back(std::move(pile));
        result_.origins.push_back(rough.origin);
        result_.sources.push_back(rough.source);
    }

    const check::Subject* subject_;
    double factor_;
    std::vector<check::SegmentListView> lists_;
    std::vector<check::SegmentView> segments_;
    std::map<int, RoughPile> piles_;
    RoughGroup result_;
};

} // namespace

RoughGroup rough_group(const check::Subject& subject) {
    return Reader(subject).read();
}

} // namespace korvat::report

// A store with segment types and piles given by hand.
#pragma once

#include "support/model_fixture.hpp"

#include <array>

namespace korvat::test {

using Point = std::array<double, 3>;

class PileTest : public ModelTest {
protected:
    void give_segment(int g, int c1, int c2, double length, int elements) {
        cmn().ICRSEG(1, g) = c1;
        cmn().ICRSEG(2, g) = c2;
        cmn().SEGLEN(g) = length;
        cmn().NELSEG(g) = elements;
    }

    // The next pile; returns its number.
    int add_pile(const Point& head, const Point& tip, const std::vector<int>& segments) {
        const int np = ++cmn().NUMPIL;
        for (int i = 1; i <= 3; ++i) {
            cmn().XHEAD(i, np) = head[static_cast<std::size_t>(i - 1)];
            cmn().XTIP(i, np) = tip[static_cast<std::size_t>(i - 1)];
        }
        cmn().NSEGP(np) = static_cast<int>(segments.size());
        for (std::size_t k = 0; k < segments.size(); ++k)
            cmn().ISEGP(static_cast<int>(k) + 1, np) = segments[k];
        return np;
    }

    int add_generated(int source, int code, const Point& head) {
        const int np = add_pile(head, {0.0, 0.0, 0.0}, {});
        cmn().NGEN(np) = source;
        cmn().NSYM(np) = code;
        return np;
    }

    Point node(int n, int np) { return {cmn().XNOD(n, np), cmn().YNOD(n, np), cmn().ZNOD(n, np)}; }

    std::vector<int> sections(int np) {
        const auto all = cmn().ICREL.column(np);
        return {all.begin(), all.begin() + cmn().NELP(np)};
    }
};

} // namespace korvat::test

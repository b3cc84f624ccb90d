// The values of nodes and elements as arrays, in the order in which a file of VTK has its points and cells.
#pragma once

#include "export/vtk_xml.hpp"
#include "group/group.hpp"

#include <cstddef>
#include <vector>

namespace korvat::exporting {

// A node of a pile.
struct NodeAt {
    const group::Pile* pile = nullptr;
    std::size_t index = 0; // from 0

    [[nodiscard]] const group::Node& node() const { return pile->nodes[index]; }
};

// An element of a pile; of a dummy pile, its head.
struct ElementAt {
    const group::Pile* pile = nullptr;
    std::size_t index = 0; // from 0
};

// x, y, z of each node, as in the deck: +z downwards.
[[nodiscard]] DataArray coordinates(const std::vector<NodeAt>& nodes);

// Numbers of pile and node; springs, forces and soil displacements as vectors along the axes, and about them.
[[nodiscard]] std::vector<DataArray> node_arrays(const std::vector<NodeAt>& nodes);

// Numbers of pile, element and section; radius, wall, length, strain; values of the section. Where it is
// the head of a dummy pile, all but the number of the pile are 0.
[[nodiscard]] std::vector<DataArray> element_arrays(const group::Group& group,
                                                    const std::vector<ElementAt>& elements);

} // namespace korvat::exporting

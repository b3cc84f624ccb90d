// A group as an XML file of VTK with an unstructured grid, which meshio and ParaView read.
#pragma once

#include "export/exported_file.hpp"
#include "group/group.hpp"

namespace korvat::exporting {

// group.vtu: a point for each node with the node values, a vertex for the head of each dummy pile, then a
// line for each element. No label: meshio reads no text. The group is as read_pile returns it.
[[nodiscard]] ExportedFile vtu_file(const group::Group& group);

} // namespace korvat::exporting

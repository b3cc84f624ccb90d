// A group as XML files of VTK with polygonal data, which ParaView opens.
#pragma once

#include "export/exported_file.hpp"
#include "group/group.hpp"

#include <vector>

namespace korvat::exporting {

// piles.vtp: a line for each element. Its two points belong to it alone and have its radius, so that a
// tube around the lines has each jump of the diameter where it is.
// nodes.vtp: a vertex for each node, those of dummy piles included, with the node values.
// load-1.vtp, ...: for each load vector, a vertex at the head of the pile for each load.
// The group is as read_pile returns it; a load on a pile that it does not have is left out (stray_load).
[[nodiscard]] std::vector<ExportedFile> vtp_files(const group::Group& group);

} // namespace korvat::exporting

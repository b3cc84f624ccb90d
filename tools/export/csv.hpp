// A group as tables of comma-separated values.
#pragma once

#include "export/exported_file.hpp"
#include "group/group.hpp"

#include <vector>

namespace korvat::exporting {

// sections.csv, elements.csv, nodes.csv, curves.csv, loads.csv, piles.csv; the first line of each names
// its columns and their units, F and L. The group is as read_pile returns it: sections of elements and
// tubes of composites are sections of the group, and each pile has a node.
[[nodiscard]] std::vector<ExportedFile> csv_files(const group::Group& group);

} // namespace korvat::exporting

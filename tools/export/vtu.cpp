#include "export/vtu.hpp"

#include "export/vtk_values.hpp"
#include "export/vtk_xml.hpp"

#include <string>
#include <vector>

namespace korvat::exporting {
namespace {

constexpr std::uint8_t vertex_type = 1; // VTK's numbers of the forms of cells
constexpr std::uint8_t line_type = 3;

struct Cells {
    std::vector<ElementAt> elements;
    std::vector<std::int64_t> connectivity;
    std::vector<std::int64_t> offsets;
    std::vector<std::uint8_t> types;

    void add(const ElementAt& element, std::int64_t first_node) {
        const bool is_vertex = element.pile->is_dummy();
        elements.push_back(element);
        connectivity.push_back(first_node);
        if (!is_vertex) connectivity.push_back(first_node + 1);
        offsets.push_back(static_cast<std::int64_t>(connectivity.size()));
        types.push_back(is_vertex ? vertex_type : line_type);
    }
};

} // namespace

ExportedFile vtu_file(const group::Group& group) {
    std::vector<NodeAt> nodes;
    std::vector<std::int64_t> heads;
    for (const group::Pile& pile : group.piles) {
        heads.push_back(static_cast<std::int64_t>(nodes.size()));
        for (std::size_t i = 0; i < pile.nodes.size(); ++i)
            nodes.push_back({&pile, i});
    }
    // All cells of one form in one run: meshio makes a block of each run.
    Cells cells;
    for (std::size_t p = 0; p < group.piles.size(); ++p) {
        if (group.piles[p].is_dummy()) cells.add({&group.piles[p], 0}, heads[p]);
    }
    for (std::size_t p = 0; p < group.piles.size(); ++p) {
        for (std::size_t i = 0; i < group.piles[p].elements.size(); ++i)
            cells.add({&group.piles[p], i}, heads[p] + static_cast<std::int64_t>(i));
    }

    VtkXml xml("UnstructuredGrid");
    xml.open("Piece", "NumberOfPoints=\"" + std::to_string(nodes.size()) + "\" NumberOfCells=\"" +
                          std::to_string(cells.elements.size()) + '"');
    xml.add("PointData", node_arrays(nodes));
    xml.add("CellData", element_arrays(group, cells.elements), "Scalars=\"section\"");
    xml.add("Points", {coordinates(nodes)});
    xml.add("Cells", {indices("connectivity", cells.connectivity),
                      indices("offsets", cells.offsets), codes("types", cells.types)});
    return {"group.vtu", xml.finish()};
}

} // namespace korvat::exporting

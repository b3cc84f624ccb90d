#include "export/vtp.hpp"

#include "export/loaded_piles.hpp"
#include "export/text.hpp"
#include "export/vtk_values.hpp"
#include "export/vtk_xml.hpp"

#include <numeric>
#include <string>

namespace korvat::exporting {
namespace {

using group::Group;
using group::Pile;

// Cells of so many points each, which follow one another.
std::vector<DataArray> consecutive_cells(std::size_t cells, std::int64_t points_of_each) {
    std::vector<std::int64_t> connectivity(cells * static_cast<std::size_t>(points_of_each));
    std::iota(connectivity.begin(), connectivity.end(), 0);
    std::vector<std::int64_t> offsets;
    for (std::size_t i = 1; i <= cells; ++i)
        offsets.push_back(static_cast<std::int64_t>(i) * points_of_each);
    return {indices("connectivity", connectivity), indices("offsets", offsets)};
}

VtkXml poly_data(const std::string& label) {
    VtkXml xml("PolyData");
    xml.open("FieldData");
    xml.add_text("label", utf8_text(label));
    xml.close();
    return xml;
}

std::string count(const char* name, std::size_t value) {
    return std::string(name) + "=\"" + std::to_string(value) + '"';
}

// Vertices at nodes, one cell each.
std::string vertices(const std::string& label, const std::vector<NodeAt>& nodes,
                     const std::vector<DataArray>& point_data, const char* active) {
    VtkXml xml = poly_data(label);
    xml.open("Piece",
             count("NumberOfPoints", nodes.size()) + ' ' + count("NumberOfVerts", nodes.size()));
    xml.add("PointData", point_data, active);
    xml.add("Points", {coordinates(nodes)});
    xml.add("Verts", consecutive_cells(nodes.size(), 1));
    return xml.finish();
}

std::string piles_vtp(const Group& group) {
    std::vector<ElementAt> elements;
    std::vector<NodeAt> nodes;
    std::vector<double> radii;
    for (const Pile& pile : group.piles) {
        for (std::size_t i = 0; i < pile.elements.size(); ++i) {
            elements.push_back({&pile, i});
            for (const std::size_t end : {i, i + 1}) {
                nodes.push_back({&pile, end});
                radii.push_back(pile.elements[i].diameter / 2.0);
            }
        }
    }
    std::vector<DataArray> point_data = node_arrays(nodes);
    point_data.insert(point_data.begin(), reals("radius", radii));

    VtkXml xml = poly_data(group.label);
    xml.open("Piece",
             count("NumberOfPoints", nodes.size()) + ' ' + count("NumberOfLines", elements.size()));
    xml.add("PointData", point_data, "Scalars=\"radius\"");
    xml.add("CellData", element_arrays(group, elements), "Scalars=\"section\"");
    xml.add("Points", {coordinates(nodes)});
    xml.add("Lines", consecutive_cells(elements.size(), 2));
    return xml.finish();
}

std::string nodes_vtp(const Group& group) {
    std::vector<NodeAt> nodes;
    for (const Pile& pile : group.piles) {
        for (std::size_t i = 0; i < pile.nodes.size(); ++i)
            nodes.push_back({&pile, i});
    }
    return vertices(group.label, nodes, node_arrays(nodes), "Vectors=\"forces\"");
}

std::string load_vtp(const Group& group, const group::LoadVector& vector) {
    std::vector<NodeAt> heads;
    std::vector<std::int32_t> piles;
    std::vector<std::int32_t> records;
    std::vector<double> forces;
    std::vector<double> moments;
    std::int32_t record = 0;
    for (const group::Load& load : vector.loads) {
        ++record;
        const Pile* const pile = find_pile(group, load.pile);
        if (pile == nullptr) continue;
        heads.push_back({pile, 0});
        piles.push_back(load.pile);
        records.push_back(record);
        forces.insert(forces.end(), load.force.begin(), load.force.end());
        moments.insert(moments.end(), load.moment.begin(), load.moment.end());
    }
    return vertices(vector.label, heads,
                    {integers("pile", piles), integers("record", records),
                     reals("forces", forces, 3), reals("moments", moments, 3)},
                    "Vectors=\"forces\"");
}

} // namespace

std::vector<ExportedFile> vtp_files(const Group& group) {
    std::vector<ExportedFile> files{{"piles.vtp", piles_vtp(group)},
                                    {"nodes.vtp", nodes_vtp(group)}};
    for (const group::LoadVector& vector : group.load_vectors) {
        const std::string number = std::to_string(files.size() - 1);
        files.push_back({"load-" + number + ".vtp", load_vtp(group, vector)});
    }
    return files;
}

} // namespace korvat::exporting

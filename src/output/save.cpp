#include "output/save.hpp"

#include "model/store/report_error.hpp"
#include "model/store/slots.hpp"
#include "model/store/special_codes.hpp"
#include "output/plot_file.hpp"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <cstring>

namespace korvat {
namespace {

using NodeValues = Table2<double, limits::node_components, limits::pile_nodes>;

// What the records of one run of save share.
struct Output {
    Store& cmn;
    const RecordFile& file;
    double strain_factor =
        0.0; // f of the last element whose section had a material or was composite
};

void write_heading_records(const Output& out) {
    const Store& cmn = out.cmn;
    if (cmn.IREV > 4) RecordBuilder(out.file).add_all(cmn.IRDATE.all()).write();
    RecordBuilder(out.file).add(cmn.LABEL.view()).write();
    RecordBuilder(out.file).add(cmn.NUMPIL).add(cmn.NUMCRS).write();
}

void write_cross_sections(const Output& out) {
    Store& cmn = out.cmn;
    for (int i = 1; i <= cmn.NUMCRS; ++i) {
        cmn.CRSVAL(slot::eccentricity, i) = cmn.ECC(i);
        for (int j = 1; j <= 3; ++j) {
            cmn.CRSVAL(slot::miscellaneous + j - 1, i) = cmn.CMISC(j, i);
        }
        RecordBuilder(out.file).add_all(cmn.CRSVAL.column(i)).write();
    }
}

// Composite and non-linear data of every slot, whatever NUMCRS is.
void write_section_types(const Output& out) {
    const Store& cmn = out.cmn;
    if (cmn.IREV <= 4) return;
    RecordBuilder(out.file)
        .add_all(cmn.ITYCRS.all())
        .add_all(cmn.NLCRS.all())
        .add_all(cmn.ICOMP.all())
        .write();
    RecordBuilder(out.file)
        .add_all(cmn.FAXEL.all())
        .add_all(cmn.FMOEL.all())
        .add_all(cmn.FAXPL.all())
        .add_all(cmn.FMOPL.all())
        .write();
}

// The special record that counts at each node of a pile; 0 for none.
using RecordOfNode = std::array<int, limits::pile_nodes>;

struct SpecialRecords {
    RecordOfNode springs{};
    RecordOfNode forces{};
    RecordOfNode displacements{};

    RecordOfNode& of_code(int code) {
        if (code == special_code::spring_stiffness) return springs;
        if (code == special_code::force) return forces;
        return displacements;
    }
};

void copy_values(const Store& cmn, const RecordOfNode& records, int nodes, NodeValues& values) {
    for (int n = 1; n <= nodes; ++n) {
        const auto target = values.column(n);
        const int r = records[static_cast<std::size_t>(n - 1)];
        if (r == 0) {
            std::ranges::fill(target, 0.0);
        } else {
            std::memcpy(target.data(), cmn.SPVAL.column(r).data(), target.size_bytes());
        }
    }
}

// Copies the special records of this pile to its nodes; a later record overwrites an earlier one.
bool collect_special_values(Store& cmn, int np, int nodes) {
    SpecialRecords records;
    for (int r = 1; r <= cmn.NUMSPC; ++r) {
        if (np < cmn.ISPNOD(1, r) || np > cmn.ISPNOD(2, r)) continue;
        const int ND1 = cmn.ISPNOD(3, r);
        const int ND2 = cmn.ISPNOD(4, r);
        if (ND2 > nodes) {
            report_error(
                cmn, cmn.NF6, cmn.report.places.ISPNOD(r),
                "(/,' **** SPECIAL NODE VALUES PROBLEM',/,' PILE, NODE, MAX ALLOWED NODE =',3i5)",
                np, ND2, nodes);
            cmn.IERR = 1;
            return false;
        }
        if (cmn.ISPCOD(r) == special_code::temperature) continue;
        assert(ND1 >= 1 && ND2 <= limits::pile_nodes);
        RecordOfNode& record = records.of_code(cmn.ISPCOD(r));
        for (int n = ND1; n <= ND2; ++n) {
            record[static_cast<std::size_t>(n - 1)] = r;
        }
    }
    copy_values(cmn, records.springs, nodes, cmn.VNOD1);
    copy_values(cmn, records.forces, nodes, cmn.VNOD2);
    copy_values(cmn, records.displacements, nodes, cmn.VNOD3);
    return true;
}

// The line of the record that gave a pile its displacements.
DeckPlace place_of_displacements(const Store& cmn, int np) {
    DeckPlace place;
    for (int r = 1; r <= cmn.NUMSPC; ++r) {
        if (np < cmn.ISPNOD(1, r) || np > cmn.ISPNOD(2, r)) continue;
        if (cmn.ISPCOD(r) == special_code::displacement)
            place.line = cmn.report.places.ISPNOD(r).line;
    }
    return place;
}

// Soil displacements act on a dummy pile only through springs at its node.
bool check_dummy_pile(Store& cmn, int np) {
    if (cmn.NELP(np) != 0) return true;
    const double springs = cmn.VNOD1(1, 1) + cmn.VNOD1(2, 1) + cmn.VNOD1(3, 1);
    const double displacements =
        std::fabs(cmn.VNOD3(1, 1)) + std::fabs(cmn.VNOD3(2, 1)) + std::fabs(cmn.VNOD3(3, 1));
    if (springs > cmn.TOL || displacements < cmn.TOL) return true;
    report_error(
        cmn, cmn.NF6, place_of_displacements(cmn, np),
        "(/,' **** SPECIAL NODE VALUES PROBLEM',/,' SOIL DISPL WERE GIVEN AT DUMMY PILE =',i5,/,3e12.4)",
        np, cmn.VNOD3(1, 1), cmn.VNOD3(2, 1), cmn.VNOD3(3, 1));
    cmn.IERR = 2;
    return false;
}

void write_coordinates(const Output& out, int np, int nodes) {
    const Store& cmn = out.cmn;
    const auto count = static_cast<std::size_t>(nodes);
    RecordBuilder(out.file).add_all(cmn.XNOD.column(np).first(count)).write();
    RecordBuilder(out.file).add_all(cmn.YNOD.column(np).first(count)).write();
    RecordBuilder(out.file).add_all(cmn.ZNOD.column(np).first(count)).write();
}

void write_component(const Output& out, const NodeValues& values, int component, int nodes) {
    std::array<double, limits::pile_nodes> row;
    const std::span<double> used(row.data(), static_cast<std::size_t>(nodes));
    for (int n = 1; n <= nodes; ++n) {
        used[static_cast<std::size_t>(n - 1)] = values(component, n);
    }
    RecordBuilder(out.file).add_all(used).write();
}

void write_node_values(const Output& out, int nodes) {
    const Store& cmn = out.cmn;
    for (int k = 1; k <= limits::node_components; ++k) {
        write_component(out, cmn.VNOD1, k, nodes);
        write_component(out, cmn.VNOD2, k, nodes);
        write_component(out, cmn.VNOD3, k, nodes);
    }
}

// The factor of an element's node values: the temperature strain of its material, 1.0 for a
// composite; without a material number the last factor stands.
double strain_factor(Output& out, int section) {
    const Store& cmn = out.cmn;
    const int m = cmn.MATCRS(section);
    if (m > 0) out.strain_factor = material_value(cmn, cmn.EPSTMP, m);
    if (m == 0) out.strain_factor = 1.0;
    return out.strain_factor;
}

void form_elements(Output& out, int np) {
    Store& cmn = out.cmn;
    for (int e = 1; e <= cmn.NELP(np); ++e) {
        const int ic = cmn.ICREL(e, np);
        const double dx = cmn.XNOD(e + 1, np) - cmn.XNOD(e, np);
        const double dy = cmn.YNOD(e + 1, np) - cmn.YNOD(e, np);
        const double dz = cmn.ZNOD(e + 1, np) - cmn.ZNOD(e, np);
        cmn.ELDIA(e) = cmn.CRSVAL(slot::diameter, ic);
        cmn.ELLEN(e) = std::sqrt(dy * dy + dx * dx + dz * dz);
        cmn.ELTMP(e) = strain_factor(out, ic) * (cmn.TSNOD(e, np) + cmn.TSNOD(e + 1, np)) * 0.5;
    }
}

// A dummy pile has no element, and without an item no record is written.
void write_elements(Output& out, int np) {
    const Store& cmn = out.cmn;
    form_elements(out, np);
    RecordBuilder sizes(out.file);
    for (int e = 1; e <= cmn.NELP(np); ++e)
        sizes.add(cmn.ELDIA(e)).add(cmn.ELLEN(e));
    sizes.write();
    RecordBuilder sections(out.file);
    for (int e = 1; e <= cmn.NELP(np); ++e)
        sections.add(cmn.ICREL(e, np)).add(cmn.ELTMP(e));
    sections.write();
}

bool write_pile(Output& out, int np) {
    Store& cmn = out.cmn;
    const int nodes = cmn.NELP(np) + 1;
    RecordBuilder(out.file).add(np).add(cmn.IFIX(np)).add(cmn.NELP(np)).add(cmn.ITIP(np)).write();
    write_coordinates(out, np, nodes);
    if (!collect_special_values(cmn, np, nodes)) return false;
    if (!check_dummy_pile(cmn, np)) return false;
    write_node_values(out, nodes);
    write_elements(out, np);
    return true;
}

} // namespace

void save(Store& cmn, const RecordFile& pile_file) {
    Output out{cmn, pile_file};
    write_heading_records(out);
    write_cross_sections(out);
    write_section_types(out);
    for (int np = 1; np <= cmn.NUMPIL; ++np) {
        if (!write_pile(out, np)) return;
    }
    write_plot_file(cmn);
}

} // namespace korvat

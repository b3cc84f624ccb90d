// The model data store: the one record that every routine of a run shares.
#pragma once

#include "fortran/runtime.hpp"
#include "fortran/text.hpp"
#include "model/store/limits.hpp"
#include "model/store/report.hpp"
#include "model/store/table.hpp"

#include <memory>

namespace korvat::fortran {
class SaveHolder;
}

namespace korvat {

using Label = fortran::Text<limits::label_length>;
using Line = fortran::Text<limits::line_length>;

// Unit numbers of a run.
struct UnitNumbers {
    int NF5 = 0;  // console; never opened
    int NF6 = 0;  // message log KORVAT.MLG
    int NF7 = 0;  // kept for PILE.07, which is written through a stream
    int NF9 = 0;  // kept for LOAD.09, likewise
    int NF11 = 0; // input file KORVAT.INP
    int NF12 = 0; // temporary copy of the input without comment lines
    int NF13 = 0; // listing KORVAT.LIS
    int NF14 = 0; // plot file PILEPLOT.TXT
};

// Maximum counts, zero until contrl sets them; printed in the limit messages.
struct Limits {
    int MAXPIL = 0; // piles
    int MAXCRS = 0; // cross sections
    int MAXMAT = 0; // material types
    int MAXSEG = 0; // pile segment types
    int MAXELM = 0; // elements of one pile
    int MAXNOD = 0; // nodes of one pile
    int MAXSPP = 0; // segments listed for one pile
    int MAXSPC = 0; // special pile node value records
};

// Counts, codes and factors of a run.
struct RunScalars {
    int IERR = 0;          // error code of the last routine; 0 is success; becomes the exit code
    int NLINE = 0;         // lines read from NF12 so far
    int NUMPIL = 0;        // piles, 1..MAXPIL
    int NUMCRS = 0;        // cross sections, 1..MAXCRS; build adds the sub-sections of composites
    int NUMLOD = 0;        // load vectors; below 1: no load vector section
    int NUMSPC = 0;        // special pile node value records read
    int JPRINT = 0;        // print level 0..2
    int JECHO = 0;         // echo level 0..2; 1 prints the input echo
    int NUMMAT = 0;        // material types, 1..MAXMAT
    int IREV = 0;          // input revision found, 4 or 5
    Table1<int, 3> IRDATE; // year, month, day of the revision; set for revision 5 only
    double PI = 0.0;       // 4 atan(1)
    double TOL = 0.0;      // 1.0e-10, of every positivity test
    double FACF = 0.0;     // force unit factor
    double FACL = 0.0;     // length unit factor
};

// Material table, index = material number 1..NUMMAT. F and L stand for the force and length units
// after multiplication by FACF and FACL.
struct MaterialTable {
    Table1<double, limits::materials> EMOD;   // elastic modulus, F/L2
    Table1<double, limits::materials> GMOD;   // shear modulus, F/L2
    Table1<double, limits::materials> SIGYLD; // yield stress, F/L2
    Table1<double, limits::materials> UWWALL; // unit weight of the pile wall, F/L3
    Table1<double, limits::materials> EPSTMP; // temperature strain, as given
};

// Cross-section table, index = cross-section number. Points are stored point fastest.
struct CrossSectionTable {
    Table1<int, limits::cross_sections> MATCRS; // material number; build sets 0 for a composite
    Table1<int, limits::cross_sections> ITYCRS; // 1 plain, above 1 composite; 0 from revision 4
    Table1<int, limits::cross_sections> NLCRS;  // non-linear code; 0 from revision 4
    Table2<int, limits::sub_sections, limits::cross_sections> ICOMP; // sub-sections of composites
    Table1<double, limits::cross_sections> DIAM;                     // outer diameter, L
    Table1<double, limits::cross_sections> WALL;                     // wall thickness, L
    Table1<double, limits::cross_sections> STFAX;    // given axial stiffness, F; 0: computed
    Table1<double, limits::cross_sections> STFBN;    // given bending stiffness, F L2; 0: computed
    Table1<double, limits::cross_sections> STFSH;    // given shear stiffness, F; 0: computed
    Table1<double, limits::cross_sections> STFTO;    // given torsional stiffness, F L2; 0: computed
    Table1<double, limits::cross_sections> UWFLD;    // unit weight of the fluid inside, F/L3
    Table1<double, limits::cross_sections> ECC;      // eccentricity, as given
    Table2<double, 3, limits::cross_sections> CMISC; // three values passed through, as given
    // Property record of each section, slots 1..20: D, t, A, W, EA, GA, EI, GJ, wall and fluid
    // unit weight, temperature strain, yield stress, E, G, eccentricity, sum A*sigy,
    // sum A*tauy*R, CMISC(1..3). Filled by build; save completes slots 15 and 18 to 20.
    Table2<double, limits::section_values, limits::cross_sections> CRSVAL;
    // Yield curves (point, section): axial force positive in compression, moment; as given.
    Table2<double, limits::curve_points, limits::cross_sections> FAXEL; // axial, elastic curve
    Table2<double, limits::curve_points, limits::cross_sections> FMOEL; // moment, elastic curve
    Table2<double, limits::curve_points, limits::cross_sections> FAXPL; // axial, plastic curve
    Table2<double, limits::curve_points, limits::cross_sections> FMOPL; // moment, plastic curve
};

// Pile segment types, index = segment type number.
struct SegmentTable {
    Table2<int, 2, limits::segment_types> ICRSEG; // cross section at the upper and lower end
    Table1<double, limits::segment_types> SEGLEN; // length, L
    Table1<int, limits::segment_types> NELSEG;    // elements, 1..MAXELM
};

// Pile table, index = pile number 1..NUMPIL. Coordinates are global, +z downwards.
struct PileTable {
    Table1<int, limits::piles> NGEN;        // pile that this one is generated from; 0: given
    Table1<int, limits::piles> NSYM;        // 0 shifted copy, 1 mirror in y, 2 mirror in x
    Table2<double, 3, limits::piles> XHEAD; // head x, y, z, L; of a shifted copy: the shift
    Table2<double, 3, limits::piles> XTIP;  // tip x, y, z, L
    Table1<int, limits::piles> NSEGP;       // segments listed; 0 or below: a dummy pile
    Table2<int, limits::pile_segments, limits::piles> ISEGP; // segment types from head to tip
    Table1<int, limits::piles> NELP; // elements; a dummy pile has none and one node
    Table1<int, limits::piles> IFIX; // pile that this one is fixed to; 0: none
    Table1<int, limits::piles> ITIP; // tip code, at most 3
};

// Special pile node value records, index = record number 1..NUMSPC.
struct SpecialNodeTable {
    Table2<int, 4, limits::special_records> ISPNOD; // first and last pile, first and last node
    Table1<int, limits::special_records> ISPCOD;    // code 1..4
    Table2<double, limits::node_components, limits::special_records> SPVAL; // six scaled values
};

// Nodes and elements of the discrete piles, filled by build; and save's work arrays. Node 1 is
// the head of a pile, element e lies between nodes e and e + 1.
struct NodeTable {
    Table2<int, limits::pile_elements, limits::piles> ICREL; // cross section of each element
    Table2<double, limits::pile_nodes, limits::piles> XNOD;  // L
    Table2<double, limits::pile_nodes, limits::piles> YNOD;  // L
    Table2<double, limits::pile_nodes, limits::piles> ZNOD;  // L; build starts with the distance
    Table1<double, limits::pile_elements> ELDIA; // of the pile being written: diameter, L
    Table1<double, limits::pile_elements> ELLEN; // of the pile being written: length, L
    Table1<double, limits::pile_elements> ELTMP; // of the pile being written: temperature strain
    // Of the pile being written, (component, node): values of codes 1, 2 and 3.
    Table2<double, limits::node_components, limits::pile_nodes> VNOD1;
    Table2<double, limits::node_components, limits::pile_nodes> VNOD2;
    Table2<double, limits::node_components, limits::pile_nodes> VNOD3;
    Table2<double, limits::pile_nodes, limits::piles> TSNOD; // (node, pile): values of code 4
};

// Built once by the entry, everything zero or blank; lives on the heap until the run ends, also
// when it stops on an error. Destroying it closes every unit. Allocation failure is passed on.
struct Store : UnitNumbers,
               Limits,
               RunScalars,
               MaterialTable,
               CrossSectionTable,
               SegmentTable,
               PileTable,
               SpecialNodeTable,
               NodeTable {
    // Hands the program's arguments to the runtime.
    Store(int argc, const char* const* argv);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    Label LABEL; // first line of the input
    Line LINE;   // current input line; record reader joins the lines of one record in it

    // Saved local state of the listing and sketch routines, empty at construction.
    std::unique_ptr<fortran::SaveHolder> printpil_sve;
    std::unique_ptr<fortran::SaveHolder> sketch_sve;

    fortran::Runtime runtime; // unit table of the run

    Report report; // what the report on standard error is made of
};

// Value of a material table for a section's material number; 0.0 when that is no material.
[[nodiscard]] double material_value(const Store& cmn,
                                    const Table1<double, limits::materials>& values, int material);

// Unit factor of a stress.
[[nodiscard]] double stress_factor(const Store& cmn);

// Clears, for all piles whatever NUMPIL is, NSEGP, NELP, IFIX, ITIP, ISEGP and TSNOD.
void rstpil(Store& cmn);

} // namespace korvat

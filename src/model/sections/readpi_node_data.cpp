// Pile tip/fix table and special pile node values.
#include "model/sections/section_reader.hpp"

#include "model/sections/value_error.hpp"
#include "model/store/special_codes.hpp"

namespace korvat {
namespace {

constexpr int most_tip_code = 3;

struct TipFixRecord {
    int NP1, NP2, ITIP, IFIX;
};

Cause check_tip_fix(SectionReader& in, const TipFixRecord& record, int last, bool is_first) {
    const Store& cmn = in.cmn;
    ValueError error;
    if (record.NP1 <= last) error = {1, 1};
    if (record.NP1 > record.NP2) error = {2, 2};
    if (record.NP2 > cmn.NUMPIL) error = {3, 2};
    if (record.ITIP > most_tip_code) error = {4, 3}; // a negative code is checked by build
    if (record.IFIX < 0 || record.IFIX > cmn.NUMPIL) error = {5, 4};
    if (is_first && record.NP1 != 1) error = {6, 1};
    if (!error) return Cause::none;
    return in.reject(in.place(error.value),
                     "(/,' **** SR/READPI : PILE TIP/FIX TABLE  NP1,NP2,ITIP,','IFIX,IERR=',/,5i5)",
                     record.NP1, record.NP2, record.ITIP, record.IFIX, error.number);
}

struct SpecialRecord {
    int NP1, NP2, ND1, ND2, CODE;
};

// The first value of a record that is not accepted; 0 when all are.
int value_at_fault(const Store& cmn, const SpecialRecord& record) {
    if (record.NP1 > record.NP2 || record.NP2 > cmn.NUMPIL) return 2;
    if (record.ND1 < 1) return 3;
    if (record.ND1 > record.ND2 || record.ND2 > limits::pile_nodes) return 4;
    if (record.CODE < special_code::spring_stiffness || record.CODE > special_code::temperature)
        return 5;
    return 0;
}

Cause check_special(SectionReader& in, const SpecialRecord& record, int NOW) {
    const Store& cmn = in.cmn;
    if (const int value = value_at_fault(cmn, record); value != 0) {
        return in.reject(
            in.place(value),
            "(/,' **** SR/READPI : SPEC NODE VALUES  NOW,NP1,NP2,ND1,',',ND2,CODE=',/,6i5)", NOW,
            record.NP1, record.NP2, record.ND1, record.ND2, record.CODE);
    }
    if (record.CODE != special_code::spring_stiffness) return Cause::none;
    for (int i = 1; i <= limits::node_components; ++i) {
        const double stiffness = in.VAR(5 + i);
        if (!(stiffness > -cmn.TOL)) {
            return in.reject(in.place(5 + i),
                             "(/,' **** SR/READPI : SPEC NODE VALUES  NOW,VAL=',i5,e12.4)", NOW,
                             stiffness);
        }
    }
    return Cause::none;
}

// A value of one component, 1..3 along and 4..6 about the axes, in internal units.
double scaled(const Store& cmn, int CODE, int component, double value) {
    const bool is_about_axis = component > 3;
    switch (CODE) {
    case special_code::spring_stiffness:
        return is_about_axis ? value * cmn.FACF * cmn.FACL : value * cmn.FACF / cmn.FACL;
    case special_code::force:
        return is_about_axis ? value * cmn.FACF * cmn.FACL : value * cmn.FACF;
    case special_code::displacement:
        return is_about_axis ? value : value * cmn.FACL;
    default:
        return value;
    }
}

void store_special(SectionReader& in, const SpecialRecord& record, int NOW) {
    Store& cmn = in.cmn;
    cmn.ISPNOD(1, NOW) = record.NP1;
    cmn.ISPNOD(2, NOW) = record.NP2;
    cmn.ISPNOD(3, NOW) = record.ND1;
    cmn.ISPNOD(4, NOW) = record.ND2;
    cmn.ISPCOD(NOW) = record.CODE;
    for (int i = 1; i <= limits::node_components; ++i) {
        cmn.SPVAL(i, NOW) = scaled(cmn, record.CODE, i, in.VAR(5 + i));
    }
    cmn.report.places.ISPNOD(NOW) = in.place(4);
    cmn.NUMSPC = NOW;
    if (record.CODE != special_code::temperature) return;
    for (int NP = record.NP1; NP <= record.NP2; ++NP) {
        for (int ND = record.ND1; ND <= record.ND2; ++ND) {
            cmn.TSNOD(ND, NP) = in.VAR(6);
        }
    }
}

} // namespace

Cause read_tip_fix_table(SectionReader& in) {
    Store& cmn = in.cmn;
    // The heading keeps the location code of the record before it.
    if (const Cause fault = in.skip_heading()) return fault;
    int last = 0;
    for (int k = 1; last < cmn.NUMPIL; ++k) {
        if (const Cause fault = in.read_record(deck::RecordId::tip_and_fix, k)) return fault;
        const TipFixRecord record{in.integer(1), in.integer(2), in.integer(3), in.integer(4)};
        if (const Cause fault = check_tip_fix(in, record, last, k == 1)) return fault;
        const DeckPlace tip_code = in.place(3);
        const DeckPlace fixing = in.place(4);
        for (int p = record.NP1; p <= record.NP2; ++p) {
            cmn.ITIP(p) = record.ITIP;
            cmn.IFIX(p) = record.IFIX;
            cmn.report.places.ITIP(p) = tip_code;
            cmn.report.places.IFIX(p) = fixing;
        }
        last = record.NP2;
    }
    return Cause::none;
}

Cause read_special_node_values(SectionReader& in) {
    const Store& cmn = in.cmn;
    in.LOC = deck::record(deck::RecordId::special_node_values).location;
    if (const Cause fault = in.require_blank_line("SPECIAL PILE NODE VALUES")) return fault;
    if (const Cause fault = in.skip_headings(2)) return fault;
    for (int NOW = 1;; ++NOW) {
        // Checked before the record is read: after 500 records there is no room for an end record.
        if (NOW > limits::special_records) {
            return in.reject(in.line_place(),
                             "(/,' **** SR/READPI : SPEC NODE VALUES  NOW,MAX=',2i5)", NOW,
                             cmn.MAXSPC);
        }
        if (const Cause fault = in.read_record(deck::RecordId::special_node_values, NOW)) {
            return fault;
        }
        const SpecialRecord record{in.integer(1), in.integer(2), in.integer(3), in.integer(4),
                                   in.integer(5)};
        if (record.NP1 < 1) break;
        if (const Cause fault = check_special(in, record, NOW)) return fault;
        store_special(in, record, NOW);
    }
    return cmn.NUMLOD < 1 ? Cause::none : in.require_blank_line("LOAD VECTOR SECTION");
}

} // namespace korvat

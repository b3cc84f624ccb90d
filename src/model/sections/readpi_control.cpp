// Control section: unit factors, counts, print and echo level.
#include "model/sections/section_reader.hpp"

#include <algorithm>

namespace korvat {
namespace {

using deck::RecordId;

int read_factor(SectionReader& in, RecordId id, double& factor) {
    if (const int fault = in.read_record(id); fault != no_fault) return fault;
    factor = in.VAR(1);
    return no_fault;
}

int read_integer(SectionReader& in, RecordId id, int& value) {
    if (const int fault = in.read_record(id); fault != no_fault) return fault;
    value = in.integer(1);
    return no_fault;
}

int read_factors(SectionReader& in) {
    Store& cmn = in.cmn;
    if (const int fault = read_factor(in, RecordId::force_factor, cmn.FACF)) return fault;
    if (const int fault = read_factor(in, RecordId::length_factor, cmn.FACL)) return fault;
    if (cmn.TOL > cmn.FACF) cmn.FACF = 1.0;
    if (cmn.TOL > cmn.FACL) cmn.FACL = 1.0;
    return no_fault;
}

// Where the counts stand that are checked when all have been read.
struct CountPlaces {
    DeckPlace NUMPIL, NUMCRS, NUMMAT, NUMSEG;
};

int read_count(SectionReader& in, RecordId id, int& count, DeckPlace& place) {
    if (const int fault = read_integer(in, id, count)) return fault;
    place = in.place(1);
    return no_fault;
}

int read_counts_and_levels(SectionReader& in, CountPlaces& at) {
    Store& cmn = in.cmn;
    if (const int fault = read_count(in, RecordId::piles, cmn.NUMPIL, at.NUMPIL)) return fault;
    if (const int fault = read_count(in, RecordId::cross_sections, cmn.NUMCRS, at.NUMCRS)) {
        return fault;
    }
    if (const int fault = read_count(in, RecordId::materials, cmn.NUMMAT, at.NUMMAT)) return fault;
    if (const int fault = read_count(in, RecordId::segment_types, in.NUMSEG, at.NUMSEG)) {
        return fault;
    }
    if (const int fault = read_integer(in, RecordId::load_vectors, cmn.NUMLOD)) return fault;
    if (const int fault = read_integer(in, RecordId::print_level, cmn.JPRINT)) return fault;
    return read_integer(in, RecordId::echo_level, cmn.JECHO);
}

bool is_outside(int count, int most) {
    return count < 1 || count > most;
}

int check_counts(SectionReader& in, const CountPlaces& at) {
    const Store& cmn = in.cmn;
    if (is_outside(cmn.NUMPIL, limits::piles)) {
        return in.reject(at.NUMPIL, "(/,' **** SR/READPI : NUMPIL PROBLEM  NUMPIL,MAX=',2i5)",
                         cmn.NUMPIL, cmn.MAXPIL);
    }
    if (is_outside(cmn.NUMCRS, limits::cross_sections)) {
        return in.reject(at.NUMCRS, "(/,' **** SR/READPI : NUMCRS PROBLEM  NUMCRS,MAX=',2i5)",
                         cmn.NUMCRS, cmn.MAXCRS);
    }
    if (is_outside(cmn.NUMMAT, limits::materials)) {
        return in.reject(at.NUMMAT, "(/,' **** SR/READPI : NUMMAT PROBLEM  NUMMAT,MAX=',2i5)",
                         cmn.NUMMAT, cmn.MAXMAT);
    }
    if (is_outside(in.NUMSEG, limits::segment_types)) {
        return in.reject(at.NUMSEG, "(/,' **** SR/READPI : NUMSEG PROBLEM  NUMSEG,MAX=',2i5)",
                         in.NUMSEG, cmn.MAXSEG);
    }
    return no_fault;
}

void clamp_levels(SectionReader& in) {
    Store& cmn = in.cmn;
    if (cmn.JPRINT < 0 || cmn.JPRINT > 2) {
        in.warn("(/,' WARNING FROM SR/READPI :  JPRINT=',i5)", cmn.JPRINT);
    }
    cmn.JPRINT = std::clamp(cmn.JPRINT, 0, 2);
    // Warned about above 1, yet 2 is kept.
    if (cmn.JECHO < 0 || cmn.JECHO > 1) {
        in.warn("(/,' WARNING FROM SR/READPI :  JECHO=',i5)", cmn.JECHO);
    }
    cmn.JECHO = std::clamp(cmn.JECHO, 0, 2);
}

} // namespace

int read_control_section(SectionReader& in) {
    // The location code stays 0 until the first value.
    if (const int fault = in.require_blank_line("CONTROL SECTION")) return fault;
    if (const int fault = in.skip_heading()) return fault;
    if (const int fault = read_factors(in)) return fault;
    CountPlaces places;
    if (const int fault = read_counts_and_levels(in, places)) return fault;
    if (const int fault = check_counts(in, places)) return fault;
    clamp_levels(in);
    return no_fault;
}

} // namespace korvat

// Control section: unit factors, counts, print and echo level.
#include "model/sections/section_reader.hpp"

#include <algorithm>
#include <string_view>

namespace korvat {
namespace {

using deck::RecordId;

Cause read_factor(SectionReader& in, RecordId id, double& factor) {
    if (const Cause fault = in.read_record(id)) return fault;
    factor = in.VAR(1);
    return Cause::none;
}

Cause read_integer(SectionReader& in, RecordId id, int& value) {
    if (const Cause fault = in.read_record(id)) return fault;
    value = in.integer(1);
    return Cause::none;
}

Cause read_factors(SectionReader& in) {
    Store& cmn = in.cmn;
    if (const Cause fault = read_factor(in, RecordId::force_factor, cmn.FACF)) return fault;
    if (const Cause fault = read_factor(in, RecordId::length_factor, cmn.FACL)) return fault;
    if (cmn.TOL > cmn.FACF) cmn.FACF = 1.0;
    if (cmn.TOL > cmn.FACL) cmn.FACL = 1.0;
    return Cause::none;
}

// A count, which is checked when the whole section has been read.
struct Count {
    RecordId id;
    int& value;
    int most; // that the tables of the store hold
    int MAX;  // as the message shows it
    std::string_view message;
    DeckPlace place = {};
};

Cause read_count(SectionReader& in, Count& count) {
    if (const Cause fault = read_integer(in, count.id, count.value)) return fault;
    count.place = in.place(1);
    return Cause::none;
}

Cause check_count(SectionReader& in, const Count& count) {
    if (count.value >= 1 && count.value <= count.most) return Cause::none;
    return in.reject(count.place, count.message, count.value, count.MAX);
}

// Where the levels stand, which are warned about when the whole section has been read.
struct LevelPlaces {
    DeckPlace JPRINT, JECHO;
};

Cause read_level(SectionReader& in, RecordId id, int& level, DeckPlace& place) {
    if (const Cause fault = read_integer(in, id, level)) return fault;
    place = in.place(1);
    return Cause::none;
}

Cause read_counts_and_levels(SectionReader& in, LevelPlaces& at) {
    Store& cmn = in.cmn;
    Count counts[] = {{RecordId::piles, cmn.NUMPIL, limits::piles, cmn.MAXPIL,
                       "(/,' **** SR/READPI : NUMPIL PROBLEM  NUMPIL,MAX=',2i5)"},
                      {RecordId::cross_sections, cmn.NUMCRS, limits::cross_sections, cmn.MAXCRS,
                       "(/,' **** SR/READPI : NUMCRS PROBLEM  NUMCRS,MAX=',2i5)"},
                      {RecordId::materials, cmn.NUMMAT, limits::materials, cmn.MAXMAT,
                       "(/,' **** SR/READPI : NUMMAT PROBLEM  NUMMAT,MAX=',2i5)"},
                      {RecordId::segment_types, in.NUMSEG, limits::segment_types, cmn.MAXSEG,
                       "(/,' **** SR/READPI : NUMSEG PROBLEM  NUMSEG,MAX=',2i5)"}};
    for (Count& count : counts) {
        if (const Cause fault = read_count(in, count)) return fault;
    }
    if (const Cause fault = read_integer(in, RecordId::load_vectors, cmn.NUMLOD)) return fault;
    if (const Cause fault = read_level(in, RecordId::print_level, cmn.JPRINT, at.JPRINT)) {
        return fault;
    }
    if (const Cause fault = read_level(in, RecordId::echo_level, cmn.JECHO, at.JECHO)) return fault;
    for (const Count& count : counts) {
        if (const Cause fault = check_count(in, count)) return fault;
    }
    return Cause::none;
}

void clamp_levels(SectionReader& in, const LevelPlaces& at) {
    Store& cmn = in.cmn;
    if (cmn.JPRINT < 0 || cmn.JPRINT > 2) {
        in.warn(at.JPRINT, "(/,' WARNING FROM SR/READPI :  JPRINT=',i5)", cmn.JPRINT);
    }
    cmn.JPRINT = std::clamp(cmn.JPRINT, 0, 2);
    // Warned about above 1, yet 2 is kept.
    if (cmn.JECHO < 0 || cmn.JECHO > 1) {
        in.warn(at.JECHO, "(/,' WARNING FROM SR/READPI :  JECHO=',i5)", cmn.JECHO);
    }
    cmn.JECHO = std::clamp(cmn.JECHO, 0, 2);
}

} // namespace

Cause read_control_section(SectionReader& in) {
    // The location code stays 0 until the first value.
    if (const Cause fault = in.require_blank_line("CONTROL SECTION")) return fault;
    if (const Cause fault = in.skip_heading()) return fault;
    if (const Cause fault = read_factors(in)) return fault;
    LevelPlaces places;
    if (const Cause fault = read_counts_and_levels(in, places)) return fault;
    clamp_levels(in, places);
    return Cause::none;
}

} // namespace korvat

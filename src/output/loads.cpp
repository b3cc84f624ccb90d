#include "output/loads.hpp"

#include "input/linerd.hpp"
#include "model/sections/deck_reader.hpp"
#include "model/store/integer.hpp"

namespace korvat {
namespace {

using deck::RecordId;

// Location codes of the text lines; v, the vector's number, is added to all but the first.
constexpr int section_heading = 1100;
constexpr int vector_label = 1200;
constexpr int table_heading = 1500;

constexpr std::size_t text_width = 80;

constexpr ReaderMessages messages = {
    .end_of_file = "(/,' **** SR/LOADS : END-OF-FILE WHEN READING INPUT  LOC=',i5)",
    .format_error = "(/,' **** SR/LOADS : FORMAT ERROR WHEN READING INPUT  LOC=',i5)",
    .record_fault = "(/,' **** SR/LOADS : ERROR FROM SR/LINERD AT LOCATION =',i5)"};

struct Loads {
    DeckReader in;
    const RecordFile& file;
};

Cause read_text_line(DeckReader& in, int location) {
    in.LOC = location;
    return in.read_text_line<text_width>();
}

Cause transfer_label(Loads& loads, int v) {
    DeckReader& in = loads.in;
    if (const Cause fault = read_text_line(in, saturated_sum(vector_label, v))) return fault;
    const Label label(in.cmn.LINE.first(text_width));
    RecordBuilder(loads.file).add(label.view()).write();
    in.cmn.runtime.write(in.cmn.NF6, "(' VECTOR ',i2,' LABEL : ',a60)", v, label);
    return Cause::none;
}

// The count's record is written before the count is checked.
Cause transfer_pile_count(Loads& loads, int v, int& NLP, DeckPlace& place) {
    if (const Cause fault = loads.in.read_record(RecordId::loaded_piles, v)) return fault;
    NLP = loads.in.integer(1);
    place = loads.in.place(1);
    RecordBuilder(loads.file).add(NLP).write();
    return Cause::none;
}

Cause check_pile_count(DeckReader& in, int v, int NLP, const DeckPlace& place) {
    const Store& cmn = in.cmn;
    if (NLP >= 1 && NLP <= cmn.NUMPIL) return Cause::none;
    return in.reject(
        place, "(/,' **** SR/LOADS : NUMBER OF LOADED PILES ERROR',/,' VECTOR,PILES,MAX=',3i5)", v,
        NLP, cmn.NUMPIL);
}

// 100 v + i, which makes the location code of a pile's record.
int place_of_pile(int v, int i) {
    constexpr int highest_vector = 10'000'000;
    return v > highest_vector ? 100 * highest_vector : 100 * v + i;
}

Cause transfer_pile(Loads& loads, int v, int i, double F) {
    DeckReader& in = loads.in;
    const Store& cmn = in.cmn;
    if (const Cause fault = in.read_record(RecordId::pile_load, place_of_pile(v, i))) return fault;
    const int NP = in.integer(1);
    if (NP < 1 || NP > cmn.NUMPIL) {
        return in.reject(
            in.place(1),
            "(/,' **** SR/LOADS : PILE NUMBER ERROR FOR PILE WITH LOAD','ING',/,' VECTOR,NUM,PILE,MAX=',4i5)",
            v, i, NP, cmn.NUMPIL);
    }
    RecordBuilder record(loads.file);
    record.add(NP);
    for (int component = 1; component <= limits::node_components; ++component) {
        const double load = in.VAR(1 + component) * (F * cmn.FACF);
        record.add(component > 3 ? load * cmn.FACL : load); // moments have a length in them
    }
    record.write();
    return Cause::none;
}

Cause transfer_vector(Loads& loads, int v) {
    DeckReader& in = loads.in;
    int NLP = 0;
    DeckPlace count_place;
    if (const Cause fault = transfer_label(loads, v)) return fault;
    if (const Cause fault = transfer_pile_count(loads, v, NLP, count_place)) return fault;
    if (const Cause fault = in.read_record(RecordId::load_factor, v)) return fault;
    const double F = in.VAR(1);
    if (const Cause fault = read_text_line(in, saturated_sum(table_heading, v))) return fault;
    if (const Cause fault = check_pile_count(in, v, NLP, count_place)) return fault;
    for (int i = 1; i <= NLP; ++i) {
        if (const Cause fault = transfer_pile(loads, v, i, F)) return fault;
    }
    return Cause::none;
}

Cause transfer_all(Loads& loads) {
    if (const Cause fault = read_text_line(loads.in, section_heading)) return fault;
    const int vectors = loads.in.cmn.NUMLOD;
    for (int v = 1; v <= vectors; ++v) {
        if (const Cause fault = transfer_vector(loads, v)) return fault;
    }
    return Cause::none;
}

} // namespace

void loads(Store& cmn, const RecordFile& load_file) {
    Loads loads{DeckReader(cmn, messages), load_file};
    const Cause fault = transfer_all(loads);
    if (!fault) return;
    linerd(cmn, cmn.NF12, cmn.NF6, cmn.NLINE, fault);
    cmn.IERR = 1;
}

} // namespace korvat

#include "model/sections/rev5_reader.hpp"

#include <utility>

namespace korvat {
namespace {

constexpr ReaderMessages rev5inp_messages = {
    .end_of_file = "(/,' **** SR/REV5INP : End-of-file at unit NF12  LOC=',i5)",
    .format_error = "(/,' **** SR/REV5INP : Input data format error  LOC=',i5)"};

} // namespace

void store_rev5_tube(Store& cmn, int number, const Rev5Tube& tube) {
    store_tube(cmn, number, tube.tube);
    cmn.ECC(number) = tube.ECC;
    for (int i = 1; i <= 3; ++i) {
        cmn.CMISC(i, number) = tube.CMISC[i - 1];
    }
}

Rev5Reader::Rev5Reader(Store& store) : DeckLines(store, rev5inp_messages) {}

void Rev5Reader::begin_record(deck::RecordId id, int k) {
    LOC = deck::location_of(deck::record(id), k);
    id_ = id;
    k_ = k;
}

void Rev5Reader::keep_record(std::initializer_list<double> values) {
    GivenRecord record{.kind = static_cast<int>(id_), .k = k_, .first_line = place(0).line};
    int i = 0;
    for (const double value : values) {
        record.numbers.push_back({.value = value, .place = place(++i)});
    }
    cmn.report.records.push_back(std::move(record));
}

} // namespace korvat

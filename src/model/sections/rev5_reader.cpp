#include "model/sections/rev5_reader.hpp"

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

} // namespace korvat

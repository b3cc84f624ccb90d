// Tests of error messages: what is written, and what is kept as the fault of the run.
#include "support/model_fixture.hpp"

#include "model/store/report_error.hpp"

namespace korvat::test {
namespace {

class ReportError : public ModelTest {};

TEST_F(ReportError, KeepsTheFirstWithItsPlace) {
    report_error(cmn(), 6, {.line = 4, .column = 2}, "(/,' bad',i5)", 3);
    report_error(cmn(), 6, {.line = 5}, "(' worse')");
    EXPECT_EQ(log(), "\n bad    3\n worse\n");
    EXPECT_EQ(cmn().report.fault.message, "\n bad    3");
    EXPECT_EQ(cmn().report.fault.place, (DeckPlace{.line = 4, .column = 2}));
}

TEST_F(ReportError, ALineIsAddedToItsOwnMessage) {
    ErrorMessage first(cmn(), 6, {.line = 4}, "(' bad')");
    ErrorMessage second(cmn(), 6, {.line = 5}, "(' worse')");
    second.add("(' by',i3)", 2);
    first.add("(' by',i3)", 1);
    EXPECT_EQ(log(), " bad\n worse\n by  2\n by  1\n");
    EXPECT_EQ(cmn().report.fault.message, " bad\n by  1");
    EXPECT_EQ(cmn().report.fault.place, (DeckPlace{.line = 4}));
}

} // namespace
} // namespace korvat::test

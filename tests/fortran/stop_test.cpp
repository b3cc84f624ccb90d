// The runtime's STOP leaves as an exception, with the units of the run still in order.
#include "runtime_fixture.hpp"

#include "fortran/stop.hpp"

#include <exception>

namespace korvat::test {
namespace {

class Stop : public RuntimeTest {};

TEST_F(Stop, IsAStandardException) {
    EXPECT_THROW(fortran::stop(), std::exception);
}

TEST_F(Stop, UnwindsWhatTheRunBuilt) {
    struct Witness {
        explicit Witness(bool& flag) : gone(flag) {}
        ~Witness() { gone = true; }
        Witness(const Witness&) = delete;
        Witness& operator=(const Witness&) = delete;
        bool& gone;
    };
    bool gone = false;
    try {
        const Witness witness(gone);
        fortran::stop();
    } catch (const std::exception&) {
        EXPECT_TRUE(gone);
        return;
    }
    FAIL() << "nothing was raised";
}

TEST_F(Stop, LosesNothingThatWasWritten) {
    ASSERT_EQ(runtime().open(6, "log", fortran::OpenStatus::new_file), 0);
    runtime().write(6, "(/,' **** Error termination of KORVAT')");
    runtime().rewind(12);
    EXPECT_THROW(fortran::stop(), std::exception);
    end_runtime();
    EXPECT_EQ(directory.read_file("log"), "\n **** Error termination of KORVAT\n");
    // A scratch file stays behind, for no closing step has removed it.
    EXPECT_TRUE(directory.has("fem_io_unit_012"));
}

TEST_F(Stop, CanBeFollowedByAnotherRun) {
    EXPECT_THROW(fortran::stop(), std::exception);
    runtime().write(12, "(' text')");
    runtime().rewind(12);
    EXPECT_EQ(next(12), " text   ");
}

} // namespace
} // namespace korvat::test

// Memory runs out at the n-th allocation, from the first one of main to the last of the run.
#include "loop.hpp"

#include <cerrno>

namespace korvat::test {
namespace {

// The first ones make the store.
TEST(Memory, RunsOutOnceWithoutLossOrSilence) {
    const Fault fault{.call = Call::allocate, .error = ENOMEM};
    show_cases(fail_each_call(accepted_deck(), fault) + fail_each_call(refused_deck(), fault, 5));
}

TEST(Memory, RunsOutForGoodWithoutLossOrSilence) {
    const Fault fault{.call = Call::allocate, .all_after = true, .error = ENOMEM};
    show_cases(fail_each_call(accepted_deck(), fault, 3) +
               fail_each_call(refused_deck(), fault, 7));
}

} // namespace
} // namespace korvat::test

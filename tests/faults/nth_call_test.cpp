// The n-th call of each kind fails, alone or with all after it, for every n of a run.
#include "loop.hpp"

#include <cerrno>

namespace korvat::test {
namespace {

struct Kind {
    const char* name;
    Call call;
};

// The name of the case in the test's own name.
void PrintTo(const Kind& kind, std::ostream* stream) {
    *stream << kind.name;
}

constexpr Kind kinds[] = {{"Open", Call::open},     {"Read", Call::read},
                          {"Write", Call::write},   {"Seek", Call::seek},
                          {"Flush", Call::flush},   {"Close", Call::close},
                          {"Rename", Call::rename}, {"Remove", Call::remove},
                          {"Status", Call::status}, {"List", Call::list}};

// Every write is followed by a flush: both have hundreds of cases, which a sanitizer makes slow.
std::uint64_t step_of(Call call) {
    const bool is_frequent = call == Call::write || call == Call::flush;
    return KORVAT_SANITIZED != 0 && is_frequent ? 13 : 1;
}

class NthCall : public testing::TestWithParam<Kind> {
protected:
    void fail(int error, bool all_after) {
        SCOPED_TRACE(std::string(all_after ? "all after" : "one") + ", errno " +
                     std::to_string(error));
        const Fault fault{.call = GetParam().call, .all_after = all_after, .error = error};
        for (const std::string& deck : {accepted_deck(), refused_deck()})
            cases += fail_each_call(deck, fault, step_of(fault.call.value()));
    }

    std::uint64_t cases = 0;
};

TEST_P(NthCall, FailsWithoutLossOrSilence) {
    fail(ENOSPC, false);
    fail(EIO, true);
    // A flush fails in its writes, which have all their cases.
    if (GetParam().call != Call::flush) {
        fail(EIO, false);
        fail(ENOSPC, true);
    }
    show_cases(cases);
}

INSTANTIATE_TEST_SUITE_P(Faults, NthCall, testing::ValuesIn(kinds),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
} // namespace korvat::test

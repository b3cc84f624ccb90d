// Cases that ask for a fault of the machine: the run under it leaves what the case tells.
#include "../support/case.hpp"
#include "../support/scratch_directory.hpp"
#include "faulty_run.hpp"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <stdexcept>

namespace korvat::test {
namespace {

// "CALL N ERROR SIZE".
Fault fault_of(const std::filesystem::path& case_dir) {
    static const std::map<std::string, Call> calls = {{"read", Call::read}, {"write", Call::write}};
    static const std::map<std::string, int> errors = {{"EIO", EIO}, {"ENOSPC", ENOSPC}};
    std::istringstream text(read_whole_file(case_dir / "fault"));
    std::string call;
    std::string error;
    Fault fault;
    if (!(text >> call >> fault.at >> error >> fault.buffer_size)) {
        throw std::runtime_error("no fault in " + case_dir.string());
    }
    fault.call = calls.at(call);
    fault.error = errors.at(error);
    return fault;
}

class FaultCase : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(FaultCase, LeavesWhatIsExpected) {
    const ScratchDirectory directory;
    lay_out_case(GetParam(), directory);
    const Outcome outcome = faulty_run(directory.path(), {.fault = fault_of(GetParam())});
    EXPECT_EQ(outcome.fired, 1U);
    CaseResult result{.exit_code = outcome.exit_code,
                      .outputs = directory.list(),
                      .files = outcome.files,
                      .standard_output = outcome.standard_output,
                      .standard_error = outcome.standard_error,
                      .differences = {}};
    compare_with_case(GetParam(), result);
    for (const std::string& difference : result.differences)
        ADD_FAILURE() << difference;
}

std::string name_of_case(const testing::TestParamInfo<std::filesystem::path>& info) {
    std::string name = info.param.filename().string();
    const auto is_other = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; };
    std::replace_if(name.begin(), name.end(), is_other, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Cases, FaultCase, testing::ValuesIn(fault_case_folders(KORVAT_CASES_DIR)),
                         name_of_case);

} // namespace
} // namespace korvat::test

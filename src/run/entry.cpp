#include "run/entry.hpp"

#include "platform/taskbar_button.hpp"
#include "run/contrl.hpp"
#include "run/report.hpp"

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <vector>

namespace korvat {
namespace {

constexpr int registration_failed = 1;
constexpr int exception_escaped = -1;
constexpr int output_lost = -1;

// Runs the driver. `exception` receives the text of what escapes it, the runtime's stop included.
int run_driver(Store& cmn, std::string& exception) {
    try {
        return contrl(cmn, program_steps());
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& escaped) {
        exception = escaped.what();
    } catch (...) {
        exception = "unknown exception";
    }
    return exception_escaped;
}

// Standard output, where the log goes that cannot be made, is not an output that was asked for.
bool is_output(const fortran::WriteFault& fault) {
    return fault.file != fortran::standard_output_name;
}

RunEnd run_on_fresh_store(int argc, const char* const* argv) {
    const auto cmn = std::make_unique<Store>(argc, argv);
    std::string exception;
    RunEnd end{.exit_code = run_driver(*cmn, exception)};
    const std::vector<fortran::WriteFault> lost = close_outputs(*cmn);
    if (end.exit_code == 0 && std::ranges::any_of(lost, is_output)) end.exit_code = output_lost;
    end.report = argument_warning(argc, argv);
    end.report += end.exit_code == 0 ? warning_report(cmn->report, lost)
                                     : failure_report(cmn->report, lost, exception);
    return end;
}

} // namespace

RunEnd run_program(int argc, const char* const* argv) {
    try {
        const auto button = platform::show_taskbar_button();
        if (!button) {
            return {.exit_code = registration_failed,
                    .report = "korvat: Window Registration Failed!\n"};
        }
        return run_on_fresh_store(argc, argv);
    } catch (const std::bad_alloc&) {
        return {.exit_code = exception_escaped, .out_of_memory = true};
    }
}

} // namespace korvat

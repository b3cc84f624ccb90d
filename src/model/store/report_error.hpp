// Writes error messages and keeps the first of a run.
#pragma once

#include "fortran/internal_write.hpp"
#include "model/store/store.hpp"

#include <string>
#include <string_view>

namespace korvat {

template <fortran::Writable... Items>
[[nodiscard]] std::string edited_message(std::string_view format, const Items&... items) {
    constexpr std::size_t longest_message = 2000;
    return std::string(fortran::trimmed(fortran::edited(longest_message, format, items...)));
}

// Keeps the items edited under `format` as the run's fault unless there is one already.
template <fortran::Writable... Items>
void keep_fault(Store& cmn, const DeckPlace& place, std::string_view format,
                const Items&... items) {
    if (!cmn.report.fault.message.empty()) return;
    cmn.report.fault.message = edited_message(format, items...);
    cmn.report.fault.place = place;
}

// Writes an error message to a unit; the first of the run becomes its fault.
template <fortran::Writable... Items>
void report_error(Store& cmn, int unit, const DeckPlace& place, std::string_view format,
                  const Items&... items) {
    cmn.runtime.write(unit, format, items...);
    keep_fault(cmn, place, format, items...);
}

// Writes another line of the message that was written last.
template <fortran::Writable... Items>
void continue_error(Store& cmn, int unit, std::string_view format, const Items&... items) {
    cmn.runtime.write(unit, format, items...);
    cmn.report.fault.message += '\n' + edited_message(format, items...);
}

} // namespace korvat

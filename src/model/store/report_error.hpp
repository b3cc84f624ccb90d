// Writes error messages and warnings; keeps the first error of a run and every warning.
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

// An error message that has been written, to which lines can be added.
class ErrorMessage {
public:
    // Writes the message to a unit; the first of a run becomes its fault.
    template <fortran::Writable... Items>
    ErrorMessage(Store& cmn, int unit, const DeckPlace& place, std::string_view format,
                 const Items&... items)
        : cmn_(cmn), unit_(unit), is_fault_(cmn.report.fault.message.empty()) {
        cmn_.runtime.write(unit_, format, items...);
        if (!is_fault_) return;
        cmn_.report.fault.message = edited_message(format, items...);
        cmn_.report.fault.place = place;
    }

    template <fortran::Writable... Items>
    void add(std::string_view format, const Items&... items) {
        cmn_.runtime.write(unit_, format, items...);
        if (is_fault_) cmn_.report.fault.message += '\n' + edited_message(format, items...);
    }

private:
    Store& cmn_;
    int unit_;
    bool is_fault_;
};

// Writes an error message to a unit; the first of a run becomes its fault.
template <fortran::Writable... Items>
void report_error(Store& cmn, int unit, const DeckPlace& place, std::string_view format,
                  const Items&... items) {
    ErrorMessage(cmn, unit, place, format, items...);
}

// Writes a warning to a unit and keeps it.
template <fortran::Writable... Items>
void report_warning(Store& cmn, int unit, const DeckPlace& place, std::string_view format,
                    const Items&... items) {
    cmn.runtime.write(unit, format, items...);
    cmn.report.warnings.push_back({edited_message(format, items...), place});
}

} // namespace korvat

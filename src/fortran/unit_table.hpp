// The units of a run: the runtime's table, the characters on their way in and out, and what failed.
#pragma once

#include "fortran/fem_runtime.hpp"
#include "fortran/runtime.hpp"
#include "fortran/unit_stream.hpp"

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::fortran {

inline constexpr int standard_error_unit = 0;
inline constexpr int message_log_unit = 6;

// The runtime opens, cuts, rewinds, closes and names the files; the streams here carry the characters.
class UnitTable {
public:
    UnitTable(int argc, const char* const* argv);

    // Writes what the buffers hold, and closes every unit, the one that an open put on unit 6 included.
    ~UnitTable();
    UnitTable(const UnitTable&) = delete;
    UnitTable& operator=(const UnitTable&) = delete;

    // As Runtime has them.
    [[nodiscard]] int open(int unit, std::string_view file, OpenStatus status);
    [[nodiscard]] int open_error() const { return open_error_; }
    int close(int unit);
    void close_all();
    void rewind(int unit);
    [[nodiscard]] bool wrote_all(int unit);
    [[nodiscard]] const std::vector<WriteFault>& write_faults() const { return write_faults_; }

    // The stream of a unit for a record that is to be written or a line that is to be read. A unit
    // without a file is connected to a scratch file. A fem::io_err leaves where the file cannot be
    // made, or cut at its present position, which the runtime does where writing begins.
    [[nodiscard]] UnitStream& for_writing(int unit);
    [[nodiscard]] UnitStream& for_reading(int unit);

    // Keeps a failure of the unit's writes, if there was one. To be asked behind each record.
    void check(int unit);

    // The file of a unit; nothing where it has none.
    [[nodiscard]] std::FILE* file_of(int unit) const;

private:
    // A unit that is being read or written, and its characters.
    struct Connection {
        explicit Connection(fem::io_unit& connected)
            : unit(connected), stream(connected.stream.ptr) {}

        fem::io_unit& unit;
        UnitStream stream;
    };

    void note_fault(const std::string& file, int error);
    void note_fault(const fem::io_unit& unit, int error);
    void check(const Connection& connection);
    void empty(Connection& connection);
    void empty(int unit);
    void cut(Connection& connection);
    void close_stream(int unit);
    Connection& connected(int unit);
    Connection*& quick_place(int unit) {
        return quick_[static_cast<unsigned>(unit) % quick_.size()];
    }
    fem::io_unit& opened(int unit);

    fem::common common_;
    std::map<int, Connection> connections_; // of the units that have been read or written
    std::array<Connection*, 64> quick_{};   // those of the same unit number modulo 64
    int open_error_ = 0;
    std::set<int> written_units_;
    std::set<int> faulty_units_;
    std::vector<WriteFault> write_faults_;
};

} // namespace korvat::fortran

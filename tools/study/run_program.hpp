// The program that runs the cases.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace korvat::study {

// The program that is asked for, else the korvat beside korvat-tools, else that on the PATH, as an absolute
// path. Raises StudyError where there is none that can be run.
[[nodiscard]] std::string find_run_program(const std::string& asked);

// A program's file, which somebody may replace while it is in use.
class RunProgram {
public:
    // Raises StudyError where it cannot be read.
    explicit RunProgram(std::string path);

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] const std::string& digest() const { return digest_; }

    // Looks whether the file is still the same, by its size and its time; where they have changed, by its content.
    // True where it is another one now. Raises StudyError where it is gone.
    [[nodiscard]] bool has_changed();

    // The version that the log of a run shows, which is read only as long as that of this file is not known.
    [[nodiscard]] const std::string& version_by_log(const std::string& log);

private:
    struct Stamp {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type time;

        bool operator==(const Stamp&) const = default;
    };

    [[nodiscard]] Stamp stamp() const;
    [[nodiscard]] std::string content() const;

    std::string path_;
    Stamp stamp_;
    std::string digest_;
    std::string version_;
};

} // namespace korvat::study

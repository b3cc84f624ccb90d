// The decks of the fault tests, and a directory that holds one of them and the files of earlier runs.
#pragma once

#include "faulty_run.hpp"

#include "../support/scratch_directory.hpp"

#include <array>
#include <string>

namespace korvat::test {

constexpr std::array<const char*, 5> output_names = {"KORVAT.MLG", "KORVAT.LIS", "PILEPLOT.TXT",
                                                     "PILE.07", "LOAD.09"};
constexpr const char* scratch_name = "fem_io_unit_012";

// Revision 5, with echo and load vectors: the run writes every output and ends with 0.
std::string accepted_deck();

// The same with a fault in its last record, so that every output has been written to: ends with 1.
std::string refused_deck();

// The same with a tube so thin that the run warns on standard error, time and again: ends with 255.
std::string warned_deck();

// The deck in a fresh directory.
class Workplace {
public:
    explicit Workplace(const std::string& deck);

    // Adds every output of a run before, its backups, and the scratch file of one that was stopped.
    void add_earlier_files() const;

    const std::filesystem::path& path() const { return directory_.path(); }
    std::map<std::string, std::string> files() const { return files_in(directory_.path()); }
    Outcome run(const Surroundings& surroundings = {}) const;

private:
    ScratchDirectory directory_;
};

// The content of the earlier file of a name.
std::string earlier_content(const std::string& name);

// Files by name with time stamps, release date and identification masked.
std::map<std::string, std::string> masked(std::map<std::string, std::string> files);

} // namespace korvat::test

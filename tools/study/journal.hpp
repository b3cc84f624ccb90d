// The journal of a batch: a line for each case that has been run, in the order of their ends.
#pragma once

#include "platform/locked_file.hpp"
#include "study/case_record.hpp"

#include <cstdint>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace korvat::study {

// Reads the journal of anybody, also while it is written.
class JournalReader {
public:
    // Raises StudyError where there is none.
    explicit JournalReader(const std::string& name);

    // Every record with the offset of its line. Lines that are none are counted; a last one without its
    // end is left out.
    struct Scan {
        std::uint64_t end = 0; // of the last whole line
        std::size_t damaged = 0;
    };
    Scan scan(const std::function<void(std::uint64_t offset, CaseRecord&&)>& take);

    // The record at an offset that `scan` or `append` has given. Raises StudyError where there is none.
    [[nodiscard]] CaseRecord at(std::uint64_t offset);

private:
    std::string name_;
    std::ifstream stream_;
};

// Writes a journal, one batch at a time.
class Journal {
public:
    // Where it is not to be continued, one that stands there becomes NAME.bak. What follows its last whole line is
    // cut off. Raises platform::HeldByAnother, StudyError, std::system_error.
    Journal(const std::string& name, bool is_continued);

    // The offset of the new line. Raises std::system_error; the journal then is as before.
    std::uint64_t append(const CaseRecord& record);

    // The last record of a case, and its offset.
    [[nodiscard]] std::optional<std::pair<std::uint64_t, CaseRecord>> find(const std::string& name);

    [[nodiscard]] CaseRecord at(std::uint64_t offset) { return reader_.at(offset); }
    [[nodiscard]] bool is_locked() const { return file_.is_locked(); }
    // Lines of the journal that is continued that are no records.
    [[nodiscard]] std::size_t damaged() const { return damaged_; }

private:
    // Of a case's name: two that have the same are told apart by the line.
    struct Entry {
        std::uint64_t hash = 0;
        std::uint64_t offset = 0;
    };

    std::string name_;
    platform::LockedFile file_;
    JournalReader reader_;
    std::vector<Entry> entries_; // by their hashes, and by their offsets where these are equal
    std::size_t damaged_ = 0;
};

} // namespace korvat::study

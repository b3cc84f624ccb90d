// Binary files of unformatted records in the segmented layout that TOLVAN reads.
#pragma once

#include "output/i_stream_writer.hpp"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvat {

using VESKA::TolvanCommonLibrary::IO::IStreamWriter;

// The record's bytes cut into segments of at most 128 bytes, each between its length bytes. An
// empty record gives nothing.
[[nodiscard]] std::string framed(std::string_view record);

// A record file: a header byte, records, an end byte. Made on no stream it discards what it is
// given: a run goes on without an output that could not be opened.
class RecordFile {
public:
    // A file without a stream.
    RecordFile() = default;

    // Writes the header byte.
    explicit RecordFile(std::shared_ptr<IStreamWriter> stream);

    // Closes the file if that has not been done.
    ~RecordFile();
    RecordFile(RecordFile&&) = default;
    RecordFile& operator=(RecordFile&&) = delete;
    RecordFile(const RecordFile&) = delete;
    RecordFile& operator=(const RecordFile&) = delete;

    // Writes the end byte, closes the stream and lets it go. Returns 0, or the system's error number
    // (errno) of the first write or close that failed. Without a stream: 0.
    int close();

private:
    friend class RecordBuilder;

    std::shared_ptr<IStreamWriter> stream_;
};

// Collects the items of one record, in order, and writes it once.
class RecordBuilder {
public:
    explicit RecordBuilder(const RecordFile& file) : stream_(file.stream_) {}

    RecordBuilder& add(int value);    // 4 bytes, little-endian
    RecordBuilder& add(double value); // 8 bytes, little-endian
    RecordBuilder& add(std::string_view text);
    template <typename T>
    RecordBuilder& add(const T&) = delete;

    template <typename Items>
    RecordBuilder& add_all(const Items& items) {
        for (const auto& item : items) {
            add(item);
        }
        return *this;
    }

    // Frames and writes the items and clears their list; without any item nothing is written.
    void write();

private:
    void add_bytes(std::uint64_t value, int count);

    std::shared_ptr<IStreamWriter> stream_;
    std::string bytes_; // of the items so far
};

} // namespace korvat

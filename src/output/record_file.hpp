// Binary files of unformatted records in the segmented layout that TOLVAN reads.
#pragma once

#include "output/i_stream_writer.hpp"

#include <bit>
#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>

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

// Collects the items of one record, in order, and writes it once: integers in 4 bytes and reals in 8,
// both little-endian, and the characters of texts.
class RecordBuilder {
public:
    explicit RecordBuilder(const RecordFile& file);

    RecordBuilder& add(int value) { return add_bytes(&value, sizeof value); }
    RecordBuilder& add(double value) { return add_bytes(&value, sizeof value); }
    RecordBuilder& add(std::string_view text) { return add_bytes(text.data(), text.size()); }
    template <typename T>
    RecordBuilder& add(const T&) = delete;

    RecordBuilder& add_all(std::span<const int> values) {
        return add_bytes(values.data(), values.size_bytes());
    }
    RecordBuilder& add_all(std::span<const double> values) {
        return add_bytes(values.data(), values.size_bytes());
    }

    // Frames and writes the items and clears their list; without any item nothing is written.
    void write();

private:
    // Values are written as they stand in memory.
    static_assert(std::endian::native == std::endian::little && sizeof(int) == 4 &&
                  sizeof(double) == 8);

    RecordBuilder& add_bytes(const void* bytes, std::size_t count) {
        if (room_ - size_ < count) grow(count);
        std::memcpy(bytes_.get() + size_, bytes, count);
        size_ += count;
        return *this;
    }
    void grow(std::size_t count);

    std::shared_ptr<IStreamWriter> stream_;
    std::unique_ptr<char[]> bytes_; // of the items so far
    std::size_t size_ = 0;
    std::size_t room_ = 0;
};

} // namespace korvat

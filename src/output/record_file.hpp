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
// both little-endian, and the characters of texts. They are cut into segments of at most 128 bytes,
// each between its length bytes.
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

    // Completes the frame, writes the items and clears their list; without any item nothing is
    // written.
    void write();

private:
    // Values are written as they stand in memory.
    static_assert(std::endian::native == std::endian::little && sizeof(int) == 4 &&
                  sizeof(double) == 8);

    static constexpr std::size_t segment_length = 128;

    RecordBuilder& add_bytes(const void* bytes, std::size_t count) {
        if (count == 0) return *this; // there may be no bytes to point to
        if (count < segment_length - filled_) {
            std::memcpy(next_, bytes, count);
            next_ += count;
            filled_ += count;
            return *this;
        }
        add_across_segments(static_cast<const char*>(bytes), count);
        return *this;
    }
    void add_across_segments(const char* bytes, std::size_t count);
    void begin_segment();

    std::shared_ptr<IStreamWriter> stream_;
    // The segments so far, each behind its opening byte, the full ones before their closing byte.
    // There is always room for the rest of the segment begun.
    std::unique_ptr<char[]> frame_;
    std::size_t room_ = 0;
    char* next_ = nullptr;   // where the next item goes
    std::size_t filled_ = 0; // bytes in the segment begun
    std::size_t full_ = 0;   // segments before it, which are full
};

} // namespace korvat

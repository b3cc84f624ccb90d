#include "output/record_file.hpp"

#include <algorithm>

namespace korvat {
namespace {

constexpr char header_byte = 'K';
constexpr char end_byte = static_cast<char>(0x82);
constexpr char full_segment = static_cast<char>(0x81); // length byte of a segment that goes on

char length_byte(std::size_t length) {
    return static_cast<char>(length);
}

} // namespace

RecordFile::RecordFile(std::shared_ptr<IStreamWriter> stream) : stream_(std::move(stream)) {
    stream_->Write(std::span(&header_byte, 1));
}

RecordFile::~RecordFile() {
    close();
}

int RecordFile::close() {
    if (!stream_) return 0;
    stream_->Write(std::span(&end_byte, 1));
    const int error = stream_->Close();
    stream_.reset();
    return error;
}

RecordBuilder::RecordBuilder(const RecordFile& file) : stream_(file.stream_) {
    begin_segment();
}

// Makes room for one more segment between its length bytes, and leaves the place of the opening byte
// to write.
void RecordBuilder::begin_segment() {
    constexpr std::size_t framed_segment = segment_length + 2;
    constexpr std::size_t usual_room =
        32 * framed_segment; // enough for the longer records of a pile
    const std::size_t used = full_ * framed_segment;
    if (room_ - used < framed_segment) {
        room_ = std::max(2 * room_, usual_room);
        auto larger = std::make_unique_for_overwrite<char[]>(room_);
        if (used > 0) std::memcpy(larger.get(), frame_.get(), used);
        frame_ = std::move(larger);
    }
    next_ = frame_.get() + used + 1;
    filled_ = 0;
}

void RecordBuilder::add_across_segments(const char* bytes, std::size_t count) {
    while (count > 0) {
        const std::size_t now = std::min(count, segment_length - filled_);
        std::memcpy(next_, bytes, now);
        next_ += now;
        filled_ += now;
        bytes += now;
        count -= now;
        if (filled_ < segment_length) return;
        *next_ = full_segment; // its closing byte
        ++full_;
        begin_segment();
    }
}

void RecordBuilder::write() {
    if (full_ == 0 && filled_ == 0) return;
    constexpr std::size_t framed_segment = segment_length + 2;
    for (std::size_t i = 0; i < full_; ++i) {
        frame_[i * framed_segment] = full_segment;
    }
    // A record that just fills one segment has its length in front.
    if (full_ == 1 && filled_ == 0) frame_[0] = length_byte(segment_length);
    // The last segment, also where it is empty, stands between its length.
    *(next_ - filled_ - 1) = length_byte(filled_);
    *next_++ = length_byte(filled_);
    const auto size = static_cast<std::size_t>(next_ - frame_.get());
    if (stream_) stream_->Write(std::span(frame_.get(), size));
    full_ = 0;
    begin_segment();
}

} // namespace korvat

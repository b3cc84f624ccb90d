#include "output/record_file.hpp"

#include <bit>
#include <cstring>

namespace korvat {
namespace {

constexpr char header_byte = 'K';
constexpr char end_byte = static_cast<char>(0x82);
constexpr char full_segment = static_cast<char>(0x81); // length byte of a segment that goes on
constexpr std::size_t segment_length = 128;

char length_byte(std::size_t length) {
    return static_cast<char>(length);
}

} // namespace

std::string framed(std::string_view record) {
    const std::size_t L = record.size();
    if (L == 0) return {};
    const std::size_t R = L % segment_length;
    std::size_t to_come = L / segment_length; // full segments, the one being written included
    std::string out(L + 2 * to_come + 2, '\0');
    const char* from = record.data();
    char* to = out.data();
    *to++ = L <= segment_length ? length_byte(L) : full_segment;
    while (to_come > 0) {
        std::memcpy(to, from, segment_length);
        from += segment_length;
        to += segment_length;
        *to++ = full_segment;
        // The next segment's opening byte: R, also where R is 0 and the segment empty.
        *to++ = to_come > 1 ? full_segment : length_byte(R);
        --to_come;
    }
    std::memcpy(to, from, R);
    to[R] = length_byte(R);
    return out;
}

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
    constexpr std::size_t usual_size = 4096; // of a pile's longer records
    grow(usual_size);
}

void RecordBuilder::grow(std::size_t count) {
    room_ = 2 * size_ + count;
    auto larger = std::make_unique_for_overwrite<char[]>(room_);
    if (size_ > 0) std::memcpy(larger.get(), bytes_.get(), size_);
    bytes_ = std::move(larger);
}

void RecordBuilder::write() {
    if (size_ == 0) return;
    if (stream_) stream_->Write(framed({bytes_.get(), size_}));
    size_ = 0;
}

} // namespace korvat

#include "output/record_file.hpp"

#include <bit>

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
    std::string out;
    out.reserve(L + 2 * to_come + 2);
    out += L <= segment_length ? length_byte(L) : full_segment;
    while (to_come > 0) {
        out += record.substr(0, segment_length);
        record.remove_prefix(segment_length);
        out += full_segment;
        // The next segment's opening byte: R, also where R is 0 and the segment empty.
        out += to_come > 1 ? full_segment : length_byte(R);
        --to_come;
    }
    out += record;
    out += length_byte(R);
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

void RecordBuilder::add_bytes(std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i) {
        bytes_ += static_cast<char>((value >> (8 * i)) & 0xFFU);
    }
}

RecordBuilder& RecordBuilder::add(int value) {
    add_bytes(static_cast<std::uint32_t>(value), 4);
    return *this;
}

RecordBuilder& RecordBuilder::add(double value) {
    add_bytes(std::bit_cast<std::uint64_t>(value), 8);
    return *this;
}

RecordBuilder& RecordBuilder::add(std::string_view text) {
    bytes_ += text;
    return *this;
}

void RecordBuilder::write() {
    if (bytes_.empty()) return;
    if (stream_) stream_->Write(framed(bytes_));
    bytes_.clear();
}

} // namespace korvat

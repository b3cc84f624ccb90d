#include "study/list_stream.hpp"

#include <utility>

namespace korvat::study {
namespace {

constexpr std::size_t block_size = 65536;

} // namespace

ListStream::Buffer::Buffer(std::istream& source) : source_(source), beginning_(block_size, '\0') {
    source_.read(beginning_.data(), static_cast<std::streamsize>(beginning_.size()));
    beginning_.resize(static_cast<std::size_t>(source_.gcount()));
    setg(beginning_.data(), beginning_.data(), beginning_.data() + beginning_.size());
}

ListStream::Buffer::int_type ListStream::Buffer::underflow() {
    block_.resize(block_size);
    source_.read(block_.data(), static_cast<std::streamsize>(block_.size()));
    const auto count = source_.gcount();
    if (count <= 0) return traits_type::eof();
    setg(block_.data(), block_.data(), block_.data() + count);
    return traits_type::to_int_type(block_.front());
}

ListStream::ListStream(std::istream& source) : buffer_(source), stream_(&buffer_) {}

ListStream::ListStream(std::unique_ptr<std::istream> source)
    : own_(std::move(source)), buffer_(*own_), stream_(&buffer_) {}

} // namespace korvat::study

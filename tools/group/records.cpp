#include "group/records.hpp"

#include <algorithm>
#include <bit>
#include <cassert>
#include <utility>

namespace korvat::group {
namespace {

constexpr unsigned header_byte = 0x4B;
constexpr unsigned end_byte = 0x82;
constexpr unsigned full_segment = 0x81;
constexpr unsigned only_full_segment = 0x80; // of a record of just one segment's length
constexpr std::size_t segment_length = 128;

class RecordReader {
public:
    explicit RecordReader(std::span<const char> file) : file_(file) {}

    Records read() {
        if (file_.empty()) return stop("the file is empty");
        if (byte(0) != header_byte) return stop("the file does not begin with the letter K");
        result_.end = position_ = 1;
        while (!result_.damage && !ends()) {
            read_record();
        }
        return std::move(result_);
    }

private:
    [[nodiscard]] unsigned byte(std::size_t i) const {
        return static_cast<unsigned char>(file_[i]);
    }

    Records stop(std::string reason) {
        damage(std::move(reason));
        return std::move(result_);
    }

    void damage(std::string reason) { result_.damage = Damage{position_, std::move(reason)}; }

    // Whether the file ends here, well or not.
    bool ends() {
        if (position_ == file_.size()) {
            damage("the file ends without its end byte");
            return true;
        }
        if (byte(position_) != end_byte) return false;
        if (++position_ < file_.size()) damage("there is more behind the end byte");
        return true;
    }

    void read_record() {
        Record record{position_, {}};
        bool goes_on = true;
        while (goes_on) {
            if (position_ == file_.size()) return damage("the file ends inside a record");
            const unsigned opening = byte(position_);
            const bool is_first = record.bytes.empty();
            if (opening > full_segment || (opening == only_full_segment && !is_first)) {
                return damage("no length of a segment");
            }
            goes_on = opening >= segment_length;
            const std::size_t length = goes_on ? segment_length : opening;
            if (is_first && length == 0) return damage("a record without data");
            if (file_.size() - position_ < length + 2) {
                return damage("the file ends inside a segment");
            }
            const auto data = file_.subspan(position_ + 1, length);
            record.bytes.insert(record.bytes.end(), data.begin(), data.end());
            position_ += length + 1;
            if (byte(position_) != (goes_on ? full_segment : opening)) {
                return damage("the length behind a segment is not the one before it");
            }
            ++position_;
            if (opening == only_full_segment) is_of_one_ = true;
        }
        const bool is_one_full_segment = record.bytes.size() == segment_length;
        if (std::exchange(is_of_one_, false) != is_one_full_segment) {
            position_ = record.offset;
            return damage("the first length does not agree with the record's");
        }
        result_.records.push_back(std::move(record));
        result_.end = position_;
    }

    std::span<const char> file_;
    std::size_t position_ = 0;
    bool is_of_one_ = false; // the record said that it has one full segment only
    Records result_;
};

} // namespace

Records read_records(std::span<const char> file) {
    return RecordReader(file).read();
}

template <std::size_t N>
std::array<char, N> Items::next() {
    assert(bytes_.size() >= N);
    std::array<char, N> bytes;
    std::copy_n(bytes_.begin(), N, bytes.begin());
    bytes_ = bytes_.subspan(N);
    return bytes;
}

static_assert(std::endian::native == std::endian::little); // as the files are

int Items::integer() {
    return std::bit_cast<std::int32_t>(next<4>());
}

double Items::real() {
    return std::bit_cast<double>(next<8>());
}

std::string Items::text() {
    std::string text(bytes_.begin(), bytes_.end());
    bytes_ = {};
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

} // namespace korvat::group

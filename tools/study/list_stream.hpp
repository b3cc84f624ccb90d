// A stream whose beginning can be looked at before it is read.
#pragma once

#include <istream>
#include <memory>
#include <streambuf>
#include <string>
#include <vector>

namespace korvat::study {

class ListStream {
public:
    // Reads up to 64 KB of the source at once; the source must outlive it.
    explicit ListStream(std::istream& source);
    // Owns the source.
    explicit ListStream(std::unique_ptr<std::istream> source);

    [[nodiscard]] const std::string& beginning() const { return buffer_.beginning(); }

    // The whole of it, from the first byte.
    [[nodiscard]] std::istream& stream() { return stream_; }

private:
    class Buffer : public std::streambuf {
    public:
        explicit Buffer(std::istream& source);
        [[nodiscard]] const std::string& beginning() const { return beginning_; }

    protected:
        int_type underflow() override;

    private:
        std::istream& source_;
        std::string beginning_;
        std::vector<char> block_;
    };

    std::unique_ptr<std::istream> own_;
    Buffer buffer_;
    std::istream stream_;
};

} // namespace korvat::study

// Where edited characters go: room for them, one behind the other.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace korvat::fortran {

class CharacterSink {
public:
    virtual ~CharacterSink() = default;
    CharacterSink(const CharacterSink&) = delete;
    CharacterSink& operator=(const CharacterSink&) = delete;

    // Room for `count` characters, at most least_room, and on to room_end; `took_up_to` tells where
    // those that have been stored end.
    [[nodiscard]] char* room(std::size_t count) {
        if (static_cast<std::size_t>(end_ - next_) < count) make_room();
        return next_;
    }
    [[nodiscard]] char* room_end() const { return end_; }
    void took_up_to(char* end) { next_ = end; }

    void put(std::string_view text) {
        while (!text.empty()) {
            if (next_ == end_) make_room();
            const std::size_t now = std::min(text.size(), static_cast<std::size_t>(end_ - next_));
            std::memcpy(next_, text.data(), now);
            next_ += now;
            text.remove_prefix(now);
        }
    }

protected:
    static constexpr std::size_t least_room = 512;

    CharacterSink() = default;

    // Leaves at least least_room characters between next_ and end_.
    virtual void make_room() = 0;

    char* next_ = nullptr;
    char* end_ = nullptr;
};

// Keeps what it is given in a text.
class TextSink : public CharacterSink {
public:
    [[nodiscard]] std::string text() const { return characters_.substr(0, used()); }

private:
    // Characters so far; there is nothing to subtract from before the first.
    [[nodiscard]] std::size_t used() const {
        return next_ == nullptr ? 0 : static_cast<std::size_t>(next_ - characters_.data());
    }

    void make_room() override {
        const std::size_t kept = used();
        characters_.resize(2 * characters_.size() + least_room);
        next_ = characters_.data() + kept;
        end_ = characters_.data() + characters_.size();
    }

    std::string characters_;
};

} // namespace korvat::fortran

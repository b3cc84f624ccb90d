// Counts a record that comes again and again, instead of showing it each time.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace korvat::fortran {

class RepeatedRecord {
public:
    // Whether this is the record before; it is counted then.
    [[nodiscard]] bool is_repeated(std::string_view record) {
        if (count_ == 0 || record != text_) return false;
        ++count_;
        return true;
    }

    // Another record follows, which has come once.
    void begin(std::string record) {
        text_ = std::move(record);
        count_ = 1;
    }

    // Tells a file how often the record came, if more than once. Nothing is raised: it is also told
    // where a run ends.
    void tell(std::FILE* file) {
        if (count_ > 1 && file != nullptr) {
            std::fprintf(file, " (the message above came %d times)\n", count_);
        }
        count_ = 0;
    }

private:
    std::string text_;
    int count_ = 0;
};

} // namespace korvat::fortran

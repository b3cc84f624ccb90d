// Which edit descriptor of a FORMAT each item of a write goes under.
#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::fortran {

// A data edit descriptor: its letter ('a', 'i', 'f' or 'e'), its width (0: none given) and the
// digits after its point.
struct EditDescriptor {
    char letter;
    int width;
    int digits;

    friend bool operator==(const EditDescriptor&, const EditDescriptor&) = default;
};

// The descriptors of every FORMAT seen so far, so that each is taken apart once.
class EditDescriptors {
public:
    // The descriptors of the first `count` items written under `format`, format reversion included.
    // Raises std::runtime_error for a FORMAT that the runtime refuses.
    [[nodiscard]] std::span<const EditDescriptor> of(std::string_view format, std::size_t count);

private:
    std::map<std::string, std::vector<EditDescriptor>, std::less<>> known_;
};

} // namespace korvat::fortran

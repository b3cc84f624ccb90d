#include "study/digest.hpp"

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace korvat::study {

std::string digest(std::string_view bytes) {
    XXH128_canonical_t canonical;
    XXH128_canonicalFromHash(&canonical, XXH3_128bits(bytes.data(), bytes.size()));
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : canonical.digest) {
        text += digits[byte / 16U];
        text += digits[byte % 16U];
    }
    return text;
}

std::uint64_t short_digest(std::string_view bytes) {
    return XXH3_64bits(bytes.data(), bytes.size());
}

} // namespace korvat::study

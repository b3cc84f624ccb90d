#include "study/whole_file.hpp"

#include "platform/paths.hpp"

#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace korvat::study {

namespace fs = std::filesystem;

std::optional<std::string> file_bytes(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return std::nullopt;
    std::string bytes;
    std::array<char, 65536> block;
    while (stream.read(block.data(), block.size()) || stream.gcount() > 0)
        bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    if (stream.bad()) return std::nullopt;
    return bytes;
}

bool replace_file(const fs::path& path, std::string_view bytes) {
    if (const auto present = file_bytes(path); present && *present == bytes) return false;
    fs::path fresh = path;
    fresh += ".new";
    errno = 0;
    std::ofstream stream(fresh, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        const int reason = errno != 0 ? errno : EIO;
        std::error_code ignored;
        fs::remove(fresh, ignored);
        throw std::system_error(reason, std::generic_category(), platform::name_of(path));
    }
    fs::rename(fresh, path);
    return true;
}

} // namespace korvat::study

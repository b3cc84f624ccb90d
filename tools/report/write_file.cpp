#include "report/write_file.hpp"

#include "platform/paths.hpp"

#include <cerrno>
#include <fstream>
#include <random>
#include <string>
#include <system_error>

namespace korvat::report {
namespace {

namespace fs = std::filesystem;

std::system_error failure(const fs::path& path) {
    const int error = errno == 0 ? EIO : errno;
    return {std::error_code(error, std::generic_category()), platform::name_of(path)};
}

void write_as_it_is(const fs::path& path, std::string_view content) {
    errno = 0;
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream) throw failure(path);
}

// A name beside the file that nothing has.
fs::path name_beside(const fs::path& path) {
    std::random_device source;
    fs::path beside = path;
    beside += "." + std::to_string(source()) + ".part";
    return beside;
}

// The file that a link leads to: the link stays.
fs::path place_of(const fs::path& path) {
    std::error_code error;
    const fs::path real = fs::canonical(path, error);
    return error ? path : real;
}

} // namespace

void write_file(const fs::path& path, std::string_view content) {
    std::error_code unknown; // what cannot be asked, writing shows
    const fs::file_status status = fs::status(path, unknown);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        write_as_it_is(path, content);
        return;
    }
    const fs::path place = place_of(path);
    const fs::path beside = name_beside(place);
    try {
        write_as_it_is(beside, content);
        if (fs::exists(status)) fs::permissions(beside, status.permissions(), unknown);
        fs::rename(beside, place);
    } catch (const std::system_error& error) {
        fs::remove(beside, unknown);
        throw std::system_error(error.code(), platform::name_of(path));
    }
}

} // namespace korvat::report

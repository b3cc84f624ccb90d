// What the running system says of itself, against what its own tools say (POSIX).
#include "platform/system_identification.hpp"

#include "support/scratch_directory.hpp"
#include "support/text.hpp"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>

namespace korvat::test {
namespace {

// The first line that a command prints.
std::string first_line_of(const char* command) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command, "r"), pclose);
    if (!pipe) return "(no " + std::string(command) + ")";
    char line[256] = {};
    if (std::fgets(line, sizeof line, pipe.get()) == nullptr) return {};
    const std::string text(line);
    return text.substr(0, text.find('\n'));
}

std::string content_of(const std::filesystem::path& path) {
    const std::string text = read_whole_file(path);
    return text.substr(0, text.find('\n'));
}

TEST(SystemIdentification, NamesTheOperatingSystem) {
    EXPECT_EQ(platform::operating_system_name(), content_of("/proc/sys/kernel/ostype") + " " +
                                                     content_of("/proc/sys/kernel/osrelease"));
}

TEST(SystemIdentification, DescribesTheProcessor) {
    EXPECT_EQ(platform::processor_text(), first_line_of("uname -m") + ", " +
                                              first_line_of("getconf _NPROCESSORS_ONLN") +
                                              " cores");
}

platform::HardwareAddress parsed_address(const std::string& text) {
    platform::HardwareAddress address{};
    for (std::size_t i = 0; i < address.size(); ++i) {
        address[i] = static_cast<std::uint8_t>(std::stoi(text.substr(3 * i, 2), nullptr, 16));
    }
    return address;
}

// The numbers of the machine's Ethernet adapters, as the kernel lists them under /sys.
std::set<int> numbers_of_adapters(const std::filesystem::path& list) {
    std::set<int> numbers;
    if (!std::filesystem::is_directory(list)) return numbers;
    for (const auto& adapter : std::filesystem::directory_iterator(list)) {
        if (!std::filesystem::is_directory(adapter.path())) continue; // not an adapter's entry
        const std::string ethernet = "1";
        if (content_of(adapter.path() / "type") != ethernet) continue;
        const std::optional<platform::HardwareAddress> address =
            parsed_address(content_of(adapter.path() / "address"));
        numbers.insert(platform::host_number_of(std::span(&address, 1)));
    }
    return numbers;
}

TEST(SystemIdentification, HostNumberIsThatOfAnAdapter) {
    const std::set<int> numbers = numbers_of_adapters("/sys/class/net");
    const int number = platform::host_number();
    if (numbers.empty()) {
        EXPECT_EQ(number, 0);
        return;
    }
    EXPECT_EQ(numbers.count(std::abs(number)), 1U) << number;
}

} // namespace
} // namespace korvat::test

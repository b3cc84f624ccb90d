// What the machine says of itself: uname, getconf, /proc and /sys.
#include "host_facts.hpp"

#include "scratch_directory.hpp"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>

namespace korvat::test {

namespace {

std::string first_line_of(const char* command) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command, "r"), pclose);
    if (!pipe) throw std::runtime_error(std::string("cannot run ") + command);
    char line[256] = {};
    if (std::fgets(line, sizeof line, pipe.get()) == nullptr) return {};
    const std::string text(line);
    return text.substr(0, text.find('\n'));
}

std::string content_of(const std::filesystem::path& path) {
    const std::string text = read_whole_file(path);
    return text.substr(0, text.find('\n'));
}

// "02:fc:00:00:00:01": the bytes 3, 2, 5 and 4, counted from 0, without the highest bit.
std::int64_t number_of_address(const std::string& text) {
    std::string digits;
    for (const std::size_t byte : {3, 2, 5, 4})
        digits += text.substr(3 * byte, 2);
    return std::stoll(digits, nullptr, 16) & 0x7FFFFFFF;
}

// The numbers of the Ethernet adapters by their indexes, which is the order of the system's list.
std::map<int, std::int64_t> adapter_numbers() {
    const std::filesystem::path list = "/sys/class/net";
    std::map<int, std::int64_t> numbers;
    if (!std::filesystem::is_directory(list)) return numbers;
    for (const auto& adapter : std::filesystem::directory_iterator(list)) {
        if (!std::filesystem::is_directory(adapter.path())) continue; // not an adapter's entry
        const std::string ethernet = "1";
        if (content_of(adapter.path() / "type") != ethernet) continue;
        numbers[std::stoi(content_of(adapter.path() / "ifindex"))] =
            number_of_address(content_of(adapter.path() / "address"));
    }
    return numbers;
}

// The last adapter's number; where that is 0, the first that is not, as a negative one.
std::string host_number() {
    const std::map<int, std::int64_t> numbers = adapter_numbers();
    const std::int64_t last = numbers.empty() ? 0 : numbers.rbegin()->second;
    std::int64_t first = 0;
    for (const auto& [index, number] : numbers) {
        if (first == 0) first = number;
    }
    const bool is_negative = last == 0 && first != 0;
    std::string digits = std::to_string(is_negative ? first : last);
    digits.insert(0, (is_negative ? 9 : 10) - digits.size(), '0');
    return is_negative ? "-" + digits : digits;
}

} // namespace

HostFacts host_facts() {
    return {.user = {},
            .computer = {},
            .processor = first_line_of("uname -m") + ", " +
                         first_line_of("getconf _NPROCESSORS_ONLN") + " cores",
            .operating_system = content_of("/proc/sys/kernel/ostype") + " " +
                                content_of("/proc/sys/kernel/osrelease"),
            .host_number = host_number()};
}

} // namespace korvat::test

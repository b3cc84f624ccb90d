#include "differential/runtime_reference.hpp"

#include "fortran/as_fem.hpp"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <memory>
#include <vector>

namespace korvat::test {
namespace {

using fortran::as_fem;
using fortran::Item;

constexpr int unit = 20;

// The data descriptors of the first `count` items, as the runtime's own walk has them.
std::vector<std::string> descriptors(std::string_view format, std::size_t count) {
    fem::format::token_loop loop(as_fem(format));
    std::vector<std::string> found;
    while (found.size() < count) {
        const fem::utils::token& token = *loop.next_executable_token();
        const bool is_data =
            token.type == "format" &&
            std::string_view("aief").find(token.value.front()) != std::string_view::npos;
        if (is_data) found.push_back(token.value);
    }
    return found;
}

int width_of(const std::string& descriptor) {
    int width = 0;
    std::from_chars(descriptor.data() + 1, descriptor.data() + descriptor.size(), width);
    return width;
}

bool is_outside_buffers(double value, const std::string& descriptor) {
    if (descriptor.front() == 'e') return !std::isfinite(value);
    const std::string conversion = "%" + descriptor.substr(1) + "f";
    return std::snprintf(nullptr, 0, conversion.c_str(), value) > 63;
}

void put(fem::write_loop& loop, const Item& item, const std::string& descriptor) {
    switch (item.kind()) {
    case Item::Kind::integer:
        loop, item.integer();
        return;
    case Item::Kind::real:
        if (is_outside_buffers(item.real(), descriptor)) {
            const std::string asterisks(static_cast<std::size_t>(width_of(descriptor)), '*');
            loop, as_fem(asterisks);
        } else {
            loop, item.real();
        }
        return;
    case Item::Kind::text:
        loop, as_fem(item.text());
        return;
    case Item::Kind::right_text:
        loop, std::string(item.text()).c_str();
        return;
    }
}

} // namespace

std::string runtime_written(std::string_view format, std::span<const Item> items) {
    const std::vector<std::string> edits = descriptors(format, items.size());
    char* characters = nullptr;
    std::size_t size = 0;
    fem::common common;
    fem::io_unit memory(unit, "memory", fem::std_file(open_memstream(&characters, &size)));
    memory.prev_op_was_write = true; // there is nothing to be cut off
    common.io.units.insert(std::make_pair(unit, memory));
    {
        fem::write_loop loop(common, unit, as_fem(format));
        for (std::size_t i = 0; i < items.size(); ++i) {
            put(loop, items[i], edits[i]);
        }
    }
    common.io.units.clear();
    std::fclose(memory.stream.ptr);
    const std::unique_ptr<char, decltype(&std::free)> owner(characters, &std::free);
    return std::string(characters, size);
}

std::optional<double> runtime_read(std::string_view field) {
    // A blank behind what the format takes: at a CR that ends its text the runtime never stops.
    std::string line(field.substr(0, 50));
    line.resize(51, ' ');
    double value = 0.0;
    try {
        fem::read_loop loop(as_fem(line), "(f50.0)");
        loop, value;
    } catch (const fem::io_err&) {
        return std::nullopt;
    }
    return value;
}

} // namespace korvat::test

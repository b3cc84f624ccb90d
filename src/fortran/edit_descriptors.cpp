#include "fortran/edit_descriptors.hpp"

#include "fortran/fem_runtime.hpp"

#include <charconv>

namespace korvat::fortran {
namespace {

EditDescriptor parse(const std::string& text) {
    EditDescriptor edit{text.front(), 0, 0};
    const char* const end = text.data() + text.size();
    const auto width = std::from_chars(text.data() + 1, end, edit.width);
    if (width.ptr != end && *width.ptr == '.') {
        std::from_chars(width.ptr + 1, end, edit.digits);
    }
    return edit;
}

// Blank and scale descriptors move the record, not the items.
bool takes_an_item(const fem::utils::token& token) {
    return token.type == "format" &&
           std::string_view("aief").find(token.value.front()) != std::string_view::npos;
}

std::vector<EditDescriptor> walk(std::string_view format, std::size_t count) {
    fem::format::token_loop loop(fem::str_cref(format.data(), static_cast<int>(format.size())));
    std::vector<EditDescriptor> edits;
    std::size_t passed_over = 0;
    while (edits.size() < count) {
        const fem::utils::token* const token = loop.next_executable_token();
        if (takes_an_item(*token)) {
            edits.push_back(parse(token->value));
            passed_over = 0;
        } else if (++passed_over > format.size() + 1) {
            throw std::runtime_error("FORMAT without a data edit descriptor: " +
                                     std::string(format));
        }
    }
    return edits;
}

} // namespace

std::span<const EditDescriptor> EditDescriptors::of(std::string_view format, std::size_t count) {
    auto found = known_.find(format);
    if (found == known_.end()) {
        found = known_.emplace(std::string(format), walk(format, count)).first;
    } else if (found->second.size() < count) {
        found->second = walk(format, count);
    }
    return std::span<const EditDescriptor>(found->second).first(count);
}

} // namespace korvat::fortran

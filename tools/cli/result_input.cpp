#include "cli/result_input.hpp"

#include "platform/paths.hpp"

#include <iostream>

namespace korvat::cli {

std::vector<char> input_bytes(const std::string& name) {
    return name == "-" ? group::read_bytes(std::cin) : group::read_bytes(platform::path_of(name));
}

namespace {

constexpr std::size_t label_size = 80;

std::string shown_name(const std::string& name) {
    return name == "-" ? "standard input" : name;
}

} // namespace

std::string unreadable_text(const std::string& name, const std::system_error& error) {
    return shown_name(name) + ": " + error.code().message();
}

std::string damage_text(const std::string& name, const group::Damage& damage) {
    return shown_name(name) + ": offset " + std::to_string(damage.offset) + ": " + damage.reason;
}

group::Damage unknown_kind(const group::Records& records) {
    if (records.records.empty() && !records.damage) {
        return {records.end, "the file has no records: the run that wrote it failed"};
    }
    const bool has_label_only = records.records.size() == 1 && !records.damage &&
                                records.records.front().bytes.size() == label_size;
    if (has_label_only) {
        return {records.end, "the file ends behind its label: the run that wrote it failed"};
    }
    return records.damage.value_or(
        group::Damage{1, "the records are neither those of a PILE.07 nor those of a LOAD.09"});
}

} // namespace korvat::cli

#include "study/summary.hpp"

#include "export/text.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <system_error>
#include <utility>

namespace korvat::study {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

constexpr int version = 1;

const std::vector<std::string>& own_columns() {
    static const std::vector<std::string> columns = {"state",
                                                     "exit code",
                                                     "first error",
                                                     "line",
                                                     "warnings",
                                                     "piles",
                                                     "nodes",
                                                     "elements",
                                                     "pile length [L]",
                                                     "steel weight [F]",
                                                     "largest D/t",
                                                     "sum of heads x [L]",
                                                     "sum of heads y [L]",
                                                     "sum of heads z [L]",
                                                     "sum of tips x [L]",
                                                     "sum of tips y [L]",
                                                     "sum of tips z [L]",
                                                     "smallest plastic axial force [F]",
                                                     "smallest plastic moment [F L]",
                                                     "seconds"};
    return columns;
}

// A column of a study may have a name of ours.
std::string column_name(const std::string& parameter) {
    const bool is_taken = parameter == "case" || std::ranges::count(own_columns(), parameter) != 0;
    return is_taken ? parameter + " (parameter)" : parameter;
}

std::vector<std::string> header(const std::vector<std::string>& parameters) {
    std::vector<std::string> columns{"case"};
    for (const std::string& parameter : parameters)
        columns.push_back(column_name(parameter));
    columns.insert(columns.end(), own_columns().begin(), own_columns().end());
    return columns;
}

const std::string* find(const Parameters& parameters, const std::string& name) {
    const auto found =
        std::ranges::find(parameters, name, &std::pair<std::string, std::string>::first);
    return found == parameters.end() ? nullptr : &found->second;
}

// To a ten-thousandth: what lies below is noise.
double shown_seconds(double seconds) {
    constexpr double steps = 1.0e4;
    return std::round(seconds * steps) / steps;
}

// Of a group, in the order of the columns; none where there is no value.
using Values = std::array<std::optional<double>, 11>;

Values values_of(const GroupValues& values) {
    return {values.length,   values.steel_weight,  values.diameter_to_wall, values.heads[0],
            values.heads[1], values.heads[2],      values.tips[0],          values.tips[1],
            values.tips[2],  values.plastic_axial, values.plastic_moment};
}

constexpr std::array value_names = {"pile_length",
                                    "steel_weight",
                                    "largest_diameter_to_wall",
                                    "sum_of_heads_x",
                                    "sum_of_heads_y",
                                    "sum_of_heads_z",
                                    "sum_of_tips_x",
                                    "sum_of_tips_y",
                                    "sum_of_tips_z",
                                    "smallest_plastic_axial_force",
                                    "smallest_plastic_moment"};

Json number(double value) {
    return std::isfinite(value) ? Json(value) : Json(exporting::number_text(value));
}

Json json_of(const CaseRecord& record, const std::vector<std::string>& parameters) {
    Json json;
    json["case"] = exporting::utf8_text(record.name);
    Json& given = json["parameters"] = Json::object();
    for (const std::string& name : parameters) {
        const std::string* const value = find(record.parameters, name);
        given[name] = value == nullptr ? Json() : Json(exporting::utf8_text(*value));
    }
    json["state"] = name_of(record.state);
    json["exit_code"] = record.exit_code ? Json(*record.exit_code) : Json();
    json["first_error"] = record.error.empty() ? Json() : Json(exporting::utf8_text(record.error));
    json["line"] = record.line ? Json(*record.line) : Json();
    json["warnings"] = record.warnings;
    const auto& group = record.values;
    json["piles"] = group ? Json(group->piles) : Json();
    json["nodes"] = group ? Json(group->nodes) : Json();
    json["elements"] = group ? Json(group->elements) : Json();
    const Values values = group ? values_of(*group) : Values{};
    for (std::size_t i = 0; i < values.size(); ++i)
        json[value_names[i]] = values[i] ? number(*values[i]) : Json();
    json["seconds"] = number(shown_seconds(record.seconds));
    return json;
}

} // namespace

SummaryWriter::SummaryWriter(std::ostream& out, SummaryFormat format,
                             std::vector<std::string> parameters)
    : out_(out), format_(format), parameters_(std::move(parameters)), table_(header(parameters_)) {
    if (format_ == SummaryFormat::csv) {
        out_ << table_.take();
    } else {
        out_ << R"({"format":"korvat summary","version":)" << version << R"(,"parameters":)"
             << Json(parameters_).dump() << R"(,"cases":[)";
    }
}

void SummaryWriter::add(const CaseRecord& record) {
    format_ == SummaryFormat::csv ? add_csv(record) : add_json(record);
    is_first_ = false;
}

void SummaryWriter::finish() {
    if (format_ == SummaryFormat::json) out_ << "\n]}\n";
}

void SummaryWriter::add_csv(const CaseRecord& record) {
    const auto add_integer = [this](std::optional<int> value) {
        value ? table_.add(*value) : table_.add_empty();
    };
    table_.add(exporting::utf8_text(record.name));
    for (const std::string& name : parameters_) {
        const std::string* const value = find(record.parameters, name);
        value == nullptr ? table_.add_empty() : table_.add(exporting::utf8_text(*value));
    }
    table_.add(name_of(record.state));
    add_integer(record.exit_code);
    table_.add(exporting::utf8_text(record.error));
    add_integer(record.line);
    table_.add(record.warnings);
    const auto& group = record.values;
    add_integer(group ? std::optional(group->piles) : std::nullopt);
    add_integer(group ? std::optional(group->nodes) : std::nullopt);
    add_integer(group ? std::optional(group->elements) : std::nullopt);
    for (const auto& value : group ? values_of(*group) : Values{})
        value ? table_.add(*value) : table_.add_empty();
    table_.add(shown_seconds(record.seconds)).end_row();
    out_ << table_.take();
}

void SummaryWriter::add_json(const CaseRecord& record) {
    out_ << (is_first_ ? "\n" : ",\n") << json_of(record, parameters_).dump();
}

SummaryFile::SummaryFile(std::string name) : name_(std::move(name)) {
    if (name_ == "-") return;
    const fs::path path = platform::path_of(name_);
    std::error_code ignored;
    const bool is_other = fs::exists(path, ignored) && !fs::is_regular_file(path, ignored);
    if (!is_other) {
        fresh_ = path;
        fresh_ += ".new";
    }
    errno = 0;
    own_ = std::make_unique<std::ofstream>(is_other ? path : fresh_,
                                           std::ios::binary | std::ios::trunc);
    if (!*own_) throw std::system_error(errno, std::generic_category(), name_);
}

SummaryFile::~SummaryFile() {
    own_.reset();
    std::error_code ignored;
    if (!fresh_.empty()) fs::remove(fresh_, ignored);
}

std::ostream& SummaryFile::stream() {
    return own_ ? *own_ : std::cout;
}

void SummaryFile::finish() {
    errno = 0;
    stream().flush();
    if (!stream()) {
        throw std::system_error(errno != 0 ? errno : EIO, std::generic_category(),
                                own_ ? name_ : "standard output");
    }
    own_.reset();
    if (fresh_.empty()) return;
    fs::rename(fresh_, platform::path_of(name_));
    fresh_.clear();
}

} // namespace korvat::study

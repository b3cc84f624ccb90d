#include "study/case_record.hpp"

#include "export/text.hpp"

#include <array>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

namespace korvat::study {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* format = "korvat case";
constexpr int version = 1;
constexpr std::array<std::string_view, 6> state_names = {"fine",    "refused", "lost",
                                                         "crashed", "timeout", "not run"};
constexpr std::array<std::string_view, 3> keep_names = {"all", "results", "failed"};

template <class Code, std::size_t N>
Code code_of(const std::array<std::string_view, N>& names, const std::string& name) {
    for (std::size_t i = 0; i < N; ++i) {
        if (names[i] == name) return static_cast<Code>(i);
    }
    throw std::out_of_range(name);
}

// JSON has no numbers that are not finite.
Json number(double value) {
    return std::isfinite(value) ? Json(value) : Json(exporting::number_text(value));
}

double number_of(const Json& json) {
    if (json.is_number()) return json.get<double>();
    const auto text = json.get<std::string>();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (text == "inf") return infinity;
    return text == "-inf" ? -infinity : std::numeric_limits<double>::quiet_NaN();
}

template <class Value>
Json or_null(const std::optional<Value>& value) {
    return value ? Json(*value) : Json();
}

std::optional<int> integer_or_none(const Json& json) {
    return json.is_null() ? std::nullopt : std::optional(json.get<int>());
}

Json number_or_null(const std::optional<double>& value) {
    return value ? number(*value) : Json();
}

std::optional<double> number_or_none(const Json& json) {
    return json.is_null() ? std::nullopt : std::optional(number_of(json));
}

Json numbers(const std::array<double, 3>& values) {
    return {number(values[0]), number(values[1]), number(values[2])};
}

std::array<double, 3> three_of(const Json& json) {
    return {number_of(json.at(0)), number_of(json.at(1)), number_of(json.at(2))};
}

// A name of a file may be any bytes, a text of JSON cannot: such a name stands there by its codes too.
std::string codes(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += digits[byte / 16U];
        text += digits[byte % 16U];
    }
    return text;
}

std::string bytes_of(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
        bytes += static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16));
    return bytes;
}

Json json_of(const GroupValues& values) {
    return {{"piles", values.piles},
            {"nodes", values.nodes},
            {"elements", values.elements},
            {"length", number(values.length)},
            {"steel_weight", number(values.steel_weight)},
            {"diameter_to_wall", number_or_null(values.diameter_to_wall)},
            {"heads", numbers(values.heads)},
            {"tips", numbers(values.tips)},
            {"plastic_axial", number_or_null(values.plastic_axial)},
            {"plastic_moment", number_or_null(values.plastic_moment)}};
}

GroupValues values_of(const Json& json) {
    return {.piles = json.at("piles").get<int>(),
            .nodes = json.at("nodes").get<int>(),
            .elements = json.at("elements").get<int>(),
            .length = number_of(json.at("length")),
            .steel_weight = number_of(json.at("steel_weight")),
            .heads = three_of(json.at("heads")),
            .tips = three_of(json.at("tips")),
            .diameter_to_wall = number_or_none(json.at("diameter_to_wall")),
            .plastic_axial = number_or_none(json.at("plastic_axial")),
            .plastic_moment = number_or_none(json.at("plastic_moment"))};
}

Json text_or_null(const std::string& text) {
    return text.empty() ? Json() : Json(exporting::utf8_text(text));
}

std::string text_or_none(const Json& json) {
    return json.is_null() ? std::string() : json.get<std::string>();
}

Json json_of(const std::vector<OutputFile>& outputs) {
    Json json = Json::array();
    for (const OutputFile& output : outputs) {
        json.push_back({{"name", output.name},
                        {"size", output.size},
                        {"digest", text_or_null(output.digest)}});
    }
    return json;
}

std::vector<OutputFile> outputs_of(const Json& json) {
    std::vector<OutputFile> outputs;
    for (const Json& file : json) {
        outputs.push_back({file.at("name").get<std::string>(), file.at("size").get<std::uint64_t>(),
                           text_or_none(file.at("digest"))});
    }
    return outputs;
}

Json json_of(const Parameters& parameters) {
    Json json = Json::object();
    for (const auto& [name, value] : parameters)
        json[name] = exporting::utf8_text(value);
    return json;
}

CaseRecord record_of(const Json& json) {
    const bool is_known = json.at("format") == format && json.at("version") == version;
    if (!is_known) throw std::out_of_range("version");
    CaseRecord record;
    record.name = json.contains("case_bytes") ? bytes_of(json["case_bytes"].get<std::string>())
                                              : json.at("case").get<std::string>();
    record.position = json.at("position").get<std::uint64_t>();
    for (const auto& [name, value] : json.at("parameters").items())
        record.parameters.emplace_back(name, value.get<std::string>());
    record.deck = text_or_none(json.at("deck"));
    record.program = text_or_none(json.at("program"));
    record.version = text_or_none(json.at("program_version"));
    record.state = code_of<CaseState>(state_names, json.at("state").get<std::string>());
    record.exit_code = integer_or_none(json.at("exit_code"));
    record.error = text_or_none(json.at("first_error"));
    record.line = integer_or_none(json.at("line"));
    record.warnings = json.at("warnings").get<int>();
    if (!json.at("values").is_null()) record.values = values_of(json["values"]);
    record.outputs = outputs_of(json.at("outputs"));
    record.kept = code_of<Keep>(keep_names, json.at("kept").get<std::string>());
    record.tries = json.at("tries").get<int>();
    record.seconds = number_of(json.at("seconds"));
    return record;
}

} // namespace

std::string_view name_of(CaseState state) {
    return state_names.at(static_cast<std::size_t>(state));
}

std::string_view name_of(Keep keep) {
    return keep_names.at(static_cast<std::size_t>(keep));
}

std::string to_line(const CaseRecord& record) {
    Json json{{"format", format}, {"version", version}};
    json["case"] = exporting::utf8_text(record.name);
    if (json["case"] != record.name) json["case_bytes"] = codes(record.name);
    json["position"] = record.position;
    json["parameters"] = json_of(record.parameters);
    json["deck"] = text_or_null(record.deck);
    json["program"] = text_or_null(record.program);
    json["program_version"] = text_or_null(record.version);
    json["state"] = name_of(record.state);
    json["exit_code"] = or_null(record.exit_code);
    json["first_error"] = text_or_null(record.error);
    json["line"] = or_null(record.line);
    json["warnings"] = record.warnings;
    json["values"] = record.values ? json_of(*record.values) : Json();
    json["outputs"] = json_of(record.outputs);
    json["kept"] = name_of(record.kept);
    json["tries"] = record.tries;
    json["seconds"] = number(record.seconds);
    return json.dump();
}

std::optional<CaseRecord> record_of_line(std::string_view line) {
    const Json json = Json::parse(line, nullptr, /*allow_exceptions*/ false);
    if (!json.is_object()) return std::nullopt;
    try {
        return record_of(json);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

} // namespace korvat::study

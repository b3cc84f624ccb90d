#include "cli/difference_text.hpp"

#include "cli/table.hpp"
#include "export/text.hpp"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

namespace korvat::cli {
namespace {

using group::Difference;
using group::Subject;
using group::Value;
using Json = nlohmann::ordered_json;

constexpr int form_version = 1;
constexpr int usual_digits = 6;
constexpr int most_digits = 17; // tell any two reals apart

std::string value_text(const Value& value, int digits) {
    if (const int* const integer = std::get_if<int>(&value)) return std::to_string(*integer);
    if (const double* const real = std::get_if<double>(&value)) return shown_number(*real, digits);
    if (const auto* const text = std::get_if<std::string>(&value))
        return '"' + shown_text(*text) + '"';
    return "none";
}

std::string change_text(const Difference& difference) {
    int digits = usual_digits;
    while (digits < most_digits &&
           value_text(difference.a, digits) == value_text(difference.b, digits))
        ++digits;
    return difference.quantity + ' ' + value_text(difference.a, digits) + " -> " +
           value_text(difference.b, digits);
}

std::string subject_name(Subject subject) {
    switch (subject) {
    case Subject::section:
        return "section";
    case Subject::pile:
        return "pile";
    case Subject::load_vector:
        return "load vector";
    case Subject::group:
        break;
    }
    return "group";
}

std::string place_text(const Difference& difference) {
    if (difference.place.empty()) return "";
    std::string text = " at " + difference.place + ' ' + std::to_string(difference.place_number);
    if (difference.count == 1) return text;
    const bool is_real = std::holds_alternative<double>(difference.a);
    return text + (is_real ? ", the largest of " : ", the first of ") +
           std::to_string(difference.count) + " differences";
}

bool is_of(const Difference& difference, Subject subject, int number) {
    return difference.subject == subject && difference.number == number;
}

bool is_elements(const Difference& difference) {
    return difference.subject == Subject::pile && difference.quantity == "elements";
}

bool is_tip(const Difference& difference) {
    return difference.subject == Subject::pile && difference.quantity.starts_with("tip ") &&
           difference.quantity != "tip code";
}

// A new number of elements stands behind the first new coordinate of the tip, where there is one.
const Difference* tip_of(const std::vector<Difference>& differences, const Difference& elements) {
    const auto tip = std::ranges::find_if(differences, [&](const Difference& other) {
        return is_of(other, elements.subject, elements.number) && is_tip(other);
    });
    return tip == differences.end() ? nullptr : &*tip;
}

std::string line_of(const Difference& difference) {
    std::string line = subject_name(difference.subject);
    if (difference.number > 0) line += ' ' + std::to_string(difference.number);
    if (difference.quantity.empty()) {
        const bool is_in_a = !std::holds_alternative<std::monostate>(difference.a);
        return line + ": only in " + (is_in_a ? "A" : "B");
    }
    return line + ": " + change_text(difference) + place_text(difference);
}

Json value_json(const Value& value) {
    if (const int* const integer = std::get_if<int>(&value)) return *integer;
    if (const double* const real = std::get_if<double>(&value))
        return std::isfinite(*real) ? Json(*real) : Json(exporting::number_text(*real));
    if (const auto* const text = std::get_if<std::string>(&value))
        return exporting::utf8_text(*text);
    return nullptr;
}

Json json_of(const Difference& difference) {
    Json object = {{"subject", subject_name(difference.subject)}};
    if (difference.number > 0) object["number"] = difference.number;
    if (difference.quantity.empty()) {
        const bool is_in_a = !std::holds_alternative<std::monostate>(difference.a);
        object["only_in"] = is_in_a ? "A" : "B";
        return object;
    }
    object["quantity"] = difference.quantity;
    object["unit"] = difference.unit;
    object["a"] = value_json(difference.a);
    object["b"] = value_json(difference.b);
    if (!difference.place.empty()) {
        object["place"] = difference.place;
        object["place_number"] = difference.place_number;
        object["count"] = difference.count;
    }
    return object;
}

} // namespace

std::string differences_text(const std::vector<Difference>& differences) {
    std::string text;
    for (const Difference& difference : differences) {
        if (is_elements(difference) && tip_of(differences, difference) != nullptr) continue;
        text += line_of(difference);
        if (is_tip(difference)) {
            const auto elements = std::ranges::find_if(differences, [&](const Difference& other) {
                return is_elements(other) && other.number == difference.number;
            });
            if (elements != differences.end() && tip_of(differences, *elements) == &difference)
                text += " (" + change_text(*elements) + ')';
        }
        text += '\n';
    }
    return text;
}

std::string differences_json(const std::vector<Difference>& differences,
                             const group::Tolerance& tolerance) {
    Json list = Json::array();
    for (const Difference& difference : differences)
        list.push_back(json_of(difference));
    const Json document = {{"format", "korvat differences"}, {"version", form_version},
                           {"abs", tolerance.absolute},      {"rel", tolerance.relative},
                           {"equal", differences.empty()},   {"differences", std::move(list)}};
    return document.dump() + '\n';
}

} // namespace korvat::cli

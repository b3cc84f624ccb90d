#include "export/csv_table.hpp"

#include "export/text.hpp"

namespace korvat::exporting {

CsvTable::CsvTable(const std::vector<std::string>& header) {
    for (const std::string& name : header)
        add(std::string_view(name));
    end_row();
}

CsvTable& CsvTable::add(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
        add_field(text);
        return *this;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    quoted += '"';
    add_field(quoted);
    return *this;
}

CsvTable& CsvTable::add(double value) {
    add_field(number_text(value));
    return *this;
}

CsvTable& CsvTable::add(int value) {
    add_field(std::to_string(value));
    return *this;
}

CsvTable& CsvTable::add_empty() {
    add_field("");
    return *this;
}

void CsvTable::end_row() {
    text_ += "\r\n";
    is_first_ = true;
}

void CsvTable::add_field(std::string_view text) {
    if (!is_first_) text_ += ',';
    text_ += text;
    is_first_ = false;
}

} // namespace korvat::exporting

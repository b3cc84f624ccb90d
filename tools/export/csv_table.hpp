// A table as comma-separated values of RFC 4180: a header, quoted fields where they need it, CR LF.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvat::exporting {

// A row is written by one call of `add` for each column and then `end_row`.
class CsvTable {
public:
    explicit CsvTable(const std::vector<std::string>& header);

    CsvTable& add(std::string_view text);
    CsvTable& add(const char* text) { return add(std::string_view(text)); }
    CsvTable& add(double value);
    CsvTable& add(int value);
    CsvTable& add_empty();
    void end_row();

    [[nodiscard]] const std::string& text() const { return text_; }

    // What has been written since the last call, for tables that are longer than memory.
    [[nodiscard]] std::string take() { return std::exchange(text_, {}); }

private:
    void add_field(std::string_view text);

    std::string text_;
    bool is_first_ = true; // of its row
};

} // namespace korvat::exporting

// The XML files of VTK: elements, and arrays as base64 in them. Binary arrays return every value to the
// last bit, also those that are not finite, which VTK cannot read as text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::exporting {

// Values of points or cells: `components` of them for each.
struct DataArray {
    std::string name;
    std::string type; // VTK's name for it
    std::size_t components = 1;
    std::string bytes; // the values, little-endian

    bool operator==(const DataArray&) const = default;
};

[[nodiscard]] DataArray reals(std::string name, const std::vector<double>& values,
                              std::size_t components = 1);
[[nodiscard]] DataArray integers(std::string name, const std::vector<std::int32_t>& values);
[[nodiscard]] DataArray indices(std::string name, const std::vector<std::int64_t>& values);
[[nodiscard]] DataArray codes(std::string name, const std::vector<std::uint8_t>& values);

// Writes a file element by element. Names and attributes are the system's own: none needs escaping.
class VtkXml {
public:
    // `type`: PolyData or UnstructuredGrid.
    explicit VtkXml(std::string_view type);

    void open(std::string_view name, std::string_view attributes = {});
    void close();
    void add(const DataArray& array);
    void add(std::string_view name, const std::vector<DataArray>& arrays,
             std::string_view attributes = {});
    // Free text, as the codes of its bytes: whatever they are, they cannot upset the XML.
    void add_text(std::string_view name, std::string_view text);

    // The file; all that is open is closed.
    [[nodiscard]] std::string finish();

private:
    void line(std::string_view text);

    std::string text_;
    std::vector<std::string> open_;
};

} // namespace korvat::exporting

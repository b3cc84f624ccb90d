#include "export/vtk_xml.hpp"

#include "export/base64.hpp"

#include <bit>
#include <cstring>
#include <utility>

namespace korvat::exporting {
namespace {

static_assert(std::endian::native == std::endian::little); // as byte_order says below

template <typename Value>
std::string bytes_of(const std::vector<Value>& values) {
    std::string bytes(values.size() * sizeof(Value), '\0');
    if (!values.empty()) std::memcpy(bytes.data(), values.data(), bytes.size());
    return bytes;
}

std::string quoted(std::string_view value) {
    return '"' + std::string(value) + '"';
}

} // namespace

DataArray reals(std::string name, const std::vector<double>& values, std::size_t components) {
    return {std::move(name), "Float64", components, bytes_of(values)};
}

DataArray integers(std::string name, const std::vector<std::int32_t>& values) {
    return {std::move(name), "Int32", 1, bytes_of(values)};
}

DataArray indices(std::string name, const std::vector<std::int64_t>& values) {
    return {std::move(name), "Int64", 1, bytes_of(values)};
}

DataArray codes(std::string name, const std::vector<std::uint8_t>& values) {
    return {std::move(name), "UInt8", 1, bytes_of(values)};
}

VtkXml::VtkXml(std::string_view type) {
    line("<?xml version=\"1.0\"?>");
    open("VTKFile", "type=" + quoted(type) +
                        " version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt64\"");
    open(type);
}

void VtkXml::open(std::string_view name, std::string_view attributes) {
    const std::string space = attributes.empty() ? "" : " ";
    line('<' + std::string(name) + space + std::string(attributes) + '>');
    open_.emplace_back(name);
}

void VtkXml::close() {
    const std::string name = std::exchange(open_.back(), {});
    open_.pop_back();
    line("</" + name + '>');
}

void VtkXml::add(const DataArray& array) {
    const std::string size = bytes_of(std::vector<std::uint64_t>{array.bytes.size()});
    // Where it says that there is one component, meshio makes a column of the values.
    const std::string components =
        array.components == 1 ? ""
                              : " NumberOfComponents=" + quoted(std::to_string(array.components));
    line("<DataArray type=" + quoted(array.type) + " Name=" + quoted(array.name) + components +
         " format=\"binary\">" + base64(size + array.bytes) + "</DataArray>");
}

void VtkXml::add(std::string_view name, const std::vector<DataArray>& arrays,
                 std::string_view attributes) {
    open(name, attributes);
    for (const DataArray& array : arrays)
        add(array);
    close();
}

void VtkXml::add_text(std::string_view name, std::string_view text) {
    std::string numbers;
    for (const char c : text)
        numbers += std::to_string(static_cast<unsigned char>(c)) + ' ';
    line("<Array type=\"String\" Name=" + quoted(name) + " NumberOfTuples=\"1\" format=\"ascii\">" +
         numbers + "0</Array>");
}

std::string VtkXml::finish() {
    while (!open_.empty())
        close();
    return std::move(text_);
}

void VtkXml::line(std::string_view text) {
    text_.append(2 * open_.size(), ' ');
    text_ += text;
    text_ += '\n';
}

} // namespace korvat::exporting

#include "import_windows.hpp"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <windows.h>

namespace korvat::test {

namespace {

// What stands at an offset of the program's image.
template <typename T>
T* at(std::size_t offset) {
    return reinterpret_cast<T*>(reinterpret_cast<std::byte*>(GetModuleHandleW(nullptr)) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* first_library() {
    const auto* const headers =
        at<IMAGE_NT_HEADERS>(static_cast<std::size_t>(at<IMAGE_DOS_HEADER>(0)->e_lfanew));
    return at<IMAGE_IMPORT_DESCRIPTOR>(
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
}

bool is_named(const IMAGE_THUNK_DATA& name, const std::string& function) {
    if (IMAGE_SNAP_BY_ORDINAL(name.u1.Ordinal)) return false;
    const auto* const entry =
        at<IMAGE_IMPORT_BY_NAME>(static_cast<std::size_t>(name.u1.AddressOfData));
    return function == reinterpret_cast<const char*>(entry->Name);
}

// Where the address of an imported function stands; null when it is not imported.
void** place_of(const std::string& function) {
    for (const auto* library = first_library(); library->Name != 0; ++library) {
        const auto* name = at<IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
        auto* address = at<IMAGE_THUNK_DATA>(library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++address) {
            if (is_named(*name, function)) return reinterpret_cast<void**>(&address->u1.Function);
        }
    }
    return nullptr;
}

void write(void** place, void* address) {
    DWORD protection = 0;
    VirtualProtect(place, sizeof address, PAGE_READWRITE, &protection);
    *place = address;
    VirtualProtect(place, sizeof address, protection, &protection);
}

} // namespace

ReplacedImport::ReplacedImport(const char* function, void* replacement)
    : place_(place_of(function)) {
    if (place_ == nullptr) throw std::runtime_error(std::string("no import of ") + function);
    former_ = *place_;
    write(place_, replacement);
}

ReplacedImport::~ReplacedImport() {
    write(place_, former_);
}

} // namespace korvat::test

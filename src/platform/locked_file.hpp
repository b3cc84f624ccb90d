// A file to which one program at a time adds lines.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace korvat::platform {

// Another program has the file locked.
class HeldByAnother : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The lock ends with the object and with the program, however that ends. Who only reads needs none.
class LockedFile {
public:
    // Makes the file when it is missing. Raises HeldByAnother, std::system_error.
    explicit LockedFile(const std::string& name);
    ~LockedFile();
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    // False where the file system has no locks.
    [[nodiscard]] bool is_locked() const;

    // In bytes; 0 of what is no file on a disk.
    [[nodiscard]] std::uint64_t size() const;

    // Adds bytes at the end in one piece. Where the disk does not take all of them the file is as before;
    // raises std::system_error.
    void append(std::string_view bytes);

    // Cuts the file off behind so many bytes. Raises std::system_error.
    void cut(std::uint64_t size);

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace korvat::platform

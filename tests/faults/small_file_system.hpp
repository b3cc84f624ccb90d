// A file system in memory, of a size that is chosen, for one test.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace korvat::test {

// Mounted where only this process and those that it starts see it. Needs the rights of root, or a
// system that lets a user have them within a name space of their own; without, it throws
// std::runtime_error, and a test that cannot be made fails.
class SmallFileSystem {
public:
    // The options of the mount, such as "size=8192,nr_inodes=5".
    SmallFileSystem(const std::filesystem::path& place, const std::string& options);
    ~SmallFileSystem();
    SmallFileSystem(const SmallFileSystem&) = delete;
    SmallFileSystem& operator=(const SmallFileSystem&) = delete;

    void make_read_only() const;

private:
    std::filesystem::path place_;
};

} // namespace korvat::test

// A file system in memory, of a size that is chosen, for one test.
#include "small_file_system.hpp"

#include "../support/scratch_directory.hpp"

#include <cerrno>
#include <cstring>
#include <sched.h>
#include <stdexcept>
#include <sys/mount.h>
#include <unistd.h>

namespace korvat::test {

namespace {

void require(bool done, const std::string& what) {
    if (!done) throw std::runtime_error("cannot " + what + ": " + std::strerror(errno));
}

// Once for the process: what it mounts goes with it.
bool enter_own_name_space() {
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    if (user == "0") {
        require(unshare(CLONE_NEWNS) == 0, "have mounts of our own");
    } else {
        require(unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0,
                "have mounts of our own, not being root");
        // The user stays who he is, so that the programs he starts have no rights but his.
        write_whole_file("/proc/self/setgroups", "deny");
        write_whole_file("/proc/self/uid_map", user + " " + user + " 1");
        write_whole_file("/proc/self/gid_map", group + " " + group + " 1");
    }
    require(mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "keep mounts private");
    return true;
}

} // namespace

SmallFileSystem::SmallFileSystem(const std::filesystem::path& place, const std::string& options)
    : place_(place) {
    static const bool entered = enter_own_name_space();
    static_cast<void>(entered);
    require(mount("none", place_.c_str(), "tmpfs", 0, options.c_str()) == 0, "mount a file system");
}

SmallFileSystem::~SmallFileSystem() {
    umount2(place_.c_str(), MNT_DETACH);
}

void SmallFileSystem::make_read_only() const {
    require(mount(nullptr, place_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0,
            "make a file system read-only");
}

} // namespace korvat::test

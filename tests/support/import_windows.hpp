// Puts a function in the place of one that the tests' program imports (Windows).
#pragma once

namespace korvat::test {

// Every call of the program to a function of a system library goes to the replacement, which must have
// the same type, while this object lives. The constructor throws std::runtime_error when the program
// does not import it.
class ReplacedImport {
public:
    ReplacedImport(const char* function, void* replacement);
    ~ReplacedImport();
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;

private:
    void** place_;
    void* former_;
};

} // namespace korvat::test

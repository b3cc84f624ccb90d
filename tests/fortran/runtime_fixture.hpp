// A runtime of its own in a scratch directory that is the current one.
#pragma once

#include "support/model_fixture.hpp"
#include "support/scratch_directory.hpp"

#include "fortran/runtime.hpp"

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

class RuntimeTest : public testing::Test {
protected:
    RuntimeTest()
        : current_(directory.path()), runtime_(std::make_unique<fortran::Runtime>(0, nullptr)) {}

    fortran::Runtime& runtime() { return *runtime_; }

    // Destroys the runtime, which closes every unit.
    void end_runtime() { runtime_.reset(); }

    // The bytes that one write statement makes of a new file.
    template <typename... Items>
    std::string written(std::string_view format, const Items&... items) {
        return written_with(format, {fortran::Item(items)...});
    }

    std::string written_with(std::string_view format, const std::vector<fortran::Item>& items) {
        constexpr int unit = 20;
        directory.write_file("written", "");
        if (runtime().open(unit, "written", fortran::OpenStatus::old_file) != 0) {
            throw std::runtime_error("cannot open the file to be written");
        }
        runtime().write_items(unit, format, items);
        runtime().close(unit);
        return directory.read_file("written");
    }

    // Opens a unit on a new file with this text.
    void give(int unit, const std::string& name, std::string_view text) {
        directory.write_file(name, text);
        if (runtime().open(unit, name, fortran::OpenStatus::old_file) != 0) {
            throw std::runtime_error("cannot open " + name);
        }
    }

    // The next line of a unit in a field of N characters; "(end)" or "(error)" without one.
    template <std::size_t N = 8>
    std::string next(int unit) {
        fortran::Text<N> line;
        switch (runtime().read_line(unit, line)) {
        case fortran::ReadStatus::line:
            return std::string(line.view());
        case fortran::ReadStatus::end:
            return "(end)";
        case fortran::ReadStatus::error:
            break;
        }
        return "(error)";
    }

    ScratchDirectory directory;

private:
    CurrentDirectory current_;
    std::unique_ptr<fortran::Runtime> runtime_;
};

} // namespace korvat::test

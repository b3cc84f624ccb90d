// A store with the units and constants of a run, in a scratch directory that is the current one.
#pragma once

#include "scratch_directory.hpp"

#include "model/store/run_constants.hpp"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace korvat::test {

// Makes a directory the current one and returns to the former one at the end.
class CurrentDirectory {
public:
    explicit CurrentDirectory(const std::filesystem::path& directory)
        : former_(std::filesystem::current_path()) {
        std::filesystem::current_path(directory);
    }
    ~CurrentDirectory() { std::filesystem::current_path(former_); }
    CurrentDirectory(const CurrentDirectory&) = delete;
    CurrentDirectory& operator=(const CurrentDirectory&) = delete;

private:
    std::filesystem::path former_;
};

// The lines with a line feed after each.
inline std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

// The text with blanks behind it up to a width.
inline std::string padded(std::string text, std::size_t width) {
    if (text.size() < width) text.append(width - text.size(), ' ');
    return text;
}

// Units 6, 13 and 14 are open on the files of a run; 11 and 12 are for the test to open.
class ModelTest : public testing::Test {
protected:
    ModelTest() : current_(directory.path()), store_(std::make_unique<Store>(0, nullptr)) {
        cmn().NF5 = 5;
        cmn().NF6 = 6;
        set_run_constants(cmn());
        open(6, "KORVAT.MLG", fortran::OpenStatus::new_file);
        open(13, "KORVAT.LIS", fortran::OpenStatus::new_file);
        open(14, "PILEPLOT.TXT", fortran::OpenStatus::new_file);
    }

    Store& cmn() { return *store_; }

    // Raises std::runtime_error when the file cannot be opened.
    void open(int unit, const std::string& name, fortran::OpenStatus status) {
        if (cmn().runtime.open(unit, name, status) == 0) return;
        throw std::runtime_error("cannot open " + name);
    }

    // The input file, on unit 11.
    void give_input(std::string_view text) { give(11, "KORVAT.INP", text); }

    // The comment-free copy of the input, on unit 12.
    void give_copy(std::string_view text) { give(12, "copy", text); }

    void give(int unit, const std::string& name, std::string_view text) {
        cmn().runtime.close(unit);
        directory.write_file(name, text);
        open(unit, name, fortran::OpenStatus::old_file);
    }

    // A unit on a directory: it opens, and every read from it fails. Windows does not open one as a
    // file: a test that needs it has a name that ends in OnPosix, and is not run there.
    void give_directory(int unit, const std::string& name) {
        std::filesystem::create_directory(directory.path() / name);
        open(unit, name, fortran::OpenStatus::old_file);
    }

    // What has been written so far.
    [[nodiscard]] std::string log() const { return directory.read_file("KORVAT.MLG"); }
    [[nodiscard]] std::string listing() { return written(13, "KORVAT.LIS"); }
    [[nodiscard]] std::string plot() { return written(14, "PILEPLOT.TXT"); }

    // The next line of a unit, without its trailing blanks; "(end)" at the end of the file.
    std::string next_line(int unit) {
        fortran::Text<120> line;
        if (cmn().runtime.read_line(unit, line) != fortran::ReadStatus::line) return "(end)";
        return std::string(fortran::trimmed(line.view()));
    }

    // Destroys the store, which closes every unit.
    void end_run() { store_.reset(); }

    ScratchDirectory directory;

private:
    // What is still in the unit's buffer goes into its file first.
    std::string written(int unit, const std::string& name) {
        if (store_ && !cmn().runtime.wrote_all(unit))
            throw std::runtime_error("cannot write " + name);
        return directory.read_file(name);
    }

    CurrentDirectory current_;
    std::unique_ptr<Store> store_;
};

} // namespace korvat::test

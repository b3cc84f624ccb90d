// Every FORMAT of the program, as it stands in the source, edited with ordinary values.
#include "format_samples.hpp"
#include "runtime_fixture.hpp"

#include "support/source_formats.hpp"

#include "fortran/internal_write.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <utility>

namespace korvat::test {
namespace {

using fortran::characters;

bool is_of(const SourceFormat& format, std::string_view file, std::string_view piece) {
    const std::string_view name = format.file.substr(format.file.rfind('/') + 1);
    return name == file && format.text.find(piece) != std::string_view::npos;
}

// What is read with a FORMAT, or written into a text by a test below.
constexpr std::array<SourceFormat, 1> not_written{{
    {"get_revision.cpp", "(16x,i4,1x,i2,1x,i2)"}, // reads a date; GetRevision has its samples
}};

FormatSamples all_samples() {
    FormatSamples all;
    for (auto samples : {deck_format_samples(), revision5_format_samples(), run_format_samples(),
                         output_format_samples()}) {
        std::move(samples.begin(), samples.end(), std::back_inserter(all));
    }
    return all;
}

class EveryFormat : public RuntimeTest {
protected:
    void expect_each(const FormatSamples& samples) {
        ASSERT_FALSE(samples.empty());
        for (const auto& [file, piece, items, due] : samples) {
            const std::string_view format = source_format(file, piece);
            EXPECT_EQ(written_with(format, items), due) << file << ": " << format;
        }
    }
};

TEST_F(EveryFormat, OfTheDeckReaderAndTheBuilder) {
    expect_each(deck_format_samples());
}

TEST_F(EveryFormat, OfCompositesAndYieldCurves) {
    expect_each(revision5_format_samples());
}

TEST_F(EveryFormat, OfTheRun) {
    expect_each(run_format_samples());
}

TEST_F(EveryFormat, OfTheOutputs) {
    expect_each(output_format_samples());
}

TEST_F(EveryFormat, HasASample) {
    std::set<std::pair<std::string_view, std::string_view>> missing;
    for (const SourceFormat& format : source_formats())
        missing.emplace(format.file, format.text);
    ASSERT_GE(missing.size(), 170U);
    const auto take = [&](std::string_view file, std::string_view piece) {
        const auto count = std::erase_if(missing, [&](const auto& left) {
            return is_of({left.first, left.second}, file, piece);
        });
        return count;
    };
    for (const FormatSample& sample : all_samples())
        take(sample.file, sample.piece);
    for (const auto& [file, text] : not_written)
        EXPECT_EQ(take(file, text), 1U) << file << ": " << text << " is not in the source";
    for (const auto& [file, text] : missing)
        ADD_FAILURE() << file << ": no sample edits " << text;
}

TEST_F(EveryFormat, IsFoundByOnePieceOnly) {
    EXPECT_EQ(source_format("sketch.cpp", "130a1"), "(2x,130a1)");
    EXPECT_THROW((void)source_format("sketch.cpp", "131a1"), std::runtime_error);
    EXPECT_THROW((void)source_format("contrl.cpp", "IERR="), std::runtime_error);
    EXPECT_THROW((void)source_format("ketch.cpp", "130a1"), std::runtime_error);
}

TEST_F(EveryFormat, OfTheIdentificationPageFillsItsText) {
    const auto format = [](std::string_view piece) {
        return source_format("identification_page.cpp", piece);
    };
    EXPECT_EQ(
        fortran::edited(60, format("30(a"), characters("K"), characters("o"), characters("r")),
        "K o r" + blanks(55));
    EXPECT_EQ(fortran::edited(10, format("(i10.9)"), -857888068), "-857888068");
    EXPECT_EQ(fortran::edited(10, format("(i10.10)"), 857888068), "0857888068");
}

} // namespace

std::string_view source_format(std::string_view file, std::string_view piece) {
    const auto all = source_formats();
    const auto fits = [&](const SourceFormat& format) { return is_of(format, file, piece); };
    const auto found = std::find_if(all.begin(), all.end(), fits);
    if (found == all.end()) {
        throw std::runtime_error("no FORMAT of " + std::string(file) + " has " +
                                 std::string(piece));
    }
    if (std::any_of(std::next(found), all.end(), fits)) {
        throw std::runtime_error("several FORMATs of " + std::string(file) + " have " +
                                 std::string(piece));
    }
    return found->text;
}

} // namespace korvat::test

// What the analysis file and the plot file must hold, and the comparison with what they do hold.
#pragma once

#include "record_file.hpp"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace korvat::test {

using ExpectedItem = std::variant<std::int32_t, double, std::string>;

struct ExpectedRecord {
    std::string what;
    int pile = 0; // 0: the record does not belong to a pile
    // Reals agree when they differ by no more than 1e-12 of the expected value or by this.
    double absolute_tolerance = 0.0;
    // The names of the items, used in turn: {"node"} names the items node 1, node 2 and so on.
    std::vector<std::string> item_names;
    std::vector<ExpectedItem> items;
    // A second value that is as good, by position from 0: see ElementSection in the pile model.
    std::map<std::size_t, ExpectedItem> alternatives;
};

using ExpectedFile = std::vector<ExpectedRecord>;

// A printed line in pieces; a number whose last digit hangs on the last bit of a real has two
// accepted forms, any other piece has one. The first form is the preferred one.
using PlotPiece = std::vector<std::string>;
using PlotLine = std::vector<PlotPiece>;
using ExpectedPlot = std::vector<PlotLine>;

// Empty when the records agree; else at most a dozen lines that say where and how they differ.
std::vector<std::string> pile_file_differences(const std::vector<Record>& actual,
                                               const ExpectedFile& expected);
std::vector<std::string> plot_differences(std::string_view actual, const ExpectedPlot& expected);

// The same as failures of the running test.
void expect_same_pile_file(const std::vector<Record>& actual, const ExpectedFile& expected);
void expect_same_plot(std::string_view actual, const ExpectedPlot& expected);

std::string plot_text(const ExpectedPlot& plot);

} // namespace korvat::test

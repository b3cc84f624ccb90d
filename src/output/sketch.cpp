#include "output/sketch.hpp"

#include "fortran/save_holder.hpp"
#include "model/store/integer.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <vector>

namespace korvat {
namespace {

constexpr int most_columns = 130;
constexpr int most_rows = 200;
constexpr double margin = 0.01F; // single precision, widened
constexpr double far_away = 1.0e6;

// Entries of the symbol table, 1-based.
constexpr int blank = 1;
constexpr int many = 4;
constexpr int one = 5;

// The character tables, filled on the first call.
struct sketch_save {
    std::string symbols = " HVM*W";
    std::string digits = "0123456789";

    [[nodiscard]] char symbol(int entry) const {
        return symbols.at(static_cast<std::size_t>(entry - 1));
    }
    [[nodiscard]] char digit(int value) const {
        return digits.at(static_cast<std::size_t>(value % 10));
    }
};

// Range of one coordinate, with a margin beyond the outermost points.
struct Extent {
    double low = far_away;
    double high = -far_away;

    [[nodiscard]] double size() const { return high - low; }
};

Extent extent_of(std::span<const double> values) {
    Extent extent;
    for (const double value : values) {
        if (value < extent.low) extent.low = value - margin;
        if (value > extent.high) extent.high = value + margin;
    }
    return extent;
}

// The row being drawn, columns 1..130. What would fall beside it is dropped.
class Row {
public:
    explicit Row(const sketch_save& tables) : tables_(tables) {
        characters_.fill(tables_.symbol(blank));
    }

    void put(int column, char c) {
        if (column < 1 || column > most_columns) return;
        characters_[static_cast<std::size_t>(column - 1)] = c;
    }

    // A later point overwrites an earlier one.
    void put_number(int column, int number, int NCOLS) {
        if (column == 1) column = 2;
        if (column == NCOLS) column = NCOLS - 1;
        const int hundreds = number / 100;
        put(column - 1, tables_.digit(hundreds));
        put(column, tables_.digit((number - 100 * hundreds) / 10));
        put(column + 1, tables_.digit(number % 10));
    }

    // A cell that holds a mark already keeps it, so that two points in one cell look like one.
    void put_mark(int column) {
        const char present = characters_[static_cast<std::size_t>(column - 1)];
        if (present == tables_.symbol(blank)) {
            put(column, tables_.symbol(one));
        } else if (present != tables_.symbol(one)) {
            put(column, tables_.symbol(many));
        }
    }

    void write(Store& cmn, int NCOLS, int IOUT) const {
        std::vector<fortran::Item> items;
        items.reserve(static_cast<std::size_t>(NCOLS));
        for (int i = 0; i < NCOLS; ++i) {
            items.emplace_back(fortran::characters(
                std::string_view(&characters_[static_cast<std::size_t>(i)], 1)));
        }
        cmn.runtime.write_items(IOUT, "(2x,130a1)", items);
    }

private:
    const sketch_save& tables_;
    std::array<char, most_columns> characters_{};
};

int automatic_rows(const Extent& x, const Extent& y, int NCOLS) {
    // 24/39 corrects for the height of a printed character.
    const double rows = NCOLS / (x.size() / y.size()) * 24.0 / 39.0;
    return truncated(rows, 0, most_rows + 1);
}

} // namespace

void sketch(Store& cmn, std::span<const double> XC, std::span<const double> YC, int& NP, int& NROWS,
            int NCOLS, int IOUT) {
    const sketch_save& tables = cmn.sketch_sve->get<sketch_save>();
    NCOLS = std::clamp(NCOLS, 1, most_columns);
    cmn.runtime.write(IOUT, "(' ')");
    const bool has_labels = NP < 0;
    NP = std::abs(NP);
    const auto points = static_cast<std::size_t>(NP);
    const Extent x = extent_of(XC.first(points));
    const Extent y = extent_of(YC.first(points));
    if (NROWS == 0) NROWS = automatic_rows(x, y, NCOLS);
    if (NROWS > most_rows) NROWS = most_rows;
    if (NROWS < 1) return;
    const double DX = x.size() / NCOLS;
    const double DY = y.size() / NROWS;
    double YLO = y.low;
    for (int R = 1; R <= NROWS; ++R) {
        const double YHI = YLO + DY;
        Row row(tables);
        for (std::size_t i = 0; i < points; ++i) {
            // Both ends count, so a point on the border of two rows is shown in both.
            if (!(YLO <= YC[i] && YC[i] <= YHI)) continue;
            const int column = truncated((XC[i] - x.low) / DX, 0, NCOLS - 1) + 1;
            if (has_labels) {
                row.put_number(column, static_cast<int>(i) + 1, NCOLS);
            } else {
                row.put_mark(column);
            }
        }
        row.write(cmn, NCOLS, IOUT);
        YLO = YHI;
    }
}

} // namespace korvat

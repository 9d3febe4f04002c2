#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace sim {

struct CsvCell {
    // "NaN", "Inf" and numbers beyond all bounds are no words but missing values.
    enum class Kind : char { kMissing, kWord, kNumber };
    Kind kind = Kind::kMissing;
    char decimalMark = 0;  // of a number that has one
    double value = 0.0;
};

// The lines of a CSV text that are not blank, without a byte order mark. Kept row by row, so that one very wide line
// costs no more than itself. Cells are separated by tab, semicolon or comma and may stand in quotes; a number has a
// decimal point, or a comma in cells that commas do not part.
class CsvTable {
  public:
    explicit CsvTable(std::string_view text);

    char Separator() const { return separator_; }
    std::size_t Rows() const { return rows_.size(); }
    std::size_t Width() const { return width_; }
    std::size_t Cells(std::size_t row) const { return rows_[row].cells; }
    std::size_t Line(std::size_t row) const { return rows_[row].line; }

    // Missing beyond the end of the row.
    CsvCell At(std::size_t row, std::size_t column) const {
        return column < rows_[row].cells ? cells_[rows_[row].firstCell + column] : CsvCell{};
    }

  private:
    struct Row {
        std::size_t line = 0;  // from 1
        std::size_t firstCell = 0;
        std::size_t cells = 0;
    };

    char separator_;
    std::vector<Row> rows_;
    std::vector<CsvCell> cells_;
    std::size_t width_ = 0;
};

}  // namespace sim

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "recording/Rows.h"

namespace recording {

// What the cells of a row are, from the left.
struct Shape {
    std::string codes;                      // CellCode
    std::vector<std::size_t> columns = {};  // those with a value
    bool hasWords = false;
};

// Rows of one shape below each other, at one distance: with no line between, or as many each time.
struct Stretch {
    std::size_t shape = 0;
    std::size_t firstLine = 0;  // of the file, from 1
    std::size_t rows = 0;
    std::size_t distance = 1;  // in lines, from row to row

    std::size_t LineOf(std::size_t row) const { return firstLine + row * distance; }
    std::size_t LastLine() const { return LineOf(rows - 1); }
};

// A table of text, as its rows come: the values of each column in one piece, and the stretches that tell which rows
// they belong to. Of the words nothing is kept but some lines as they are.
class Table {
  public:
    struct Line {
        std::size_t number = 0;
        std::string text;
    };

    explicit Table(const Form& form) : form_(form) {}

    // Takes the next line. `partRead`: how much of the text is behind us, 0 to 1, for a guess at what is still to come.
    void Take(std::string_view line, std::size_t number, double partRead);

    const Form& CellForm() const { return form_; }
    const std::vector<Stretch>& Stretches() const { return stretches_; }
    const Shape& ShapeOf(const Stretch& stretch) const { return shapes_[stretch.shape]; }
    std::size_t Columns() const { return columns_.size(); }
    const std::vector<double>& Values(std::size_t column) const { return columns_[column].values; }
    std::vector<double>& Values(std::size_t column) { return columns_[column].values; }

    // The lines with words between these numbers, both included; of many such lines of one shape the last ones, or the
    // first ones where numbers stand beside the words.
    std::vector<Line> Texts(std::size_t from, std::size_t to) const;

    // A line by whose number the decimal mark of that column is a point, and one by which it is a comma, if both are
    // found between these lines; else zeros.
    std::pair<std::size_t, std::size_t> MixedMarks(std::size_t column, std::size_t from, std::size_t to) const;

    bool HasMarks(std::size_t column, std::size_t from, std::size_t to) const;

    // Of the stamps; their values tell which belongs to whom (Row).
    const std::vector<Date>& Dates() const { return row_.dates; }

    std::size_t LinesWithCells() const { return linesWithCells_; }
    // The first line that has a digit, though no line above or in it has a number; its number is 0 if there is none.
    const Line& FirstDigits() const { return firstDigits_; }
    // The first line with a number, 0 if there is none.
    std::size_t FirstLineWithValue() const { return firstLineWithValue_; }

  private:
    struct MarkOfLine {
        std::size_t line = 0;
        char mark = 0;
    };
    struct Column {
        std::vector<double> values;
        std::vector<MarkOfLine> marks;  // the first decimal mark of each stretch, and where it becomes another
        char mark = 0;                  // the last one
        std::size_t stretchOfMark = 0;  // counted from 1
    };

    void Place(std::size_t number);
    std::size_t FindShape();
    void Keep(std::string_view line, std::size_t number, const Shape& shape);
    void Append(Column* column, double value, double partRead) const;

    const Form form_;
    Row row_;
    std::vector<Shape> shapes_;
    std::unordered_map<std::string, std::size_t> shapeOfCodes_;
    std::vector<Stretch> stretches_;
    std::vector<Column> columns_;
    std::vector<Line> texts_;
    std::size_t textsOfStretch_ = 0;
    std::size_t linesWithCells_ = 0;
    std::size_t firstLineWithValue_ = 0;
    Line firstDigits_;
};

}  // namespace recording

#include "recording/Table.h"

#include <algorithm>

namespace recording {
namespace {

constexpr std::size_t kMostTexts = 500;       // of one stretch
constexpr std::size_t kValuesToGoBy = 32768;  // before the length of the whole is judged
constexpr double kMargin = 1.1;

}  // namespace

void Table::Take(std::string_view line, std::size_t number, double partRead) {
    ReadRow(line, form_, &row_);
    if (row_.codes.empty()) {
        return;
    }
    ++linesWithCells_;
    Place(number);
    const Shape& shape = shapes_[stretches_.back().shape];
    if (shape.hasWords) {
        Keep(line, number, shape);
    }
    if (firstLineWithValue_ == 0) {
        firstLineWithValue_ = shape.columns.empty() ? 0 : number;
        if (firstDigits_.number == 0 && line.find_first_of("0123456789") != std::string_view::npos) {
            firstDigits_ = {number, std::string(line)};
        }
    }
    for (const std::size_t i : shape.columns) {
        Column& column = columns_[i];
        if (column.values.size() == column.values.capacity()) {
            Append(&column, row_.values[i], partRead);
        } else {
            column.values.push_back(row_.values[i]);
        }
        if (const char mark = row_.marks[i];
            mark != 0 && (mark != column.mark || column.stretchOfMark != stretches_.size())) {
            column.marks.push_back({number, mark});
            column.mark = mark;
            column.stretchOfMark = stretches_.size();
        }
    }
}

// The row goes on the stretch above, or begins another.
void Table::Place(std::size_t number) {
    if (!stretches_.empty() && shapes_[stretches_.back().shape].codes == row_.codes) {
        Stretch& last = stretches_.back();
        last.distance = last.rows == 1 ? number - last.firstLine : last.distance;
        if (number == last.LineOf(last.rows)) {
            ++last.rows;
            return;
        }
    }
    stretches_.push_back({.shape = FindShape(), .firstLine = number, .rows = 1});
    textsOfStretch_ = 0;
}

std::size_t Table::FindShape() {
    const auto [place, isNew] = shapeOfCodes_.try_emplace(row_.codes, shapes_.size());
    if (isNew) {
        Shape shape{.codes = row_.codes};
        for (std::size_t i = 0; i < row_.codes.size(); ++i) {
            if (HasValue(row_.codes[i])) {
                shape.columns.push_back(i);
            }
            shape.hasWords = shape.hasWords || KindOf(row_.codes[i]) == CellKind::Word;
        }
        columns_.resize(std::max(columns_.size(), row_.codes.size()));
        shapes_.push_back(std::move(shape));
    }
    return place->second;
}

void Table::Keep(std::string_view line, std::size_t number, const Shape& shape) {
    if (textsOfStretch_ >= kMostTexts && !shape.columns.empty()) {
        return;
    }
    if (textsOfStretch_ == 2 * kMostTexts) {  // titles stand at the end of a header
        const auto begin = texts_.end() - static_cast<std::ptrdiff_t>(textsOfStretch_);
        texts_.erase(begin, begin + static_cast<std::ptrdiff_t>(kMostTexts));
        textsOfStretch_ = kMostTexts;
    }
    texts_.push_back({number, std::string(line)});
    ++textsOfStretch_;
}

// Makes room for as many values as the rest of the text will bring, so that a long column is not copied as it grows.
void Table::Append(Column* column, double value, double partRead) const {
    const std::size_t size = column->values.size();
    if (size >= kValuesToGoBy && partRead > 0.0) {
        const double whole = static_cast<double>(size) / std::min(partRead, 1.0) * kMargin;
        column->values.reserve(std::max(static_cast<std::size_t>(whole), size + size / 2));
    }
    column->values.push_back(value);
}

std::vector<Table::Line> Table::Texts(std::size_t from, std::size_t to) const {
    const auto begin = std::ranges::lower_bound(texts_, from, {}, &Line::number);
    return {begin, std::ranges::upper_bound(begin, texts_.end(), to, {}, &Line::number)};
}

std::pair<std::size_t, std::size_t> Table::MixedMarks(std::size_t column, std::size_t from, std::size_t to) const {
    const std::vector<MarkOfLine>& marks = columns_[column].marks;
    std::pair<std::size_t, std::size_t> lines;
    for (auto i = std::ranges::lower_bound(marks, from, {}, &MarkOfLine::line); i != marks.end() && i->line <= to;
         ++i) {
        std::size_t& line = i->mark == '.' ? lines.first : lines.second;
        line = line == 0 ? i->line : line;
    }
    return lines.first != 0 && lines.second != 0 ? lines : std::pair<std::size_t, std::size_t>();
}

bool Table::HasMarks(std::size_t column, std::size_t from, std::size_t to) const {
    const auto mark = std::ranges::lower_bound(columns_[column].marks, from, {}, &MarkOfLine::line);
    return mark != columns_[column].marks.end() && mark->line <= to;
}

}  // namespace recording

#include "recording/Addressed.h"

#include <cmath>
#include <limits>

#include "recording/Titles.h"

namespace recording {
namespace {

bool IsWhole(double value) {
    using Limits = std::numeric_limits<int>;
    return value == std::trunc(value) && value >= Limits::min() && value <= Limits::max();
}

}  // namespace

bool IsAddressedTitle(const std::string& line, char separator) {
    const QStringList cells = WordCells(line, separator, 2);
    return cells.size() == 2 && cells[0].compare(u"address", Qt::CaseInsensitive) == 0 &&
           cells[1].compare(u"value", Qt::CaseInsensitive) == 0;
}

std::vector<AddressedSample> ReadAddressed(const Table& table, QString* fault) {
    constexpr char kPlainNumber = static_cast<char>(CellKind::Number);
    std::vector<AddressedSample> samples;
    std::size_t badLine = 0;
    for (std::size_t i = 1; i < table.Stretches().size() && badLine == 0; ++i) {
        const Stretch& stretch = table.Stretches()[i];
        if (table.ShapeOf(stretch).codes != std::string(2, kPlainNumber)) {
            badLine = stretch.firstLine;
        }
        for (std::size_t row = 0; row < stretch.rows && badLine == 0; ++row) {
            const double address = table.Values(0)[samples.size()];
            const double value = table.Values(1)[samples.size()];
            badLine = IsWhole(address) && IsWhole(value) ? 0 : stretch.LineOf(row);
            if (badLine == 0) {
                samples.push_back({static_cast<int>(address), static_cast<int>(value), stretch.LineOf(row)});
            }
        }
    }
    if (badLine != 0) {
        *fault = QStringLiteral(
                     "Line %1 is no address and value, two whole numbers. Correct it, or take the file as a "
                     "recording.")
                     .arg(badLine);
    } else if (samples.empty()) {
        *fault = QStringLiteral("No address and value stands below the title line. Save the memory again.");
    }
    return badLine != 0 ? std::vector<AddressedSample>() : samples;
}

}  // namespace recording

#include "recording/Instants.h"

#include <QDate>
#include <algorithm>
#include <cmath>
#include <limits>

#include "recording/Course.h"
#include "recording/Units.h"

namespace recording {
namespace {

constexpr double kNoTime = std::numeric_limits<double>::quiet_NaN();

enum class Order { YearFirst, DayFirst, MonthFirst };

std::size_t DateIn(double value) { return static_cast<std::size_t>(std::floor(value / kDay)); }

// The day by that order, in seconds since the first of all days; NaN if there is no such day.
double DayOf(const Date& date, Order order) {
    constexpr int kMostDays = 31;
    constexpr int kCentury = 2000;
    const bool hasYearFirst = date.first > kMostDays;
    const bool hasYearLast = date.third > kMostDays || date.hasPoints;
    const bool isPossible = order == Order::YearFirst ? !hasYearLast : !hasYearFirst;
    if (!isPossible || (order == Order::MonthFirst && date.hasPoints)) {
        return kNoTime;
    }
    const int year = order == Order::YearFirst ? date.first : date.third;
    const int month = order == Order::MonthFirst ? date.first : date.second;
    const int day = order == Order::YearFirst ? date.third : order == Order::DayFirst ? date.first : date.second;
    const QDate real(year < 100 ? year + kCentury : year, month, day);
    return real.isValid() ? kDay * static_cast<double>(real.toJulianDay()) : kNoTime;
}

// The stamps with their days by that order, from the first day on; empty if one of them is no day.
std::vector<double> ByOrder(std::span<const double> stamps, const std::vector<Date>& dates, Order order) {
    std::vector<double> instants;
    const double firstDay = DayOf(dates[DateIn(stamps.front())], order);
    std::size_t last = DateIn(stamps.front());
    double day = 0.0;
    for (const double stamp : stamps) {
        if (const std::size_t date = DateIn(stamp); date != last) {
            day = DayOf(dates[date], order) - firstDay;
            last = date;
        }
        if (std::isnan(day + firstDay)) {
            return {};
        }
        instants.push_back(stamp - kDay * static_cast<double>(last) + day);
    }
    return instants;
}

// By the one order in which all dates are days; of several, by the one in which the stamps rise, or rise evenly.
void Resolve(std::span<double> stamps, const std::vector<Date>& dates) {
    if (stamps.empty() || std::ranges::any_of(stamps, [](double stamp) { return std::isnan(stamp); })) {
        return;
    }
    std::vector<std::vector<double>> readings;
    for (const Order order : {Order::YearFirst, Order::DayFirst, Order::MonthFirst}) {
        std::vector<double> reading = ByOrder(stamps, dates, order);
        if (!reading.empty() && std::ranges::find(readings, reading) == readings.end()) {
            readings.push_back(std::move(reading));
        }
    }
    for (const auto isGood :
         {+[](const Course& course) { return course.rises; }, +[](const Course& course) { return course.isEven; }}) {
        if (readings.size() > 1) {
            std::erase_if(readings, [&](const std::vector<double>& reading) { return !isGood(CourseOf(reading)); });
        }
    }
    if (readings.size() == 1) {
        std::ranges::copy(readings.front(), stamps.begin());
    } else {
        std::ranges::fill(stamps, kNoTime);
    }
}

}  // namespace

void ResolveStamps(Table& table, TableBlock* block) {
    const auto valuesOf = [&table](const BlockColumn& column) {
        const bool isWhole = column.values == column.rows && column.otherUnitLine == 0;
        return std::span(table.Values(column.column)).subspan(column.firstValue, isWhole ? column.rows : 0);
    };
    const BlockColumn* dates = nullptr;
    for (const BlockColumn& column : block->columns) {
        if (column.hasStamps && (column.unit == kDate || column.unit == kDateAndClock)) {
            Resolve(valuesOf(column), table.Dates());
            dates = dates == nullptr && column.unit == kDate ? &column : dates;
        }
    }
    for (BlockColumn& column : block->columns) {
        const std::span<double> clock = valuesOf(column);
        if (!column.hasStamps || (column.unit != kClock && column.unit != kTwoParts)) {
            continue;
        }
        if (dates != nullptr && dates->firstRow == column.firstRow && dates->rows == column.rows &&
            valuesOf(*dates).size() == clock.size()) {
            std::ranges::transform(clock, valuesOf(*dates), clock.begin(), std::plus());
            column.unit = kClock;
        } else {
            PassMidnights(clock);
        }
    }
}

}  // namespace recording

#include "rules/DigitStep.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr qsizetype kMostDigits = 17;  // that 64 bits hold, with room for a carry

// A number as its digits in one row, with the place of the decimal mark.
struct Digits {
    bool negative = false;
    QString row;
    qsizetype decimals = 0;
    QChar mark = u'.';

    int HighestPower() const { return static_cast<int>(row.size() - decimals) - 1; }
};

std::optional<Digits> Parse(const QString& number) {
    Digits digits;
    bool marked = false;
    for (qsizetype i = 0; i < number.size(); ++i) {
        const QChar c = number[i];
        if (c >= u'0' && c <= u'9') {
            digits.row += c;
            digits.decimals += marked ? 1 : 0;
        } else if (c == u'-' && i == 0) {
            digits.negative = true;
        } else if ((c == u'.' || c == u',') && !marked) {
            marked = true;
            digits.mark = c;
        } else {
            return std::nullopt;
        }
    }
    const bool readable = !digits.row.isEmpty() && digits.row.size() <= kMostDigits;
    return readable ? std::optional(digits) : std::nullopt;
}

int FirstDigit(const Digits& digits) {
    const auto found = std::find_if(digits.row.cbegin(), digits.row.cend(), [](QChar c) { return c != u'0'; });
    return found == digits.row.cend() ? 0 : digits.HighestPower() - static_cast<int>(found - digits.row.cbegin());
}

QString Text(qint64 value, const Digits& shape, qsizetype decimals) {
    QString text = QString::number(std::abs(value)).rightJustified(decimals + 1, u'0');
    if (decimals > 0) {
        text.insert(text.size() - decimals, shape.mark);
    }
    return value < 0 ? u'-' + text : text;
}

}  // namespace

std::optional<int> DigitAt(const QString& number, std::optional<qsizetype> cursor) {
    const auto digits = Parse(number);
    if (!digits) {
        return std::nullopt;
    }
    const QString before = number.left(cursor.value_or(0));
    const auto left = std::count_if(before.cbegin(), before.cend(), [](QChar c) { return c.isDigit(); });
    return left == 0 ? FirstDigit(*digits) : digits->HighestPower() - static_cast<int>(left - 1);
}

QString StepDigit(const QString& number, int power, int steps) {
    const auto digits = Parse(number);
    if (!digits) {
        return number;
    }
    const qsizetype decimals = std::max<qsizetype>(digits->decimals, -power);
    qint64 value = digits->row.leftJustified(digits->row.size() + decimals - digits->decimals, u'0').toLongLong();
    value = digits->negative ? -value : value;
    const auto weight = static_cast<qint64>(std::llround(std::pow(10.0, power + static_cast<int>(decimals))));
    return Text(value + steps * weight, *digits, decimals);
}

qsizetype CursorBehind(const QString& number, int power) {
    const auto digits = Parse(number);
    if (!digits) {
        return number.size();
    }
    // Digits up to this one, at least one of them; then the signs that stand among them.
    const auto count = std::clamp<qsizetype>(digits->HighestPower() - power + 1, 1, digits->row.size());
    return count + (digits->negative ? 1 : 0) + (power < 0 && digits->decimals > 0 ? 1 : 0);
}

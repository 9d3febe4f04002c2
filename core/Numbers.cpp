#include "core/Numbers.h"

#include <QByteArray>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

constexpr int kSignificantDigits = 15;

// Rounds the digit string to `keep` digits, half up; returns true if that carried into a new leading digit.
bool RoundDigits(QByteArray& digits, qsizetype keep) {
    const bool up = keep >= 0 && keep < digits.size() && digits[keep] >= '5';
    digits.truncate(std::max<qsizetype>(keep, 0));
    if (!up) {
        return false;
    }
    for (qsizetype i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            return false;
        }
        digits[i] = '0';
    }
    digits.prepend('1');
    return true;
}

// The magnitude in decimal digits with `decimals` of them behind the point; both parts without the point.
struct DecimalText {
    QByteArray whole;
    QByteArray fraction;
};

DecimalText DecimalDigits(double magnitude, qsizetype decimals) {
    const QByteArray scientific = QByteArray::number(magnitude, 'e', kSignificantDigits - 1);
    const qsizetype mark = scientific.indexOf('e');
    QByteArray digits = scientific.first(mark);
    digits.remove(1, 1);
    qsizetype whole = scientific.sliced(mark + 1).toInt() + 1;  // digits before the point
    if (RoundDigits(digits, whole + decimals)) {
        ++whole;
    }
    if (whole < 0) {
        digits.prepend(QByteArray(std::min(-whole, decimals - digits.size()), '0'));
        whole = 0;
    }
    digits.append(QByteArray(std::max<qsizetype>(whole + decimals - digits.size(), 0), '0'));
    return {digits.first(whole), digits.sliced(whole, decimals)};
}

}  // namespace

double NearestEven(double value) { return std::nearbyint(value); }

QString FormatPicture(double value, const char* picture, char separator) {
    if (!std::isfinite(value)) {
        return QStringLiteral("0");
    }
    const char* const point = std::strchr(picture, '.');
    const auto length = static_cast<qsizetype>(std::strlen(picture));
    const qsizetype wholePlaces = point != nullptr ? point - picture : length;
    const qsizetype decimals = point != nullptr ? length - wholePlaces - 1 : 0;

    const DecimalText decimal = DecimalDigits(std::fabs(value), decimals);
    QByteArray text = decimal.whole.rightJustified(wholePlaces, '0');
    if (decimals > 0) {
        text += separator + decimal.fraction;
    }
    const bool zero = std::all_of(text.cbegin(), text.cend(), [](char c) { return c < '1' || c > '9'; });
    return QString::fromLatin1(value < 0.0 && !zero ? '-' + text : text);
}

double ReadHeadNumber(QStringView text) { return FindHeadNumber(text).value_or(0.0); }

std::optional<double> FindHeadNumber(QStringView text) {
    QByteArray plain;
    for (const QChar c : text) {
        if (c != u' ' && c != u'\t' && c != u'\n') {
            plain += c.unicode() < 128 ? static_cast<char>(c.unicode()) : '?';
        }
    }
    // std::from_chars takes no plus, and takes names such as "inf": look at what stands behind the sign first.
    const bool isSigned = plain.startsWith('-') || plain.startsWith('+');
    const char head = plain.size() > isSigned ? plain.at(isSigned) : '\0';
    if (head != '.' && (head < '0' || head > '9')) {
        return std::nullopt;
    }
    const char* const first = plain.constData() + (plain.startsWith('+') ? 1 : 0);
    const char* const last = plain.constData() + plain.size();
    double value = 0.0;
    const auto result = std::from_chars(first, last, value);
    if (result.ec == std::errc::result_out_of_range) {
        return QString::fromLatin1(first, result.ptr - first).toDouble();  // infinity, or 0
    }
    return result.ec == std::errc() ? std::optional(value) : std::nullopt;
}

UserNumbers::UserNumbers(const QLocale& locale)
    : DecimalSeparator(locale.decimalPoint() == u"," ? 44 : 46),
      // A locale with neither comma nor point is read and shown as with the point.
      locale_(locale.decimalPoint() == u"," || locale.decimalPoint() == u"." ? locale : QLocale::c()) {}

QString UserNumbers::Picture(double value, const char* picture) const {
    return FormatPicture(value, picture, static_cast<char>(DecimalSeparator));
}

QString UserNumbers::Plain(double value) const {
    return QString::number(value, 'g', kSignificantDigits).replace(u'.', QChar(ushort{DecimalSeparator}));
}

double UserNumbers::ReadEntry(const QString& text) const {
    bool isNumber = false;
    const double value = locale_.toDouble(text.trimmed(), &isNumber);
    return isNumber && std::isfinite(value) ? value : 0.0;
}

#include "ctl/Values.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "recording/Units.h"

namespace {

constexpr int kDigits = 12;

constexpr std::array<const char*, 5> kPrefixes{"u", "m", "", "k", "M"};
constexpr int kNone = 2;
constexpr int kMega = 4;

struct QuantityForm {
    const char* unit;     // behind the prefix
    int lowest, highest;  // of kPrefixes: percent and degrees have none, and nobody writes ks
    const char* example;  // for a sentence
};

constexpr std::array<QuantityForm, 6> kForms{{
    {"Hz", 0, kMega, "2500, 2.5kHz or 2.5MHz"},
    {"Vpp", 0, kMega, "1.2Vpp, 500mVpp or 0.5Vrms"},
    {"V", 0, kMega, "-0.1, 0.25V or -100mV"},
    {"%", kNone, kNone, "50 or 50%"},
    {"deg", kNone, kNone, "90 or 90deg"},
    {"s", 0, kNone, "0.5, 2s or 500ms"},
}};

const QuantityForm& FormOf(Quantity quantity) { return kForms[static_cast<std::size_t>(quantity)]; }

struct NamedUnit {
    QString symbol;    // without its prefix; empty for none
    int exponent = 0;  // of ten, that the prefix stands for
};

std::optional<NamedUnit> ReadUnit(QString text) {
    if (text.isEmpty()) {
        return NamedUnit{};
    }
    for (const char* const level : {"Vpp", "Vrms"}) {
        const QLatin1StringView name(level);
        if (text.endsWith(name, Qt::CaseInsensitive)) {
            text = text.chopped(name.size()) + name;
        }
    }
    const auto unit = recording::ReadCellUnit(text.toStdString());
    const double exponent = unit ? std::log10(unit->scale) : 0.5;
    if (exponent != std::round(exponent)) {
        return std::nullopt;  // minutes and hours too
    }
    return NamedUnit{recording::UnitSymbol(unit->base), static_cast<int>(exponent)};
}

bool Fits(const NamedUnit& unit, Quantity quantity) {
    const bool hasPrefix = unit.exponent != 0;
    switch (quantity) {
        case Quantity::Depth:
            return (unit.symbol.isEmpty() || unit.symbol == u"%") && !hasPrefix;
        case Quantity::Phase:
            return (unit.symbol.isEmpty() || unit.symbol == u"°") && !hasPrefix;
        case Quantity::Level:
            return unit.symbol.isEmpty() || unit.symbol == u"Vpp" || unit.symbol == u"Vrms";
        default:
            return unit.symbol.isEmpty() || unit.symbol == QLatin1StringView(FormOf(quantity).unit);
    }
}

// The prefix goes into the exponent, so that 2.3k is 2300 to the last binary digit.
std::optional<double> NumberOf(const QRegularExpressionMatch& parts, int exponent) {
    const int own = parts.captured(3).toInt();  // 0 where it is too long: then so is the number
    const QString digits = parts.captured(2).replace(u',', u'.');
    const QString sign = parts.captured(1) == u"-" ? QStringLiteral("-") : QString();
    const std::string text = QString(sign + digits + u'e' + QString::number(own + exponent)).toStdString();
    double number = 0.0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    return end.ec == std::errc() && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<Value> ReadValue(const QString& text, Quantity quantity, QString& fault) {
    static const QRegularExpression form(
        QStringLiteral("^([+-]?)(\\d+(?:[.,]\\d*)?|[.,]\\d+)(?:[eE]([+-]?\\d{1,4}))?(.*)$"));
    const QRegularExpressionMatch parts = form.match(text.trimmed());
    const auto unit = parts.hasMatch() ? ReadUnit(parts.captured(4).trimmed()) : std::nullopt;
    const auto number = unit && Fits(*unit, quantity) ? NumberOf(parts, unit->exponent) : std::nullopt;
    if (!number) {
        fault = QStringLiteral("\"%1\" is no such value: write it as %2")
                    .arg(text, QLatin1StringView(FormOf(quantity).example));
        return std::nullopt;
    }
    const bool named = quantity == Quantity::Level && !unit->symbol.isEmpty();
    return Value{*number == 0.0 ? 0.0 : *number, named ? std::optional(unit->symbol == u"Vpp") : std::nullopt};
}

QString ValueText(double number, Quantity quantity, bool vpp) {
    const QuantityForm& form = FormOf(quantity);
    int index = kNone;
    if (number != 0.0) {
        const double rounded = QString::number(std::fabs(number), 'g', kDigits).toDouble();
        index = std::clamp(static_cast<int>(std::floor(std::log10(rounded) / 3.0 + 1e-9)) + kNone, form.lowest,
                           form.highest);
    }
    const QString digits = QString::number(number / std::pow(10.0, 3 * (index - kNone)), 'g', kDigits);
    return digits + QLatin1StringView(kPrefixes.at(static_cast<std::size_t>(index))) +
           QLatin1StringView(quantity == Quantity::Level && !vpp ? "Vrms" : form.unit);
}

const UserNumbers& PlainNumbers() {
    static const UserNumbers numbers(QLocale::c());
    return numbers;
}

#include <QRegularExpression>
#include <cmath>

#include "Fuzz.h"
#include "core/Numbers.h"

namespace {

constexpr double kGreatestShown = 1e300;  // rounding to 15 digits may overflow beyond

// By the grammar of a number, and Qt's own conversion.
double ExpectedNumber(QString text) {
    static const QRegularExpression kBlanks(QStringLiteral("[ \\t\\n]"));
    static const QRegularExpression kNumber(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?"));
    return kNumber.match(text.remove(kBlanks)).captured().toDouble();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const QLocale kComma(QLocale::German, QLocale::Germany);
    static const UserNumbers kNumbers(kComma);
    QLocale::setDefault(kComma);

    const QString text = QString::fromUtf8(BytesOf(data, size));
    const double value = ReadHeadNumber(text);
    Require(value == ExpectedNumber(text), "the number is the one at the head, with a point, in every locale");

    QString spaced;
    for (const QChar character : text) {
        spaced += QStringLiteral(" \t\n") + character;
    }
    Require(ReadHeadNumber(spaced) == value, "blanks count nowhere");

    if (std::fabs(value) < kGreatestShown) {
        const double shown = kNumbers.ReadEntry(kNumbers.Picture(value, "0.0000"));
        Require(std::fabs(shown - value) <= 0.5001e-4 + 1e-14 * std::fabs(value), "what is shown reads as it was");
    }
    return 0;
}

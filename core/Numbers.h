#pragma once

#include <QLocale>
#include <QString>
#include <optional>

// Nearest whole number; a fraction of exactly one half goes to the even neighbour.
double NearestEven(double value);

// A number by a picture of zeros such as "0.0000" or "000.0": at least the digits before the point, exactly those
// behind it. Rounds half away from zero on the decimal value at 15 significant digits, so that 0.15 in "0.0" is 0.2.
// A value that rounds to zero carries no sign.
QString FormatPicture(double value, const char* picture, char separator);

// The number at the head of a reply from the instrument: blanks, tabs and line feeds are passed over wherever they
// stand, "." is the decimal point in every locale, and reading stops at the first character that can't belong to the
// number. No number gives 0, and one that is too great for a double infinity with its sign.
double ReadHeadNumber(QStringView text);
// The same; empty if there is no number.
std::optional<double> FindHeadNumber(QStringView text);

// How this user reads and writes numbers.
class UserNumbers {
  public:
    explicit UserNumbers(const QLocale& locale = QLocale());

    quint8 DecimalSeparator;  // character code: 44 where the user writes a comma, else 46

    // Display text by a picture, with the user's separator.
    QString Picture(double value, const char* picture) const;
    // The shortest plain form: 0.01, 40.
    QString Plain(double value) const;
    // What an entry field holds. A text that is not a number counts as 0.
    double ReadEntry(const QString& text) const;

  private:
    QLocale locale_;
};

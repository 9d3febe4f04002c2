#pragma once

#include <QChar>

// Which keys a field takes.
enum class KeyClass {
    Plain,   // digits, point, slash, the decimal separator, "E"
    Signed,  // these, and plus, minus and comma
    Digits,  // digits alone
};

// The character that a field takes for a typed one, or a null character if the key is dropped. Except for Digits,
// letters become upper case, and "." and "," both become the user's decimal separator (a character code).
QChar FilterKey(KeyClass keys, QChar typed, quint8 DecimalSeparator);

#include "rules/KeyFilter.h"

namespace {

bool IsBetween(QChar c, char16_t first, char16_t last) { return c >= first && c <= last; }

}  // namespace

QChar FilterKey(KeyClass keys, QChar typed, quint8 DecimalSeparator) {
    if (keys == KeyClass::Digits) {
        return IsBetween(typed, u'0', u'9') ? typed : QChar();
    }
    const QChar separator(ushort{DecimalSeparator});
    const QChar key = typed == u'.' || typed == u',' ? separator : typed.toUpper();
    const char16_t first = keys == KeyClass::Signed ? u'+' : u'.';
    const bool passes = IsBetween(key, first, u'9') || key == separator || key == u'E';
    return passes ? key : QChar();
}

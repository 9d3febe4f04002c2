#include "waveform/FormulaNotation.h"

#include <cstring>

namespace {

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }
// Not those of the desktop's locale.
bool IsLetter(QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_'; }

// '\0' for a character that no formula has. Signs as books and web pages write them count as those of the keyboard.
char PlainSign(QChar typed) {
    switch (typed.unicode()) {
        case u'−':
        case u'–':
            return '-';
        case u'×':
        case u'·':
            return '*';
        case u'÷':
            return '/';
        case u';':
            return ',';
        default:
            break;
    }
    if (typed.isSpace()) {
        return ' ';
    }
    const bool known = IsLetter(typed) || IsDigit(typed) || QStringView(u"+-*/^().,?:<>=!&|").contains(typed);
    return known ? typed.toLatin1() : '\0';
}

bool IsBetweenDigits(const QString& typed, qsizetype at) {
    return at > 0 && at + 1 < typed.size() && IsDigit(typed[at - 1]) && IsDigit(typed[at + 1]);
}

FormulaFault TwoReadings(const QString& typed, qsizetype comma) {
    qsizetype first = comma;
    while (first > 0 && IsDigit(typed[first - 1])) {
        --first;
    }
    qsizetype end = comma + 1;
    while (end < typed.size() && IsDigit(typed[end])) {
        ++end;
    }
    const QString left = typed.sliced(first, comma - first);
    const QString right = typed.sliced(comma + 1, end - comma - 1);
    const QString text =
        QStringLiteral("\"%1,%2\" may be the number %1.%2 or the two arguments %1; %2. Write \"%1.%2\" or \"%1; %2\".");
    return {text.arg(left, right), first, end - first};
}

// An assignment would change what the formula works with.
bool IsAssignment(const std::string& plain, std::size_t at) {
    const bool endsComparison = at > 0 && std::strchr("<>=!", plain[at - 1]) != nullptr;
    const bool beginsComparison = at + 1 < plain.size() && plain[at + 1] == '=';
    return plain[at] == '=' && !endsComparison && !beginsComparison;
}

}  // namespace

PlainFormula ToPlainFormula(const QString& typed) {
    if (typed.size() > kLongestFormula) {
        const QString text = QStringLiteral("A formula has at most %1 characters.").arg(kLongestFormula);
        return {{}, FormulaFault{text, kLongestFormula, typed.size() - kLongestFormula}};
    }
    const bool decimalCommas = typed.contains(u';');
    const bool decimalPoints = typed.contains(u'.');
    PlainFormula plain;
    for (qsizetype i = 0; i < typed.size(); ++i) {
        const bool doubtful = typed[i] == u',' && IsBetweenDigits(typed, i);
        if (doubtful && !decimalCommas && !decimalPoints) {
            return {{}, TwoReadings(typed, i)};
        }
        const char c = doubtful && decimalCommas ? '.' : PlainSign(typed[i]);
        if (c == '\0') {
            const qsizetype length = typed[i].isHighSurrogate() && i + 1 < typed.size() ? 2 : 1;
            return {{}, FormulaFault{u'"' + typed.sliced(i, length) + u"\" has no meaning in a formula.", i, length}};
        }
        plain.text += c;
    }
    for (std::size_t i = 0; i < plain.text.size(); ++i) {
        if (IsAssignment(plain.text, i)) {
            return {{}, FormulaFault{QStringLiteral("To compare, write \"==\"."), static_cast<qsizetype>(i), 1}};
        }
    }
    return plain;
}

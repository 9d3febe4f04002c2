#include "ctl/BatchLine.h"

std::optional<QStringList> WordsOf(const QString& line, QString& fault) {
    QStringList words;
    QChar quote;
    bool inWord = false;
    for (const QChar c : line) {
        const bool opens = quote.isNull() && (c == u'"' || c == u'\'');
        const bool separates = quote.isNull() && c.isSpace();
        if (quote.isNull() && !inWord && c == u'#') {
            break;
        }
        if (!inWord && !separates) {
            words += QString();
        }
        inWord = !separates;
        if (opens) {
            quote = c;
        } else if (c == quote && !quote.isNull()) {
            quote = QChar();
        } else if (!separates) {
            words.last() += c;
        }
    }
    if (!quote.isNull()) {
        fault = QStringLiteral("a quote %1 is open at the end: close it").arg(quote);
        return std::nullopt;
    }
    return words;
}

#pragma once

#include <QString>

// A text without the blanks at its ends; other white space stays.
inline QString TrimBlanks(const QString& text) {
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text.at(first) == u' ') {
        ++first;
    }
    while (last > first && text.at(last - 1) == u' ') {
        --last;
    }
    return text.sliced(first, last - first);
}

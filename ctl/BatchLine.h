#pragma once

#include <QStringList>
#include <optional>

// The words of one line of a batch. Blanks separate them; '...' and "..." hold them together; "#" at the start of a
// word begins a remark. A backslash is a character like others. None, with a sentence in `fault`, for an open quote.
std::optional<QStringList> WordsOf(const QString& line, QString& fault);

#pragma once

#include <QString>
#include <optional>

#include "recording/Units.h"

namespace recording {

// What a key of a header says of the values behind it.
enum class Key { Other, Interval, Rate, TimeUnit, Unit, Name };

struct KeyText {
    Key key = Key::Other;
    std::optional<Unit> unit = {};  // in brackets behind it
};

// "Sample Interval (ms)", "XINCR", "Vertical Units", "Source". The whole text must be known: "Sample Interval (MS)" and
// "Recording period" are other keys.
KeyText ReadKey(const QString& text);

// The key in front of "=" or ":" and what stands behind; nothing if the text is no such pair.
std::optional<std::pair<QString, QString>> SplitPair(const QString& text);

}  // namespace recording

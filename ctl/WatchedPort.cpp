#include "ctl/WatchedPort.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/Numbers.h"

namespace {
constexpr char kCr = '\r';
}

void WatchedPort::Output(char character) {
    SerialControl::Output(character);
    if (character != kCr) {
        line_ += QLatin1Char(character);
        return;
    }
    query_ = std::exchange(line_, QString());
    answer_.clear();
    if (whenLine) {
        whenLine(false, query_);
    }
}

QByteArray WatchedPort::Input() {
    QByteArray input = SerialControl::Input();
    for (const char character : std::as_const(input)) {
        if (character != kCr) {
            answer_ += QLatin1Char(character);
            continue;
        }
        const QString answer = std::exchange(answer_, QString());
        if (whenLine) {
            whenLine(true, answer);
        }
        if (whenNoAnswer && !IsAnswer(query_, answer)) {
            whenNoAnswer(query_);
        }
    }
    return input;
}

bool IsAnswer(const QString& query, const QString& answer) {
    if (query == u"ID?" || query == u"VER?") {
        return true;  // judged by the search for the instrument
    }
    if (query == u"sta?") {
        return !answer.isEmpty();
    }
    const bool isPoint = query.startsWith(u"arp");
    const auto number = FindHeadNumber(QStringView(answer).sliced(isPoint ? answer.indexOf(u'=') + 1 : 0));
    using Samples = std::numeric_limits<qint16>;
    using Depths = std::numeric_limits<quint8>;
    const double value = number ? NearestEven(*number) : NAN;
    return std::isfinite(value) && (!isPoint || (value >= Samples::min() && value <= Samples::max())) &&
           (query != u"amt?" || (value >= 0.0 && value <= Depths::max()));
}

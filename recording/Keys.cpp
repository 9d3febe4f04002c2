#include "recording/Keys.h"

#include <QRegularExpression>

#include "recording/Titles.h"

namespace recording {
namespace {

// "SampleInterval" as "sample interval".
QString Words(const QString& name) {
    static const QRegularExpression hump(QStringLiteral("([a-z])([A-Z])"));
    static const QRegularExpression others(QStringLiteral("[^a-z0-9]+"));
    return QString(name)
        .replace(hump, QStringLiteral("\\1 \\2"))
        .toLower()
        .replace(others, QStringLiteral(" "))
        .trimmed();
}

QRegularExpression Whole(const char* pattern) {
    constexpr char kFirst[] = "(?:(?:actual|effective|real|horizontal|waveform|wfm|channel) )?";
    constexpr char kLast[] = "(?: ch ?\\w| channel \\w)?";
    return QRegularExpression(
        QStringLiteral("^%1(?:%2)%3$").arg(QLatin1String(kFirst), QLatin1String(pattern), QLatin1String(kLast)));
}

}  // namespace

KeyText ReadKey(const QString& text) {
    static const std::pair<QRegularExpression, Key> keys[] = {
        {Whole("(?:sampl(?:e|ing)|time|t|x|x axis|h|horiz(?:ontal)?|horz|log(?:ging)?|scan|measure(?:ment)?|"
               "record(?:ing)?) ?(?:interval|increment|incr|inc|step|spacing|resolution)|"
               "(?:sampl(?:e|ing)|scan|logging) ?period|interval|increment|dt|delta|delta [tx]|deltat|sampl(?:e|ing) "
               "time|time per sample"),
         Key::Interval},
        {Whole("(?:sampl(?:e|ing)|scan|acquisition|log(?:ging)?) ?(?:rate|frequency|freq)|fs|rate|samples per second"),
         Key::Rate},
        {Whole("(?:h|horiz(?:ontal)?|horz|x|time|x axis) ?units?"), Key::TimeUnit},
        {Whole("(?:(?:v|vert(?:ical)?|y|y axis|channel|signal) ?)?units?(?: labels?)?|einheit(?:en)?"), Key::Unit},
        {Whole("(?:source|channel|trace|signal|waveform|label|name|title|ch)s?(?: ?(?:name|label)s?)?"), Key::Name}};
    for (const Title& title : {ReadTitle(text), Title{text, {}}}) {  // "samples per second" has no unit behind it
        const QString words = Words(title.name);
        for (const auto& [pattern, key] : keys) {
            if (pattern.match(words).hasMatch()) {
                return {key, ReadUnit(title.unit.toStdString())};
            }
        }
    }
    return {};
}

std::optional<std::pair<QString, QString>> SplitPair(const QString& text) {
    static const QRegularExpression pair(QStringLiteral(R"(^[#%;/\s]*([^=:]*[A-Za-z][^=:]*?)\s*[=:]\s*(.*)$)"));
    const auto match = pair.match(text);
    return match.hasMatch() ? std::optional(std::pair(match.captured(1), match.captured(2).trimmed())) : std::nullopt;
}

}  // namespace recording

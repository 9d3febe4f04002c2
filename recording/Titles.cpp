#include "recording/Titles.h"

#include <QRegularExpression>
#include <algorithm>

#include "recording/Keys.h"

namespace recording {
namespace {

constexpr std::size_t kLinesAbove = 20;
constexpr qsizetype kLongestTitle = 60;
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

QString TextOf(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

std::optional<Unit> UnitNamed(const QString& text) { return ReadUnit(text.toStdString()); }

bool Matches(const QString& text, const QRegularExpression& pattern) { return pattern.match(text).hasMatch(); }

// One letter may as well be the name of a channel.
bool IsPlainUnit(const QString& text) {
    return UnitNamed(text) && (text.size() > 1 || text == u"V" || text == u"s" || text == u"%");
}

// The unit that a cell of a unit line gives: "Volt", "(ms)" or "in s"; empty if the cell is something else.
QString UnitOfCell(const QString& cell) {
    static const QRegularExpression brackets(QStringLiteral(R"(^[(\[](.*)[)\]]$)"));
    if (const auto match = brackets.match(cell); match.hasMatch()) {
        return match.captured(1).trimmed();
    }
    const Title title = ReadTitle(cell);
    if (title.name.isEmpty() && !title.unit.isEmpty()) {
        return title.unit;
    }
    return UnitNamed(cell) ? cell : QString();
}

// What a unit line has where there is no unit, or how the samples were taken.
bool IsFiller(const QString& cell) {
    static const QRegularExpression words(
        QStringLiteral(
            R"(^(sequence|samples?|index|points?|counts?|adc|lsb|bits?|raw|a\.?u\.?|none|no unit|unit|-+)$)"),
        QRegularExpression::CaseInsensitiveOption);
    return Matches(cell, words);
}

// The first cell of a line that names what the cells behind it are.
bool IsKeyOfCells(const QString& cell) {
    static const QRegularExpression marks(QStringLiteral(R"(^(#+|%+|//)$)"));
    const Key key = ReadKey(cell).key;
    return Matches(cell, marks) || key == Key::Name || key == Key::Unit;
}

Cell Read(const QString& cell) { return ReadCell(cell.toStdString(), {}); }

bool IsWord(const QString& cell) { return Read(cell).kind == CellKind::Word; }

// The parts of a cell between semicolons, commas or wide gaps: a header may have another separator than its samples.
QStringList PartsOf(const QString& cell) {
    static const QRegularExpression gap(QStringLiteral(R"(\s*\t+\s*| {2,})"));
    static const QRegularExpression semicolon(QStringLiteral(";"));
    static const QRegularExpression comma(QStringLiteral(R"((?<!\d),|,(?!\d))"));  // not one within a number
    for (const QRegularExpression& separator : {semicolon, comma}) {
        if (cell.contains(separator)) {
            QStringList parts = cell.split(separator);
            std::ranges::transform(parts, parts.begin(), [](const QString& part) { return part.trimmed(); });
            return parts;
        }
    }
    return cell.split(gap);
}

// A line above a block, as cells over its columns.
class HeaderLine {
  public:
    HeaderLine(const Table& table, const TableBlock& block, const std::string& text)
        : block_(block), cells_(WordCells(text, table.CellForm().separator, block.cells)) {
        const bool hasKey = !cells_.isEmpty() && IsKeyOfCells(cells_[0]);
        isProse_ = table.CellForm().separator == ' ' && Size() > block.cells + (hasKey ? 1 : 0);
        isOfTime_ = !cells_.isEmpty() && ReadKey(cells_[0]).key == Key::TimeUnit;
        if (!hasKey) {
            return;
        }
        const bool hasNumbers = block.columns.front().column == 0;  // below
        firstIsTitle_ = Size() == block.cells && ((hasNumbers && NamesAnAxis()) || NamesAQuantity());
        if (Size() == block.cells + 1) {
            cells_.removeFirst();
        } else if (!firstIsTitle_) {
            std::ranges::replace(cells_, QString(cells_[0]), QString());  // the same key may stand for each channel
        }
    }

    std::size_t Size() const { return static_cast<std::size_t>(cells_.size()); }
    QString At(std::size_t column) const {
        return column < Size() ? cells_[static_cast<qsizetype>(column)] : QString();
    }

    enum class Units { No, Fillers, Yes };

    // Whether the line holds units; with fillers alone it may be one of titles.
    Units HasUnits() const {
        Units units = Units::No;
        if (isOfTime_) {
            return units;
        }
        for (const QString& cell : cells_) {
            const Cell read = Read(cell);
            const bool isUnit = Size() == 1 ? UnitNamed(UnitOfCell(cell)).has_value() : !UnitOfCell(cell).isEmpty();
            if (isUnit) {
                units = Units::Yes;
            } else if (IsFiller(cell)) {
                units = std::max(units, Units::Fillers);
            } else if (!cell.isEmpty() && (read.kind != CellKind::Number || read.unit != 0)) {
                return Units::No;
            }
        }
        return units;
    }

    // Titles for at least half of the columns. Channels may be numbered, if their units stand below.
    bool MayBeTitles(bool hasUnits) const {
        if (Size() == 1 && std::ranges::none_of(cells_[0].split(u' '), IsWord)) {
            return false;
        }
        std::size_t words = 0;
        for (const BlockColumn& column : block_.columns) {
            const QString cell = At(column.column);
            const Cell read = Read(cell);
            const bool isNumber = read.kind == CellKind::Number && read.unit == 0;
            if ((isNumber && !hasUnits) || read.kind == CellKind::Stamp || cell.size() > kLongestTitle) {
                return false;
            }
            words += cell.isEmpty() ? 0 : 1;
        }
        return words > 0 && 2 * words >= block_.columns.size() && (Size() > 1 || block_.cells == 1) && !HasPair() &&
               !isOfTime_ && !isProse_;
    }

    // Units are among the words, and nothing that is known as a title.
    bool HasSomeUnit() const {
        return std::ranges::any_of(cells_, [](const QString& cell) { return IsPlainUnit(UnitOfCell(cell)); }) &&
               std::ranges::none_of(cells_, [](const QString& cell) {
                   const Title title = ReadTitle(cell);
                   const bool isUnit = IsPlainUnit(UnitOfCell(cell));
                   return !isUnit && (title.Means() != Meaning::Unknown || !title.unit.isEmpty() ||
                                      Read(cell).kind > CellKind::Word);
               });
    }

    // A known word is among them.
    bool AreKnownTitles() const {
        return std::ranges::any_of(block_.columns, [this](const BlockColumn& column) {
            const Title title = ReadTitle(At(column.column));
            return title.Means() != Meaning::Unknown || !title.unit.isEmpty();
        });
    }

    // A word that may be a key is the title of the first column.
    bool FirstIsTitle() const { return firstIsTitle_; }

    // As the lines of a list of keys: a word, and one thing more.
    bool IsKeyAndValue() const { return cells_.size() == 2 && !cells_[0].isEmpty(); }

  private:
    bool NamesAnAxis() const {
        return std::any_of(cells_.begin() + 1, cells_.end(), [](const QString& cell) {
            const Meaning meaning = ReadTitle(cell).Means();
            return meaning == Meaning::Time || meaning == Meaning::Index || meaning == Meaning::MaybeTime;
        });
    }

    bool NamesAQuantity() const {
        static const QRegularExpression quantity(
            QStringLiteral(R"(^(voltage|current|value|reading|spannung|strom|wert)\b)"),
            QRegularExpression::CaseInsensitiveOption);
        return std::any_of(cells_.begin() + 1, cells_.end(),
                           [](const QString& cell) { return Matches(cell, quantity); });
    }

    // "key = value" or "key: value" in place of a title; in a line of one cell also "key;value", and "[section]".
    bool HasPair() const {
        static const QRegularExpression keyOrSection(QStringLiteral("^\\[|[:=]"));
        if (Size() == 1) {
            const QStringList parts = PartsOf(cells_[0]);
            return cells_[0].contains(keyOrSection) || (parts.size() > 1 && !UnitNamed(parts[1]));
        }
        return cells_.contains(QStringLiteral("=")) ||
               std::ranges::any_of(block_.columns, [this](const BlockColumn& column) {
                   const QString cell = At(column.column);
                   return cell.contains(u" =") || cell.contains(u": ") || cell.endsWith(u':');
               });
    }

    const TableBlock& block_;
    QStringList cells_;
    bool firstIsTitle_ = false;
    bool isProse_ = false;   // between blanks, more words than cells
    bool isOfTime_ = false;  // a key says that its units are those of the time
};

// Titles that stand over a line of units of which some are unknown.
bool HasKnownTitles(const Table& table, const TableBlock& block, const Table::Line& line) {
    const HeaderLine titles(table, block, line.text);
    return titles.MayBeTitles(false) && titles.AreKnownTitles();
}

// Places of the lines above a block that hold its titles and its units; kNone without one.
struct TitleLines {
    std::size_t titles = kNone;
    std::size_t units = kNone;
};

TitleLines FindTitleLines(const Table& table, const TableBlock& block, const std::vector<Table::Line>& lines) {
    std::size_t units = kNone;
    std::size_t titles = kNone;
    std::size_t fillers = kNone;
    bool isNext = true;  // nothing but units between the line and the block
    for (std::size_t i = lines.size(); i-- > 0 && titles == kNone && i + kLinesAbove >= lines.size();) {
        const HeaderLine line(table, block, lines[i].text);
        const bool inList =
            i > 0 && line.IsKeyAndValue() && HeaderLine(table, block, lines[i - 1].text).IsKeyAndValue();
        const HeaderLine::Units kind = line.HasUnits();
        if (kind == HeaderLine::Units::Yes) {
            units = units == kNone ? i : units;
        } else if (kind == HeaderLine::Units::Fillers) {
            fillers = i;
        } else if (units == kNone && i > 0 && line.HasSomeUnit() && HasKnownTitles(table, block, lines[i - 1])) {
            units = i;
        } else if (line.MayBeTitles(units == i + 1) && (line.AreKnownTitles() || (isNext && !inList))) {
            titles = i;
        } else {
            isNext = false;
        }
    }
    return {titles == kNone ? std::min(units, fillers) : titles, units};  // "Sample,Volt" may be all that there is
}

}  // namespace

Title ReadTitle(const QString& cell) {
    static const QRegularExpression marks(QStringLiteral(R"(^[#%;"'\s]+|["'\s]+$)"));
    static const QRegularExpression bracket(
        QStringLiteral(R"(^(.*?)[\s,_]*[(\[{]\s*(?:in\s+)?([^()\[\]{}]{1,20}?)\s*[)\]}]$)"));
    static const QRegularExpression in(QStringLiteral(R"(^(?:(.*?)[\s,]+)?in\s+(\S.{0,19})$)"));
    static const QRegularExpression behind(QStringLiteral(R"(^(.+?)(?:\s*/\s*|[\s,_]+)(\S{1,12})$)"));
    const QString text = QString(cell).remove(marks);
    if (const auto match = bracket.match(text);
        match.hasMatch() && (UnitNamed(match.captured(2)) || (text.endsWith(u']') && !match.captured(1).isEmpty()))) {
        return {match.captured(1), match.captured(2)};
    }
    if (const auto match = in.match(text); match.hasMatch() && UnitNamed(match.captured(2))) {
        return {match.captured(1), match.captured(2)};
    }
    if (const auto match = behind.match(text); match.hasMatch() && IsPlainUnit(match.captured(2))) {
        return {match.captured(1), match.captured(2)};
    }
    return {text, IsPlainUnit(text) ? text : QString()};
}

Meaning Title::Means() const {
    static const QRegularExpression brackets(QStringLiteral(R"(\s*[(\[].*[)\]]$)"));
    static const QRegularExpression time(QStringLiteral(
        R"((?<![a-z])(time|times|timestamp|date|datum|zeit|uhrzeit|temps|tiempo|tempo|tijd|elapsed)(?![a-z])|^(seconds?|secs?)$)"));
    static const QRegularExpression maybe(QStringLiteral(R"(^[txs]( ?-? ?(axis|values?|data))?$)"));
    static const QRegularExpression maybeIndex(QStringLiteral(R"(^(i|data)$)"));
    static const QRegularExpression index(QStringLiteral(
        R"(^((sample|point|row|record|data|scan|step|line|sequence)s? ?(index|idx|no\.?|nr\.?|num|number|count|#)?|index|idx|no\.?|nr\.?|number|count|counter|address|n|#)$)"));
    static const QRegularExpression segment(QStringLiteral(
        R"(^(segment|seg|sweep|frame|run|cycle|acq|acquisition|waveform|event|page)s? ?(index|no\.?|nr\.?|number|count|id|#)?$)"));
    static const QRegularExpression whichChannel(QStringLiteral(
        R"(^((ch|chan|channel|kanal|voie|canal|trace)s? ?(index|no\.?|nr\.?|number|id|#)?|sensor ?(no\.?|nr\.?|number|id|#))$)"));
    static const QRegularExpression axis(QStringLiteral(R"(^(frequency|freq|f)$)"));
    static const QRegularExpression channel(QStringLiteral(
        R"((?<![a-z])(ch|chan|channel|kanal|voie|canal|c|m|d|math|ref|ai|ain|in|out|input|output|probe|trace|signal|volts?|voltage|spannung|tension|amps?|ampere|current|strom|ampl|amplitude|power|level|value|wert|temperature|temp)(?![a-z])|^[abcdvuiyp]\d*$|^[viup]\()"));
    const QString small = name.toLower().replace(u'_', u' ');
    QString outside = small;  // "CH1 (real time)" is no time
    outside.remove(brackets);
    if (Matches(outside.isEmpty() ? small : outside, time)) {
        return Matches(outside, channel) ? Meaning::MaybeTime : Meaning::Time;
    }
    if (LineOfChannel()) {
        return Meaning::Extra;
    }
    for (const auto& [pattern, meaning] : {std::pair(&maybe, Meaning::MaybeTime),
                                           {&maybeIndex, Meaning::MaybeIndex},
                                           {&index, Meaning::Index},
                                           {&segment, Meaning::Segment},
                                           {&whichChannel, Meaning::WhichChannel},
                                           {&axis, Meaning::Axis},
                                           {&channel, Meaning::Channel}}) {
        if (Matches(small, *pattern)) {
            return meaning;
        }
    }
    return Meaning::Unknown;
}

std::optional<QString> Title::LineOfChannel() const {
    static const QRegularExpression extra(
        QStringLiteral(R"((?<![a-z])(pe?a?k[ -]?det(ect\w*)?|envelope|env|min|max|minimum|maximum)(?![a-z]))"));
    QString small = name.toLower().replace(u'_', u' ');
    return Matches(small, extra) ? std::optional(small.remove(extra).simplified()) : std::nullopt;
}

bool Title::IsPlainTime() const {
    static const QRegularExpression plain(QStringLiteral(
        R"(^((elapsed|run|running|real|relative|rel\.?|absolute|abs\.?|total|ch ?\w|channel ?\w) )?(time|times|zeit|temps|tiempo|tempo|tijd|t|elapsed)([ -]?(axis|base|values?|data|ch ?\w|channel ?\w|\d+))?$)"));
    return unit.isEmpty() && Matches(name.toLower().replace(u'_', u' '), plain);
}

QStringList WordCells(const std::string& line, char separator, std::size_t cells) {
    QStringList words;
    for (const std::string_view cell : SplitCells(line, separator)) {
        words += TextOf(Content(cell)).replace(QStringLiteral("\"\""), QStringLiteral("\""));
    }
    const bool isOneCell = separator == '\t' && words.size() == 1;  // its columns lie below each other
    if (static_cast<std::size_t>(words.size()) == cells || (separator != ' ' && !isOneCell)) {
        return words;
    }
    QStringList apart = PartsOf(TextOf(Trimmed(line)));
    if (isOneCell || static_cast<std::size_t>(apart.size()) == cells) {
        return apart;
    }
    // A unit in brackets belongs to the word in front of it, or ends the words of each title.
    const auto isUnit = [](const QString& word) { return word.endsWith(u')') || word.endsWith(u']'); };
    const bool endsAll =
        static_cast<std::size_t>(std::ranges::count_if(words, isUnit)) == cells && isUnit(words.last());
    QStringList joined;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const bool isBracket = words[i].startsWith(u'(') || words[i].startsWith(u'[');
        if (!joined.isEmpty() && (endsAll ? !isUnit(words[i - 1]) : isBracket)) {
            joined.last() += u' ' + words[i];
        } else {
            joined += words[i];
        }
    }
    return joined;
}

QStringList KeyCells(const std::string& line, char separator) {
    const QStringList cells = WordCells(line, separator, 1);
    return separator == ' ' || cells.size() == 1 ? PartsOf(TextOf(Content(line))) : cells;
}

Heading FindHeading(const Table& table, const TableBlock& block) {
    Heading heading;
    heading.titles.resize(table.Columns());
    const std::vector<Table::Line> lines = table.Texts(block.headerLine, block.headerEnd - 1);
    const TitleLines found = FindTitleLines(table, block, lines);
    if (found.titles == kNone) {
        return heading;
    }
    const HeaderLine unitLine(table, block, found.units == kNone ? std::string() : lines[found.units].text);
    const HeaderLine titleLine(table, block, lines[found.titles].text);
    heading.titleCells = titleLine.Size();
    for (std::size_t i = 0; i < heading.titles.size(); ++i) {
        heading.titles[i] = ReadTitle(titleLine.At(i));
        if (heading.titles[i].unit.isEmpty()) {
            const QString unit = unitLine.At(i);
            const QString known = UnitOfCell(unit);
            heading.titles[i].unit = known.isEmpty() && Read(unit).kind == CellKind::Word ? unit : known;
        }
    }
    heading.lineWithoutKey = titleLine.FirstIsTitle() ? lines[found.titles].number : 0;
    return heading;
}

}  // namespace recording

#include "recording/Recording.h"

#include <QBuffer>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>

#include "recording/Addressed.h"
#include "recording/Columns.h"
#include "recording/Guess.h"
#include "recording/Instants.h"
#include "recording/Keys.h"
#include "recording/Mixture.h"
#include "recording/Text.h"

namespace recording {

// Builds a recording from a table.
class Assembly {
  public:
    explicit Assembly(std::unique_ptr<Table> table) { recording_.table_ = std::move(table); }

    Outcome Build(const Guess& guess, const Choice& choice, const Progress& progress) {
        Table& table = *recording_.table_;
        const std::vector<Table::Line> texts =
            table.Texts(0, table.Stretches().empty() ? 0 : table.Stretches()[0].firstLine);
        const bool isAddressed =
            !texts.empty() && table.Stretches()[0].rows == 1 && IsAddressedTitle(texts[0].text, guess.form.separator);
        if (isAddressed) {
            recording_.addressed = ReadAddressed(table, &recording_.addressedFault);
        }
        BlockSearch search = FindBlocks(table, choice.byNumber);
        QString fault = FaultOfText(guess, choice, search);
        if (fault.isEmpty()) {
            fault = ReadBlocks(search, guess, choice, progress);
        }
        if (isCancelled_) {
            return {};
        }
        if (!fault.isEmpty() && !isAddressed) {
            return {.recording = std::nullopt, .fault = fault};
        }
        return {.recording = std::move(recording_), .fault = {}};
    }

  private:
    QString FaultOfText(const Guess& guess, const Choice& choice, const BlockSearch& search) const {
        const Table& table = *recording_.table_;
        if (table.LinesWithCells() == 0) {
            return QStringLiteral("The file is empty. Save the recording again, as CSV.");
        }
        if (table.FirstLineWithValue() == 0) {
            return FaultWithoutNumbers(choice);
        }
        if (guess.commasAreBoth) {
            return QStringLiteral(
                "Commas separate the cells and seem to be decimal marks as well. Save the recording "
                "with semicolons or tabs between the cells, or with decimal points.");
        }
        if (!guess.unclear.empty()) {
            const bool isComma = guess.unclear.find(',') != std::string::npos;
            return QStringLiteral(
                       "The %1 in \"%2\" may be a decimal mark, or separate thousands. Choose the decimal mark.")
                .arg(isComma ? QStringLiteral("comma") : QStringLiteral("point"),
                     QString::fromStdString(guess.unclear));
        }
        if (search.blocks.empty() && search.keyLine != 0) {
            return QStringLiteral(
                       "Numbers stand only behind words, as in a header, from line %1 on. Choose the columns "
                       "by their numbers if they are samples.")
                .arg(search.keyLine);
        }
        if (search.blocks.empty()) {
            return QStringLiteral(
                       "Nowhere do numbers stand in two rows below each other; line %1 has the first one. Save "
                       "the recording with one row for each sample.")
                .arg(table.FirstLineWithValue());
        }
        if (QString fault = FaultOfHexadecimals(); !fault.isEmpty()) {
            return fault;
        }
        return choice.byNumber ? QString() : FaultOfSideBySide(search);
    }

    // In a list of hexadecimal numbers those without a letter look like a recording.
    QString FaultOfHexadecimals() const {
        static const QRegularExpression number(QStringLiteral("^(?=.*[A-Fa-f])[0-9A-Fa-f]{2,8}$"));
        constexpr std::size_t kOneOf = 4;  // lines with a cell
        std::size_t count = 0;
        Table::Line first;
        for (const Table::Line& line : recording_.table_->Texts(1, static_cast<std::size_t>(-1))) {
            if (QString::fromStdString(line.text).trimmed().contains(number)) {
                first = count++ == 0 ? line : first;
            }
        }
        return kOneOf * count < recording_.table_->LinesWithCells()
                   ? QString()
                   : QStringLiteral(
                         "Line %1 is \"%2\", as in a list of hexadecimal numbers, which are not read. "
                         "Save the recording with decimal numbers.")
                         .arg(first.number)
                         .arg(QString::fromStdString(first.text).trimmed());
    }

    // The samples of a recording may stand in one line, the times in another.
    static QString FaultOfSideBySide(const BlockSearch& search) {
        constexpr std::size_t kManyColumns = 20;
        constexpr std::size_t kPerRow = 10;
        const TableBlock& block = *std::ranges::max_element(search.blocks, {}, &TableBlock::rows);
        if (block.columns.size() < kManyColumns || block.columns.size() < kPerRow * block.rows) {
            return {};
        }
        return QStringLiteral(
                   "Line %1 has %2 numbers side by side, and there are %3 such rows. Save the recording with "
                   "one row for each sample, or choose the columns by their numbers.")
            .arg(block.firstLine)
            .arg(block.columns.size())
            .arg(block.rows);
    }

    QString FaultWithoutNumbers(const Choice& choice) const {
        const Table::Line& line = recording_.table_->FirstDigits();
        if (line.number == 0) {
            return QStringLiteral("The file holds no numbers. Save the samples as CSV.");
        }
        const bool isChosen = choice.separator || choice.decimalMark;
        const QString what = !isChosen ? QStringLiteral("No cell of the file is a number")
                                       : QStringLiteral("With the chosen %1 no cell is a number")
                                             .arg(!choice.decimalMark ? QStringLiteral("separator")
                                                  : !choice.separator ? QStringLiteral("decimal mark")
                                                                      : QStringLiteral("separator and decimal mark"));
        const QString remedy = !isChosen
                                   ? QStringLiteral("Save it with tabs, semicolons or commas between plain numbers.")
                               : choice.separator && choice.decimalMark ? QStringLiteral("Choose others.")
                                                                        : QStringLiteral("Choose another one.");
        constexpr qsizetype kShown = 40;
        return QStringLiteral("%1; line %2 is \"%3\". %4")
            .arg(what)
            .arg(line.number)
            .arg(QString::fromStdString(line.text).left(kShown), remedy);
    }

    QString ReadBlocks(BlockSearch& search, const Guess& guess, const Choice& choice, const Progress& progress) {
        Table& table = *recording_.table_;
        Heading heading;
        Facts facts;
        for (TableBlock& block : search.blocks) {
            isCancelled_ = progress && !progress(1.0);
            if (isCancelled_) {
                return {};
            }
            Heading own = FindHeading(table, block);
            if (QString fault = FaultOfCommas(table, block, own, guess); !fault.isEmpty()) {
                return fault;
            }
            ResolveStamps(table, &block);
            heading = own.titleCells > 0 || heading.titles.empty() ? std::move(own) : heading;
            if (QString fault = FaultOfMixture(table, block, heading); !fault.isEmpty() && !choice.byNumber) {
                return fault;
            }
            Facts found = FindFacts(table, block, heading);
            found.TakeFrom(facts);
            facts = std::move(found);
            std::ranges::move(ReadColumns(table, block, heading, facts), std::back_inserter(recording_.blocks));
        }
        recording_.linesLeftOut = table.LinesWithCells();
        for (const Block& block : recording_.blocks) {
            recording_.linesLeftOut -= block.rows;
        }
        const auto longest = std::ranges::max_element(recording_.blocks, {}, &Block::rows);
        recording_.longest = static_cast<std::size_t>(longest - recording_.blocks.begin());
        for (std::size_t i = 0; i < recording_.blocks.size(); ++i) {
            for (Column& column : recording_.blocks[i].columns) {
                column.block = i;
            }
        }
        return {};
    }

    // Whole numbers between commas that nobody calls separators: more of them than titles, or two without any.
    QString FaultOfCommas(const Table& table, const TableBlock& block, const Heading& heading,
                          const Guess& guess) const {
        const bool isFirst = recording_.blocks.empty();  // above the others may stand remarks
        const std::size_t titles = heading.titleCells > 0 || !isFirst ? heading.titleCells : WordsAbove(table, block);
        const bool hasMarks = std::ranges::any_of(block.columns, [&](const BlockColumn& column) {
            return table.HasMarks(column.column, block.firstLine, block.lastLine);
        });
        if (!guess.commaByGuess || hasMarks) {
            return {};
        }
        const QString remedy = QStringLiteral(
            "Save the recording with semicolons between the cells or with decimal points, or choose the separator, "
            "the decimal mark or the columns.");
        if (titles > 0 && titles < block.columns.back().column + 1) {
            return QStringLiteral(
                       "Line %1 has more cells than titles stand above it, so that its commas may be "
                       "decimal marks. %2")
                .arg(block.firstLine)
                .arg(remedy);
        }
        if (titles == 0 && isFirst && guess.commaMayBeDecimal && !ShowsTwoColumns(table, block)) {
            return QStringLiteral("The commas from line %1 on may be decimal marks, or separate two columns. %2")
                .arg(block.firstLine)
                .arg(remedy);
        }
        return {};
    }

    // Two columns of whole numbers: the first one counts, or the header has commas between its cells.
    static bool ShowsTwoColumns(const Table& table, const TableBlock& block) {
        constexpr std::size_t kFewestSteps = 3;
        const std::vector<Table::Line> lines = table.Texts(block.headerLine, block.headerEnd - 1);
        const bool hasCells = std::ranges::any_of(lines, [](const Table::Line& line) {
            return line.text.find(", ") == std::string::npos && SplitCells(line.text, ',').size() > 1;
        });
        if (hasCells || block.columns.size() != 2) {
            return true;
        }
        const auto valuesOf = [&table](const BlockColumn& column) {
            return std::span(table.Values(column.column)).subspan(column.firstValue, column.values);
        };
        const std::span<const double> first = valuesOf(block.columns[0]);
        const std::span<const double> second = valuesOf(block.columns[1]);
        const auto counts = [](std::span<const double> values) {
            const auto isOther = [step = values[1] - values[0]](double a, double b) { return b - a != step; };
            return values[1] > values[0] && std::ranges::adjacent_find(values, isOther) == values.end();
        };
        return first.size() > kFewestSteps && (counts(first) || counts(first.subspan(1))) &&
               std::ranges::min(second) < std::ranges::max(second);
    }

    // 1 if the line above the block is one text that may be a title, and no key with its value.
    static std::size_t WordsAbove(const Table& table, const TableBlock& block) {
        const std::vector<Table::Line> lines = table.Texts(block.headerLine, block.headerEnd - 1);
        const bool isTitle = !lines.empty() && SplitCells(lines.back().text, ',').size() == 1 &&
                             !SplitPair(QString::fromStdString(lines.back().text));
        return isTitle ? 1 : 0;
    }

    Recording recording_;
    bool isCancelled_ = false;
};

namespace {

QString FaultOfSource(const LineSource& source, const QIODevice& device) {
    if (source.ReadFailed()) {
        return QStringLiteral("Reading the file failed: %1. Copy it to another place and try again.")
            .arg(device.errorString());
    }
    return source.IsBinary() ? QStringLiteral(
                                   "The file holds zero bytes, so it is no plain text. Save the recording as "
                                   "CSV, in UTF-8 or in UTF-16 with a byte order mark.")
                             : QString();
}

Guess GuessFormOf(QIODevice& device, const Choice& choice) {
    const std::vector<std::string> lines = SampleLines(device);
    const bool isOurs = !choice.separator && !choice.decimalMark && !lines.empty() && IsAddressedTitle(lines[0], ',');
    return isOurs ? Guess{.form = {.separator = ','}} : GuessForm(lines, choice);
}

Outcome ReadText(QIODevice& device, const Choice& choice, const Progress& progress) {
    constexpr std::size_t kLinesBetweenReports = 4096;
    const Guess guess = GuessFormOf(device, choice);
    const auto size = static_cast<double>(std::max<qint64>(device.size(), 1));
    auto table = std::make_unique<Table>(guess.form);
    LineSource source(device);
    for (std::string_view line; source.Next(&line);) {
        const double part = static_cast<double>(source.BytesDone()) / size;
        if (progress && source.Number() % kLinesBetweenReports == 0 && !progress(part)) {
            return {};
        }
        table->Take(line, source.Number(), part);
    }
    if (const QString fault = FaultOfSource(source, device); !fault.isEmpty()) {
        return {.recording = std::nullopt, .fault = fault};
    }
    return Assembly(std::move(table)).Build(guess, choice, progress);
}

}  // namespace

Recording::Recording() = default;
Recording::~Recording() = default;
Recording::Recording(Recording&& other) noexcept = default;
Recording& Recording::operator=(Recording&& other) noexcept = default;

QString NameOfColumn(std::size_t number, const QString& name) {
    const QString column = QStringLiteral("column %1").arg(number);
    return name.isEmpty() ? column : QString(column + u" \"" + name + u'"');
}

QString Column::Title() const {
    const QString title = name.isEmpty() ? NameOfColumn(number, {}) : name;
    return unit.isEmpty() || unit == name ? title : QString(title + u" (" + unit + u')');
}

std::vector<const Column*> Block::Channels() const {
    std::vector<const Column*> channels;
    for (const Column& column : columns) {
        if (column.role == Role::Channel) {
            channels.push_back(&column);
        }
    }
    return channels;
}

Outcome Read(QIODevice& device, const Choice& choice, const Progress& progress) {
    if (!device.isSequential()) {
        return ReadText(device, choice, progress);
    }
    QByteArray text = device.readAll();  // a pipe cannot be read twice
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    return ReadText(buffer, choice, progress);
}

}  // namespace recording

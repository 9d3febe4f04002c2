#include "simulator/TraceCommandLine.h"

#include <QFile>

#include "simulator/CsvTrace.h"
#include "simulator/OptionTable.h"
#include "simulator/TraceShapes.h"

namespace sim {
namespace {

using std::string_view;

constexpr std::array<string_view, 2> kDefaultShapes{"sine", "burst"};

bool SetShape(std::optional<std::string>& shape, string_view name) {
    shape = name;
    return TraceShape(name).has_value();
}

bool SetColumns(std::vector<int>& columns, string_view text) {
    constexpr long kLastColumn = 9999;
    const std::size_t comma = text.find(',');
    columns.assign(comma == string_view::npos ? 1 : 2, 0);
    return SetNumber(columns.front(), text.substr(0, comma), kLastColumn) && columns.front() > 0 &&
           (comma == string_view::npos ||
            (SetNumber(columns.back(), text.substr(comma + 1), kLastColumn) && columns.back() > 0));
}

bool AddStep(std::set<std::string>& steps, string_view step) {
    steps.emplace(step);
    return step == "initiate" || step == "execute" || step == "request";
}

using Program = TraceProgramOptions;
using Text = string_view;
constexpr auto kOptions = std::to_array<Option<Program>>({
    {"--csv", "FILE", "serve two columns of a recording in place of the shapes",
     [](Program& p, Text t) { return !(p.csvPath = t).empty(); }},
    {"--columns", "A,B", "the columns of channel A and B, from 1; one alone serves both",
     [](Program& p, Text t) { return SetColumns(p.columns, t); }},
    {"--shape-a", "NAME", "the trace of channel A", [](Program& p, Text t) { return SetShape(p.shapes[0], t); }},
    {"--shape-b", "NAME", "the trace of channel B", [](Program& p, Text t) { return SetShape(p.shapes[1], t); }},
    {"--name", "NAME", "another name or path for the local socket qd204e",
     [](Program& p, Text t) { return !(p.source.socket = t).empty(); }},
    {"--silent-on", "STEP", "do not answer initiate, execute or request; may be given several times",
     [](Program& p, Text t) { return AddStep(p.source.faults.silentOn, t); }},
    {"--hang-up-on", "STEP", "cut the connection there",
     [](Program& p, Text t) { return AddStep(p.source.faults.hangUpOn, t); }},
    {"--nonsense-on", "STEP", "answer with a line that is no answer",
     [](Program& p, Text t) { return AddStep(p.source.faults.nonsenseOn, t); }},
    {"--delay", "MS", "wait before each answer",
     [](Program& p, Text t) { return SetMilliseconds(p.source.faults.delay, t); }},
    {"--byte-delay", "MS", "wait before each byte of an answer",
     [](Program& p, Text t) { return SetMilliseconds(p.source.faults.byteDelay, t); }},
    {"--short", "N", "reply with N numbers only",
     [](Program& p, Text t) { return SetCount(p.source.faults.shortReply, t); }},
    {"--empty", "", "reply without a number", [](Program& p, Text) { return p.source.faults.emptyReply = true; }},
    {"--no-number", "", "put a word in place of a number into the middle of each reply",
     [](Program& p, Text) { return p.source.faults.noNumber = true; }},
    {"--beyond-16-bits", "", "put 40000 into the middle of each reply",
     [](Program& p, Text) { return p.source.faults.beyond16Bits = true; }},
    {"--endless", "", "reply with megabytes of digits",
     [](Program& p, Text) { return p.source.faults.endlessReply = true; }},
    {"--help", "", "print this text", [](Program& p, Text) { return p.help = true; }},
});

bool LoadCsv(TraceProgramOptions* options, std::array<std::string, 2>* origins, std::string* error) {
    QFile file(QString::fromStdString(options->csvPath));
    if (!file.open(QIODevice::ReadOnly)) {
        *error = options->csvPath + ": " + file.errorString().toStdString();
        return false;
    }
    const QByteArray text = file.readAll();
    std::array<CsvColumn, 2> columns;
    if (!ReadCsv({text.constData(), static_cast<std::size_t>(text.size())}, options->columns, &columns, error)) {
        *error = options->csvPath + ": " + *error;
        return false;
    }
    for (std::size_t channel = 0; channel < columns.size(); ++channel) {
        CsvColumn& column = columns[channel];
        (*origins)[channel] = options->csvPath + ", column " + std::to_string(column.number) + ", " +
                              std::to_string(column.values.size()) + " numbers in lines " +
                              std::to_string(column.firstLine) + " to " + std::to_string(column.lastLine);
        Trace& trace = options->source.channels[channel];
        trace = MakeTrace(std::move(column.values));
        (*origins)[channel] += trace == Trace{} ? ", without amplitude" : "";
    }
    return true;
}

}  // namespace

bool ParseTraceCommandLine(const std::vector<std::string>& arguments, TraceProgramOptions* options,
                           std::string* error) {
    if (!ParseOptions(kOptions, arguments, options, error)) {
        return false;
    }
    const bool hasShape = options->shapes[0] || options->shapes[1];
    if (!options->csvPath.empty() && hasShape) {
        *error = "--csv takes the place of --shape-a and --shape-b";
        return false;
    }
    if (options->csvPath.empty() && !options->columns.empty()) {
        *error = "--columns needs --csv";
        return false;
    }
    return true;
}

bool LoadChannels(TraceProgramOptions* options, std::array<std::string, 2>* origins, std::string* error) {
    if (!options->csvPath.empty()) {
        return LoadCsv(options, origins, error);
    }
    for (std::size_t channel = 0; channel < kDefaultShapes.size(); ++channel) {
        (*origins)[channel] = options->shapes[channel].value_or(std::string(kDefaultShapes[channel]));
        options->source.channels[channel] = TraceShape((*origins)[channel]).value_or(Trace{});
    }
    return true;
}

std::string TraceHelpText() {
    return "Usage: qd204-sim [OPTION]...\n"
           "Serves the traces of two channels as QD204 does, until it is ended.\n\n" +
           OptionLines(kOptions) + "\nShapes: " + TraceShapeNames() +
           ".\n"
           "In a CSV file cells are parted by tab, semicolon or comma. Numbers have a decimal point, or a comma where\n"
           "commas do not part cells. A header and closing remarks are skipped. Without --columns the first two\n"
           "columns that are numbers throughout are served, without a leading index or time, which only rise. Both\n"
           "channels end where the shorter one does. A gap is refused. Any number of samples is brought\n"
           "to 2048, and their lowest and highest to 0 and 255.\n";
}

}  // namespace sim

#include "simulator/TraceCommandLine.h"

#include <QFile>

#include "simulator/CsvTrace.h"
#include "simulator/OptionKinds.h"
#include "simulator/TraceShapes.h"

namespace sim {
namespace {

constexpr std::array<const char*, 2> kDefaultShapes{"sine", "burst"};

void AddRecording(CLI::App& app, TraceProgramOptions& options) {
    CLI::Option* const csv =
        AddText(app, "--csv", options.csvPath, "serve two columns of a recording in place of the shapes");
    csv->check(kNotEmpty)->type_name("FILE");
    app.add_option("--columns", options.columns, "the columns of channel A and B, from 1; one alone serves both")
        ->delimiter(',')
        ->expected(1, 2)
        ->multi_option_policy(CLI::MultiOptionPolicy::Throw)
        ->check(CLI::Range(1, 9999))
        ->needs(csv)
        ->type_name("A,B");
    const CLI::Validator isShape([](std::string& name) { return TraceShape(name) ? "" : "no shape " + name; }, "");
    for (const auto& [name, shape, channel] :
         {std::tuple("--shape-a", &options.shapes[0], "A"), std::tuple("--shape-b", &options.shapes[1], "B")}) {
        app.add_option(name, *shape, std::string("the trace of channel ") + channel)
            ->check(isShape)
            ->excludes(csv)
            ->type_name("NAME");
    }
}

void AddFaults(CLI::App& app, TraceFaults& faults) {
    const CLI::IsMember isStep({"initiate", "execute", "request"});
    AddRepeatable(app, "--silent-on", faults.silentOn,
                  "do not answer initiate, execute or request; may be given several times")
        ->check(isStep)
        ->type_name("STEP");
    AddRepeatable(app, "--hang-up-on", faults.hangUpOn, "cut the connection there")->check(isStep)->type_name("STEP");
    AddRepeatable(app, "--nonsense-on", faults.nonsenseOn, "answer with a line that is no answer")
        ->check(isStep)
        ->type_name("STEP");
    AddMilliseconds(app, "--delay", faults.delay, "wait before each answer");
    AddMilliseconds(app, "--byte-delay", faults.byteDelay, "wait before each byte of an answer");
    AddCount(app, "--short", faults.shortReply, "reply with N numbers only");
    AddSwitch(app, "--empty", faults.emptyReply, "reply without a number");
    AddSwitch(app, "--no-number", faults.noNumber, "put a word in place of a number into the middle of each reply");
    AddSwitch(app, "--beyond-16-bits", faults.beyond16Bits, "put 40000 into the middle of each reply");
    AddSwitch(app, "--endless", faults.endlessReply, "reply with megabytes of digits");
}

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

void AddOptions(CLI::App& app, TraceProgramOptions& options) {
    SetUp(app);
    app.description("Serves the traces of two channels as QD204 does, until it is ended.");
    AddRecording(app, options);
    AddText(app, "--name", options.source.socket, "another name or path for the local socket qd204e")
        ->check(kNotEmpty)
        ->type_name("NAME");
    AddFaults(app, options.source.faults);
    app.footer(
        "Shapes: " + TraceShapeNames() +
        ".\n"
        "In a CSV file cells are separated by tab, semicolon or comma. Numbers have a decimal point, or a comma\n"
        "where commas do not separate cells. A header and closing remarks are skipped. Without --columns the first\n"
        "two columns that are numbers throughout are served, without a leading index or time, which only rise.\n"
        "Both channels end where the shorter one does. A gap is refused. Any number of samples is brought\n"
        "to 2048, and their lowest and highest to 0 and 255.");
}

bool LoadChannels(TraceProgramOptions* options, std::array<std::string, 2>* origins, std::string* error) {
    if (!options->csvPath.empty()) {
        return LoadCsv(options, origins, error);
    }
    for (std::size_t channel = 0; channel < kDefaultShapes.size(); ++channel) {
        (*origins)[channel] = options->shapes[channel].value_or(kDefaultShapes[channel]);
        options->source.channels[channel] = TraceShape((*origins)[channel]).value_or(Trace{});
    }
    return true;
}

}  // namespace sim

#include "ctl/CommandLine.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <map>

#include "ctl/Commands.h"
#include "ctl/Values.h"
#include "link/Connection.h"

namespace {

using Texts = std::vector<std::string>;

QString ToQt(const std::string& text) { return QString::fromStdString(text); }

QStringList ToQt(const Texts& texts) {
    QStringList list;
    for (const std::string& text : texts) {
        list += ToQt(text);
    }
    return list;
}

// Where the parts of a command line end up; one of it lives as long as its parser.
struct Parts {
    Command command;
    Texts words;
    std::string file;
    std::string size = "4k";
    std::string scale = "full";
    WaveRequest wave;
    std::string formula, recording, channel;
    bool json = false;
    bool clamp = false;
    bool memories = false;

    const MemorySize& Size() const { return size == "4k" ? kMemory4k : kMemory16k; }
};

// Adds commands to a parser; a parse leaves the chosen one in the parts.
class CommandAdder {
  public:
    CommandAdder(CLI::App& app, Parts& parts) : app_(app), parts_(parts) {}

    void AddAll(bool forBatch) {
        AddInstrument();
        AddSettings();
        AddShortForms();
        AddFiles();
        AddMemory();
        AddWave();
        if (!forBatch) {
            CLI::App* const batch =
                Add("batch", "run one command in each line of FILE, \"-\" for the standard input, over one connection",
                    [](Session& s, const Parts& p) { return RunBatch(s, ToQt(p.file)); });
            batch->add_option("FILE", parts_.file)->required();
        }
    }

  private:
    using Run = int (*)(Session& session, const Parts& parts);

    CLI::App* Add(CLI::App& to, const char* name, const std::string& about, Run run) {
        CLI::App* const sub = to.add_subcommand(name, about);
        sub->fallthrough();
        sub->callback(
            [&chosen = parts_, run] { chosen.command = [run, parts = chosen](Session& s) { return run(s, parts); }; });
        return sub;
    }
    CLI::App* Add(const char* name, const std::string& about, Run run) { return Add(app_, name, about, run); }

    void AddJson(CLI::App* sub) { sub->add_flag("--json", parts_.json, "print one line of JSON"); }
    void AddClamp(CLI::App* sub) {
        sub->add_flag("--clamp", parts_.clamp, "hold what can't be set as it is, as the panel does, and say so");
    }
    void AddWords(CLI::App* sub, const char* name, int least, int most) {
        sub->add_option(name, parts_.words)
            ->expected(least, most)
            ->required(least > 0)
            ->multi_option_policy(CLI::MultiOptionPolicy::Throw);
    }
    void AddFile(CLI::App* sub) { sub->add_option("FILE", parts_.file)->required(); }

    void AddInstrument() {
        AddJson(Add("ports", "list the serial devices, what is behind each, and what is wrong with it",
                    [](Session& s, const Parts& p) { return ListPorts(s, p.json); }));
        AddJson(Add("id", "print model, version and rate of the instrument",
                    [](Session& s, const Parts& p) { return Identify(s, p.json); }));
        Add("clock", "set time and date of the instrument to those of the PC",
            [](Session& s, const Parts&) { return SetClock(s); });
        Add("fields", "list what can be set", [](Session& s, const Parts&) { return ListFields(s); });
    }

    void AddSettings() {
        CLI::App* const get = Add("get", "print what the instrument reports, all of it or these fields",
                                  [](Session& s, const Parts& p) { return Get(s, ToQt(p.words), p.json); });
        AddWords(get, "FIELD", 0, CLI::detail::expected_max_vector_size);
        AddJson(get);
        CLI::App* const set = Add("set", "set fields, and read all of them back",
                                  [](Session& s, const Parts& p) { return Set(s, ToQt(p.words), p.clamp); });
        AddWords(set, "ASSIGNMENT", 1, CLI::detail::expected_max_vector_size);
        AddClamp(set);
        CLI::App* const output = Add("output", "switch the output at once: on or off",
                                     [](Session& s, const Parts& p) { return SwitchOutput(s, p.file == "on"); });
        output->add_option("STATE", parts_.file)->required()->check(CLI::IsMember({"on", "off"}));
    }

    // Commands that stand for assignments: each value goes to the field at its place.
    static int SetInOrder(Session& session, const Parts& parts, const char* head, const QStringList& fields) {
        QStringList assignments{QString::fromLatin1(head) + ToQt(parts.file)};
        const QStringList values = ToQt(parts.words);
        for (qsizetype i = 0; i < values.size(); ++i) {
            assignments += QString(fields.at(i) + u'=' + values.at(i));
        }
        return Set(session, assignments, parts.clamp);
    }

    void AddShortForm(const char* name, const char* about, const char* choice, std::vector<std::string> choices,
                      std::initializer_list<const char*> values, Run run) {
        CLI::App* const sub = Add(name, about, run);
        if (!choices.empty()) {
            sub->add_option(choice, parts_.file)->required()->check(CLI::IsMember(std::move(choices)));
        }
        for (const char* const value : values) {
            sub->add_option_function<std::string>(
                value, [&words = parts_.words](const std::string& text) { words.push_back(text); });
        }
        AddClamp(sub);
    }

    void AddShortForms() {
        AddShortForm("sweep", "sweep from a start to a stop in a time: lin 1kHz 50kHz 2s, or off", "SWEEP",
                     {"lin", "log", "off"}, {"START", "STOP", "TIME"}, [](Session& s, const Parts& p) {
                         return SetInOrder(s, p, "sweep=",
                                           {QStringLiteral("sweep-start"), QStringLiteral("sweep-stop"),
                                            QStringLiteral("sweep-time")});
                     });
        AddShortForm("am", "modulate the amplitude: internal 50%, or external 50%", "SOURCE", {"internal", "external"},
                     {"DEPTH"}, [](Session& s, const Parts& p) {
                         return SetInOrder(s, p, "modulation=am-", {QStringLiteral("am-depth")});
                     });
        AddShortForm(
            "fsk", "key the frequency: 1kHz 1.1kHz", "", {}, {"CARRIER", "HOP"}, [](Session& s, const Parts& p) {
                return SetInOrder(s, p, "modulation=fsk", {QStringLiteral("fsk-carrier"), QStringLiteral("fsk-hop")});
            });
        AddShortForm("psk", "key the phase: 90 180", "", {}, {"PHASE0", "PHASE1"}, [](Session& s, const Parts& p) {
            return SetInOrder(s, p, "modulation=psk", {QStringLiteral("psk-phase0"), QStringLiteral("psk-phase1")});
        });
        AddShortForm("modulation", "switch the modulation off", "STATE", {"off"}, {},
                     [](Session& s, const Parts& p) { return SetInOrder(s, p, "modulation=", {}); });
    }

    void AddFiles() {
        CLI::App* const load =
            Add("load", "set the instrument to a setting file of the panel",
                [](Session& s, const Parts& p) { return LoadSettings(s, ToQt(p.file), p.memories, p.clamp); });
        CLI::App* const save =
            Add("save", "save what the instrument reports as a setting file",
                [](Session& s, const Parts& p) { return SaveSettings(s, ToQt(p.file), p.memories); });
        for (CLI::App* const sub : {load, save}) {
            AddFile(sub);
            sub->add_flag("--memories", parts_.memories, "both arbitrary memories too");
        }
        AddClamp(load);
    }

    void AddMemory() {
        CLI::App* const memory = app_.add_subcommand("memory", "move an arbitrary memory");
        memory->require_subcommand(1);
        memory->fallthrough();
        const std::tuple<const char*, const char*, Run> ways[]{
            {"send", "send a memory of FILE, a setting file or a table",
             [](Session& s, const Parts& p) { return MoveMemory(s, Transfer::Send, p.Size(), ToQt(p.file)); }},
            {"read", "read a memory into FILE, which ends in .set or .csv",
             [](Session& s, const Parts& p) { return MoveMemory(s, Transfer::Read, p.Size(), ToQt(p.file)); }},
            {"compare", "compare a memory with FILE; status 3 if they differ",
             [](Session& s, const Parts& p) { return MoveMemory(s, Transfer::Compare, p.Size(), ToQt(p.file)); }}};
        for (const auto& [name, about, run] : ways) {
            CLI::App* const sub = Add(*memory, name, about, run);
            sub->add_option("SIZE", parts_.size)->required()->check(CLI::IsMember({"4k", "16k"}));
            AddFile(sub);
        }
    }

    void AddWave() {
        CLI::App* const wave =
            Add("wave", "make a memory by a formula or of a recording", [](Session& s, const Parts& p) {
                static const std::map<std::string, RecordedScale> scales{
                    {"full", RecordedScale::FullRange}, {"trace", RecordedScale::Trace}, {"zero", RecordedScale::Zero}};
                WaveRequest request = p.wave;
                request.formula = ToQt(p.formula);
                request.recording = ToQt(p.recording);
                request.channel = ToQt(p.channel);
                request.size = &p.Size();
                request.scale = scales.at(p.scale);
                request.out = ToQt(p.file);
                return MakeWaveFile(s, request);
            });
        CLI::Option_group* const source = wave->add_option_group("source");
        CLI::Option* const formula =
            source->add_option("--formula", parts_.formula, "with x from 0 to 1, as in the editor");
        CLI::Option* const recording =
            source->add_option("--recording", parts_.recording, "a file of an oscilloscope or a logger");
        source->require_option(1);
        wave->add_option("--channel", parts_.channel, "of the recording: a title or the number of its column")
            ->needs(recording);
        wave->add_option("--scale", parts_.scale, "of the recording: full, trace, or zero, where 0 stays 0")
            ->needs(recording)
            ->check(CLI::IsMember({"full", "trace", "zero"}));
        wave->add_flag("--full-range", parts_.wave.fullRange, "fit the formula into the full range")->needs(formula);
        wave->add_option("--size", parts_.size, "of the memory: 4k or 16k")->check(CLI::IsMember({"4k", "16k"}));
        wave->add_option("-o,--out", parts_.file, "the file, which ends in .set or .csv")->required();
    }

    CLI::App& app_;
    Parts& parts_;
};

QString FaultOf(const CLI::App& app, const CLI::ParseError& outcome) {
    const std::vector<std::string> others = app.get_subcommands().empty() ? app.remaining() : Texts();
    return others.empty() ? ToQt(outcome.what()).simplified()
                          : QStringLiteral("there is no %1 \"%2\"")
                                .arg(others.front().starts_with('-') ? u"option" : u"command", ToQt(others.front()));
}

struct ProgramParts {
    std::string port, from;
    std::string timeout = "3s";
};

// Not by the parser, which reads a number as the user's country writes it.
std::optional<int> MillisecondsOf(const std::string& text) {
    QString fault;
    const auto value = ReadValue(ToQt(text), Quantity::Time, fault);
    const bool fits = value && value->number >= 0.01 && value->number <= 3600.0;
    return fits ? std::optional(static_cast<int>(std::lround(value->number * 1000.0))) : std::nullopt;
}

void AddOptions(CLI::App& app, Options& options, ProgramParts& parts) {
    // An unset variable of a script must not mean another instrument, or other settings.
    const auto named = [](const std::string& text) { return text.empty() ? "an empty name" : std::string(); };
    app.add_option("--port", parts.port, "a serial device, or Com1 to Com4 as the panel means them")
        ->check(named)
        ->type_name("PORT");
    app.add_option("--rate", options.rate, "the rate to begin with, in baud")
        ->check(CLI::IsMember(std::vector<int>(std::begin(kBaudRates), std::end(kBaudRates))))
        ->type_name("BAUD");
    app.add_option("--timeout", parts.timeout, "how long to wait for each character of an answer, in seconds")
        ->check([](const std::string& text) {
            return MillisecondsOf(text) ? std::string() : text + " is no time from 10ms to 3600s";
        })
        ->type_name("SECONDS");
    app.add_flag("--log", options.log, "print what goes over the line to the standard error, with the time in seconds");
    app.add_flag("--quiet", options.quiet, "print errors only: no remarks, no progress");
    CLI::Option* const dry =
        app.add_flag("--dry-run", options.dryRun, "open no port, write no file, print the lines that would be sent");
    app.add_option("--from", parts.from, "the setting file that a dry run starts from")
        ->needs(dry)
        ->check(named)
        ->type_name("FILE");
}

}  // namespace

Request ReadCommandLine(int argc, const char* const* argv) {
    CLI::App app(
        "Sets, reads and fills a KL5276 from a shell.\n"
        "Exit status: 0 done, 1 the instrument or the link failed, 2 wrong usage or value,\n"
        "3 compared and different, 130 stopped.",
        "kl5276ctl");
    Request request;
    ProgramParts program;
    Parts parts;
    app.set_help_flag("--help", "print this text");
    app.option_defaults()->take_last();
    AddOptions(app, request.options, program);
    CommandAdder(app, parts).AddAll(false);
    app.require_subcommand(1);
    try {
        app.parse(argc, argv);
        request.command = parts.command;
    } catch (const CLI::ParseError& outcome) {
        if (outcome.get_exit_code() == 0) {
            app.exit(outcome);
        } else {
            Console().Error(FaultOf(app, outcome) + u"; \"kl5276ctl --help\" tells more");
            request.status = kBadUsage;
        }
    }
    request.options.port = ToQt(program.port);
    request.options.from = ToQt(program.from);
    request.options.timeoutMs = MillisecondsOf(program.timeout).value_or(request.options.timeoutMs);
    return request;
}

Command ReadBatchCommand(const QStringList& words, QString& fault) {
    CLI::App app;
    Parts parts;
    app.set_help_flag();
    app.option_defaults()->take_last();
    CommandAdder(app, parts).AddAll(true);
    app.require_subcommand(1);
    Texts arguments;
    for (const QString& word : words) {
        arguments.insert(arguments.begin(), word.toStdString());  // the parser takes them from the back
    }
    try {
        app.parse(arguments);
        return parts.command;
    } catch (const CLI::ParseError& outcome) {
        fault = FaultOf(app, outcome);
        return {};
    }
}

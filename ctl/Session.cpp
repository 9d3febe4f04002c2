#include "ctl/Session.h"

#include <QFile>
#include <QRegularExpression>

#include "ctl/Values.h"
#include "ctl/WatchedPort.h"
#include "link/TransferTexts.h"
#include "platform/ComPorts.h"
#include "platform/ProgramFolder.h"
#include "platform/Shell.h"

namespace {

// 1 to 4 for "Com2" or "2"; 0 for a device.
qint16 PortNumber(const QString& port) {
    static const QRegularExpression form(QStringLiteral("^(?:com)?([1-4])$"),
                                         QRegularExpression::CaseInsensitiveOption);
    return form.match(port).captured(1).toShort();
}

QString Printable(const QString& line) {
    QString text;
    for (const QChar c : line) {
        text += c.isPrint() ? QString(c) : QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
    }
    return text;
}

}  // namespace

QString PanelFolder() { return ProgramFolder(); }

// The texts of the link's boxes are kept for Failure. A transfer shows its progress.
class Session::Front : public SilentFront {
  public:
    explicit Front(Session& session) : session_(session) {}

    void MessageBox(const QString& text, const QString&) override { session_.fault_ = text.simplified(); }
    void ShowTransfer(const QString&, int) override { transfers_ = true; }
    void HideTransfer() override {
        transfers_ = false;
        session_.console.Progress({});
    }

    bool Transfers() const { return transfers_; }
    // A few times a second, also while the line only drains.
    void Refresh() {
        constexpr qint64 kLookMs = 200;
        if (transfers_ && (!look_.isValid() || look_.elapsed() >= kLookMs)) {
            look_.start();
            session_.console.Progress(ProgressText(session_.link().memory.Progress()));
        }
    }

  private:
    Session& session_;
    bool transfers_ = false;
    QElapsedTimer look_;
};

// The program's clock, which looks for Ctrl+C in each of the waits that a command consists of. The wait for an answer
// only looks at the time.
class Session::Clock : public EventClock {
  public:
    explicit Clock(Session& session) : session_(session) {}

    qint64 NowMs() const override {
        session_.LookForStop();
        return EventClock::NowMs();
    }
    void WaitMs(qint32& ms) override {
        EventClock::WaitMs(ms);
        session_.front_->Refresh();
        session_.LookForStop();
    }

  private:
    Session& session_;
};

Session::Session(const Options& options) : options_(options) {
    elapsed_.start();
    console.quiet = options.quiet;
    program.numbers = PlainNumbers();
    program.link.ReplyTimeoutMs = options.timeoutMs;
    QFile preferences(PanelFolder() + QStringLiteral("/5276.def"));
    if (preferences.open(QIODevice::ReadOnly)) {
        DecodePreferences(preferences.read(kPreferencesSize), program.preferences);
    }
    program.preferences.ComBaudRate = options.rate > 0 ? options.rate : program.preferences.ComBaudRate;
    const qint16 number = PortNumber(options.port);
    program.preferences.ComPortNumber = number > 0 ? number : program.preferences.ComPortNumber;
    front_ = std::make_unique<Front>(*this);
    if (options.dryRun) {
        com_ = std::make_unique<DryPort>(program, [this](const QString& line) { console.Print(line); });
        clock_ = std::make_unique<StillClock>();
    } else {
        auto port = std::make_unique<WatchedPort>([this](int) { return Device(); });
        WatchPort(*port);
        com_ = std::move(port);
        clock_ = std::make_unique<Clock>(*this);
    }
    link_ = std::make_unique<Link>(program, *com_, *clock_, *front_, *front_);
}

// Also after a fault: whatever is still there gets its "RM0".
Session::~Session() {
    if (linked_ || program.link.LinkUp == 1) {
        link_->connection.DisconnectUnit();
    }
    link_->transport.AbandonPort();
}

void Session::WatchPort(WatchedPort& port) {
    port.whenLine = [this](bool isAnswer, const QString& line) {
        answered_ = answered_ || isAnswer;
        if (options_.log) {
            const double seconds = static_cast<double>(elapsed_.elapsed()) / 1000.0;
            console.Log(QStringLiteral("%1 %2 %3")
                            .arg(seconds, 8, 'f', 3)
                            .arg(QChar(isAnswer ? u'<' : u'>'))
                            .arg(Printable(line)));
        }
    };
    port.whenNoAnswer = [this](const QString& query) {
        wrongAnswer_ = wrongAnswer_.isEmpty() ? query : wrongAnswer_;
        link_->memory.Stop();
    };
}

bool Session::IsSound() const {
    return program.link.LinkUp == 1 && wrongAnswer_.isEmpty() && !LineLost() && !Stopped();
}

// Commands without an answer don't notice by themselves that an adapter is pulled.
bool Session::LineLost() const {
    com_->InBufferCount();
    return com_->LineLost();
}

bool Session::Stopped() const { return Interrupts() > 0; }

// The first one ends a transfer in order, what the port has taken goes out; the next one, or one without a transfer,
// ends at once, without the answer that is due.
void Session::LookForStop() {
    if (Interrupts() > interruptsSeen_) {
        const bool again = interruptsSeen_ > 0;
        interruptsSeen_ = Interrupts();
        if (again || (!link_->memory.Stop() && !front_->Transfers())) {
            link_->gate.Abandon();
            program.link.ReplyTimeoutMs = 0;
        }
    }
}

QString Session::Device() const {
    const bool isDevice = !options_.port.isEmpty() && PortNumber(options_.port) == 0;
    return isDevice ? options_.port : FindComPort(program.preferences.ComPortNumber, PanelFolder());
}

bool Session::Connect() {
    if (!operation_) {
        operation_.emplace(link_->gate.Join());
        link_->connection.ConnectUnit();
        // What has answered as a KL5276 is under remote control, also if it falls silent before all is known of it.
        linked_ = program.link.LinkUp == 1 || (answered_ && program.link.UnitFound == 1);
    }
    return IsSound();
}

bool Session::ReadAll() {
    const quint8 sweepBefore = program.panel.bmWobbel;
    link_->readBack.ReadAllFromUnit();
    link_->readBack.ReadLeftOut(sweepBefore);
    return IsSound();
}

bool Session::ReadBack() {
    link_->readBack.ReadAllFromUnit();
    return IsSound();
}

QString Session::FaultText() const {
    const QString device = Device();
    if (!wrongAnswer_.isEmpty()) {
        return QStringLiteral("the answer to \"%1\" has no usable value: check the cable and the rate, then try again")
            .arg(wrongAnswer_);
    }
    if (fault_.startsWith(u"Can not open")) {
        const QString trouble = device.isEmpty() ? QString() : TroubleWith(device);
        return device.isEmpty() ? QStringLiteral("there is no serial device: plug it in, or name one with --port")
               : trouble == u"in use"
                   ? QStringLiteral("%1 is in use: end the program that has it open, the panel perhaps").arg(device)
                   : QStringLiteral("%1 can't be opened: %2; \"kl5276ctl ports\" lists the devices")
                         .arg(device, trouble.isEmpty() ? QStringLiteral("it takes no such settings") : trouble);
    }
    if (fault_.startsWith(u"Unit not found")) {
        return QStringLiteral(
                   "something answers at %1, but no KL5276: check port, rate and line settings (8 data bits, 2 stop "
                   "bits)")
            .arg(device);
    }
    if (LineLost()) {
        return QStringLiteral("%1 has gone: plug the adapter in again").arg(device);
    }
    return QStringLiteral("nothing answers at %1: check cable, power, and the rate of the instrument (%2)")
        .arg(device, fault_);
}

int Session::Failure() {
    if (Stopped()) {
        console.Error(QStringLiteral("stopped"));
        return kStopped;
    }
    console.Error(FaultText());
    return kFailed;
}

#include <QFileInfo>

#include "ctl/Commands.h"
#include "ctl/MemoryFile.h"
#include "ctl/SettingSteps.h"
#include "link/TransferTexts.h"
#include "storage/SettingFile.h"

namespace {

// A transfer that did not come to its end.
int EndEarly(Session& session, const MemorySize& size, const TransferResult& result, const char* done) {
    if (!session.Stopped()) {
        return session.Failure();
    }
    session.console.Error(
        QStringLiteral("stopped: %1 of %2 %3").arg(result.points).arg(PointCount(size), QLatin1StringView(done)));
    return kStopped;
}

bool IsWhole(const Session& session, const TransferResult& result) {
    return result.end == TransferResult::End::Whole && session.IsSound();
}

// The user does not even wait for what the line has yet to carry. It is dropped, perhaps with the end of the transfer,
// which is then told once more.
void CutSending(Session& session) {
    session.link().transport.CutLine();
    session.program.link.CommandText = QStringLiteral("are");
    session.link().transport.SendCommand();
}

int Send(Session& session, const MemorySize& size) {
    const TransferResult result = session.link().memory.SendArb(size);
    const bool cut = result.end == TransferResult::End::Abandoned;
    if (cut) {
        CutSending(session);
    }
    return IsWhole(session, result) ? kDone : EndEarly(session, size, result, cut ? "sent at most" : "sent");
}

int Read(Session& session, const MemorySize& size) {
    const TransferResult result = session.link().memory.ReadArb(size);
    return IsWhole(session, result) ? kDone : EndEarly(session, size, result, "read");
}

int MoveBoth(Session& session, int (*move)(Session& session, const MemorySize& size)) {
    const int status = move(session, kMemory4k);
    return status == kDone ? move(session, kMemory16k) : status;
}

// The file has no sample for the last address, so the instrument's own stands there for the comparison.
void AskLast(Session& session, const MemorySize& size) {
    LinkState& link = session.program.link;
    link.CommandText = QStringLiteral("%1%2=?").arg(QLatin1StringView(size.pointCommand)).arg(size.LastAdr);
    session.link().transport.QueryUnit();
    if (session.IsSound()) {
        const QString value = link.ReplyText.sliced(link.ReplyText.indexOf(u'=') + 1);
        size.samples(session.program.memories).back() = static_cast<qint16>(NearestEven(ReadHeadNumber(value)));
    }
}

int Compare(Session& session, const MemorySize& size, bool hasLast) {
    if (!hasLast) {
        AskLast(session, size);
    }
    const TransferResult result = session.link().memory.CompareArb(size);
    if (!IsWhole(session, result)) {
        return EndEarly(session, size, result, "compared");
    }
    PrintResult(session, result.first ? DifferenceText(size, result) : QString(u"all " + PointCount(size) + u" agree"));
    return result.first ? kDifferent : kDone;
}

int FailToWrite(Session& session, const QString& fault) {
    session.console.Error(fault);
    return kFailed;
}

int ReadToFile(Session& session, const MemorySize& size, const QString& fileName) {
    QString fault;
    const bool isNewSettingFile = fileName.endsWith(u".set", Qt::CaseInsensitive) && !QFileInfo::exists(fileName);
    if (!CheckMemoryFile(fileName, fault)) {
        return Refuse(session, fault);
    }
    if (!CanWrite(fileName, fault)) {
        return FailToWrite(session, fault);
    }
    // A new setting file gets the settings of the instrument, to which the memory belongs.
    if (!session.Connect() || (isNewSettingFile && !session.ReadAll())) {
        return session.Failure();
    }
    const int status = Read(session, size);
    if (status != kDone || session.options().dryRun) {
        return status;
    }
    const bool written =
        WriteMemoryFile(fileName, size, session.program.memories, size.LastAdr + 1, session.program.panel, fault);
    return written ? kDone : FailToWrite(session, fault);
}

// What a file can tell by itself is told ahead of the link: no settings in it, or settings of another version.
bool CheckSettings(const QString& fileName, ArbMemories& memories, QString& fault) {
    constexpr double kUntouched = -1.0;
    PanelState panel;
    panel.mFreq = panel.mAmp = kUntouched;
    if (!QFileInfo::exists(fileName)) {
        fault = fileName + u": there is no such file";
        return false;
    }
    if (!ReadKept(fileName, panel, memories, fault)) {
        return false;
    }
    fault = fileName + u": its settings are of another version: save it anew with the panel";
    return panel.mFreq != kUntouched || panel.mAmp != kUntouched;
}

}  // namespace

int LoadSettings(Session& session, const QString& fileName, bool memories, bool clamp) {
    QString fault;
    ProgramState& program = session.program;
    program.memories = {};
    if (!CheckSettings(fileName, program.memories, fault)) {
        return Refuse(session, fault);
    }
    if (!session.Connect() || !session.ReadAll()) {
        return session.Failure();
    }
    PanelState loaded = program.panel;  // keeps the reference, which no file holds
    LoadSettingFile(fileName, loaded, program.memories);
    const Plan plan = PlanChange(loaded, {});
    const bool goesOut = memories && (clamp || plan.remarks.isEmpty());
    const int status = goesOut ? MoveBoth(session, Send) : static_cast<int>(kDone);
    return status == kDone ? SendPlan(session, plan, clamp) : status;
}

int SaveSettings(Session& session, const QString& fileName, bool memories) {
    QString fault;
    PanelState former;
    ArbMemories& samples = session.program.memories;
    samples = {};
    if (!ReadKept(fileName, former, samples, fault)) {
        return Refuse(session, fault);
    }
    if (!CanWrite(fileName, fault)) {
        return FailToWrite(session, fault);
    }
    if (!session.Connect() || !session.ReadAll()) {
        return session.Failure();
    }
    const int status = memories ? MoveBoth(session, Read) : static_cast<int>(kDone);
    if (status != kDone) {
        return status;
    }
    if (session.options().dryRun || SaveSettingFile(CreateSettingFile(fileName), session.program.panel, samples)) {
        return kDone;
    }
    return FailToWrite(session, fault);
}

int MoveMemory(Session& session, Transfer transfer, const MemorySize& size, const QString& fileName) {
    if (transfer == Transfer::Read) {
        return ReadToFile(session, size, fileName);
    }
    QString fault;
    bool hasLast = false;
    session.program.memories = {};
    if (!ReadMemoryFile(fileName, size, session.program.memories, hasLast, fault)) {
        return Refuse(session, fault);
    }
    if (!session.Connect()) {
        return session.Failure();
    }
    return transfer == Transfer::Send ? Send(session, size) : Compare(session, size, hasLast);
}

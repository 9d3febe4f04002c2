#include <QCoreApplication>

#include "ctl/CommandLine.h"
#include "ctl/Commands.h"
#include "platform/Shell.h"
#include "storage/SettingFile.h"

namespace {

int Run(const Request& request) {
    Session session(request.options);
    ProgramState& program = session.program;
    const QString& from = request.options.from;
    if (!from.isEmpty() && LoadSettingFile(from, program.panel, program.memories) != LoadOutcome::Loaded) {
        return Refuse(session, from + u": no setting file can be read there");
    }
    const int status = request.command(session);
    return status == kDone && session.console.ResultsLost() ? static_cast<int>(kFailed) : status;
}

// The standard error has this program's sentences only. Qt would tell there of a locale without UTF-8, in cron for
// example.
void KeepQtQuiet(QtMsgType type, const QMessageLogContext& /*place*/, const QString& text) {
    if (type == QtFatalMsg) {
        Console().Error(text);
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    qInstallMessageHandler(KeepQtQuiet);
    int qtArguments = 1;  // its own options stay those of the command line
    const QCoreApplication application(qtArguments, argv);
    KeepSystemTextsEnglish();  // behind Qt, which takes the user's; the program's sentences are English too
    QCoreApplication::setApplicationName(QStringLiteral("TRX5276"));  // as the panel, for the folder of its files
    const Request request = ReadCommandLine(argc, argv);
    if (!request.command) {
        return request.status;
    }
    CatchInterrupts();
    try {
        return Run(request);
    } catch (const std::exception& failure) {
        Console().Error(QString::fromLocal8Bit(failure.what()));
        return kFailed;
    }
}

#pragma once

#include <signal.h>

#include <QProcess>

#include "../whole/WholeBench.h"
#include "support/FileHands.h"

// The program kl5276ctl as a shell starts it, with a simulated instrument at its port.
class CtlBench : public WholeBench {
  public:
    struct Ended {
        int status = -1;
        QStringList out;
        QStringList err;
    };

    QString Path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }

    QString locale = QStringLiteral("de_DE.UTF-8");

    static QString Program() { return QCoreApplication::applicationDirPath() + QStringLiteral("/kl5276ctl"); }

    // Patient with a busy machine, unless the words have a time-out of their own.
    void Start(QProcess& process, const QString& words) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LC_ALL"), locale);  // the same in every country
        process.setProcessEnvironment(environment);
        const QString timeout = words.contains(u"--timeout") ? QString() : QStringLiteral("--timeout=60s ");
        process.start(Program(), QStringList{QStringLiteral("--port"), Path("com1")} +
                                     QProcess::splitCommand(QString(timeout + words)));
        EXPECT_TRUE(process.waitForStarted());
    }
    static Ended End(QProcess& process) {
        EXPECT_TRUE(process.state() == QProcess::NotRunning || process.waitForFinished(120'000));
        const auto lines = [](const QByteArray& text) {
            return QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts);
        };
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                lines(process.readAllStandardOutput()), lines(process.readAllStandardError())};
    }
    // The words go through a shell's hands: quotes hold them together.
    Ended Run(const QString& words, const char* input = "") {
        QProcess process;
        Start(process, words);
        process.write(input);
        process.closeWriteChannel();
        return End(process);
    }
    Ended Run(const char* words, const char* input = "") { return Run(QString::fromUtf8(words), input); }

    // What the instrument has got since the last look, without the queries. It may be a moment behind the program.
    static QStringList Sent(sim::SimulatedInstrument& instrument) {
        instrument.WaitForLine("RM0", std::chrono::seconds(5));
        QStringList lines = Lines(instrument);
        lines.removeIf([](const QString& line) { return line.endsWith(u'?'); });
        instrument.ClearLog();
        return lines;
    }

    void Write(const char* name, const QByteArray& text) const { WriteFile(Path(name), text); }
    // A table with a sample for each address of the 4K memory.
    void WriteTable(const char* name, int samples = 4096) {
        QByteArray text("address,value\n");
        for (int i = 0; i < samples; ++i) {
            text += QByteArray::number(i) + ',' + QByteArray::number(i % 4095 - 2047) + '\n';
        }
        Write(name, text);
    }
};

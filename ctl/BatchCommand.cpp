#include <cstdio>
#include <memory>

#include "ctl/BatchLine.h"
#include "ctl/CommandLine.h"
#include "ctl/Commands.h"

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const {
        if (file != stdin) {
            std::fclose(file);
        }
    }
};

// The next line without its end. Nothing at the end, or when Ctrl+C ends the wait for one.
std::optional<QString> NextLine(std::FILE* file) {
    QByteArray line;
    int c = std::getc(file);
    if (c == EOF) {
        return std::nullopt;
    }
    for (; c != EOF && c != '\n'; c = std::getc(file)) {
        line += static_cast<char>(c);
    }
    return QString::fromUtf8(line);
}

int RunLine(Session& session, const QString& line) {
    QString fault;
    const auto words = WordsOf(line, fault);
    if (words && words->isEmpty()) {
        return kDone;
    }
    const Command command = words ? ReadBatchCommand(*words, fault) : Command();
    return command ? command(session) : Refuse(session, fault);
}

}  // namespace

int RunBatch(Session& session, const QString& fileName) {
    const std::unique_ptr<std::FILE, CloseFile> file(fileName == u"-" ? stdin
                                                                      : std::fopen(fileName.toUtf8().constData(), "r"));
    if (!file) {
        return Refuse(session, fileName + u": this file can't be read");
    }
    int number = 0;
    while (const auto line = NextLine(file.get())) {
        session.console.place = QStringLiteral("line %1: ").arg(++number);
        if (const int status = session.Stopped() ? session.Failure() : RunLine(session, *line); status != kDone) {
            return status;
        }
        if (session.console.ResultsLost()) {
            return kFailed;
        }
    }
    if (session.Stopped()) {
        return session.Failure();
    }
    return std::ferror(file.get()) == 0 ? kDone : Refuse(session, fileName + u": this file can't be read");
}

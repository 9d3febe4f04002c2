#include "ctl/Console.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "platform/Shell.h"

namespace {

bool Write(const QString& text, std::FILE* file) {
    return std::fputs(text.toUtf8().constData(), file) >= 0 && std::fflush(file) == 0;
}

}  // namespace

void Console::Print(const QString& line) {
    if (resultsLost_ || Write(line + u'\n', stdout)) {
        return;
    }
    resultsLost_ = true;
    const bool readerLeft = errno == EPIPE;  // it has seen enough, as "head" has
    if (!readerLeft) {
        Error(QStringLiteral("the results can't be written: ") +
              QString::fromStdString(std::generic_category().message(errno)));
    }
}

void Console::Error(const QString& sentence) { Tell(u"kl5276ctl: " + place + sentence); }

void Console::Note(const QString& sentence) {
    if (!quiet) {
        Error(sentence);
    }
}

void Console::Log(const QString& line) { Tell(line); }

void Console::Tell(const QString& line) {
    Progress({});
    Write(line + u'\n', stderr);
}

void Console::Progress(const QString& text) {
    if (quiet || !StandardErrorIsTerminal() || (text.isEmpty() && !progressShown_)) {
        return;
    }
    constexpr char16_t kOverTheLine[] = u"\r\033[K";
    Write(QString::fromUtf16(kOverTheLine) + text, stderr);
    progressShown_ = !text.isEmpty();
}

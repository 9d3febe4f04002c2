#include "ctl/Console.h"

#include <cstdio>

#include "platform/Shell.h"

namespace {

void Write(const QString& text, std::FILE* file) {
    std::fputs(text.toUtf8().constData(), file);
    std::fflush(file);
}

}  // namespace

void Console::Print(const QString& line) { Write(line + u'\n', stdout); }

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

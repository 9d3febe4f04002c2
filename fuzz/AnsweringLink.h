#pragma once

#include "Fuzz.h"
#include "link/Link.h"
#include "link/SilentFront.h"
#include "stand_ins/FakeDesktop.h"
#include "stand_ins/ScriptedLine.h"

// Notes the end of a transfer.
struct NotingFront : SilentFront {
    bool hidden = false;

    void HideTransfer() override { hidden = true; }
};

// A link whose far end answers each query with the next line of a text, and falls silent behind the last. Time passes
// on a clock of its own.
struct AnsweringLink {
    explicit AnsweringLink(const QByteArray& text) : text_(text) {
        line.reply = [this](const QString& query, const QString&) { return Answer(query); };
        link.connection.OpenComPort();
    }

    ProgramState program;
    ScriptedClock clock;
    ScriptedLine line{clock};
    FakeDesktop desktop;
    NotingFront front;
    Link link{program, line, clock, desktop, front};

    // The answers that are whole lines, without their CR, in order.
    struct Exchange {
        QString query;
        QString answer;
    };
    QList<Exchange> exchanges;
    int queries = 0;

    // The only fault there can be: a line without an end.
    void RequireOneFaultAtMost() const {
        Require(desktop.boxes.size() == (queries > exchanges.size() ? 1 : 0), "a fault gives one message");
        Require(program.link.LinkUp == (desktop.boxes.isEmpty() ? 1 : 0), "a fault takes the link down, only a fault");
    }

  private:
    static constexpr qsizetype kLongestLine = 1024;

    QByteArray Answer(const QString& query) {
        ++queries;
        const qsizetype cr = text_.indexOf('\r', at_);
        const QByteArray answer = text_.sliced(at_, (cr < 0 ? text_.size() : cr + 1) - at_);
        at_ += answer.size();
        if (cr >= 0 && answer.size() - 1 <= kLongestLine) {
            exchanges += {query, QString::fromLatin1(answer.chopped(1))};
        }
        return answer;
    }

    QByteArray text_;
    qsizetype at_ = 0;
};

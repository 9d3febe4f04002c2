#pragma once

#include <QStringList>

#include "platform/DdeLink.h"

// The other end of a conversation, which answers at once and remembers what it was asked.
class FakeDde : public DdeLink {
  public:
    QStringList steps;  // each step with what it was given
    QString reply;      // to LinkRequest
    QString failing;    // the first step that begins so fails, and those behind it

    void SetLinkTopic(const QString& topic) override { steps += u"topic " + topic; }
    void SetLinkItem(const QString& item) override { steps += u"item " + item; }
    void SetLinkTimeout(int tenths) override { steps += u"timeout " + QString::number(tenths); }
    bool SetLinkMode(int mode) override { return Step(u"mode " + QString::number(mode)); }
    bool LinkExecute(const QString& command) override { return Step(u"execute " + command); }
    bool LinkRequest() override { return Step(QStringLiteral("request")); }
    QString Text() const override { return reply; }

  private:
    bool Step(const QString& step) {
        steps += step;
        return failing.isEmpty() || !step.startsWith(failing);
    }
};

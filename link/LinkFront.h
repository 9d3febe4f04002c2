#pragma once

#include <QString>

// The parts of the window that the link changes by itself.
class LinkFront {
  public:
    virtual ~LinkFront() = default;

    // The check box cRM, "Remote On".
    virtual void CheckRemote(bool checked) = 0;
    // The caption of Main.
    virtual void ShowCaption(const QString& caption) = 0;

    // The progress bar from 0 to `last`, and a text on the hint line, both painted at once.
    virtual void ShowTransfer(const QString& text, int last) = 0;
    virtual void ShowProgress(int value) = 0;
    virtual void HideTransfer() = 0;

    // While a memory goes out, or the line is still busy at the end of the link: keys and clicks do nothing but beep,
    // so that nobody changes what is on its way. Closing, Escape and boxes still act.
    virtual void HoldInput(bool hold) = 0;
};

// The captions of Main without and with a link.
inline constexpr char16_t kProgramCaption[] = u"KL5276 - V1.02";
inline QString OfflineCaption() { return QString::fromUtf16(kProgramCaption) + u"       Offline"; }
inline QString LinkedCaption(const QString& UnitVersion) {
    return QString::fromUtf16(kProgramCaption) + u"       Unit:" + UnitVersion;
}

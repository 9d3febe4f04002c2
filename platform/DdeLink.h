#pragma once

#include <QString>

// The client end of a conversation with another program on this computer. An interface, so that tests script the other
// end. The steps block, each no longer than LinkTimeout; a step that gives false has ended the conversation.
class DdeLink {
  public:
    virtual ~DdeLink() = default;

    // "qd204e|dde": the other program's name and the topic. Takes effect when the conversation is opened.
    virtual void SetLinkTopic(const QString& topic) = 0;
    // The item that LinkRequest fetches.
    virtual void SetLinkItem(const QString& item) = 0;
    // The longest time that one step may take, in tenths of a second; 300 at first.
    virtual void SetLinkTimeout(int tenths) = 0;

    // 2 opens a manual conversation; false, at once, if the other program does not run. 0 closes it, which can't fail.
    virtual bool SetLinkMode(int mode) = 0;
    // Has the other program carry out a command.
    virtual bool LinkExecute(const QString& command) = 0;
    // Fetches the item into Text.
    virtual bool LinkRequest() = 0;

    // What the last successful LinkRequest fetched.
    virtual QString Text() const = 0;
};

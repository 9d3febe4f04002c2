#pragma once

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <memory>
#include <optional>

#include "platform/DdeLink.h"

// DdeLink over a local socket that bears the other program's name. Messages and answers are lines of text: "initiate
// NAME|TOPIC", "execute COMMAND" and "request ITEM" are answered by "ok", the last one with the item behind it;
// "terminate" is not answered. No events are served while a step waits. The other program must run as the same user.
class SocketDdeLink : public DdeLink {
  public:
    // `folder`: where the sockets lie; by default the user's runtime folder, and the folder in which this system keeps
    // local sockets, in this order.
    explicit SocketDdeLink(QString folder = {}) : folder_(std::move(folder)) {}
    ~SocketDdeLink() override { Close(); }
    Q_DISABLE_COPY_MOVE(SocketDdeLink)

    void SetLinkTopic(const QString& topic) override { topic_ = topic; }
    void SetLinkItem(const QString& item) override { item_ = item; }
    void SetLinkTimeout(int tenths) override { timeoutTenths_ = tenths; }
    bool SetLinkMode(int mode) override;
    bool LinkExecute(const QString& command) override;
    bool LinkRequest() override;
    QString Text() const override { return text_; }

  private:
    QDeadlineTimer StepEnd() const;
    QStringList Places() const;
    bool Connect(const QString& place, const QDeadlineTimer& end);
    bool Open();
    void Close();
    std::optional<QString> Ask(const QString& message, const QDeadlineTimer& end);
    QByteArray AnswerLine(const QDeadlineTimer& end);

    const QString folder_;
    std::unique_ptr<QLocalSocket> socket_;  // none without a conversation
    QString topic_;
    QString item_;
    int timeoutTenths_ = 300;
    QString text_ = QStringLiteral("dde!ziel");
};

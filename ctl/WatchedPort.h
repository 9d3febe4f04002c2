#pragma once

#include "platform/SerialControl.h"

// A port of this system that shows what goes over it, and looks at every answer: the link itself takes the number 0 for
// an answer that holds none.
class WatchedPort : public SerialControl {
  public:
    using SerialControl::SerialControl;

    // A line was sent, or an answer came, without its CR.
    std::function<void(bool isAnswer, const QString& line)> whenLine;
    // An answer came without a value that its query could mean.
    std::function<void(const QString& query)> whenNoAnswer;

    void Output(char character) override;
    QByteArray Input() override;

  private:
    QString line_;    // that is being sent
    QString query_;   // the last line that was sent
    QString answer_;  // that is being read
};

// Whether the link can take from this answer what the query asks for.
bool IsAnswer(const QString& query, const QString& answer);

#pragma once

#include <QThread>
#include <QTimer>
#include <memory>

#include "recording/Recording.h"

// Reads recordings in a thread of its own, so that the window stays alive and can be closed. The signals come in the
// thread of the window.
class RecordingReader : public QObject {
    Q_OBJECT

  public:
    explicit RecordingReader(QObject* parent);
    ~RecordingReader() override;

    // Begins to read a file. What was being read is given up without a signal.
    void Read(const QString& fileName, const recording::Choice& choice);
    bool IsReading() const { return job_ != nullptr; }
    // Of the last reading that was done.
    const recording::Outcome& Outcome() const { return outcome_; }

  Q_SIGNALS:
    // Over and over, from half a second on.
    void Advanced(int percent);
    void Done();

  private:
    struct Job;
    void GiveUp();
    void Finish(const std::shared_ptr<Job>& job);

    std::shared_ptr<Job> job_;  // shared with the thread
    std::unique_ptr<QThread> thread_;
    QTimer timer_;
    recording::Outcome outcome_;
};

#pragma once

#include <QString>

// The exit statuses, the same for every command.
enum Status : int {
    kDone = 0,
    kFailed = 1,     // the instrument, the link, or the writing of a file
    kBadUsage = 2,   // a command, a value or a file that can't be taken; nothing was set
    kDifferent = 3,  // compared, and different
    kStopped = 130,  // by Ctrl+C
};

// What a command prints: results on the standard output, and nothing else there; one line for each error, and what is
// worth knowing, on the standard error.
class Console {
  public:
    Console() = default;

    bool quiet = false;  // errors alone
    QString place;       // ahead of each sentence: "line 3: "

    // A line of results. The first one that can't be written is an error, and the ones behind it are dropped.
    void Print(const QString& line);
    bool ResultsLost() const { return resultsLost_; }
    // A sentence that says what went wrong and what to do.
    void Error(const QString& sentence);
    void Note(const QString& sentence);
    // A line of the traffic.
    void Log(const QString& line);
    // Takes the place of the last progress, on a terminal alone. An empty text takes it away.
    void Progress(const QString& text);

  private:
    void Tell(const QString& line);

    bool progressShown_ = false;
    bool resultsLost_ = false;
};

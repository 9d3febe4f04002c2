#pragma once

#include <QJsonDocument>
#include <QStringList>

#include "core/EditorState.h"
#include "ctl/Session.h"

// The commands, one function for each. Each returns the status to end with, after a sentence for each error.

int ListPorts(Session& session, bool json);
int Identify(Session& session, bool json);
int SetClock(Session& session);

// All fields if none is named.
int Get(Session& session, const QStringList& fields, bool json);
// "form=square". With `clamp`, a value that the panel would not take as it is gets held as the panel does.
int Set(Session& session, const QStringList& assignments, bool clamp);
int SwitchOutput(Session& session, bool on);
// What can be set, for people, manuals and the completion of a shell.
int ListFields(Session& session);

// `memories`: both of them too.
int LoadSettings(Session& session, const QString& fileName, bool memories, bool clamp);
int SaveSettings(Session& session, const QString& fileName, bool memories);

enum class Transfer { Send, Read, Compare };
int MoveMemory(Session& session, Transfer transfer, const MemorySize& size, const QString& fileName);

struct WaveRequest {
    QString formula;    // this one, or a recording
    QString recording;  // a file
    QString channel;    // of the recording: a number or a title; empty for the only one
    const MemorySize* size = &kMemory4k;
    RecordedScale scale = RecordedScale::FullRange;  // of a recording
    bool fullRange = false;                          // of a formula
    QString out;                                     // .set or .csv
};
int MakeWaveFile(Session& session, const WaveRequest& request);

// One command in each line of a file, "-" for the standard input. Ends at the first one that fails.
int RunBatch(Session& session, const QString& fileName);

// What the commands share.

// Prints a line of results. A dry run has none.
inline void PrintResult(Session& session, const QString& line) {
    if (!session.options().dryRun) {
        session.console.Print(line);
    }
}

// One line.
inline void PrintJson(Session& session, const QJsonDocument& json) {
    PrintResult(session, QString::fromUtf8(json.toJson(QJsonDocument::Compact)));
}

inline int Refuse(Session& session, const QString& sentence) {
    session.console.Error(sentence);
    return kBadUsage;
}

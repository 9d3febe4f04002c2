#pragma once

#include <QString>
#include <QtGlobal>
#include <optional>

#include "storage/RecordStore.h"

// Which file a name leads to, whatever it is called. A file that was replaced under its name is another one.
struct FileIdentity {
    quint64 device = 0;
    quint64 file = 0;

    bool operator==(const FileIdentity&) const = default;
};

// None if the name leads to no file.
std::optional<FileIdentity> IdentityOf(const QString& fileName);

// By what a later look at a database file tells that nobody has changed it meanwhile.
struct FileStamp {
    FileIdentity identity;
    quint32 changes = 0;  // the engine's change counter

    bool operator==(const FileStamp&) const = default;
};

// Of the open store; its own changes count from their commit on.
FileStamp StampOf(const QString& fileName, const RecordStore& store);

#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

// Gives the name of the file that it writes. Folders on the way are made.
inline QString WriteFile(const QString& name, const QByteArray& bytes) {
    QFile file(name);
    EXPECT_TRUE(QFileInfo(name).dir().mkpath(QStringLiteral(".")) && file.open(QIODevice::WriteOnly) &&
                file.write(bytes) == bytes.size());
    return name;
}

inline QByteArray Content(const QString& name) {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

#pragma once

#include <gtest/gtest.h>

#include <QStringList>

// Texts of Qt print as texts where an assertion fails.
inline void PrintTo(QStringView text, std::ostream* to) { *to << '"' << text.toLocal8Bit().toStdString() << '"'; }
inline void PrintTo(const QString& text, std::ostream* to) { PrintTo(QStringView(text), to); }
inline void PrintTo(QLatin1StringView text, std::ostream* to) { PrintTo(QString(text), to); }
inline void PrintTo(const QStringList& texts, std::ostream* to) { PrintTo(texts.join(u" | "), to); }
inline std::ostream& operator<<(std::ostream& to, const QString& text) { return to << text.toStdString(); }

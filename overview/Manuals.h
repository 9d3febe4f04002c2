#pragma once

#include <QString>
#include <QStringList>

#include "platform/Desktop.h"

inline constexpr char kManualGerman[] = "kl5276_d.pdf";
inline constexpr char kManualEnglish[] = "kl5276_e.pdf";

// Hands the manual in the first of the folders that holds it to the system's viewer. A missing manual is silent.
void OpenManual(Desktop& desktop, const QStringList& folders, const QString& fileName);

// Where the manual is, or where it belongs if it is missing.
QString ManualToolTip(const QStringList& folders, const QString& fileName);

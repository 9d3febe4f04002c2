#include "panel/PreferencesFile.h"

#include <QFile>

namespace {
QString PreferencesPath(const QString& folder) { return folder + QStringLiteral("/5276.def"); }
}  // namespace

void LoadPreferences(const QString& folder, Preferences& preferences, Desktop& desktop) {
    QFile file(PreferencesPath(folder));
    const bool opened = file.open(QIODevice::ReadWrite);
    const QByteArray record = opened ? file.read(kPreferencesSize) : QByteArray();
    file.close();
    if (!DecodePreferences(record, preferences)) {
        desktop.Information(QStringLiteral("Generate new default settings"), QStringLiteral("Load default settings"));
    }
}

void SavePreferences(const QString& folder, const Preferences& preferences, Desktop& desktop) {
    QFile file(PreferencesPath(folder));
    const QByteArray record = EncodePreferences(preferences);
    const bool written = file.open(QIODevice::ReadWrite) && file.write(record) == record.size() && file.flush();
    if (!written) {
        desktop.MessageBox(QStringLiteral("Data Error: Save settings"), QStringLiteral("Save Settings"));
    }
}

#include <QFile>
#include <QTemporaryDir>
#include <array>

#include "Fuzz.h"
#include "panel/PreferencesFile.h"
#include "stand_ins/FakeDesktop.h"

namespace {

constexpr std::array<qsizetype, 11> kFieldEnds{9, 11, 13, 15, 17, 21, 23, 25, 27, 29, 31};

// The defaults, with the fields that the record holds whole.
QByteArray Expected(const QByteArray& record) {
    QByteArray expected = EncodePreferences({});
    if (record.startsWith(kPreferencesMark)) {
        for (const qsizetype end : kFieldEnds) {
            if (end <= record.size()) {
                expected.replace(0, end, record.first(end));
            }
        }
    }
    return expected;
}

QByteArray ContentOf(QFile& file) {
    Require(file.open(QIODevice::ReadOnly), "the file is there");
    QByteArray content = file.readAll();
    file.close();
    return content;
}

void RequireFile(const QByteArray& record, bool whole) {
    static const QTemporaryDir kFolder;
    QFile file(kFolder.filePath(QStringLiteral("5276.def")));
    Require(file.open(QIODevice::WriteOnly) && file.write(record) == record.size(), "a folder to write to");
    file.close();
    FakeDesktop desktop;
    Preferences loaded;
    LoadPreferences(kFolder.path(), loaded, desktop);
    Require(EncodePreferences(loaded) == Expected(record), "the file reads as the record does");
    Require(desktop.boxes.size() == (whole ? 0 : 1), "one message unless all of it was read");
    Require(ContentOf(file) == record, "reading changes no file");

    desktop.boxes.clear();
    SavePreferences(kFolder.path(), loaded, desktop);
    Require(ContentOf(file) == Expected(record) + record.mid(kPreferencesSize), "saving writes the record, no more");
    Preferences again;
    LoadPreferences(kFolder.path(), again, desktop);
    Require(EncodePreferences(again) == Expected(record) && desktop.boxes.isEmpty(), "what was saved comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const QByteArray record = BytesOf(data, size);
    Preferences read;
    const bool whole = record.startsWith(kPreferencesMark) && record.size() >= kPreferencesSize;
    Require(DecodePreferences(record, read) == whole, "it tells whether all was read");
    Require(EncodePreferences(read) == Expected(record), "whole fields are in force, the others keep their values");
    RequireFile(record, whole);
    return 0;
}

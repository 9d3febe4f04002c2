#pragma once

#include <QByteArray>
#include <QtGlobal>

// Window places and the port, kept between runs in the file 5276.def. Positions and sizes are in twips (1/1440 inch);
// a window state is 0 normal, 1 minimised, 2 maximised.
struct Preferences {
    qint16 MainWindowState = 0;
    qint16 MainLeft = 900;
    qint16 MainTop = 600;
    qint16 ComPortNumber = 2;    // 1 to 4
    qint32 ComBaudRate = 19200;  // baud
    qint16 EditorWindowState = 0;
    qint16 EditorLeft = 105;
    qint16 EditorTop = 0;
    qint16 EditorWidth = 8000;
    qint16 EditorHeight = 6000;
};

inline constexpr char kPreferencesMark[] = "5276def02";
inline constexpr qsizetype kPreferencesSize = 31;  // bytes: mark and ten little-endian numbers, no gaps

// The whole record, mark first.
QByteArray EncodePreferences(const Preferences& preferences);

// Reads a record into the fields, as far as it goes; the fields behind its end keep their values. True if all ten were
// read; a record without the mark is of another version and changes nothing.
bool DecodePreferences(const QByteArray& record, Preferences& preferences);

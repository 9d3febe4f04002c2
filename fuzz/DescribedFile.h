#pragma once

#include <QByteArray>
#include <QTemporaryDir>

// A database file of any content, as a text describes it. Every text describes one:
//
//   table NAME COLUMN...     a column is NAME or NAME:TYPE; "keyed" at the end makes the first one the table's key
//   view NAME TABLE          all of that table
//   CELL...                  a row of the last table; a short row is filled up with NULL, a long one is cut
//   rise N, copies N         the last row N times more; with rise, each time a whole number in front is one higher
//   SQLite...                a text that begins so is the file itself, byte for byte
//
// A cell is a whole number, a number, "-" for NULL, xABCD for bytes, or else a text, also behind a "'".
class DescribedFile {
  public:
    explicit DescribedFile(const char* name) : name_(folder_.filePath(QString::fromLatin1(name))) {}

    void Make(const QByteArray& text);
    const QString& Name() const { return name_; }
    // The bytes are those of the text: what the file holds is unknown.
    bool IsRaw() const { return raw_; }

    // Requires that the file is what Make has left, and alone in its folder.
    void RequireUntouched() const;

  private:
    QByteArray Content() const;

    QTemporaryDir folder_;
    QString name_;
    QByteArray content_;
    bool raw_ = false;
};

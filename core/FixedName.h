#pragma once

#include <QString>

// A file name as the program keeps it: a text of 200 characters, filled with blanks on the right. A longer name is cut.
class FixedName {
  public:
    static constexpr qsizetype kLength = 200;

    FixedName() = default;
    explicit FixedName(const QString& name) { Set(name); }

    void Set(const QString& name) { text_ = name.leftJustified(kLength, u' ', true); }
    const QString& Text() const { return text_; }
    // Without the blanks at its end; empty if nothing was chosen yet.
    QString Name() const {
        qsizetype length = text_.size();
        while (length > 0 && text_[length - 1] == u' ') {
            --length;
        }
        return text_.first(length);
    }

  private:
    QString text_ = QString(kLength, u' ');
};

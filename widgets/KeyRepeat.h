#pragma once

#include <QKeyEvent>

// Tells a repeat of a held key from a press. Some window systems, when they are busy, pass a repeat on as a release and
// a press of the same moment, without the mark of a repeat.
class KeyRepeat {
  public:
    void NoteRelease(const QKeyEvent& release) {
        key_ = release.key();
        releasedMs_ = release.timestamp();
    }
    bool Is(const QKeyEvent& press) const {
        return press.isAutoRepeat() ||
               (press.key() == key_ && press.timestamp() != 0 && press.timestamp() == releasedMs_);
    }

  private:
    int key_ = 0;
    quint64 releasedMs_ = 0;  // by the clock of the window system; 0: not known
};

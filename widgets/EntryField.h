#pragma once

#include <QLineEdit>
#include <functional>

// An entry field: filters each typed or pasted character, and commits on Enter and on every loss of the focus, changed
// or not, except when merely the whole window is deactivated. What it shows is selected as a whole when it takes the
// focus, after Enter and when it is shown anew: what is typed next takes its place.
class EntryField : public QLineEdit {
    Q_OBJECT

  public:
    // Gives the character to take in place of the typed one, or a null character to drop it.
    using Filter = std::function<QChar(QChar)>;

    EntryField(const QString& name, Filter filter, QWidget* parent = nullptr);

    // Reads, limits and stores what the field holds.
    void SetCommit(std::function<void()> commit) { commit_ = std::move(commit); }
    // Where the focus goes after an Enter; by default it stays.
    void SetNext(QWidget* next) { next_ = next; }
    // While it says false, a loss of the focus commits nothing: the text lags the state it is to show.
    void SetCommitGuard(std::function<bool()> mayCommit) { mayCommit_ = std::move(mayCommit); }

    void Commit();

    // Wide enough for this text, whatever the font.
    void SetRoomFor(const QString& text) { longest_ = text; }
    const QString& RoomFor() const { return longest_; }
    QSize minimumSizeHint() const override;

    // In place of the base class's: all of the text is selected where the field has the focus.
    void setText(const QString& text);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    QString Filtered(const QString& text) const;
    void Paste(bool selection);

    Filter filter_;
    std::function<void()> commit_;
    std::function<bool()> mayCommit_;
    QWidget* next_ = nullptr;
    QString longest_;
    bool shownAnew_ = false;  // while the field had no focus
    bool clickedIn_ = false;  // the press that gave the focus has not ended yet
};

// Gives a control the focus; a control that is disabled or out of sight does not take it, in silence.
void TakeFocus(QWidget* control);

// The entry field that has the focus commits, as it would on losing it. For commands that take no focus of their own.
void CommitFocusedField(const QWidget* window);

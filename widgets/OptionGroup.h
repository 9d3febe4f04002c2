#pragma once

#include <QBoxLayout>
#include <QButtonGroup>
#include <QRadioButton>
#include <functional>

// A group of options of which one is selected. A user's click always runs the group's click routine, also on the
// option already selected; a selection from code runs it only if the selection changes, at once and nested. The Tab key
// stops at the selected option alone; the arrow keys walk the group.
class OptionGroup : public QObject {
    Q_OBJECT

  public:
    // Options get the object names name_first, name_(first+1), ... and the captions in order.
    OptionGroup(const QString& name, const QStringList& captions, QWidget* parent, int first = 0);

    // The routine of the group, given the option's index.
    void SetClick(std::function<void(int)> click) { click_ = std::move(click); }
    // Asked before a user's click counts. If it refuses, the selection goes back to what it was.
    void SetUserGuard(std::function<bool()> guard) { guard_ = std::move(guard); }

    // The selected index, or -1 with none.
    int Selected() const { return selected_; }
    // Selects from code; -1 or an index that the group lacks takes the selection away.
    void Select(int index);
    // Shows a selection that is in force already: the same without the click routine.
    void Show(int index);

    QRadioButton* Option(int index) const;
    QList<QAbstractButton*> Options() const { return buttons_.buttons(); }

    // Puts the options one after the other into a row or a column, with what room is left behind them.
    void AddTo(QBoxLayout* line) const;

    // While it takes no focus, not even a click moves the focus to an option.
    void SetTakesFocus(bool takes);

    // "name: caption" for each option, so that a screen reader distinguishes groups with equal captions.
    void SetAccessibleName(const QString& name);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void UserClick(int index);
    void Run(int index);
    bool Refused() const { return guard_ && !guard_(); }
    void Walk(QAbstractButton* from, int step);
    void Mark(int index);
    void FixTabStops();

    QButtonGroup buttons_;
    int selected_ = -1;
    bool takesFocus_ = true;
    std::function<void(int)> click_;
    std::function<bool()> guard_;
};

#include "platform/OptionGroup.h"

OptionGroup::OptionGroup(const QString& name, const QStringList& captions, QWidget* parent, int first)
    : QObject(parent) {
    setObjectName(name);
    for (qsizetype i = 0; i < captions.size(); ++i) {
        const int index = first + static_cast<int>(i);
        auto* const option = new QRadioButton(captions.at(i), parent);
        option->setObjectName(QStringLiteral("%1_%2").arg(name).arg(index));
        buttons_.addButton(option, index);
    }
    connect(&buttons_, &QButtonGroup::idClicked, this, &OptionGroup::UserClick);
    FixTabStops();
}

QRadioButton* OptionGroup::Option(int index) const { return qobject_cast<QRadioButton*>(buttons_.button(index)); }

void OptionGroup::SetAccessibleName(const QString& name) {
    const auto options = buttons_.buttons();
    for (QAbstractButton* const option : options) {
        option->setAccessibleName(name + QStringLiteral(": ") + option->text());
    }
}

void OptionGroup::Select(int index) {
    const int target = buttons_.button(index) != nullptr ? index : -1;
    if (target == selected_) {
        return;
    }
    Show(target);
    selected_ = target;
    if (target >= 0 && click_) {
        click_(target);
    }
}

void OptionGroup::UserClick(int index) {
    if (guard_ && !guard_()) {
        Show(selected_);
        return;
    }
    selected_ = index;
    FixTabStops();
    if (click_) {
        click_(index);
    }
}

void OptionGroup::SetTakesFocus(bool takes) {
    takesFocus_ = takes;
    FixTabStops();
}

void OptionGroup::FixTabStops() {
    const QAbstractButton* const checked = buttons_.checkedButton();
    const auto options = buttons_.buttons();
    for (QAbstractButton* const option : options) {
        const bool tabStop = option == (checked != nullptr ? checked : options.constFirst());
        option->setFocusPolicy(!takesFocus_ ? Qt::NoFocus : tabStop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

void OptionGroup::Show(int index) {
    if (QAbstractButton* const option = buttons_.button(index)) {
        option->setChecked(true);
    } else if (QAbstractButton* const checked = buttons_.checkedButton()) {
        buttons_.setExclusive(false);
        checked->setChecked(false);
        buttons_.setExclusive(true);
    }
    FixTabStops();
}

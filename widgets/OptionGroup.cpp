#include "widgets/OptionGroup.h"

#include <QKeyEvent>
#include <algorithm>

OptionGroup::OptionGroup(const QString& name, const QStringList& captions, QWidget* parent, int first)
    : QObject(parent) {
    setObjectName(name);
    for (qsizetype i = 0; i < captions.size(); ++i) {
        const int index = first + static_cast<int>(i);
        auto* const option = new QRadioButton(captions.at(i), parent);
        option->setObjectName(QStringLiteral("%1_%2").arg(name).arg(index));
        buttons_.addButton(option, index);
        option->installEventFilter(this);
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
    const int former = selected_;
    Show(index);
    if (selected_ != former && selected_ >= 0 && click_) {
        click_(selected_);
    }
}

void OptionGroup::Show(int index) {
    selected_ = buttons_.button(index) != nullptr ? index : -1;
    Mark(selected_);
}

void OptionGroup::UserClick(int index) {
    if (Refused()) {
        Mark(selected_);
        return;
    }
    Run(index);
}

// What a user's choice does, however it was made.
void OptionGroup::Run(int index) {
    selected_ = index;
    FixTabStops();
    if (click_) {
        click_(index);
    }
}

// The toolkit would put the focus on the option after the click routine, and take it from where the routine put it.
bool OptionGroup::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* const option = static_cast<QAbstractButton*>(watched);
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Left) {
            Walk(option, -1);
            return true;
        }
        if (key == Qt::Key_Down || key == Qt::Key_Right) {
            Walk(option, +1);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

// Clicks the next option in this direction that can be chosen, and goes on at the other end.
void OptionGroup::Walk(QAbstractButton* from, int step) {
    const auto options = buttons_.buttons();
    const qsizetype count = options.size();
    qsizetype at = options.indexOf(from);
    do {
        at = (at + step + count) % count;
    } while (!options.at(at)->isEnabled() && options.at(at) != from);
    QAbstractButton* const to = options.at(at);
    if (to != from && !Refused()) {
        to->setFocus(Qt::TabFocusReason);
        to->setChecked(true);
        Run(buttons_.id(to));
    }
}

void OptionGroup::AddTo(QBoxLayout* line) const {
    for (QAbstractButton* const option : Options()) {
        line->addWidget(option);
    }
    line->addStretch();
}

void OptionGroup::SetTakesFocus(bool takes) {
    takesFocus_ = takes;
    FixTabStops();
}

// A selected option that is disabled takes no focus: the first that can be chosen stands in for it.
void OptionGroup::FixTabStops() {
    const auto options = buttons_.buttons();
    const auto usable = [](const QAbstractButton* option) { return option->isEnabledTo(option->parentWidget()); };
    const QAbstractButton* const checked = buttons_.checkedButton();
    const QAbstractButton* tabStop = checked != nullptr ? checked : options.constFirst();
    if (!usable(tabStop)) {
        const auto other = std::find_if(options.cbegin(), options.cend(), usable);
        tabStop = other != options.cend() ? *other : tabStop;
    }
    for (QAbstractButton* const option : options) {
        option->setFocusPolicy(!takesFocus_ ? Qt::NoFocus : option == tabStop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

void OptionGroup::Mark(int index) {
    if (QAbstractButton* const option = buttons_.button(index)) {
        option->setChecked(true);
    } else if (QAbstractButton* const checked = buttons_.checkedButton()) {
        buttons_.setExclusive(false);
        checked->setChecked(false);
        buttons_.setExclusive(true);
    }
    FixTabStops();
}

#include "panel/FieldSteps.h"

#include <QKeyEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "rules/DigitStep.h"

namespace {

constexpr int kNotch = 120;             // of the wheel, in eighths of a degree
constexpr double kSameValue = 1.0e-13;  // relative; far below the last digit of any field

struct StepKey {
    int key;
    int direction;
    bool nextHigher;
};
constexpr StepKey kStepKeys[] = {
    {Qt::Key_Up, 1, false}, {Qt::Key_Down, -1, false}, {Qt::Key_PageUp, 1, true}, {Qt::Key_PageDown, -1, true}};

double NumberOf(QString text) { return text.replace(u',', u'.').toDouble(); }

}  // namespace

FieldSteps::FieldSteps(EntryField& field, UnitPower unitPower)
    : QObject(&field), field_(field), unitPower_(unitPower ? std::move(unitPower) : [] { return 0; }) {
    field.installEventFilter(this);
}

bool FieldSteps::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            return UseKey(*static_cast<QKeyEvent*>(event));
        case QEvent::KeyRelease:
            repeat_.NoteRelease(*static_cast<QKeyEvent*>(event));
            break;
        case QEvent::Wheel:
            if (!field_.hasFocus()) {
                break;
            }
            UseWheel(*static_cast<QWheelEvent*>(event));
            event->accept();
            return true;
        case QEvent::FocusIn:
        case QEvent::MouseButtonPress:
            Forget();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

bool FieldSteps::UseKey(const QKeyEvent& key) {
    const auto found = std::ranges::find(kStepKeys, key.key(), &StepKey::key);
    if (found == std::end(kStepKeys) || (key.modifiers() & ~Qt::KeypadModifier) != 0) {
        Forget();
        return false;
    }
    if (!repeat_.Is(key)) {
        metLimit_ = 0;
    }
    Step(found->direction, found->nextHigher);
    return true;
}

void FieldSteps::UseWheel(const QWheelEvent& turn) {
    turned_ += turn.angleDelta().y();
    for (; std::abs(turned_) >= kNotch; turned_ -= turned_ > 0 ? kNotch : -kNotch) {
        Step(turned_ > 0 ? 1 : -1, false);
    }
}

void FieldSteps::Forget() {
    digit_.reset();
    metLimit_ = 0;
    turned_ = 0;
}

// As a power of ten in the stored value. An entry that is no plain number is committed first, and then is one.
std::optional<int> FieldSteps::Digit() {
    if (digit_) {
        return digit_;
    }
    const bool all = field_.selectedText() == field_.text();
    auto power = DigitAt(field_.text(), all ? std::nullopt : std::optional<qsizetype>(field_.cursorPosition()));
    if (!power) {
        field_.Commit();
        power = DigitAt(field_.text(), std::nullopt);
    }
    return power ? std::optional(*power + unitPower_()) : std::nullopt;
}

double FieldSteps::Value() const { return NumberOf(field_.text()) * std::pow(10.0, unitPower_()); }

void FieldSteps::Step(int direction, bool nextHigher) {
    if (metLimit_ == direction) {
        return;
    }
    const std::optional<int> digit = Digit();
    if (!digit) {
        return;
    }
    const int power = *digit - unitPower_() + (nextHigher ? 1 : 0);
    field_.setText(StepDigit(field_.text(), power, direction));
    const double asked = Value();
    field_.Commit();
    const bool asAsked = std::fabs(Value() - asked) <= kSameValue * std::fabs(asked);
    metLimit_ = asAsked ? 0 : direction;
    digit_ = digit;
    field_.setCursorPosition(static_cast<int>(CursorBehind(field_.text(), *digit - unitPower_())));
}

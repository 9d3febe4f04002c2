#include "panel/LinkView.h"

#include <utility>

#include "panel/ChangeMark.h"
#include "widgets/Controls.h"
#include "widgets/EntryField.h"

LinkView::LinkView(const Parts& parts, QList<ShownField> fields, QWidget* parent)
    : QObject(parent),
      parts_(parts),
      fields_(std::move(fields)),
      linkstate_(MakeLabel(QStringLiteral("linkstate"), QString(), parent)) {
    linkstate_->setAccessibleDescription(QStringLiteral("Link to the instrument"));
    linkstate_->setTextFormat(Qt::PlainText);
    // A long line must not widen the panel.
    linkstate_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    soon_.setSingleShot(true);
    soon_.setInterval(0);
    connect(&soon_, &QTimer::timeout, this, [this] { Show(MarkChanges()); });
    for (const EntryField* const field : parent->findChildren<EntryField*>()) {
        connect(field, &QLineEdit::textChanged, this, &LinkView::RefreshSoon);
    }
    for (const QAbstractButton* const option : parent->findChildren<QAbstractButton*>()) {
        connect(option, &QAbstractButton::toggled, this, &LinkView::RefreshSoon);
    }
    parts_.transport.SetWhenLineLost([this] { RefreshSoon(); });
    RefreshSoon();
}

void LinkView::Refresh() {
    portFound_ = parts_.portFound();
    RefreshSoon();
}

// What Set would not send does not count.
bool LinkView::Changed(const ShownField& field) const {
    const LinkState& link = parts_.program.link;
    if (link.LinkUp == 0 || !link.Reported.Holds(field.field)) {
        return false;
    }
    const QWidget* const control = field.control();
    const QString reported = field.text(link.Reported.Values());
    return control != nullptr && control->isEnabled() && !reported.isEmpty() &&
           reported != field.text(parts_.program.panel);
}

bool LinkView::MarkChanges() {
    for (const auto& [control, mark] : marks_) {
        mark->hide();
    }
    bool changed = false;
    for (const ShownField& field : fields_) {
        if (Changed(field)) {
            changed = true;
            ChangeMark*& mark = marks_[field.control()];
            if (mark == nullptr) {
                mark = new ChangeMark(field.control());
            }
            mark->Tell(field.text(parts_.program.link.Reported.Values()));
        }
    }
    return changed;
}

QString LinkView::StateText(bool changed) const {
    const LinkState& link = parts_.program.link;
    // An adapter that was pulled is told at once, though it is no fault before something is to be sent.
    const bool lost = parts_.transport.LineLost();
    if (link.LinkUp == 1 && !lost) {
        return changed                    ? QStringLiteral("Linked, changed: not set yet")
               : !link.Reported.IsEmpty() ? QStringLiteral("Linked, as read")
               : link.UnitFound == 1      ? QStringLiteral("Linked, not read yet")
                                          : QStringLiteral("Looking for the instrument");
    }
    switch (lost ? LinkFault::PortGone : link.LastFault) {
        case LinkFault::PortNotOpened:
            return QStringLiteral("Port not opened: in use, no rights, or none there?");
        case LinkFault::PortGone:
            return QStringLiteral("The port has gone: is its adapter plugged in?");
        case LinkFault::NothingTaken:
            return QStringLiteral("Nothing goes out: cable, power or port?");
        case LinkFault::NoAnswer:
            return QStringLiteral("No answer: cable, power, port or rate?");
        case LinkFault::OtherUnit:
            return QStringLiteral("What answers is no KL5276: port, line settings?");
        case LinkFault::None:
            break;
    }
    return portFound_ ? QStringLiteral("No link")
                      : QStringLiteral("No link: no serial port found, see Data, Com. port");
}

void LinkView::Show(bool changed) {
    const QString text = StateText(changed);
    linkstate_->setText(text);
    linkstate_->setToolTip(text);  // where the line is cut
    parts_.set.setAccessibleDescription(changed ? text : QString());
    Emphasise(changed);
}

// As the default button of a dialog looks, and bold; unlike one it is not pressed by Enter.
void LinkView::Emphasise(bool set) {
    QFont font = parts_.set.font();
    font.setBold(set);
    parts_.set.setFont(font);
    parts_.set.setDefault(set);
}

#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <map>

#include "core/ProgramState.h"
#include "link/SerialTransport.h"
#include "panel/ShownField.h"

class ChangeMark;

// What the panel knows about the instrument: the line linkstate, a mark at each entry that differs from what the
// instrument has reported on this link, and "Set" emphasised while there is one.
class LinkView : public QObject {
    Q_OBJECT

  public:
    struct Parts {
        const ProgramState& program;
        SerialTransport& transport;
        QPushButton& set;
        std::function<bool()> portFound;  // is there any serial port on this PC?
    };

    LinkView(const Parts& parts, QList<ShownField> fields, QWidget* parent);
    ~LinkView() override {
        parts_.transport.SetWhenLineLost([] {});
    }

    QLabel* linkstate() const { return linkstate_; }

    // At the end of an operation on the link, and whenever a port may have come or gone.
    void Refresh();
    // Once for all changes of the same event.
    void RefreshSoon() { soon_.start(); }

  private:
    bool Changed(const ShownField& field) const;
    bool MarkChanges();
    QString StateText(bool changed) const;
    void Show(bool changed);
    void Emphasise(bool set);

    Parts parts_;
    QList<ShownField> fields_;
    QLabel* linkstate_;
    QTimer soon_;
    bool portFound_ = true;
    std::map<QWidget*, ChangeMark*> marks_;
};

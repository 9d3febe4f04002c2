#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "core/Report.h"

// A field of PanelState at which the panel can show that it is not yet what the instrument has reported.
struct ShownField {
    PanelField field;
    // The control that shows it now; none while Set would not send it.
    std::function<QWidget*()> control;
    // What the panel shows of it for a state, as the user reads it; empty where that state shows nothing of it.
    std::function<QString(const PanelState&)> text;
};

#pragma once

#include <QGridLayout>
#include <functional>

#include "panel/LargeReading.h"
#include "panel/PanelContext.h"
#include "widgets/OptionGroup.h"

// One of the panel's five frequencies: an entry field with its caption, its unit options, and the label that shows the
// unit. What it stores is in Hz; the unit matters for reading the entry and for display alone.
class FrequencyField {
  public:
    struct Names {
        const char* field;
        const char* units;
        const char* unitLabel;
        const char* accessible;
        const char* captionLabel;
        const char* caption;
    };

    // `stored` receives the commit; `refresh` is the group's, run after each commit.
    FrequencyField(const PanelContext& context, const Names& names, double PanelState::*stored,
                   std::function<void()> refresh, QWidget* parent);
    Q_DISABLE_COPY_MOVE(FrequencyField)

    // Caption, field and unit, in the first three columns. The group places the options of units().
    void AddTo(QGridLayout& grid, int row) const;
    QList<QWidget*> TabStops() const;

    // The stored value in the unit that suits it. A change of the unit gives the field the focus.
    void Show();
    ShownField Shown() const;
    void ShowLimit(const QString& toolTip) { field_->setToolTip(toolTip); }
    // All but the options, which follow their frame.
    void SetEnabled(bool enabled);
    // Where the focus goes after an Enter.
    void SetNext(QWidget* next) { field_->SetNext(next); }

    LargeReading reading() const { return {caption_, field_, unitLabel_}; }
    QLabel* caption() const { return caption_; }
    QWidget* field() const { return field_; }
    OptionGroup& units() const { return *units_; }

  private:
    void Commit();
    int UnitPower() const;

    PanelContext context_;
    QString accessible_;  // name for a screen reader, without the unit
    double PanelState::*stored_;
    std::function<void()> refresh_;
    EntryField* field_;
    OptionGroup* units_;
    QLabel* caption_;
    QLabel* unitLabel_;
};

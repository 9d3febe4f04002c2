#include "panel/FrequencyField.h"

#include <algorithm>
#include <cmath>

#include "core/FrequencyDisplay.h"
#include "rules/FrequencyRules.h"
#include "widgets/FollowFont.h"

namespace {

const FrequencyUnit& UnitOf(double hertz) {
    return kFrequencyUnits[static_cast<std::size_t>(FrequencyUnitIndex(hertz))];
}

}  // namespace

FrequencyField::FrequencyField(const PanelContext& context, const Names& names, double PanelState::*stored,
                               std::function<void()> refresh, QWidget* parent)
    : context_(context),
      accessible_(QString::fromLatin1(names.accessible)),
      stored_(stored),
      refresh_(std::move(refresh)) {
    field_ = MakeEntryField(context, QString::fromLatin1(names.field), KeyClass::Plain, accessible_, parent,
                            [this] { return UnitPower(); });
    field_->SetCommit([this] { Commit(); });
    QStringList units;
    for (const FrequencyUnit& unit : kFrequencyUnits) {
        units += QString::fromLatin1(unit.name);
    }
    units_ = new OptionGroup(QString::fromLatin1(names.units), units, parent);
    units_->SetAccessibleName(accessible_ + QStringLiteral(", unit"));
    units_->SetClick([this](int) { TakeFocus(field_); });
    unitLabel_ = MakeLabel(QString::fromLatin1(names.unitLabel), QStringLiteral("MHz"), parent, field_);
    KeepRoomFor(unitLabel_, QStringLiteral("MHz"));
    caption_ = MakeLabel(QString::fromLatin1(names.captionLabel), QString::fromLatin1(names.caption), parent, field_);
}

void FrequencyField::AddTo(QGridLayout& grid, int row) const {
    grid.addWidget(caption_, row, 0);
    grid.addWidget(field_, row, 1);
    grid.addWidget(unitLabel_, row, 2);
}

QList<QWidget*> FrequencyField::TabStops() const { return QList<QWidget*>{field_} + TabStopsOf(*units_); }

void FrequencyField::SetEnabled(bool enabled) {
    for (QWidget* const control : std::initializer_list<QWidget*>{caption_, field_, unitLabel_}) {
        control->setEnabled(enabled);
    }
}

void FrequencyField::Show() {
    const double hertz = context_.panel.*stored_;
    const FrequencyUnit& unit = UnitOf(hertz);
    const QString name = QString::fromLatin1(unit.name);
    field_->setText(context_.numbers.Picture(hertz / unit.hertz, unit.picture));
    field_->setAccessibleName(accessible_ + u", in " + name);
    unitLabel_->setText(name);
    unitLabel_->setAccessibleName(field_->accessibleName());
    units_->Select(FrequencyUnitIndex(hertz));
}

ShownField FrequencyField::Shown() const {
    const auto text = [this](const PanelState& state) -> QString {
        const double hertz = state.*stored_;
        const FrequencyUnit& unit = UnitOf(hertz);
        return context_.numbers.Picture(hertz / unit.hertz, unit.picture) + u' ' + QString::fromLatin1(unit.name);
    };
    return {stored_, [this] { return field_; }, text};
}

int FrequencyField::UnitPower() const {
    const auto unit = static_cast<std::size_t>(std::max(units_->Selected(), 0));  // Hz until the first Show
    return static_cast<int>(std::lround(std::log10(kFrequencyUnits.at(unit).hertz)));
}

void FrequencyField::Commit() {
    context_.Store(HoldFrequency(context_.EntryOf(*field_), units_->Selected(), context_.numbers),
                   context_.panel.*stored_);
    refresh_();
}

#include "panel/PanelContext.h"

#include <utility>

EntryField* MakeEntryField(const PanelContext& context, const QString& name, KeyClass keys, const QString& accessible,
                           QWidget* parent, FieldSteps::UnitPower unitPower) {
    const UserNumbers* const numbers = &context.numbers;
    auto* const field = new EntryField(
        name, [keys, numbers](QChar typed) { return FilterKey(keys, typed, numbers->DecimalSeparator); }, parent);
    field->setAccessibleName(accessible);
    field->setAlignment(Qt::AlignRight);
    field->SetCommitGuard(context.mayCommit);
    field->SetRoomFor(QStringLiteral("00.0000000000"));  // the highest frequency
    new FieldSteps(*field, std::move(unitPower));
    return field;
}

void AddOptions(QGridLayout& output, int row, const OptionGroup& group) {
    int column = kOptionsColumn;
    for (QAbstractButton* const option : group.Options()) {
        output.addWidget(option, row, column++, Qt::AlignVCenter);  // else it would hold the row to its own height
    }
}

ShownField ShownOption(PanelField field, const OptionGroup& group, std::function<int(const PanelState&)> index) {
    const auto text = [&group, index = std::move(index)](const PanelState& state) {
        const QAbstractButton* const option = group.Option(index(state));
        return option != nullptr ? option->text().remove(u'&') : QString();
    };
    return {field, [&group] { return group.Option(group.Selected()); }, text};
}

QList<QWidget*> TabStopsOf(const OptionGroup& group) {
    const QList<QAbstractButton*> options = group.Options();
    return {options.cbegin(), options.cend()};
}

#include "editor/FormulaWindow.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "waveform/Formula.h"
#include "waveform/FormulaShapes.h"
#include "widgets/Controls.h"
#include "widgets/FollowFont.h"

namespace {

constexpr QSize kOpeningSize(720, 480);
constexpr char kHelp[] =
    "x goes from 0 to 1 over the stretch, 1 is full scale. Also i, n, pi, e; sin, exp and so on; sinc(x), square(x), "
    "pulse(x;duty), tri(x), saw(x), gauss(x;mid;width), step(x), noise(seed).";

}  // namespace

FormulaWindow::FormulaWindow(const EditorContext& context, StoreFaults& faults, QWidget* editor)
    : QDialog(editor),
      context_(context),
      faults_(faults),
      state_(context.program.editor),
      fileName_(context.tables.FileOf(EditTarget::Memory)),
      size_(*state_.Size),
      stretches_{StretchOf(FillStretch::Whole, state_), StretchOf(FillStretch::View, state_),
                 StretchOf(FillStretch::Copied, state_)} {
    setObjectName(QStringLiteral("formula"));
    setWindowTitle(QStringLiteral("Fill by formula"));
    setAttribute(Qt::WA_DeleteOnClose);
    MakeControls();
    MakeStretch();
    Arrange();
    ConnectControls();
    expression->selectAll();
    expression->setFocus();
    Evaluate();
}

void FormulaWindow::MakeControls() {
    expression = Named(new FormulaField(this), QStringLiteral("expression"), QStringLiteral("Formula"));
    expression->setPlainText(state_.FormulaText);
    expression->setToolTip(QString::fromLatin1(kHelp));
    fault = MakeLabel(QStringLiteral("fault"), QString(), this);
    shapes = Named(new QListWidget(this), QStringLiteral("shapes"), QStringLiteral("Ready shapes"));
    for (const FormulaShape& shape : FormulaShapes()) {
        shapes->addItem(QString::fromLatin1(shape.name));
    }
    preview = Named(new FormulaPreview(this), QStringLiteral("preview"), QStringLiteral("Preview of the samples"));
    cut = MakeLabel(QStringLiteral("cut"), QString(), this);
    scale = Named(new QCheckBox(QStringLiteral("Scale to full &range"), this), QStringLiteral("scale"),
                  QStringLiteral("Scale to full range"));
    scale->setToolTip(QStringLiteral("The largest magnitude becomes full scale"));
    scale->setChecked(state_.FormulaScaled);
    cbok = Named(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cbok"));
    cbok->setDefault(true);
    cbcancel = Named(new QPushButton(QStringLiteral("Cancel"), this), QStringLiteral("cbcancel"));
}

void FormulaWindow::MakeStretch() {
    const std::array<QString, 3> names{QStringLiteral("Whole memory"), QStringLiteral("View"),
                                       QStringLiteral("Last copied range")};
    QStringList captions;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto& place = stretches_[i];
        captions += place ? QStringLiteral("%1, %2 to %3").arg(names[i]).arg(place->first).arg(place->last) : names[i];
    }
    stretch = std::make_unique<OptionGroup>(QStringLiteral("stretch"), captions, this);
    stretch->SetAccessibleName(QStringLiteral("Stretch"));
    for (std::size_t i = 0; i < names.size(); ++i) {
        stretch->Option(static_cast<int>(i))->setEnabled(stretches_[i].has_value());
    }
    if (!stretches_[static_cast<std::size_t>(state_.FormulaStretch)]) {
        state_.FormulaStretch = FillStretch::Whole;  // nothing is copied any more
    }
    stretch->Show(static_cast<int>(state_.FormulaStretch));
}

void FormulaWindow::Arrange() {
    auto* const left = new QVBoxLayout;
    left->addWidget(MakeLabel(QStringLiteral("shapesTitle"), QStringLiteral("Ready &shapes"), this, shapes));
    left->addWidget(shapes);
    FollowFont(shapes,
               [this] { shapes->setMinimumWidth(shapes->sizeHintForColumn(0) + shapes->fontMetrics().height() * 2); });
    auto* const middle = new QHBoxLayout;
    middle->addLayout(left);
    middle->addLayout(ArrangeResult(), 1);
    auto* const buttons = new QDialogButtonBox(this);
    buttons->addButton(cbok, QDialogButtonBox::AcceptRole);
    buttons->addButton(cbcancel, QDialogButtonBox::RejectRole);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(MakeLabel(QStringLiteral("expressionTitle"), QStringLiteral("&Formula"), this, expression));
    column->addWidget(expression);
    LetWrap(fault);
    column->addWidget(fault);
    column->addLayout(middle, 1);
    column->addWidget(buttons);
    QWidget* former = expression;
    for (QWidget* const next : std::initializer_list<QWidget*>{shapes, stretch->Option(0), stretch->Option(1),
                                                               stretch->Option(2), scale, cbok, cbcancel}) {
        setTabOrder(former, next);
        former = next;
    }
    resize(kOpeningSize.boundedTo(screen()->availableSize() * 0.9));  // with its frame on a small screen too
}

// The preview, and below it what is filled and what comes of it.
QLayout* FormulaWindow::ArrangeResult() {
    auto* const frame = new QGroupBox(QStringLiteral("S&tretch"), this);
    stretch->AddTo(new QVBoxLayout(frame));
    LetWrap(cut);
    auto* const result = new QVBoxLayout;
    result->addWidget(cut);
    result->addWidget(scale);
    result->addStretch(1);
    auto* const below = new QHBoxLayout;
    below->addWidget(frame);
    below->addLayout(result, 1);
    auto* const column = new QVBoxLayout;
    column->addWidget(preview, 1);
    column->addLayout(below);
    return column;
}

void FormulaWindow::ConnectControls() {
    connect(expression, &QPlainTextEdit::textChanged, this, [this] {
        state_.FormulaText = expression->toPlainText();
        if (state_.FormulaText != ShapeFormula()) {
            shapes->clearSelection();
        }
        Evaluate();
    });
    connect(shapes, &QListWidget::itemSelectionChanged, this, &FormulaWindow::PutShape);
    stretch->SetClick([this](int index) {
        state_.FormulaStretch = static_cast<FillStretch>(index);
        Evaluate();
    });
    connect(scale, &QCheckBox::clicked, this, [this](bool checked) {
        state_.FormulaScaled = checked;
        Evaluate();
    });
    connect(cbok, &QPushButton::clicked, this, &FormulaWindow::formula_cbok_Click);
    connect(cbcancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool FormulaWindow::IsOutdated() const {
    return !state_.EditorOpen || state_.Target != EditTarget::Memory || state_.Size != &size_ ||
           context_.tables.FileOf(EditTarget::Memory) != fileName_;
}

// A box that stands over the window would go with it.
void FormulaWindow::FollowEditor() {
    if (QApplication::activeModalWidget() == this && IsOutdated()) {
        reject();
    }
}

QString FormulaWindow::ShapeFormula() const {
    const QList<QListWidgetItem*> chosen = shapes->selectedItems();
    if (chosen.isEmpty()) {
        return {};
    }
    const auto row = static_cast<std::size_t>(shapes->row(chosen.first()));
    return FormulaOf(FormulaShapes()[row], context_.program.numbers);
}

void FormulaWindow::PutShape() {
    const QString formula = ShapeFormula();
    if (!formula.isEmpty() && formula != expression->toPlainText()) {
        expression->Put(formula);
    }
}

void FormulaWindow::Evaluate() {
    FormulaValues result = EvaluateFormula(state_.FormulaText, Chosen().Length(), context_.program.numbers);
    if (state_.FormulaScaled) {
        result.values = ScaledToFullRange(std::move(result.values));
    }
    samples_ = SamplesOf(result.values);
    cbok->setEnabled(!samples_.empty());
    ShowFault(result.fault);
    ShowCount(result.values);
    preview->Show(std::move(result.values));
}

void FormulaWindow::ShowFault(const std::optional<FormulaFault>& found) {
    QString text = QString::fromLatin1(kHelp);
    expression->Mark(found ? found->at : -1, found ? found->length : 0);
    if (found) {
        text = found->text;
        if (found->at >= 0) {
            text.prepend(found->length > 0 ? QStringLiteral("Character %1: ").arg(found->at + 1)
                                           : QStringLiteral("At the end: "));
        }
    }
    fault->setText(text);
    expression->setAccessibleDescription(text);
}

void FormulaWindow::ShowCount(const std::vector<double>& values) {
    QString text;
    if (!samples_.empty()) {
        const auto [low, high] = std::ranges::minmax(samples_);
        const int beyond = CountCut(values);
        text = QStringLiteral("%1 samples from %2 to %3").arg(samples_.size()).arg(low).arg(high) +
               (beyond == 0 ? QStringLiteral(", none cut at full scale.")
                            : QStringLiteral(", %1 of them cut at full scale.").arg(beyond));
    }
    cut->setText(text);
    preview->setAccessibleDescription(text);
}

void FormulaWindow::formula_cbok_Click() {
    FollowEditor();
    if (!isVisible() || samples_.empty()) {
        return;
    }
    context_.desktop.BusyOn();
    const TableResult result = FillMemory(state_, context_.tables, Chosen(), samples_);
    context_.desktop.BusyOff();
    if (faults_.Tell(result, Telling::Box)) {
        accept();
    }
}

#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <array>
#include <memory>
#include <optional>

#include "editor/EditorContext.h"
#include "editor/FormulaField.h"
#include "editor/FormulaPreview.h"
#include "editor/StoreFaults.h"
#include "waveform/FormulaFill.h"
#include "waveform/FormulaNotation.h"
#include "widgets/OptionGroup.h"

// The window `formula`, "Fill by formula": modal to the editor, for the memory that this shows when it opens. It is
// accepted when the samples are written; a failure is told in a message box, and the window stays.
class FormulaWindow : public QDialog {
    Q_OBJECT

  public:
    FormulaWindow(const EditorContext& context, StoreFaults& faults, QWidget* editor);

    // Closes, with nothing written, if the editor has gone over to another file, size or mode. While a box stands over
    // the window nothing happens: to be called again.
    void FollowEditor();

  private:
    void MakeControls();
    void MakeStretch();
    void Arrange();
    QLayout* ArrangeResult();
    void ConnectControls();
    void formula_cbok_Click();

    bool IsOutdated() const;
    // The formula of the ready shape that is chosen; empty with none.
    QString ShapeFormula() const;
    void PutShape();
    // What the formula comes to, and all that shows it.
    void Evaluate();
    void ShowFault(const std::optional<FormulaFault>& fault);
    void ShowCount(const std::vector<double>& values);
    const Stretch& Chosen() const { return *stretches_[static_cast<std::size_t>(state_.FormulaStretch)]; }

    EditorContext context_;
    StoreFaults& faults_;
    EditorState& state_;
    const QString fileName_;
    const MemorySize& size_;
    std::array<std::optional<Stretch>, 3> stretches_;  // by FillStretch
    std::vector<qint16> samples_;                      // of the formula; empty with a fault

    FormulaField* expression = nullptr;
    QLabel* fault = nullptr;
    QListWidget* shapes = nullptr;
    FormulaPreview* preview = nullptr;
    std::unique_ptr<OptionGroup> stretch;
    QLabel* cut = nullptr;
    QCheckBox* scale = nullptr;
    QPushButton* cbok = nullptr;
    QPushButton* cbcancel = nullptr;
};

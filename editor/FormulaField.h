#pragma once

#include <QPlainTextEdit>

// The field of a formula: a few lines, so that a long one is seen whole. Enter is left to the window, for its default
// button; the Tab key goes on to the next control.
class FormulaField : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit FormulaField(QWidget* parent);

    // In place of what the field holds, as if it were typed: an undo brings that back.
    void Put(const QString& formula);
    // Underlines the place of a fault, the last character for one behind the end; none if `at` is negative.
    void Mark(qsizetype at, qsizetype length);

    QSize sizeHint() const override { return HintOf(kLines); }
    QSize minimumSizeHint() const override { return HintOf(kLines); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    static constexpr int kLines = 3;
    QSize HintOf(int lines) const;
};

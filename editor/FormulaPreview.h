#pragma once

#include <vector>

#include "widgets/PictureBox.h"

// The curve of a formula over its stretch, in the colours of the desktop: as it will be written, and faintly what lies
// beyond full scale. Lines stand at 0 and at full scale.
class FormulaPreview : public PictureBox {
    Q_OBJECT

  public:
    explicit FormulaPreview(QWidget* parent);

    // 1 is full scale. No values: the lines alone.
    void Show(std::vector<double> values);

    QSize sizeHint() const override { return {400, 220}; }
    QSize minimumSizeHint() const override { return {160, 80}; }

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void Draw();
    void DrawCurve(Drawing& drawing, double highest);

    std::vector<double> values_;
};

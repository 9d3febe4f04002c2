#pragma once

#include <span>
#include <vector>

#include "widgets/PictureBox.h"

// The curve of the chosen stretch of a recording, in the colours of the desktop. A drag across a part of it chooses
// that part; the keys of PictureKeys do so too.
class RecordingPreview : public PictureBox {
    Q_OBJECT

  public:
    explicit RecordingPreview(QWidget* parent);

    // The values and, if they are not even, the times beside them; they must outlive what is shown. None: an empty
    // picture.
    void Show(std::span<const double> values, std::span<const double> times);

    QSize sizeHint() const override { return {400, 160}; }
    QSize minimumSizeHint() const override { return {160, 80}; }

  Q_SIGNALS:
    // Rows of what is shown, both included, counted from 0; two at least.
    void Chosen(std::size_t first, std::size_t last);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void Draw();
    void Drag(int buttons, double x);
    void EndDrag();

    std::span<const double> values_;
    std::span<const double> times_;
    std::vector<QLineF> curve_;
    int columns_ = 0;  // for which the curve was made; 0 if it was not
    bool dragging_ = false;
    double dragFrom_ = 0.0;
    double dragTo_ = 0.0;
};

#include "panel/LargeReading.h"

#include <QEvent>
#include <QFontDatabase>
#include <algorithm>
#include <cmath>

#include "widgets/FollowFont.h"
#include "widgets/Grid.h"

namespace {

constexpr double kDigitMm = 5.5;
constexpr double kMmPerInch = 25.4;
constexpr double kAboveText = 1.7;   // height of the digits against those of the other texts, at least
constexpr double kLargest = 2.0;     // against the least height
constexpr double kRoomiest = 1.5;    // height of a field against its line of digits, at most
constexpr double kUnitShare = 0.55;  // height of the unit against the least height of the digits
constexpr int kFieldStretch = 100;   // of the rows of fields; what they do not take is left below
constexpr int kFrame = 8;            // of a field at either side, pixels

double DigitHeight(const QFont& font) { return QFontMetricsF(font).tightBoundingRect(QStringLiteral("0")).height(); }

// The fixed-width font in which digits have this height, pixels. The first try is about right for every such font: each
// size that is tried takes a moment of the start.
QFont DigitFont(double height) {
    constexpr double kDigitShare = 0.73;  // height of a digit against the size of the font
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const int trial = static_cast<int>(std::ceil(height / kDigitShare));
    font.setPixelSize(trial);
    font.setPixelSize(static_cast<int>(std::ceil(height * trial / DigitHeight(font))));
    while (DigitHeight(font) < height) {  // hinting may take a part of a pixel
        font.setPixelSize(font.pixelSize() + 1);
    }
    return font;
}

// Fits the font of a field to the room that the layout gives it.
class DigitFit : public QObject {
  public:
    explicit DigitFit(EntryField& field, QLabel& unit) : QObject(&field), field_(field), unit_(unit) {
        // The layout goes by the least size alone: the digits follow the room, not the room the digits.
        field.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        FollowFont(field.parentWidget(), [this] { SetLeast(); });
        KeepRoomFor(&unit, QStringLiteral("MHz"));
        field.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize && watched == &field_) {
            laidOut_ = true;
            Fit();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void SetLeast() {
        const QWidget& form = *field_.parentWidget();
        least_ = std::max(kDigitMm / kMmPerInch * form.logicalDpiY(), kAboveText * DigitHeight(form.font()));
        const QFont font = DigitFont(least_);
        const QFontMetrics metrics(font);
        field_.setMinimumSize(metrics.horizontalAdvance(field_.RoomFor()) + 2 * kFrame, metrics.height() + kFrame);
        QFont unit = form.font();
        unit.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * kUnitShare)));
        unit_.setFont(unit);
        if (laidOut_) {
            Fit();
        }
    }

    void Fit() {
        const QFont least = DigitFont(least_);
        const QFontMetricsF metrics(least);
        const double wider = (field_.width() - 2.0 * kFrame) / metrics.horizontalAdvance(field_.RoomFor());
        const double higher = (field_.height() - kFrame) / metrics.height();
        const auto held = [](double factor) { return std::clamp(factor, 1.0, kLargest); };
        field_.setMaximumHeight(static_cast<int>(held(wider) * metrics.height() * kRoomiest) + kFrame);
        const double factor = held(std::min(wider, higher));
        QFont font = least;
        font.setPixelSize(std::max(static_cast<int>(least.pixelSize() * factor), least.pixelSize()));
        field_.setFont(font);
    }

    EntryField& field_;
    QLabel& unit_;
    double least_ = 0.0;    // height of the digits, pixels
    bool laidOut_ = false;  // the field has the size that the layout gives it
};

}  // namespace

void AddReading(QGridLayout& output, int row, const LargeReading& reading) {
    reading.caption->setContentsMargins(0, row > 0 ? kGap / 2 : 0, 0, 0);
    output.addWidget(reading.caption, row, 0, 1, 2);
    output.addWidget(reading.field, row + 1, 0);
    output.addWidget(reading.unit, row + 1, 1);
    output.setRowStretch(row + 1, kFieldStretch);
    new DigitFit(*reading.field, *reading.unit);
}

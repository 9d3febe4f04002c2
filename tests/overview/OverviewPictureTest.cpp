#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "core/Enumerations.h"
#include "overview/OverviewPicture.h"

namespace {

constexpr QSize kSize(420, 230);

TEST(OverviewStrokes, FixedForms) {
    const ArbMemories memories;
    const std::vector<QLineF> sine = OverviewStrokes(0, memories);
    ASSERT_EQ(sine.size(), 63U);
    EXPECT_EQ(sine[0], QLineF(0, 0, 1, 863));
    EXPECT_EQ(sine[3], QLineF(3, 1795, 4, 1637));
    EXPECT_EQ(sine[62], QLineF(62, -727, 63, 151));

    std::vector<double> edges;
    for (const QLineF& stroke : OverviewStrokes(1, memories)) {
        const bool high = std::fmod(stroke.x1() + 13.0, 16.0) < 8.0;  // from 3 to 11, 19 to 27 ...
        if (stroke.dx() == 0.0) {
            edges.push_back(stroke.x1());
        } else {
            EXPECT_EQ(stroke.y1(), high ? 1800.0 : -1800.0) << stroke.x1();
        }
    }
    EXPECT_EQ(edges, (std::vector<double>{3, 11, 19, 27, 35, 43, 51, 59}));

    const struct {
        quint8 bmSignal = 0;
        QLineF first, second, last;
    } table[]{{2, {-4, 1800, 4, -1800}, {4, -1800, 12, 1800}, {60, 1800, 68, -1800}},
              {3, {-4, -1800, 12, 1800}, {12, 1800, 12, -1800}, {60, -1800, 76, 1800}},
              {4, {-4, 1800, 12, -1800}, {12, 1800, 12, -1800}, {60, 1800, 76, -1800}}};
    for (const auto& ends : table) {
        const std::vector<QLineF> strokes = OverviewStrokes(ends.bmSignal, memories);
        ASSERT_EQ(strokes.size(), 9U);
        EXPECT_TRUE(strokes[0] == ends.first && strokes[1] == ends.second && strokes[8] == ends.last);
    }
    EXPECT_TRUE(OverviewStrokes(9, memories).empty());
}

// A picture as its form keeps it: drawn again whenever its content is lost.
class OverviewPicture : public testing::Test {
  protected:
    OverviewPicture() {
        Picture1.resize(kSize);
        QObject::connect(&Picture1, &PictureBox::RedrawNeeded, &Picture1, [this] {
            ++redraws;
            DrawOverviewSignal(Picture1, bmSignal, *memories);
        });
        Picture1.show();
    }

    QImage Drawn(quint8 form) {
        bmSignal = form;
        DrawOverviewSignal(Picture1, bmSignal, *memories);
        return Picture1.grab().toImage();
    }

    // Whether there is ink at a place, in logical pixels.
    static bool Ink(const QImage& image, double x, double y) {
        const double ratio = image.devicePixelRatio();
        return image.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio)).lightness() < 128;
    }

    // Bounding box of all ink, in logical pixels.
    static QRectF InkBounds(const QImage& image) {
        const double ratio = image.devicePixelRatio();
        QRect bounds;  // in device pixels
        for (int i = 0; i < image.width() * image.height(); ++i) {
            const QRect pixel(i % image.width(), i / image.width(), 1, 1);
            bounds = Ink(image, pixel.x() / ratio, pixel.y() / ratio) ? bounds | pixel : bounds;
        }
        return {QPointF(bounds.topLeft()) / ratio, QSizeF(bounds.size()) / ratio};
    }

    PictureBox Picture1;
    std::unique_ptr<ArbMemories> memories = std::make_unique<ArbMemories>();
    quint8 bmSignal = 0;
    int redraws = 0;
};

TEST_F(OverviewPicture, ZeroMemoryIsTheMidLine) {
    for (const quint8 form : {kSignalArbitrary4, kSignalArbitrary16}) {
        EXPECT_EQ(InkBounds(Drawn(form)), QRectF(0, 114, 420, 2));
    }
}

TEST_F(OverviewPicture, FullScaleTouchesTheEdgesInEitherMemory) {
    for (const qint16 sample : {qint16{2047}, qint16{-2047}}) {
        memories->ArbMemory4.fill(0);
        memories->ArbMemory16.fill(0);
        memories->ArbMemory4[1024] = sample;
        memories->ArbMemory16[4096] = sample;
        const double edge = sample > 0 ? 0.0 : 229.5;
        for (const quint8 form : {kSignalArbitrary4, kSignalArbitrary16}) {
            const QImage image = Drawn(form);
            EXPECT_TRUE(Ink(image, 16 / 63.0 * 420, edge)) << int{form} << " " << sample;
            EXPECT_FALSE(Ink(image, 200, edge));
        }
    }
}

// The time saved in dense memories costs no ink: beside strokes drawn one by one, only its rim may differ.
TEST_F(OverviewPicture, DenseMemoryKeepsItsShape) {
    unsigned random = 1;
    for (int i = 0; i < 16385; ++i) {
        random = random * 1103515245U + 12345U;
        const int noise = i < 8000 ? 0 : static_cast<int>((random >> 16U) % 801U) - 400;
        memories->ArbMemory16[static_cast<std::size_t>(i)] = static_cast<qint16>(1500.0 * std::sin(i / 300.0) + noise);
    }
    const QImage picture = Drawn(kSignalArbitrary16);
    {
        PictureBox::Drawing drawing(Picture1);
        drawing.Cls();
        drawing.DrawWidth = 2.0;
        for (const QLineF& stroke : OverviewStrokes(kSignalArbitrary16, *memories)) {
            drawing.Line(stroke.x1(), stroke.y1(), stroke.x2(), stroke.y2());
        }
    }
    const QImage strokes = Picture1.grab().toImage();
    const auto differs = [](const QImage& ink, const QImage& other, int x, int y) {
        bool near = false;
        for (int i = 0; i < 9; ++i) {
            const QPoint place = QPoint(x, y) + QPoint(i % 3 - 1, i / 3 - 1);
            near = near || Ink(other, place.x(), place.y());
        }
        return Ink(ink, x, y) && !near;
    };
    int difference = 0;
    for (int place = 0; place < 418 * 228; ++place) {
        const int x = 1 + place % 418;
        const int y = 1 + place / 418;
        difference += differs(strokes, picture, x, y) || differs(picture, strokes, x, y) ? 1 : 0;
    }
    EXPECT_EQ(difference, 0);
}

TEST_F(OverviewPicture, IsSharpAndDrawnAgainWhenTheSizeChanges) {
    Drawn(2);
    const int before = redraws;
    Picture1.resize(210, 115);
    const QImage image = Picture1.grab().toImage();
    EXPECT_EQ(redraws, before + 1);
    EXPECT_EQ(image.size(), QSize(210, 115) * Picture1.devicePixelRatioF());
    EXPECT_EQ(InkBounds(image).width(), 210.0);
    // At double density too, a slope is more than blocks of equal pixels.
    EXPECT_NE(image.scaled(image.size() / 2).scaled(image.size()), image);

    Picture1.resize(0, 0);
    DrawOverviewSignal(Picture1, kSignalWhiteNoise, *memories);
    Picture1.resize(kSize);
    Drawn(2);
    EXPECT_EQ(redraws, before + 1);  // drawn already when it came to be shown
}

}  // namespace

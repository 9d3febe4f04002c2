#include <gtest/gtest.h>

#include <memory>

#include "core/Enumerations.h"
#include "overview/OverviewPicture.h"
#include "support/Pixels.h"

namespace {

TEST(OverviewStrokes, DrawEachFixedForm) {
    // form, number of strokes, index and place of one
    const std::tuple<quint8, std::size_t, std::size_t, QLineF> cases[] = {
        {0, 63, 62, {62, -727, 63, 151}}, {1, 71, 4, {3, 1800, 4, 1800}},   {1, 71, 66, {59, 1800, 59, -1800}},
        {2, 9, 1, {4, -1800, 12, 1800}},  {2, 9, 2, {12, 1800, 20, -1800}}, {3, 9, 1, {12, 1800, 12, -1800}},
        {3, 9, 8, {60, -1800, 76, 1800}}, {4, 9, 0, {-4, 1800, 12, -1800}}};
    for (const auto& [bmSignal, count, index, stroke] : cases) {
        const std::vector<QLineF> strokes = OverviewStrokes(bmSignal, ArbMemories());
        ASSERT_EQ(strokes.size(), count);
        EXPECT_EQ(strokes[index], stroke) << int{bmSignal} << ' ' << index;
    }
    EXPECT_TRUE(OverviewStrokes(9, ArbMemories()).empty());
}

struct OverviewPicture : ::testing::Test {
    OverviewPicture() {
        Picture1.resize(420, 230);
        Picture1.show();
    }

    QImage Drawn(quint8 form) {
        DrawSignalForm(Picture1, form, *memories);
        return Picture1.grab().toImage();
    }

    // Whether there is ink at a place, in logical pixels.
    static bool Ink(const QImage& image, double x, double y) {
        const double ratio = image.devicePixelRatio();
        return image.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio)).lightness() < 128;
    }

    PictureBox Picture1;
    std::unique_ptr<ArbMemories> memories = std::make_unique<ArbMemories>();
};

// A pixel column holds several samples: the highest and the lowest of them show.
TEST_F(OverviewPicture, AMemoryIsTheMidLineAndFullScaleTouchesTheEdges) {
    const double spike = 16 / 63.0 * 420;
    for (const quint8 form : {kSignalArbitrary4, kSignalArbitrary16}) {
        memories->ArbMemory4[1024] = memories->ArbMemory16[4096] = 2047;
        memories->ArbMemory4[1025] = memories->ArbMemory16[4097] = -2047;
        const QImage image = Drawn(form);
        EXPECT_TRUE(Ink(image, spike, 0)) << int{form};
        EXPECT_TRUE(Ink(image, spike, 229.5)) << int{form};
        *memories = ArbMemories();
        for (const double y : {0.0, 112.0, 114.5, 115.5, 117.0, 229.5}) {
            EXPECT_EQ(Ink(Drawn(form), spike, y), y > 114.0 && y < 116.0) << int{form} << ' ' << y;
        }
    }
}

TEST_F(OverviewPicture, WordsAreLargeUnlessTheyWouldBeCut) {
    const auto inkedRows = [](const QImage& image) {
        return InkedRows(image, [](const QColor& pixel) { return pixel.lightness() < 128; });
    };
    EXPECT_LT(inkedRows(Drawn(kSignalArbitrary4)), 4.0);  // a line, and no words
    for (const quint8 noise : {kSignalWhiteNoise, kSignalPinkNoise}) {
        const QImage words = Drawn(noise);
        EXPECT_GT(inkedRows(words), 20.0) << int{noise};
        EXPECT_EQ(inkedRows(words.copy(words.rect().adjusted(0, words.height() / 2, 0, 0))), 0.0) << int{noise};
    }
    Picture1.resize(210, 230);
    const QImage narrow = Drawn(kSignalWhiteNoise);
    EXPECT_LT(inkedRows(narrow), 30.0);
    for (int y = 0; y < 230; ++y) {
        EXPECT_FALSE(Ink(narrow, 209, y)) << y;
    }
}

TEST_F(OverviewPicture, NoSizeIsTooSmall) {
    EXPECT_TRUE(Ink(Drawn(2), 8 / 63.0 * 420, 115));  // a zero of the triangle
    Picture1.resize(0, 0);
    DrawSignalForm(Picture1, kSignalWhiteNoise, *memories);
}

}  // namespace

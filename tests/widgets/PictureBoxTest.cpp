#include <QApplication>
#include <QBackingStore>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTest>
#include <functional>
#include <memory>

#include "support/PictureHands.h"
#include "support/PrintQt.h"
#include "widgets/PictureKeys.h"

namespace {

using Drawing = PictureBox::Drawing;
using Strokes = std::function<void(Drawing&)>;

constexpr QColor kPaper(255, 255, 128);

// In a scale that is that of the logical pixels, but upwards.
struct PictureBoxes : ::testing::Test {
    PictureBoxes() {
        picture.resize(300, 200);
        picture.SetBackColor(kPaper);
        picture.SetScale(0.0, 300.0, 200.0, -200.0);
        picture.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&picture));
        for (const auto& [signal, kind] :
             {std::pair(&PictureBox::MouseDown, u"down"), {&PictureBox::MouseMove, u"to"}}) {
            QObject::connect(&picture, signal, &picture, [this, kind](int buttons, float x, float y) {
                events += QStringLiteral("%1%2 %3,%4 ").arg(QStringView(kind)).arg(buttons).arg(x).arg(y);
            });
        }
    }

    QImage Draw(const Strokes& strokes) {
        strokes(*std::make_unique<Drawing>(picture));
        return picture.grab().toImage();
    }

    PictureBox picture;
    QString events;  // of the pointer
};

TEST_F(PictureBoxes, InvertedStrokesShowAndDrawnAgainRestoreEveryPixel) {
    const QImage before = Draw([](Drawing& d) {
        d.Cls(), d.ForeColor = QColor(192, 192, 255), d.Box(60, 0, 180, 200);
        d.ForeColor = Qt::black, d.DrawWidth = 3.0, d.Line(0, 80, 300, 120), d.PSet(150, 20);
    });
    const QLineF places[]{{0, 150, 300, 150},    {33.3, 0, 33.3, 200},   {-900, -40, 400, 260}, {20, 190.7, 280, 3.1},
                          {-50, 90, 310, 120.5}, {280, 250, 140.2, 100}, {-1e6, -1e6, 1e6, 1e6}};
    for (int i = 0; i < 28; ++i) {
        const auto stroke = [&, &at = places[i % 7]](Drawing& d) {
            d.DrawMode = Drawing::Mode::Invert;
            d.DrawWidth = i < 7 ? 1.0 : 3.0;
            d.ForeColor = QList<QColor>{{0, 0, 255}, {0, 128, 0}, {192, 192, 192}}[i % 3];
            i < 14   ? d.Line(at.x1(), at.y1(), at.x2(), at.y2())
            : i < 21 ? d.Box(at.x1(), at.y1(), at.x2(), at.y2())
                     : d.PSet(40.3 * (i - 20), 100.0);
        };
        EXPECT_NE(Draw(stroke), before) << i;
        EXPECT_EQ(Draw(stroke), before) << i;
    }
}

TEST_F(PictureBoxes, StraightStrokesAndBoxesAreSharpAndCurvesSmooth) {
    const QLineF grid[]{{40, 120.5, 250, 120.5}, {40.7, 60, 40.7, 100.1}},
        curve[]{{0, 80, 100, 90}, {100, 90, 300, 90}};
    const std::pair<bool, Strokes> table[]{
        {true, [](Drawing& d) { d.Line(20.3, 30.6, 280.3, 30.6); }},
        {true, [](Drawing& d) { d.DrawWidth = 3, d.Line(20.3, 30.6, 20.3, 90.4); }},
        {true, [&](Drawing& d) { d.DrawWidth = 2, d.Lines(grid); }},
        {true, [](Drawing& d) { d.Box(200.9, 40.1, 180.2, 80.8); }},
        {false, [&](Drawing& d) { d.DrawWidth = 2, d.Lines(curve); }},
        {false, [](Drawing& d) { d.DrawWidth = 7, d.PSet(50.4, 60.2); }},
        // A level part carries on where the slope ends, dots or not.
        {false, [](Drawing& d) { d.Line(-2, 50, -1, 50.3), d.PSet(-1, 50.3), d.Line(-1, 50.3, 300, 50.3); }}};
    for (const auto& [sharp, strokes] : table) {
        const QImage image = Draw([&, &draw = strokes](Drawing& d) { d.Cls(), draw(d); });
        EXPECT_EQ(image.convertToFormat(QImage::Format_Indexed8).colorCount() == 2, sharp);
    }
}

TEST_F(PictureBoxes, PointerArrivesInUserScale) {
    picture.SetScale(980.0, 1040.0, 2060.0, -4120.0);
    QTest::mouseClick(&picture, Qt::LeftButton, {}, QPoint(150, 100));
    QTest::mouseDClick(&picture, Qt::LeftButton, {}, QPoint(150, 100));
    QTest::mouseClick(&picture, Qt::RightButton, {}, QPoint(0, 50));
    QTest::mouseClick(&picture, Qt::MiddleButton, {}, QPoint(75, 50));
    QTest::mouseClick(&picture, Qt::BackButton, {}, QPoint(75, 50));
    QTest::mousePress(&picture, Qt::RightButton, {}, QPoint(150, -1));  // beyond the edge, with another button held
    events.remove(QRegularExpression(QStringLiteral("to\\S+ \\S+ ")));
    EXPECT_EQ(events, u"down1 1500,0 down1 1500,0 down2 980,1030 down4 1240,1030 ");
    events.clear();
    const auto move = [&](QPointF place, Qt::MouseButtons held) {
        QMouseEvent event(QEvent::MouseMove, place, picture.mapToGlobal(place), Qt::NoButton, held, Qt::NoModifier);
        QApplication::sendEvent(&picture, &event);
    };
    move({10.25, 20.5}, Qt::NoButton);
    move({-30, 250}, Qt::LeftButton | Qt::RightButton | Qt::BackButton);
    EXPECT_EQ(events, u"to0 1015.53,1637.7 to3 876,-3090 ");
}

TEST_F(PictureBoxes, KeysAreAMouse) {
    new PictureKeys(picture);
    const QImage plain = picture.grab().toImage();
    const std::tuple<std::vector<Qt::Key>, Qt::KeyboardModifiers, const char16_t*> cases[]{
        {{Qt::Key_Right, Qt::Key_Down}, {}, u"to0 151,100 to0 151,99 "},
        {{Qt::Key_Left, Qt::Key_Up}, Qt::ShiftModifier, u"to0 141,99 to0 141,109 "},
        {{Qt::Key_Home, Qt::Key_Left, Qt::Key_PageUp}, {}, u"to0 0,109 to0 0,109 to0 0,200 "},
        {{Qt::Key_End, Qt::Key_PageDown}, {}, u"to0 300,200 to0 300,0 "},
        {{Qt::Key_Enter, Qt::Key_Menu}, {}, u"down1 300,0 to0 300,0 down2 300,0 to0 300,0 "},
        {{Qt::Key_F10}, Qt::ShiftModifier, u"down2 300,0 to0 300,0 "},
        {{Qt::Key_Space, Qt::Key_Left, Qt::Key_Return}, {}, u"down1 300,0 to1 300,0 to1 299,0 to0 299,0 "},
        {{Qt::Key_Space, Qt::Key_Space, Qt::Key_Escape}, {}, u"down1 299,0 to1 299,0 to0 299,0 "}};
    picture.setFocus();
    EXPECT_NE(picture.grab().toImage(), plain);  // where the pointer is
    for (const auto& [keys, modifiers, wanted] : cases) {
        events.clear();
        for (const Qt::Key key : keys) {
            QTest::keyClick(&picture, key, modifiers);
        }
        EXPECT_EQ(events, wanted);
    }
    picture.SetScale(10.0, 30.0, 20.0, -40.0);  // ten pixels and five to a unit
    events.clear();
    QTest::keyClick(&picture, Qt::Key_Space);
    PictureHands{&picture}.Move(11.4, 0.6);  // lets go what the keyboard held
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Up, Qt::Key_Space}) {
        QTest::keyClick(&picture, key);
    }
    picture.clearFocus();  // nobody could let go any more
    EXPECT_TRUE(events.endsWith(u"to0 12,0.6 to0 12,2 down1 12,2 to1 12,2 to0 12,2 ")) << events;
    EXPECT_EQ(picture.grab().toImage(), plain);
}

TEST_F(PictureBoxes, OldContentShowsUntilANewSizeIsDrawn) {
    int requests = 0;
    QObject::connect(&picture, &PictureBox::RedrawNeeded, &picture, [&] { ++requests; });
    const auto halves = [this] {  // colours at the left and at the right
        const QImage image = picture.grab().toImage().scaled(30, 20);
        return std::pair(image.pixelColor(12, 1), image.pixelColor(17, 18));
    };
    const std::pair redAndPaper(QColor(Qt::red), kPaper);
    Draw([](Drawing& d) { d.ForeColor = Qt::red, d.Box(0, 0, 150, 200); });
    for (const QSize size : {QSize(600, 150), QSize(90, 90), QSize(400, 400)}) {
        picture.resize(size);
        EXPECT_EQ(halves(), redAndPaper);
    }
    EXPECT_EQ(requests, 3);
    Draw([](Drawing& d) { d.PSet(1, 1); });
    EXPECT_EQ(halves(), redAndPaper);
    Draw([](Drawing& d) { d.Cls(); });
    EXPECT_EQ(halves(), std::pair(kPaper, kPaper));
}

TEST_F(PictureBoxes, TheWindowShowsWhatWasTouched) {
    const Strokes cross = [](Drawing& d) {
        d.DrawMode = Drawing::Mode::Invert, d.Line(77.7, 0, 77.7, 200), d.Line(0, 20.2, 300, 20.2);
    };
    const Strokes table[]{[](Drawing& d) { d.Cls(); }, cross,
                          [](Drawing& d) { d.DrawWidth = 12, d.Line(50, 50, 90.5, 77.7); },
                          [](Drawing& d) { d.DrawWidth = 7, d.PSet(99.4, 150.5), d.PSet(298, 199); }, cross};
    for (const Strokes& strokes : table) {
        QApplication::processEvents();
        strokes(*std::make_unique<Drawing>(picture));
        QApplication::processEvents();
        auto* const window = dynamic_cast<QImage*>(picture.backingStore()->paintDevice());
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(window->convertToFormat(QImage::Format_RGB32), picture.grab().toImage()) << &strokes - table;
    }
}

}  // namespace

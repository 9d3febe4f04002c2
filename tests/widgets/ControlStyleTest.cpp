#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QStyleOption>

#include "widgets/ControlStyle.h"

namespace {

constexpr QStyle::State kAble = QStyle::State_Enabled;

struct Control {
    QStyle::PrimitiveElement element = QStyle::PE_Frame;
    QList<QStyle::State> states;
};

QImage Drawn(const ControlStyle& style, QStyle::PrimitiveElement element, QStyle::State state) {
    QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QStyleOptionButton button;
    QStyleOptionFrame frame;
    frame.lineWidth = 1;
    QStyleOption& option = element == QStyle::PE_PanelLineEdit ? static_cast<QStyleOption&>(frame) : button;
    option.rect = QRect(1, 1, 14, 14);
    option.palette = QPalette(Qt::black, Qt::lightGray, Qt::white, Qt::darkGray, Qt::gray, Qt::black, Qt::white);
    option.palette.setColor(QPalette::Highlight, Qt::darkBlue);
    option.state = state;
    QPainter painter(&image);
    style.drawPrimitive(element, &option, &painter, nullptr);
    return image;
}

TEST(ControlStyles, ShowEachStateDifferentlyAndAllSidesAlike) {
    const Control controls[]{
        {QStyle::PE_PanelButtonCommand,
         {{}, kAble, kAble | QStyle::State_MouseOver, kAble | QStyle::State_On, kAble | QStyle::State_Sunken}},
        {QStyle::PE_PanelLineEdit, {{}, kAble, kAble | QStyle::State_HasFocus}},
        {QStyle::PE_Frame, {{}, kAble, kAble | QStyle::State_HasFocus}},
        {QStyle::PE_FrameFocusRect, {{}, kAble}},
        {QStyle::PE_IndicatorRadioButton,
         {{}, kAble, QStyle::State_On, kAble | QStyle::State_On, kAble | QStyle::State_Sunken}},
        {QStyle::PE_IndicatorCheckBox, {{}, kAble, QStyle::State_On, kAble | QStyle::State_On}}};
    const ControlStyle style;
    for (const auto& [element, states] : controls) {
        QList<QImage> shown;
        for (const QStyle::State state : states) {
            const QImage image = Drawn(style, element, state);
            EXPECT_FALSE(shown.contains(image)) << element << ' ' << state;
            for (const QPoint side : {QPoint(14, 8), QPoint(8, 1), QPoint(8, 14)}) {
                EXPECT_NEAR(image.pixelColor(side).lightness(), image.pixelColor(1, 8).lightness(), 5)
                    << element << ' ' << state << ' ' << side.x();
            }
            for (const QPoint outside : {QPoint(0, 8), QPoint(15, 8), QPoint(8, 0), QPoint(8, 15)}) {
                EXPECT_EQ(image.pixelColor(outside), QColor(Qt::white)) << element << ' ' << state;
            }
            shown += image;
        }
    }
}

}  // namespace

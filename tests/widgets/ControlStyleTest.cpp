#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QStyleOption>

#include "widgets/ControlStyle.h"

namespace {

constexpr QStyle::State kAble = QStyle::State_Enabled;

struct Control {
    QStyle::PrimitiveElement element;
    QList<QStyle::State> states;
    bool isEven = true;  // the same from either side
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

TEST(ControlStyles, ShowEachStateDifferentlyAndEvenly) {
    const Control controls[]{
        {QStyle::PE_PanelButtonCommand,
         {{}, kAble, kAble | QStyle::State_MouseOver, kAble | QStyle::State_On, kAble | QStyle::State_Sunken}},
        {QStyle::PE_PanelLineEdit, {{}, kAble, kAble | QStyle::State_HasFocus}},
        {QStyle::PE_Frame, {{}, kAble, kAble | QStyle::State_HasFocus}},
        {QStyle::PE_FrameFocusRect, {{}, kAble}},
        {QStyle::PE_IndicatorRadioButton,
         {{}, kAble, QStyle::State_On, kAble | QStyle::State_On, kAble | QStyle::State_Sunken}},
        {QStyle::PE_IndicatorCheckBox, {{}, kAble, QStyle::State_On, kAble | QStyle::State_On}, false}};
    const ControlStyle style;
    for (const auto& [element, states, isEven] : controls) {
        QList<QImage> shown;
        for (const QStyle::State state : states) {
            const QImage image = Drawn(style, element, state);
            EXPECT_FALSE(shown.contains(image)) << element << ' ' << state;
            EXPECT_TRUE(!isEven || image == image.mirrored(true, true)) << element << ' ' << state;
            EXPECT_EQ(image.pixelColor(0, 8), QColor(Qt::white)) << element << ' ' << state;
            shown += image;
        }
    }
}

}  // namespace

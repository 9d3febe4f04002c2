#include "widgets/ControlStyle.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include "widgets/Contrast.h"
#include "widgets/FollowFont.h"
#include "widgets/Grid.h"

namespace {

constexpr double kEdge = 3.5;       // contrast of an edge; a little above what is asked for
constexpr double kFaintEdge = 1.5;  // of a disabled control
constexpr double kRadius = 4.0;     // of corners, pixels
constexpr double kStrong = 2.0;     // width of the edge of what has the focus, pixels
constexpr double kTonal = 0.32;     // of the colour of selections in the ground of the main action
constexpr char kMainAction[] = "mainAction";

// The ground of frames: between those of the form and of the fields.
QColor CardOf(const QPalette& palette) {
    return Mixed(palette.color(QPalette::Window), palette.color(QPalette::Base), 0.4);
}

// A theme without shades is one of high contrast: there the edges alone show where a control is.
QColor EdgeOf(const QStyleOption& option) {
    const QPalette& palette = option.palette;
    const QColor window = palette.color(QPalette::Window);
    const QColor base = palette.color(QPalette::Base);
    const QColor button = palette.color(QPalette::Button);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const bool enabled = (option.state & QStyle::State_Enabled) != 0;
    if (enabled && window == base && window == button) {
        return text;
    }
    return FirstWith(enabled ? kEdge : kFaintEdge, {window, base, button, CardOf(palette)}, window, text);
}

QColor AccentOf(const QStyleOption& option) {
    return (option.state & QStyle::State_Enabled) != 0 ? option.palette.color(QPalette::Highlight) : EdgeOf(option);
}

struct Look {
    QBrush fill;
    QColor edge;
    double width = 1.0;  // of the edge, pixels
    double radius = kRadius;
};

// The edge covers whole pixels of the device, at least one, so that it is as strong at every scale.
void DrawOutlined(QPainter& painter, const QRectF& place, const Look& look) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QTransform toDevice = painter.deviceTransform();
    const double scale = std::max(toDevice.m11(), 1.0);
    const QRectF outer = toDevice.inverted().mapRect(QRectF(toDevice.mapRect(place).toRect()));
    const double width = std::max(std::round(look.width * scale), 1.0) / scale;
    const QRectF inner = outer.adjusted(width, width, -width, -width);
    QPainterPath inside;
    inside.addRoundedRect(inner, std::max(look.radius - width, 0.0), std::max(look.radius - width, 0.0));
    QPainterPath edge;
    edge.addRoundedRect(outer, look.radius, look.radius);
    edge.addPath(inside);  // leaves it out
    painter.fillPath(inside, look.fill);
    painter.fillPath(edge, look.edge);
    painter.restore();
}

bool Has(const QStyleOption& option, QStyle::StateFlag flag) { return (option.state & flag) != 0; }

// What has the focus shows it by its edge, as fields do.
Look LookOfField(const QStyleOption& option) {
    const bool enabled = Has(option, QStyle::State_Enabled);
    const bool focus = enabled && Has(option, QStyle::State_HasFocus);
    return {option.palette.color(enabled ? QPalette::Base : QPalette::Window),
            focus ? AccentOf(option) : EdgeOf(option), focus ? kStrong : 1.0};
}

bool IsMainAction(const QWidget* widget) { return widget != nullptr && widget->property(kMainAction).toBool(); }

bool IsDefault(const QStyleOption& option) {
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button != nullptr && Has(option, QStyle::State_Enabled) &&
           (button->features & QStyleOptionButton::DefaultButton) != 0;
}

Look LookOfButton(const QStyleOption& option, bool main) {
    const QPalette& palette = option.palette;
    const bool enabled = Has(option, QStyle::State_Enabled);
    const QColor accent = AccentOf(option);
    const QColor button = palette.color(QPalette::Button);
    Look look{button, EdgeOf(option)};
    if (main && enabled) {
        look = {Mixed(button, accent, kTonal), accent, kStrong};
    }
    if (IsDefault(option)) {
        look = {accent, accent};
    }
    const double shade = !enabled                               ? 0.0
                         : Has(option, QStyle::State_Sunken)    ? 0.25
                         : Has(option, QStyle::State_On)        ? 0.2
                         : Has(option, QStyle::State_MouseOver) ? 0.08
                                                                : 0.0;
    look.fill = Mixed(look.fill.color(), palette.color(QPalette::ButtonText), shade);
    return look;
}

void DrawFocus(const QStyleOption& option, QPainter& painter) {
    Look look{Qt::NoBrush, AccentOf(option)};
    DrawOutlined(painter, option.rect, look);
}

void DrawRadio(const QStyleOption& option, QPainter& painter) {
    const bool on = Has(option, QStyle::State_On);
    const double radius = option.rect.width() / 2.0;
    Look look{option.palette.color(QPalette::Base), on ? AccentOf(option) : EdgeOf(option), 1.2, radius};
    if (on) {
        look.width = radius * 0.6;
    } else if (Has(option, QStyle::State_Sunken)) {
        look.fill = Mixed(look.fill.color(), look.edge, 0.4);
    }
    DrawOutlined(painter, option.rect, look);
}

void DrawCheck(const QStyleOption& option, QPainter& painter) {
    const bool on = Has(option, QStyle::State_On);
    Look look{option.palette.color(QPalette::Base), EdgeOf(option), 1.2, 3.0};
    if (on) {
        look = {AccentOf(option), AccentOf(option), 1.2, 3.0};
    }
    DrawOutlined(painter, option.rect, look);
    if (on) {
        const bool enabled = Has(option, QStyle::State_Enabled);
        const QRectF box(option.rect);
        const auto at = [&box](double x, double y) {
            return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
        };
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(option.palette.color(enabled ? QPalette::HighlightedText : QPalette::WindowText),
                            box.width() / 7.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF{at(0.24, 0.52), at(0.43, 0.71), at(0.77, 0.31)});
        painter.restore();
    }
}

// The chosen tab is open to its page and has a bar in the colour of selections.
void DrawTab(const QStyleOptionTab& tab, QPainter& painter) {
    const bool chosen = Has(tab, QStyle::State_Selected);
    const QColor window = tab.palette.color(QPalette::Window);
    QRect place = tab.rect;
    if (tab.position != QStyleOptionTab::End && tab.position != QStyleOptionTab::OnlyOneTab) {
        place.adjust(0, 0, 1, 0);  // neighbours share an edge
    }
    painter.save();
    painter.setClipRect(tab.rect.adjusted(0, 0, 1, 0));
    const QColor text = tab.palette.color(QPalette::WindowText);
    DrawOutlined(painter, chosen ? place.adjusted(0, 0, 0, 8) : place.adjusted(0, 2, 0, 8),
                 {chosen ? CardOf(tab.palette) : Mixed(window, text, Has(tab, QStyle::State_MouseOver) ? 0.1 : 0.04),
                  EdgeOf(tab)});
    if (chosen) {
        painter.fillRect(QRectF(place.left() + 1, place.top(), place.width() - 2, 2), AccentOf(tab));
    } else {
        painter.fillRect(QRectF(place.left(), place.bottom(), place.width(), 1), EdgeOf(tab));
    }
    painter.restore();
}

void DrawProgress(const QStyleOptionProgressBar& bar, QPainter& painter) {
    const double share =
        bar.maximum > bar.minimum ? static_cast<double>(bar.progress - bar.minimum) / (bar.maximum - bar.minimum) : 1.0;
    QRectF done = QRectF(bar.rect).adjusted(1, 1, -1, -1);
    done.setWidth(done.width() * std::clamp(share, 0.0, 1.0));
    painter.fillRect(done, bar.palette.color(QPalette::Highlight));
}

// `title`: its height, in pixels.
void DrawGroupFrame(const QStyleOption& group, int title, QPainter& painter) {
    constexpr int kBelowTitle = 3;
    // Newer versions of the toolkit leave the title out of the frame by themselves.
    QRect frame = group.rect;
    frame.setTop(title + kBelowTitle);
    DrawOutlined(painter, frame, {CardOf(group.palette), EdgeOf(group)});
}

}  // namespace

ControlStyle::ControlStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    switch (element) {
        case PE_PanelButtonCommand:
            return DrawOutlined(*painter, option->rect, LookOfButton(*option, IsMainAction(widget)));
        case PE_PanelLineEdit: {
            const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            if (frame != nullptr && frame->lineWidth > 0) {
                DrawOutlined(*painter, option->rect, LookOfField(*option));
            }
            return;
        }
        case PE_FrameLineEdit:
            return DrawOutlined(*painter, option->rect, LookOfField(*option));
        case PE_Frame: {
            Look look = LookOfField(*option);
            look.fill = Qt::NoBrush;
            return DrawOutlined(*painter, option->rect, look);
        }
        case PE_FrameGroupBox:
            return DrawGroupFrame(
                *option,
                std::max(pixelMetric(PM_ExclusiveIndicatorHeight, option, widget), option->fontMetrics.height()),
                *painter);
        case PE_FrameTabWidget:
            return DrawOutlined(*painter, option->rect, {CardOf(option->palette), EdgeOf(*option)});
        case PE_FrameMenu:
            return DrawOutlined(*painter, option->rect, {Qt::NoBrush, EdgeOf(*option), 1.0, 0.0});
        case PE_IndicatorRadioButton:
            return DrawRadio(*option, *painter);
        case PE_IndicatorCheckBox:
            return DrawCheck(*option, *painter);
        case PE_FrameFocusRect:
            return DrawFocus(*option, *painter);
        default:
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ControlStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (const auto* const tab = qstyleoption_cast<const QStyleOptionTab*>(option);
        tab && element == CE_TabBarTabShape) {
        return DrawTab(*tab, *painter);
    }
    const auto* const bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
    if (bar != nullptr && element == CE_ProgressBarGroove) {
        return DrawOutlined(*painter, bar->rect, {bar->palette.color(QPalette::Base), EdgeOf(*bar), 1.0, 0.0});
    }
    if (bar != nullptr && element == CE_ProgressBarContents) {
        return DrawProgress(*bar, *painter);
    }
    if (const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
        button && element == CE_PushButtonLabel && IsDefault(*button)) {
        QStyleOptionButton onAccent = *button;
        onAccent.palette.setColor(QPalette::ButtonText, button->palette.color(QPalette::HighlightedText));
        return QProxyStyle::drawControl(element, &onAccent, painter, widget);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
    switch (control) {
        case CC_ComboBox:
            return DrawComboBox(*option, *painter, widget);
        case CC_SpinBox:
            return DrawSpinBox(*option, *painter, widget);
        case CC_ScrollBar:
            return DrawScrollBar(*option, *painter, widget);
        default:
            return QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

void ControlStyle::DrawArrow(PrimitiveElement arrow, const QRect& place, const QStyleOption& option, QPainter& painter,
                             bool enabled) const {
    QStyleOption part = option;
    const int side = std::min({place.width(), place.height(), 9});
    part.rect = QRect(place.center() - QPoint(side / 2, side / 2), QSize(side, side));
    part.state = enabled ? State_Enabled : State_None;
    proxy()->drawPrimitive(arrow, &part, &painter, nullptr);
}

void ControlStyle::DrawComboBox(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
    Look look = LookOfField(option);
    look.fill = option.palette.color(QPalette::Button);
    DrawOutlined(painter, option.rect, look);
    DrawArrow(PE_IndicatorArrowDown, proxy()->subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, widget), option,
              painter, Has(option, State_Enabled));
}

void ControlStyle::DrawSpinBox(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
    DrawOutlined(painter, option.rect, LookOfField(option));
    const auto* const spin = qstyleoption_cast<const QStyleOptionSpinBox*>(&option);
    const auto step = [&](SubControl part, PrimitiveElement arrow, QAbstractSpinBox::StepEnabledFlag flag) {
        const bool enabled = spin == nullptr || (Has(option, State_Enabled) && (spin->stepEnabled & flag) != 0);
        DrawArrow(arrow, proxy()->subControlRect(CC_SpinBox, &option, part, widget), option, painter, enabled);
    };
    step(SC_SpinBoxUp, PE_IndicatorArrowUp, QAbstractSpinBox::StepUpEnabled);
    step(SC_SpinBoxDown, PE_IndicatorArrowDown, QAbstractSpinBox::StepDownEnabled);
}

void ControlStyle::DrawScrollBar(const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget) const {
    const auto part = [&](SubControl which) { return proxy()->subControlRect(CC_ScrollBar, &option, which, widget); };
    const bool level = Has(option, State_Horizontal);
    const bool enabled = Has(option, State_Enabled);
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
    DrawArrow(level ? PE_IndicatorArrowLeft : PE_IndicatorArrowUp, part(SC_ScrollBarSubLine), option, painter, enabled);
    DrawArrow(level ? PE_IndicatorArrowRight : PE_IndicatorArrowDown, part(SC_ScrollBarAddLine), option, painter,
              enabled);
    const QColor edge = EdgeOf(option);
    const QRect slider =
        part(SC_ScrollBarSlider).adjusted(level ? 0 : 3, level ? 3 : 0, level ? 0 : -3, level ? -3 : 0);
    DrawOutlined(painter, slider, {edge, edge});
}

// Margins and gaps of all layouts keep to one grid.
int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
            return kMargin;
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutVerticalSpacing:
            return kGap;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

void MakeMainAction(QPushButton& button) {
    button.setProperty(kMainAction, true);
    FollowFont(&button, [&button] {
        const int line = button.fontMetrics().height();
        button.setMinimumSize(6 * line + kGap, line + 2 * kGap);
    });
}

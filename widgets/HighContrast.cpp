#include "widgets/HighContrast.h"

#include <QApplication>
#include <QPalette>
#include <QProxyStyle>

namespace {

// It takes the colour of an edge from the ground, a little darker.
bool IsFusion(const QStyle* style) {
    const auto* const proxy = qobject_cast<const QProxyStyle*>(style);
    return (proxy != nullptr ? proxy->baseStyle() : style)->inherits("QFusionStyle");
}

}  // namespace

void KeepEdgesInSight() {
    constexpr int kBlack = 10;  // of 255; a darker edge does not show on it
    const QPalette theme = QApplication::palette();
    const QColor ground = theme.color(QPalette::Window);
    if (ground.value() > kBlack || !IsFusion(QApplication::style())) {
        return;
    }
    QPalette edges;
    for (const auto role : {QPalette::Light, QPalette::Midlight, QPalette::Mid, QPalette::Dark, QPalette::Shadow}) {
        edges.setColor(role, theme.color(QPalette::WindowText));
    }
    edges.setColor(QPalette::Disabled, QPalette::Light, ground);  // else their text casts a bright shadow
    QApplication::setStyle(QStringLiteral("Windows"));
    QApplication::setPalette(edges);
}

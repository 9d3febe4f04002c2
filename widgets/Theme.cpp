#include "widgets/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QStyle>
#include <utility>

#include "widgets/Contrast.h"
#include "widgets/ControlStyle.h"

namespace {

constexpr double kText = 4.6;       // a little above what is asked for: colours are rounded
constexpr double kWeakText = 6.6;   // of disabled controls: thin strokes do not reach their colour in any pixel
constexpr double kSelection = 3.2;  // likewise
constexpr int kShades = 32;         // of the selection, to try either way

QColor Farthest(const QColor& ground) {
    return ContrastOf(ground, Qt::black) > ContrastOf(ground, Qt::white) ? Qt::black : Qt::white;
}

void Set(QPalette& palette, QPalette::ColorGroup group, QPalette::ColorRole role, const QColor& colour) {
    if (palette.color(group, role) != colour) {
        palette.setColor(group, role, colour);
    }
}

// A selection may be too near to its text or to the ground. Its hue stays, it becomes darker or lighter; where that is
// not enough, its text changes.
void ReadSelection(QPalette& palette, QPalette::ColorGroup group) {
    const QColor theme = palette.color(group, QPalette::Highlight);
    const QColor text = palette.color(group, QPalette::HighlightedText);
    const QColor window = palette.color(group, QPalette::Window);
    const QColor base = palette.color(group, QPalette::Base);
    for (const QColor& ink : {text, QColor(Qt::black), QColor(Qt::white)}) {
        for (int step = 0; step < kShades; ++step) {
            for (const QColor& towards : {QColor(Qt::black), QColor(Qt::white)}) {
                const QColor selection = Mixed(theme, towards, static_cast<double>(step) / kShades);
                if (ContrastOf(selection, ink) >= kText && ContrastOn({window, base}, selection) >= kSelection) {
                    Set(palette, group, QPalette::Highlight, selection);
                    Set(palette, group, QPalette::HighlightedText, ink);
                    return;
                }
            }
        }
    }
}

void ReadTexts(QPalette& palette, QPalette::ColorGroup group) {
    const auto at = [&](QPalette::ColorRole role) { return palette.color(group, role); };
    const std::initializer_list<QColor> grounds{at(QPalette::Window), at(QPalette::Base), at(QPalette::Button)};
    const QColor strongest = Farthest(at(QPalette::Window));
    const double contrast = group == QPalette::Disabled ? kWeakText : kText;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText,
                            QPalette::Link, QPalette::LinkVisited}) {
        const QColor ink = Mixed(at(QPalette::Base), at(role), at(role).alphaF());
        Set(palette, group, role, FirstWith(contrast, grounds, ink, strongest));
    }
    const QColor tip = at(QPalette::ToolTipBase);
    Set(palette, group, QPalette::ToolTipText, FirstWith(kText, {tip}, at(QPalette::ToolTipText), Farthest(tip)));
}

template <typename Act>
void ForEachColour(const Act& act) {
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            act(group, static_cast<QPalette::ColorRole>(role));
        }
    }
}

// Follows each change of the application's palette. It sets nothing but the colours that it changes: all others go on
// to follow the theme.
class ThemeWatch : public QObject {
  public:
    explicit ThemeWatch(QObject* application) : QObject(application) {
        Apply();
        application->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ApplicationPaletteChange && watched == parent() && !applying_) {
            Apply();
        }
        return false;
    }

  private:
    void Apply() {
        const QScopedValueRollback applying(applying_, true);
        QPalette all = Foreign();
        QApplication::setPalette(all);
        const QPalette theme = QApplication::palette();
        const QPalette readable = Readable(theme);
        own_ = {};
        ForEachColour([&](QPalette::ColorGroup group, QPalette::ColorRole role) {
            if (readable.color(group, role) != theme.color(group, role)) {
                own_.setColor(group, role, readable.color(group, role));
                all.setColor(group, role, readable.color(group, role));
            }
        });
        QApplication::setPalette(all);
    }

    // What somebody else has set in the application's palette, over the theme.
    QPalette Foreign() const {
        const QPalette current = QApplication::palette();
        QPalette foreign;
        ForEachColour([&](QPalette::ColorGroup group, QPalette::ColorRole role) {
            const bool own = own_.isBrushSet(group, role) && own_.color(group, role) == current.color(group, role);
            if (current.isBrushSet(group, role) && !own) {
                foreign.setBrush(group, role, current.brush(group, role));
            }
        });
        return foreign;
    }

    QPalette own_;  // holds the colours that were changed alone
    bool applying_ = false;
};

}  // namespace

QPalette Readable(const QPalette& theme) {
    QPalette palette = theme;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        ReadTexts(palette, group);
        ReadSelection(palette, group);
    }
    return palette;
}

void FollowTheme() {
    static bool follows = false;
    if (std::exchange(follows, true)) {
        return;
    }
    if (QApplication::style()->inherits("QFusionStyle")) {
        QApplication::setStyle(new ControlStyle);
    }
    new ThemeWatch(qApp);
}

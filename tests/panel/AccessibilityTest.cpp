#include <QAccessible>
#include <QButtonGroup>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTextDocumentFragment>

#include "AllWindows.h"
#include "widgets/PictureBox.h"

namespace {

// What a screen reader says of a control.
QString Heard(QWidget* control, QAccessible::Text part = QAccessible::Name) {
    return QAccessible::queryAccessibleInterface(control)->text(part);
}

QString Described(QWidget* control) { return control->objectName() + u' ' + Heard(control); }

template <typename... Kinds>
QList<QWidget*> Shown(QWidget* window) {
    QList<QWidget*> shown;
    for (QWidget* const control : window->findChildren<QWidget*>()) {
        const bool ofKind = (... || (qobject_cast<Kinds*>(control) != nullptr));
        const bool scrolls = qobject_cast<QTabBar*>(control->parentWidget()) != nullptr;
        if (ofKind && control->isVisible() && control->window() == window && !scrolls) {
            shown += control;
        }
    }
    return shown;
}

// What a user acts on. The overview picture of Main only shows.
QList<QWidget*> ControlsOf(QWidget* window) {
    QList<QWidget*> controls = Shown<QAbstractButton, QLineEdit, QPlainTextEdit, QTabBar, QListWidget>(window);
    controls += window->objectName() == u"Editor" ? Shown<PictureBox>(window) : QList<QWidget*>();
    erase_if(controls, [](const QWidget* control) { return !control->isEnabled(); });
    return controls;
}

QList<QWidget*> TabStops(Qt::Key key) {
    QList<QWidget*> stops;
    while (stops.size() < 100 && !stops.contains(QApplication::focusWidget())) {
        stops += QApplication::focusWidget();
        QTest::keyClick(stops.last(), key);
    }
    return stops;
}

// The Tab key comes round, either way; it and the arrow keys within a group of options reach all there is.
void ExpectReachable(QWidget* window) {
    ASSERT_TRUE(Activate(window));
    ASSERT_NE(window->focusWidget(), nullptr);
    window->focusWidget()->clearFocus();
    QTest::keyClick(window, Qt::Key_Tab);
    const QList<QWidget*> stops = TabStops(Qt::Key_Tab);
    const QList<QWidget*> back = TabStops(Qt::Key_Backtab);
    EXPECT_EQ(QSet<QWidget*>(stops.begin(), stops.end()), QSet<QWidget*>(back.begin(), back.end()));
    EXPECT_EQ(QApplication::focusWidget(), stops.first());
    QSet<QWidget*> reached;
    const QWidget* former = window;
    for (QWidget* const stop : stops) {
        EXPECT_TRUE(former->parentWidget() != stop->parentWidget() || stop->x() > former->x() ||
                    stop->y() > former->y())
            << Described(stop);
        former = stop;
        const auto* const radio = qobject_cast<QRadioButton*>(stop);
        for (QWidget* option = stop; !reached.contains(option);) {
            reached += option;
            if (radio != nullptr) {
                option->setFocus();
                QTest::keyClick(option, Qt::Key_Down);
                option = radio->group()->checkedButton();
            }
        }
    }
    for (QWidget* const control : ControlsOf(window)) {
        EXPECT_TRUE(reached.contains(control)) << Described(control);
    }
}

void ExpectNamed(QWidget* window) {
    QSet<QString> names;
    for (QWidget* const control : ControlsOf(window)) {
        const QString name = Heard(control);
        EXPECT_NE(name, QString()) << Described(control);
        EXPECT_FALSE(names.contains(name)) << Described(control);
        names += name;
    }
    for (QWidget* const label : Shown<QLabel>(window)) {
        const QString text =
            QTextDocumentFragment::fromHtml(static_cast<QLabel*>(label)->text()).toPlainText().remove(u'&');
        EXPECT_TRUE(QString(Heard(label) + Heard(label, QAccessible::Description)).contains(text)) << Described(label);
    }
    for (const auto* const menu : window->findChildren<QMenu*>()) {
        QSet<QKeySequence> keys;
        for (const QAction* const item : menu->objectName().isEmpty() ? QList<QAction*>() : menu->actions()) {
            const QKeySequence mnemonic = QKeySequence::mnemonic(item->text());
            const QKeySequence key = mnemonic.isEmpty() ? item->shortcut() : mnemonic;
            EXPECT_EQ(key.isEmpty(), item->isSeparator()) << item->text();
            EXPECT_FALSE(!key.isEmpty() && keys.contains(key)) << item->text();
            keys += key;
        }
    }
}

// The name of a field stands beside it or above it.
void ExpectBesideItsField(QLabel& label, QWidget* window) {
    if (label.buddy() == nullptr || !label.buddy()->isVisible()) {
        return;
    }
    const QRect name(label.mapTo(window, QPoint()), label.size());
    const QRect field(label.buddy()->mapTo(window, QPoint()), label.buddy()->size());
    const bool beside = field.top() <= name.center().y() && name.center().y() <= field.bottom();
    const bool above = name.bottom() < field.top() && name.left() < field.right() && field.left() < name.right();
    EXPECT_TRUE(beside || above) << Described(&label);
}

// Nothing is cut off, nothing lies on something else, and the window fits on a common screen. What may scroll does not
// at this size.
void ExpectRoom(QWidget* window) {
    window->resize(window->minimumSize());
    QCoreApplication::processEvents();
    if (const auto* const scroll = window->findChild<QScrollArea*>()) {
        window->resize(window->size() + scroll->widget()->minimumSizeHint() - scroll->viewport()->size());
        QCoreApplication::processEvents();
    }
    const QList<QWidget*> controls =
        Shown<QLabel, QAbstractButton, QLineEdit, QPlainTextEdit, QListWidget, PictureBox>(window);
    for (qsizetype i = 0; i < controls.size(); ++i) {
        const QWidget& control = *controls[i];
        const QRect place(control.mapTo(window, QPoint()), control.size());
        const bool anyWidth = control.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        const bool readsWhole = qobject_cast<const QLabel*>(&control) || qobject_cast<const QAbstractButton*>(&control);
        EXPECT_TRUE(anyWidth || !readsWhole || control.width() >= control.sizeHint().width()) << Described(controls[i]);
        EXPECT_TRUE(!readsWhole || control.height() >= control.fontMetrics().height()) << Described(controls[i]);
        const int margin = window->objectName() == u"Editor" ? 0 : 4;  // its bars fill it
        EXPECT_TRUE(window->rect().adjusted(margin, margin, -margin, -margin).contains(place))
            << Described(controls[i]);
        if (const auto* const field = qobject_cast<const EntryField*>(&control); field != nullptr && !anyWidth) {
            EXPECT_GE(field->width(), field->fontMetrics().horizontalAdvance(field->text()) + 8) << field->text();
        }
        if (auto* const label = qobject_cast<QLabel*>(controls[i])) {
            ExpectBesideItsField(*label, window);
        }
        for (qsizetype k = 0; k < i; ++k) {
            const QRect other(controls[k]->mapTo(window, QPoint()), controls[k]->size());
            EXPECT_FALSE(place.intersects(other)) << Described(controls[i]) << " on " << Described(controls[k]);
        }
    }
    EXPECT_LE(window->width(), 1900);
    EXPECT_LE(window->height(), 1000);
}

struct LargeWindows : Windows {
    static void ScaleFonts(double factor) {
        QFont font;
        font.setPointSizeF(factor * font.pointSizeF());
        QApplication::setFont(font);
    }
    static void SetUpTestSuite() { ScaleFonts(2.0); }
    static void TearDownTestSuite() { ScaleFonts(0.5); }
};

TEST_F(Windows, AreReachedByKeys) { Check(ExpectReachable); }
TEST_F(Windows, AreHeard) { Check(ExpectNamed); }
TEST_F(LargeWindows, HaveRoom) {
    panel.mcFreq = panel.mhFreq = panel.msWobbel = panel.meWobbel = 15.0e6;
    Check(ExpectRoom);
}

}  // namespace

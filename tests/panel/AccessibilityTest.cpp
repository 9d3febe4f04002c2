#include <QAccessible>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTextDocumentFragment>
#include <QTimer>

#include "PanelBench.h"
#include "platform/HighContrast.h"
#include "platform/QtDesktop.h"

namespace {

// What a screen reader says of a control.
QString Heard(QWidget* control) {
    const auto* const heard = QAccessible::queryAccessibleInterface(control);
    return heard->text(QAccessible::Name) + u'|' + heard->text(QAccessible::Description);
}

std::string Described(QWidget* control) { return QString(control->objectName() + u' ' + Heard(control)).toStdString(); }

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
    QList<QWidget*> controls = Shown<QAbstractButton, QLineEdit, QPlainTextEdit, QTabBar>(window);
    controls += window->objectName() == u"Editor" ? Shown<PictureBox>(window) : QList<QWidget*>();
    erase_if(controls, [](const QWidget* control) { return !control->isEnabled(); });
    return controls;
}

QList<QWidget*> TabStops(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QList<QWidget*> stops;
    while (stops.size() < 100 && !stops.contains(QApplication::focusWidget())) {
        stops += QApplication::focusWidget();
        QTest::keyClick(stops.last(), key, modifiers);
    }
    return stops;
}

bool ReadsOnward(const QWidget* from, const QWidget* to) {
    return from->parentWidget() != to->parentWidget() || to->x() > from->x() || to->y() > from->y();
}

// The Tab key comes round, either way; it and the arrow keys within a group of options reach all there is.
void ExpectReachable(QWidget* window) {
    QApplication::setActiveWindow(window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window) && QApplication::focusWidget() != nullptr);
    QList<QWidget*> stops = TabStops(Qt::Key_Tab, {});
    const QWidget* top = window->nextInFocusChain();
    while (!stops.contains(top)) {
        top = top->nextInFocusChain();
    }
    const QList<QWidget*> back = TabStops(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QSet<QWidget*>(stops.begin(), stops.end()), QSet<QWidget*>(back.begin(), back.end()));
    EXPECT_EQ(QApplication::focusWidget(), stops.first());
    std::rotate(stops.begin(), std::find(stops.begin(), stops.end(), top), stops.end());
    QSet<QWidget*> reached;
    for (qsizetype i = 0; i < stops.size(); ++i) {
        EXPECT_TRUE(i == 0 || ReadsOnward(stops[i - 1], stops[i]))
            << Described(stops[i - 1]) << " -> " << Described(stops[i]);
        reached += stops[i];
        QAbstractButton* option = qobject_cast<QRadioButton*>(stops[i]);
        const QButtonGroup* const group = option != nullptr ? option->group() : nullptr;
        while (option != nullptr) {
            option->setFocus();
            QTest::keyClick(option, Qt::Key_Down);
            option = reached.contains(group->checkedButton()) ? nullptr : group->checkedButton();
            reached += group->checkedButton();
        }
    }
    for (QWidget* const control : ControlsOf(window)) {
        EXPECT_TRUE(reached.contains(control)) << Described(control);
    }
}

void ExpectNamed(QWidget* window) {
    QSet<QString> names;
    for (QWidget* const control : ControlsOf(window)) {
        const QString name = Heard(control).section(u'|', 0, 0);
        EXPECT_FALSE(name.isEmpty() || names.contains(name)) << Described(control);
        names += name;
        const bool hasUnit = window->objectName() == u"Main" && qobject_cast<EntryField*>(control) != nullptr;
        EXPECT_TRUE(!hasUnit || name.contains(u", in ")) << Described(control);
    }
    for (QWidget* const label : Shown<QLabel>(window)) {
        const QString text = QTextDocumentFragment::fromHtml(static_cast<QLabel*>(label)->text()).toPlainText();
        EXPECT_TRUE(Heard(label).contains(text)) << Described(label);
    }
    for (const auto* const menu : window->findChildren<QMenu*>()) {
        QSet<QKeySequence> keys;
        for (const QAction* const item : menu->objectName().isEmpty() ? QList<QAction*>() : menu->actions()) {
            const QKeySequence letter = QKeySequence::mnemonic(item->text());
            const QKeySequence key = letter.isEmpty() ? item->shortcut() : letter;
            EXPECT_TRUE(item->isSeparator() || !(key.isEmpty() || keys.contains(key))) << item->text().toStdString();
            keys += key;
        }
    }
}

// Nothing is cut off, nothing lies on something else, and the window fits on a common screen.
void ExpectRoom(QWidget* window) {
    const QList<QWidget*> controls = Shown<QLabel, QAbstractButton, QLineEdit, QPlainTextEdit, PictureBox>(window);
    for (qsizetype i = 0; i < controls.size(); ++i) {
        const QWidget& control = *controls[i];
        const QRect place(control.mapTo(window, QPoint()), control.size());
        const bool anyWidth = control.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        const bool readsWhole = qobject_cast<const QLabel*>(&control) || qobject_cast<const QAbstractButton*>(&control);
        EXPECT_TRUE(anyWidth || !readsWhole || control.width() >= control.sizeHint().width()) << Described(controls[i]);
        EXPECT_TRUE(!readsWhole || control.height() >= control.fontMetrics().height()) << Described(controls[i]);
        EXPECT_TRUE(window->rect().contains(place)) << Described(controls[i]);
        for (qsizetype k = 0; k < i; ++k) {
            const QRect other(controls[k]->mapTo(window, QPoint()), controls[k]->size());
            EXPECT_FALSE(place.intersects(other)) << Described(controls[i]) << " on " << Described(controls[k]);
        }
    }
    EXPECT_TRUE(window->minimumSizeHint().width() <= 1900 && window->minimumSizeHint().height() <= 1000);
}

// Windows in letters of a size.
class LetterSize {
  public:
    explicit LetterSize(double scale) : former_(QApplication::font()) {
        QFont font(former_);
        font.setPointSizeF(scale * font.pointSizeF());
        QApplication::setFont(font);
    }
    ~LetterSize() { QApplication::setFont(former_); }
    Q_DISABLE_COPY_MOVE(LetterSize)

  private:
    QFont former_;
};

using Check = void (*)(QWidget*);

class AccessibilityBench : private LetterSize, public PanelBench {
  public:
    explicit AccessibilityBench(double scale = 1.0) : LetterSize(scale) {}

    void CheckMain(Check check) {
        Open();
        Get("opsignal_0")->setFocus();
        form->FlashMessage(QStringLiteral("a hint"));
        check(form.get());
        for (const char* const kind : {"opmod_0", "opmod_1", "opmod_2"}) {
            ShowTab(1);
            Click(kind);
            check(form.get());
        }
        ShowTab(2);
        Click("opwob_1");
        check(form.get());
    }
    void CheckDialogs(Check check) {
        Open();
        Get<QAction>("mnucom")->trigger();
        check(Get("comset"));
        Get<QAction>("mnuabout")->trigger();
        check(Get("about"));
        QtDesktop boxes;
        QTimer whenShown;
        QObject::connect(&whenShown, &QTimer::timeout, form.get(), [check] {
            if (QWidget* const box = QApplication::activeModalWidget()) {
                check(box);
                box->close();
            }
        });
        whenShown.start();
        boxes.MessageBox(QStringLiteral("a"), QStringLiteral("b"));
        EXPECT_FALSE(boxes.Question(QStringLiteral("a"), QStringLiteral("b")));
    }
    void CheckEditor(Check check) {
        Open();
        desktop.answer = true;
        desktop.chosen = folder.filePath(QStringLiteral("a.set"));
        Get<QAction>("mnueditor")->trigger();
        program.editor.CopyEnd = 100;  // there is something to paste
        FormHands<QWidget, QWidget*> editor;
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            editor.form = window->objectName() == u"Editor" ? window : editor.form;
        }
        editor.form->resize(editor.form->minimumSize());
        ASSERT_TRUE(editor.Show());
        desktop.chosen = folder.filePath(QStringLiteral("a.con"));
        check(editor.form);
        editor.Click("opEditmode_1");
        check(editor.form);
        form.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // while its state stands
    }
};

using Accessibility = AccessibilityBench;

struct InLargeLetters : AccessibilityBench {
    InLargeLetters() : AccessibilityBench(2.0) {}
};

TEST_F(Accessibility, EveryControlOfMainIsReachedByKeys) { CheckMain(ExpectReachable); }
TEST_F(Accessibility, EveryControlOfADialogIsReachedByKeys) { CheckDialogs(ExpectReachable); }
TEST_F(Accessibility, EveryControlOfTheEditorIsReachedByKeys) { CheckEditor(ExpectReachable); }
TEST_F(Accessibility, WhatMainShowsIsHeard) { CheckMain(ExpectNamed); }
TEST_F(Accessibility, WhatADialogShowsIsHeard) { CheckDialogs(ExpectNamed); }
TEST_F(Accessibility, WhatTheEditorShowsIsHeard) { CheckEditor(ExpectNamed); }
TEST_F(InLargeLetters, MainHasRoom) { CheckMain(ExpectRoom); }
TEST_F(InLargeLetters, DialogsHaveRoom) { CheckDialogs(ExpectRoom); }
TEST_F(InLargeLetters, TheEditorHasRoom) { CheckEditor(ExpectRoom); }

TEST(HighContrast, EdgesStayInSight) {
    const QPalette former = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::yellow, Qt::black, Qt::black, Qt::black, Qt::black, Qt::yellow, Qt::black));
    KeepEdgesInSight();
    QLineEdit field;
    const QImage image = field.grab().toImage();
    EXPECT_EQ(image.pixelColor(image.width() / 2, 0), QColor(Qt::yellow));
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(former);
}

}  // namespace

#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTextFrame>
#include <QWheelEvent>

#include "PanelBench.h"
#include "support/FileHands.h"

namespace {

struct Typing : OpenPanel {
    void Keys(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text)); }
    void Hold(Qt::Key key, int repeats) {
        Key(key);
        for (int i = 0; i < repeats; ++i) {
            QKeyEvent again(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(QApplication::focusWidget(), &again);
        }
    }
    // In the text of a field, "|" for the cursor, or the whole of it in brackets where it is selected.
    QString Shown(const char* name) {
        const auto* const field = Get<EntryField>(name);
        return field->selectedText() == field->text() ? u'[' + field->text() + u']'
                                                      : field->text().insert(field->cursorPosition(), u'|');
    }
    void Place(const char* name, int cursor) {
        Get(name)->setFocus();
        Key(Qt::Key_Home);
        for (int i = 0; i < cursor; ++i) {
            Key(Qt::Key_Right);
        }
    }
};

TEST_F(Typing, TakesThePlaceOfWhatStoodThere) {
    Click("unit_1");
    Keys("250");
    Key(Qt::Key_Return);
    EXPECT_DOUBLE_EQ(panel.mFreq, 250.0e3);
    Click("Text2");
    Keys("3");
    Key(Qt::Key_Return);
    Keys("5");
    Key(Qt::Key_Return);
    EXPECT_EQ(Shown("Text2"), u"[5.00000]");
    Get("Text4")->setFocus();
    Keys("0.1");
    Key(Qt::Key_Return);
    form->RefreshPanel();
    Keys("0.2");
    Key(Qt::Key_Return);
    EXPECT_DOUBLE_EQ(panel.mOffset, 0.2);
}

TEST_F(Typing, ASecondClickPlacesTheCursorAndADragSelects) {
    const QPoint right(Get("Text2")->width() - 6, 10);
    QTest::mouseClick(Get("Text2"), Qt::LeftButton, {}, right);
    EXPECT_EQ(Shown("Text2"), u"[1.00000]");
    QTest::mouseClick(Get("Text2"), Qt::LeftButton, {}, right);
    EXPECT_EQ(Shown("Text2"), u"1.00000|");
    Get<EntryField>("Text4")->end(false);
    const QPoint end = Get("Text4")->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    const QPoint digit = end - QPoint(Get("Text4")->fontMetrics().horizontalAdvance(u'0') * 3 / 2, 0);
    QTest::mousePress(Get("Text4"), Qt::LeftButton, {}, end);
    QTest::mouseMove(Get("Text4"), digit);
    QMouseEvent move(QEvent::MouseMove, QPointF(digit), {}, Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(Get("Text4"), &move);
    QTest::mouseRelease(Get("Text4"), Qt::LeftButton, {}, digit);
    const QString dragged = Get<EntryField>("Text4")->selectedText();
    EXPECT_NE(dragged, QString());
    EXPECT_NE(dragged, Text("Text4"));
}

TEST_F(Typing, AWindowOrPopupThatGivesTheFocusBackSpoilsNoEntry) {
    for (const Qt::FocusReason reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
        Type("Text2", "3.2");
        QFocusEvent out(QEvent::FocusOut, reason);
        QFocusEvent in(QEvent::FocusIn, reason);
        QApplication::sendEvent(Get("Text2"), &out);
        QApplication::sendEvent(Get("Text2"), &in);
        EXPECT_EQ(Shown("Text2"), u"3.2|");
    }
    // What was shown meanwhile is no entry of the user's.
    QWidget other;
    other.show();
    ASSERT_TRUE(Activate(&other));
    form->RefreshPanel();
    ASSERT_TRUE(Activate(form.get()));
    EXPECT_EQ(Shown("Text2"), u"[1.00000]");
}

TEST_F(Typing, KeysStepTheDigitLeftOfTheCursor) {
    const auto frequency = [this](int cursor, Qt::Key key, const char16_t* shown, const char16_t* unit) {
        Place("Text1", cursor);
        Key(key);
        EXPECT_EQ(Shown("Text1"), QStringView(shown));
        EXPECT_EQ(Get<QLabel>("Label4")->text(), QStringView(unit));
    };
    frequency(4, Qt::Key_Up, u"1.01|00000", u"kHz");
    frequency(4, Qt::Key_PageDown, u"91|0.0000", u"Hz");
    panel.mFreq = 999.9995;
    form->RefreshPanel();
    frequency(5, Qt::Key_Up, u"1.0000|995", u"kHz");  // the same digit in another unit
    Key(Qt::Key_Down);
    EXPECT_EQ(Shown("Text1"), u"999.9|995");
    panel.mOffset = 0.2;
    form->RefreshPanel();
    Place("Text4", 3);
    for (const char16_t* const shown : {u"0.1|000", u"0.0|000", u"-0.1|000"}) {
        Key(Qt::Key_Down);
        EXPECT_EQ(Shown("Text4"), QStringView(shown));
    }
    Get("Text2")->setFocus();
    Get("Text4")->setFocus();
    Key(Qt::Key_Up);  // all selected: the first digit that is not 0
    EXPECT_EQ(Shown("Text4"), u"0.0|000");
    Get("Text2")->setFocus();
    Get("Text4")->setFocus();
    Key(Qt::Key_Up);  // or the units
    EXPECT_EQ(Shown("Text4"), u"0|.5000");
    Type("Text1", "2E2");
    Key(Qt::Key_Up);  // of what was typed, first
    EXPECT_EQ(Shown("Text1"), u"3|00.0000");
}

TEST_F(Typing, AHeldKeyMeetsALimitOnce) {
    panel.mFreq = 14.5e6;
    form->RefreshPanel();
    Place("Text1", 2);
    desktop.beeps = 0;
    Hold(Qt::Key_Up, 5);
    EXPECT_EQ(Shown("Text1"), u"15|.0000000000");
    EXPECT_EQ(desktop.beeps, 1);
    Hold(Qt::Key_Up, 5);
    EXPECT_EQ(desktop.beeps, 2);
}

// A busy window system may pass on the repeats of a held key without their mark.
TEST_F(Typing, AHeldKeySendsOnceHoweverItsRepeatsAreMarked) {
    Connect();
    QWidget* const field = QApplication::focusWidget();
    const auto press = [&](ulong ms) { qt_sendShortcutOverrideEvent(field, ms, Qt::Key_F5, Qt::NoModifier, {}); };
    const auto release = [&](ulong ms) {
        QKeyEvent event(QEvent::KeyRelease, Qt::Key_F5, Qt::NoModifier);
        event.setTimestamp(ms);
        QApplication::sendEvent(field, &event);
    };
    line.wire.clear();
    press(1000);
    for (const ulong ms : {1500UL, 1530UL, 1560UL}) {
        release(ms);
        press(ms);
    }
    EXPECT_EQ(line.wire.count("sta?"), 1);
    release(1600);
    press(1700);
    EXPECT_EQ(line.wire.count("sta?"), 2);
}

TEST_F(Typing, TheWheelStepsOnlyWhereTheFocusIs) {
    const auto turn = [this](const char* name, int angle) {
        QWheelEvent event({5, 5}, Get(name)->mapToGlobal(QPointF(5, 5)), {}, {0, angle}, {}, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(Get(name), &event);
    };
    Place("Text2", 3);
    turn("Text2", 240);
    turn("Text2", 60);
    turn("Text2", 60);
    turn("Text4", 120);
    EXPECT_EQ(Shown("Text2"), u"1.3|0000");
    EXPECT_EQ(panel.mOffset, 0.0);
}

TEST_F(Typing, KeysDoTheMainWork) {
    Connect();
    const auto press = [this](int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        line.wire.clear();
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        return QString::fromLatin1(line.wire).replace(u'\r', u' ');
    };
    Type("Text1", "2");
    EXPECT_TRUE(press(Qt::Key_Return).contains(u"2000.0"));  // committed, then sent
    EXPECT_EQ(Shown("Text1"), u"[0.0000]");                  // and read back
    EXPECT_FALSE(press(Qt::Key_F5, {}).contains(u"frq:"));
    EXPECT_EQ(press(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier), u"OT1 ");
    EXPECT_TRUE(Checked("Opoutput_0"));
    press(Qt::Key_3);
    EXPECT_EQ(Get<QTabWidget>("SSTab1")->currentIndex(), 2);
    press(Qt::Key_1);
    EXPECT_EQ(Get<QTabWidget>("SSTab1")->currentIndex(), 0);
}

TEST_F(Typing, TheGuideOpensOnceOrSaysWhereItBelongs) {
    Get<QAction>("mnuguide")->trigger();
    EXPECT_EQ(desktop.boxes.size(), 1);
    const QString page = WriteFile(folder.filePath(QStringLiteral("docs/guide/README.md")),
                                   "# The guide\n\n![wide](wide.png)\n\n|a|b|\n|---|---|\n|1|2|\n");
    QImage(2000, 400, QImage::Format_RGB32).save(folder.filePath(QStringLiteral("docs/guide/wide.png")));
    for (int i = 0; i < 2; ++i) {
        Get<QAction>("mnuguide")->trigger();
        EXPECT_TRUE(Get<QTextBrowser>("pages")->toPlainText().startsWith(u"The guide"));
    }
    auto* const pages = Get<QTextBrowser>("pages");
    for (const int width : {500, 900}) {
        pages->window()->resize(width, 300);
        QCoreApplication::processEvents();
        EXPECT_EQ(pages->horizontalScrollBar()->maximum(), 0);
        EXPECT_GT(pages->document()->size().height(), (width - 60) / 5) << "the picture has its shape";
    }
    const QString other = folder.filePath(QStringLiteral("docs/guide/other.md"));
    ASSERT_TRUE(QFile::copy(page, other));
    pages->setSource(QUrl::fromLocalFile(other));
    QTest::keyClick(pages, Qt::Key_Return);
    EXPECT_EQ(pages->source().fileName(), u"other.md");
    Get<QPushButton>("back")->click();
    for (const QTextFrame* const table : pages->document()->rootFrame()->childFrames()) {
        EXPECT_EQ(table->frameFormat().borderStyle(), QTextFrameFormat::BorderStyle_Solid);
    }
    EXPECT_EQ(pages->document()->rootFrame()->childFrames().size(), 1);
    EXPECT_EQ(form->findChildren<QTextBrowser*>().size(), 1);
    EXPECT_LT(Get<QPushButton>("back")->geometry().right(), pages->width() / 2);  // not drawn out
    EXPECT_EQ(desktop.boxes.size(), 1);
}

}  // namespace

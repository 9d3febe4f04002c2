#include <QFileInfo>
#include <QPlainTextEdit>
#include <QTimer>

#include "PanelBench.h"

namespace {

using MainForm = OpenPanel;

using DefaultsFile = PanelBench;

const QString kNewDefaults = QStringLiteral("Load default settings|Generate new default settings");

TEST_F(DefaultsFile, IsMadeEmptyAtTheFirstRun) {
    form->Main_Form_Load();
    EXPECT_EQ(desktop.boxes, QStringList(kNewDefaults));
    program.preferences.ComPortNumber = 4;
    EXPECT_TRUE(form->close());  // answered with No
    EXPECT_EQ(QFileInfo(folder.filePath(QStringLiteral("5276.def"))).size(), 0);
}

TEST_F(DefaultsFile, GivesOneBoxInTroubleAndTheProgramEnds) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("5276.def")));  // can't be opened as a file
    form->Main_Form_Load();
    EXPECT_EQ(desktop.boxes, QStringList(kNewDefaults));
    desktop.answer = true;
    EXPECT_TRUE(form->close());
    EXPECT_EQ(desktop.boxes.constLast(), u"Save Settings|Data Error: Save settings");
}

TEST_F(MainForm, ASelectionFromCodeOrByAClickTakesTheTabStopAlong) {
    panel.bmSignal = 3;
    form->RefreshPanel();
    EXPECT_EQ(Get("opsignal_3")->focusPolicy(), Qt::StrongFocus);
    ShowTab(2);
    for (const auto& [clicked, other] : {std::pair("opmodes_1", "opmodes_0"), {"opmodes_0", "opmodes_1"}}) {
        Click(clicked);
        EXPECT_EQ(Get(clicked)->focusPolicy(), Qt::StrongFocus) << clicked;
        EXPECT_EQ(Get(other)->focusPolicy(), Qt::ClickFocus) << clicked;
    }
}

TEST_F(MainForm, HintBlinksForItsTicksAndStartsAnewWithTheNext) {
    auto* const hint = Get<QLabel>("Label8");
    auto* const timer = Get<QTimer>("Timer3");
    QList<QColor> grounds;
    QObject::connect(timer, &QTimer::timeout, hint, [&] { grounds += hint->palette().color(QPalette::Window); });
    timer->setInterval(1);  // the ticks count, not their length
    form->FlashMessage(QStringLiteral("  first "));
    EXPECT_EQ(hint->text(), u"first");
    ASSERT_TRUE(QTest::qWaitFor([&] { return grounds.size() >= 10; }));
    Click("Command4");
    EXPECT_EQ(desktop.beeps, 2);
    grounds.clear();
    ASSERT_TRUE(QTest::qWaitFor([&] { return hint->text().isEmpty(); }));
    EXPECT_EQ(grounds.size(), 41);
    EXPECT_EQ(grounds.at(1), QColor(0, 255, 0));
    EXPECT_EQ(grounds.at(40), QColor(255, 255, 0));
    EXPECT_FALSE(timer->isActive());
    const int width = hint->parentWidget()->minimumSizeHint().width();
    form->FlashMessage(QString(300, u'x'));
    EXPECT_EQ(hint->parentWidget()->minimumSizeHint().width(), width);
}

TEST_F(MainForm, TheOverviewFollowsTheSignalTheSizeAndTheReturnToItsTab) {
    const auto picture = [this] { return Get("Picture1")->grab().toImage(); };
    const QImage sine = picture();
    Click("opsignal_1");
    EXPECT_NE(picture(), sine);
    form->resize(form->size() + QSize(0, 77));
    QCoreApplication::processEvents();
    const QImage resized = picture();
    ShowTab(2);
    Click("opmodes_3");
    EXPECT_FALSE(Get<QPlainTextEdit>("Text3")->toPlainText().contains(u"positive slope"));
    ShowTab(0);
    EXPECT_TRUE(Get<QPlainTextEdit>("Text3")->toPlainText().endsWith(u"Mode: Triggered positive slope"));
    EXPECT_EQ(picture(), resized);  // drawn, not stretched, at its new size
}

}  // namespace

#include <QDropEvent>
#include <QMimeData>
#include <QTreeWidget>

#include "EditorBench.h"

namespace {

// The window `recording` over the editor, used by keys.
struct RecordingForm : EditorBench {
    QString Write(const QByteArray& text) { return WriteFile(folder.filePath(QStringLiteral("scope.csv")), text); }
    void OpenFile(const QString& fileName) {
        EXPECT_FALSE(Standing());
        desktop.chosen = fileName;
        Get<QAction>("mnuopenrec")->trigger();
        AwaitWindow();
    }
    void OpenText(const QByteArray& text) { OpenFile(Write(text)); }
    void AwaitWindow() {
        auto* const window = form->findChild<RecordingWindow*>(QStringLiteral("recording"));
        ASSERT_TRUE(window != nullptr && Activate(window));
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Says("found").startsWith(u"Reading"); }));
    }
    QString Sets() {
        return QStringList{Get<QLineEdit>("frequency")->text(), Says("frequencyUnit"), Get<QLineEdit>("level")->text(),
                           Get<QLineEdit>("offset")->text()}
            .join(u' ');
    }
    bool Ready() { return Get("cbok")->isEnabled(); }
    bool Standing() { return Stands("recording"); }
    void ExpectRefused(const char16_t* says) {
        EXPECT_TRUE(Says("found").startsWith(says)) << Says("found");
        EXPECT_FALSE(Ready());
    }
    QStringList Listed() {
        QStringList lines;
        for (QTreeWidgetItemIterator item(Get<QTreeWidget>("channels")); *item != nullptr; ++item) {
            EXPECT_FALSE((*item)->icon(0).isNull());
            lines += QStringList{(*item)->text(0), (*item)->text(1), (*item)->text(2), (*item)->text(3)}.join(u'|');
        }
        return lines;
    }
    QString Table(const QString& file) { return Rows(file, Size().table); }
    bool Drop(const QList<QUrl>& urls) {
        QMimeData dragged;
        dragged.setUrls(urls);
        QDragEnterEvent enter({50, 50}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        enter.ignore();
        QApplication::sendEvent(form.get(), &enter);
        QDropEvent drop({50, 50}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QApplication::sendEvent(form.get(), &drop);
        return enter.isAccepted();
    }

    // 8192 rows, 10 us each: a ramp from 0 V to 8.191 V in a channel, a hole in another.
    const QByteArray ramp = [] {
        QByteArray text = "Model,X1\nTime (s),CH1 (V),CH2 (mV)\n";
        for (int i = 0; i < 8192; ++i) {
            text += QByteArray::number(i * 1e-5) + ',' + QByteArray::number(i * 1e-3) + ',' +
                    (i == 4000 ? QByteArray() : QByteArray::number(i % 2)) + '\n';
        }
        return text;
    }();
};

TEST_F(RecordingForm, WritesAChannelOverTheMemoryInOneStep) {
    const QString before = Table(set);
    OpenText(ramp);
    EXPECT_EQ(desktop.dialogs.last().section(u'|', 0, 1), u"open|Open recording");
    EXPECT_EQ(
        Says("found"),
        u"8192 rows in lines 3 to 8194. Sample interval: 10 \u00b5s. Duration: 81.92 ms. Lines left out as header "
        "or remarks: 2.");
    EXPECT_EQ(Listed(), QStringList({QStringLiteral("CH1|V|0|8.191"), QStringLiteral("CH2 (can't be taken)|mV||"),
                                     QStringLiteral("Time (time)|s|0|0.08191")}));
    const QImage curve = Get<QTreeWidget>("channels")->topLevelItem(0)->icon(0).pixmap(72, 20).toImage();
    for (const QPoint corner : {QPoint(2, 17), QPoint(69, 2)}) {  // of a ramp
        const QPointF place = QPointF(corner) * curve.devicePixelRatio();
        EXPECT_NE(curve.pixel(place.toPoint()), curve.pixel(2, 2)) << corner.x();
    }
    EXPECT_EQ(Sets(), u"12.2070 Hz 8.1900 4.0955");
    ExpectChecked({"use_1", "scale_0"});
    EXPECT_TRUE(Ready());
    Key(Qt::Key_Return);
    EXPECT_FALSE(Standing());
    EXPECT_FALSE(desktop.busy);
    ExpectMemory("0=-2047 1=-2046 2048=0 4095=2047");
    EXPECT_EQ(Get<QAction>("mnuundo")->text(), u"&Undo open recording");
    Choose("mnuundo");
    EXPECT_EQ(Table(set), before);
}

TEST_F(RecordingForm, TakesThePartAndTheScaleThatAreChosen) {
    OpenText(ramp);
    auto* const preview = Get<RecordingPreview>("preview");
    preview->setFocus();  // from the middle to the right edge
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_End, Qt::Key_Space}) {
        Key(key);
    }
    EXPECT_NEAR(Get<QSpinBox>("first")->value(), 4096, 40);
    Click("whole");
    PictureHands{preview}.Drag(0.25, 0.75);
    const int first = Get<QSpinBox>("first")->value();
    EXPECT_NEAR(first, 2049, 25);
    EXPECT_NEAR(Get<QSpinBox>("last")->value(), 6144, 25);
    PictureHands{preview}.Drag(1.0, 0.0);  // from right to left, all of what is shown
    EXPECT_EQ(Get<QSpinBox>("first")->value(), first);
    Click("whole");
    EXPECT_EQ(Get<QSpinBox>("first")->value(), 1);
    EXPECT_EQ(Get<QSpinBox>("last")->value(), 8192);
    TypeOver("first", "4097");
    TypeOver("last", "1");
    EXPECT_EQ(Sets(), u"24.4081 Hz 4.0960 2.0480");  // 4097 rows, either way round
    Click("scale_2");
    EXPECT_EQ(Sets(), u"24.4081 Hz 8.1920 0.0000");
    Click("scale_1");
    EXPECT_EQ(state.RecordingScale, RecordedScale::Trace);
    Click("cbok");
    ExpectMemory("0=-1500 4095=1500");
    OpenText(ramp);
    EXPECT_TRUE(Checked("scale_1"));  // as it was left
}

TEST_F(RecordingForm, IsReadyToPasteWithoutAnOldSampleInFront) {
    state.CopyBuffer.fill(99);
    OpenText("V\n1\n-1\n");
    Click("use_0");
    TypeOver("addresses", "100");
    EXPECT_EQ(Sets(), u"unknown  2.0000 0.0000");
    Key(Qt::Key_Return);
    EXPECT_FALSE(Standing());
    EXPECT_TRUE(Checked("opPenmode_3"));
    EXPECT_EQ(std::tuple(state.CopyStart, state.CopyEnd), std::tuple(0, 99));
    EXPECT_EQ(std::tuple(state.CopyBuffer[0], state.CopyBuffer[99], state.CopyBuffer[100]),
              std::tuple(2047, -2047, 99));
    Paste(1200);
    ExpectMemory("1199=199 1200=2047 1299=-2047 1300=300");
}

TEST_F(RecordingForm, BecomesThePointsOfTheSignal) {
    desktop.answer = false;  // no new construction file, and no old one
    for (const bool answered : {false, true}) {
        OpenText("V\n1\n-1\n");
        desktop.answer = answered;
        desktop.chosen = answered ? con : QString();
        Click("use_2");
        Click("cbok");
        EXPECT_EQ(Standing(), !answered);
        EXPECT_FALSE(desktop.busy);
        if (!answered) {
            Key(Qt::Key_Escape);
        }
    }
    EXPECT_TRUE(Checked("opEditmode_1"));
    EXPECT_EQ(Ask(con, "select count(*) || ' ' || min(Adr) || ' ' || max(Adr) from ARB4"), u"4096 0 4095");
    EXPECT_EQ(Rows(con, "ARB4 where Adr in (0, 4095)"), u"0=2047 4095=-2047");
    Choose("mnuundo");
    EXPECT_EQ(Table(con), u"0=0 4095=0");
}

TEST_F(RecordingForm, WhatSaveAsCsvWroteComesBackExactly) {
    EditSignal("(0, 5), (9, -2047), (9, 8), (4095, 3000)");
    Execute(con, "delete from ARB16; insert into ARB16 values (0, 1), (16384, -7)");
    Execute(set, "update ARB4 set Value = -2060 where Adr = 17; delete from ARB16 where Adr = 9");
    for (const char* const mode : {"opEditmode_0", "opEditmode_1"}) {
        for (const char* const size : {"mnu4ksig", "mnu16ksig"}) {
            Click(mode);
            Choose(size);
            const QString file = state.Target == EditTarget::Memory ? set : con;
            const QString saved = folder.filePath(QStringLiteral("table.csv"));
            desktop.chosen = saved;
            Choose("mnusavecsv");
            const QString before = Table(file);
            Execute(file, std::string("delete from ") + Size().table + " where Adr < 4000; update " + Size().table +
                              " set Value = 1");
            OpenFile(saved);
            EXPECT_TRUE(Ready());
            EXPECT_FALSE(Get("channels")->isEnabled());
            Click(state.Target == EditTarget::Memory ? "use_1" : "use_2");
            Key(Qt::Key_Return);
            EXPECT_EQ(Table(file), before) << mode << size;
        }
    }
    EXPECT_EQ(desktop.boxes.filter(QStringLiteral("|")).size(), 1);  // the question for a construction file
}

TEST_F(RecordingForm, ATableMayBeRefusedOrTakenAsARecording) {
    const QString before = Table(set);
    OpenText("address,value\n0,10\n4096,30\n");
    ExpectRefused(u"Line 3 has the address 4096,");
    Key(Qt::Key_Return);
    EXPECT_TRUE(Standing());
    EXPECT_EQ(Table(set), before);
    Click("asrecording");
    EXPECT_TRUE(Ready());
    EXPECT_EQ(Listed().first(), u"value||10|30");
    Click("cbok");
    ExpectMemory("0=-2047 4095=2047");
}

TEST_F(RecordingForm, ATableThatLacksAddressesSaysWhatIsRemoved) {
    const QString before = Table(set);
    OpenText("address,value\n10,1\n5,-5\n7,2047\n");
    EXPECT_TRUE(Checked("use_2"));  // where nothing is lost
    EXPECT_EQ(Says("remark"), u"The samples go to their addresses as they stand.");
    Click("use_1");
    EXPECT_EQ(Says("remark"), u"The file has 3 of the 4096 addresses; the others are removed.");
    Key(Qt::Key_Return);
    EXPECT_EQ(Table(set), u"5=-5 7=2047 10=1");
    Choose("mnuundo");
    EXPECT_EQ(Table(set), before);
    OpenText("address,value\n0,1\n3,7\n0,2\n");
    Click("use_1");
    ExpectRefused(u"Line 4 has the address 0 again, which stands in line 2.");
    Click("use_2");
    EXPECT_TRUE(Ready());
}

TEST_F(RecordingForm, ATableIsDrawnByItsAddresses) {
    OpenText("address,value\n1,2047\n0,0\n4095,-2047\n");
    const QImage picture = PictureHands{Get<RecordingPreview>("preview")}.Shown();
    const auto highest = [&picture](double place) {  // of the curve, as a part of the height from above
        const int column = static_cast<int>(place * picture.width());
        int row = 0;
        while (row < picture.height() - 1 && picture.pixel(column, row) == picture.pixel(picture.width() - 2, 2)) {
            ++row;
        }
        return static_cast<double>(row) / picture.height();
    };
    EXPECT_LT(highest(0.005), 0.2);
    EXPECT_NEAR(highest(0.5), 0.5, 0.1);  // on the straight line down; by rows the peak would stand here
}

TEST_F(RecordingForm, ShowsAllDigitsOfTheSettings) {
    for (const auto& [rate, sets] :
         {std::pair("444444.444", u"444.3359371 kHz"), {"24691357.8024", u"24.6853296389 MHz"}}) {
        OpenText("Sample Rate: " + QByteArray(rate) + " Hz\nV\n1\n-1\n");
        EXPECT_TRUE(Sets().startsWith(sets)) << Sets();
        auto* const field = Get<QLineEdit>("frequency");
        field->setFocus();
        field->end(false);
        field->grab();  // a text that is too long moves to the left
        EXPECT_EQ(field->cursorPositionAt({6, field->height() / 2}), 0) << rate;
        Key(Qt::Key_Escape);
    }
}

TEST_F(RecordingForm, AFaultIsToldAndTheUserMayOverruleTheGuess) {
    OpenFile(folder.path());
    ExpectRefused(u"The file can't be opened");
    Key(Qt::Key_Escape);
    OpenText("1,5\n2,5\n4,5\n");
    ExpectRefused(u"The commas from line 1 on may be decimal marks");
    Get("separator")->setFocus();
    QTest::keyClicks(Get("separator"), QStringLiteral("c"));
    AwaitWindow();
    EXPECT_EQ(Listed().size(), 2);
    Get("separator")->setFocus();
    Key(Qt::Key_Up);  // the semicolon
    Get("decimal")->setFocus();
    QTest::keyClicks(Get("decimal"), QStringLiteral("c"));
    AwaitWindow();
    EXPECT_EQ(Listed(), QStringList(QStringLiteral("column 1||1.5|4.5")));
}

TEST_F(RecordingForm, OffersEachBlockAndNumbersAsTheUserWritesThem) {
    program.numbers = UserNumbers(QLocale(QLocale::German));
    OpenText("t;A\n0;1,5\n1;2,5\n\nt;B\n0;10\n2;20\n4;-30,25\n");
    EXPECT_EQ(Listed().first(), u"B||-30,25|20");
    EXPECT_EQ(Get<QComboBox>("block")->currentText(), u"2: lines 6 to 8, 3 rows");
    EXPECT_EQ(Sets(), u"0,2499 Hz 50,2476 -5,1262");
    Get("block")->setFocus();
    Key(Qt::Key_Up);
    EXPECT_EQ(Listed().first(), u"A||1,5|2,5");
}

TEST_F(RecordingForm, OpensTheOneLocalFileThatIsDropped) {
    const QUrl file = QUrl::fromLocalFile(Write(ramp));
    EXPECT_FALSE(Drop({QUrl(QStringLiteral("https://trx5276.example/a.csv"))}));
    EXPECT_FALSE(Drop({file, file}));
    EXPECT_FALSE(Standing());
    host.running = true;
    Drop({file});
    EXPECT_FALSE(Standing());
    host.running = false;
    QUrl withHost = file;
    withHost.setHost(QSysInfo::machineHostName());
    EXPECT_TRUE(Drop({withHost}));
    AwaitWindow();
    EXPECT_EQ(Get<QLineEdit>("file")->text(), file.toLocalFile());
    EXPECT_FALSE(Drop({file}));  // the window stands
    Click("cbcancel");
    EXPECT_FALSE(Standing());
}

TEST_F(RecordingForm, ClosesUnwrittenWithItsEditorAlsoWhileItReads) {
    QByteArray text = ramp;
    for (int i = 0; i < 5; ++i) {
        text += text;
    }
    const QString file = Write(text);
    const QString before = Table(set);
    for (const auto& change : std::vector<std::function<void()>>{[this] { Choose("mnu16ksig"), Tick(); },
                                                                 [this] { form->close(); }, [this] { form.reset(); }}) {
        desktop.chosen = file;
        Get<QAction>("mnuopenrec")->trigger();
        ExpectRefused(u"Reading");
        change();
        EXPECT_TRUE(form == nullptr || !Standing());
        if (form == nullptr || !form->isVisible()) {
            Open();
        }
    }
    EXPECT_EQ(Table(set), before);
}

TEST_F(RecordingForm, AFailureIsToldAndTheWindowStays) {
    Guard(set, "ARB4", 1503);
    OpenText("V\n1\n-1\n");
    Click("cbok");
    EXPECT_EQ(desktop.boxes, QStringList(u"Arbitrary Editor|The file can't be read or changed:\n" + set));
    EXPECT_TRUE(Standing());
    EXPECT_FALSE(desktop.busy);
}

}  // namespace

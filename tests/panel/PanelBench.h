#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "panel/Main.h"
#include "support/FakeDesktop.h"
#include "support/ScriptedLine.h"

// The form Main, shown and active, on a scripted line, clock and desktop, in a folder of its own.
class PanelBench : public ::testing::Test {
  public:
    explicit PanelBench(const QLocale& locale = QLocale::c()) : numbers_(locale) {
        program.numbers = numbers_;
        line.reply = [](const QString& command, const QString&) -> QByteArray {
            if (command == u"sta?") {
                return "OT0 RFI SW0 SIN AM0 SK0 CTM VPP\r";
            }
            return command.endsWith(u'?') ? "0\r" : "";
        };
        form = std::make_unique<Main>(MainServices{program,
                                                   line,
                                                   clock,
                                                   desktop,
                                                   folder.path(),
                                                   {folder.path()},
                                                   [](int number, bool openHere) {
                                                       return QStringLiteral("device %1%2").arg(number).arg(
                                                           openHere ? u"!" : u"");
                                                   }});
    }

    void Open() {
        form->Main_Form_Load();
        form->show();
        QApplication::setActiveWindow(form.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
        desktop.boxes.clear();
    }

    // The link as ConnectUnit leaves it.
    void Connect() {
        line.SetCommPort(2);
        ASSERT_TRUE(line.SetPortOpen(true));
        program.link.LinkUp = 1;
        Get<QCheckBox>("cRM")->setChecked(true);
    }

    template <typename Control = QWidget>
    Control* Get(const char* name) {
        auto* const control = form->findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(control, nullptr) << name;
        return control;
    }

    QString Text(const char* field) { return Get<EntryField>(field)->text(); }
    QString Hint() { return Get<QLabel>("Label8")->text(); }
    bool Checked(const char* option) { return Get<QAbstractButton>(option)->isChecked(); }
    bool HasFocus(const char* name) { return QApplication::focusWidget() == Get(name); }

    void ShowTab(int index) { Get<QTabWidget>("SSTab1")->setCurrentIndex(index); }
    void Click(const char* name) {
        QTest::mouseClick(Get(name), Qt::LeftButton, {}, QPoint(8, Get(name)->height() / 2));
    }
    void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    // Types over what the field holds, key by key.
    void Type(const char* field, const char* text) {
        auto* const entry = Get<EntryField>(field);
        entry->setFocus();
        entry->selectAll();
        QTest::keyClick(entry, Qt::Key_Delete);
        QTest::keyClicks(entry, QString::fromLatin1(text));
    }
    void Enter(const char* field, const char* text) {
        Type(field, text);
        QTest::keyClick(Get(field), Qt::Key_Return);
    }

    ProgramState program;
    PanelState& panel = program.panel;
    ScriptedClock clock;
    ScriptedLine line{clock};
    FakeDesktop desktop;
    QTemporaryDir folder;
    std::unique_ptr<Main> form;

  private:
    UserNumbers numbers_;
};

struct CommaPanelBench : PanelBench {
    CommaPanelBench() : PanelBench(QLocale(QLocale::German, QLocale::Germany)) {}
};

#pragma once

#include <QTemporaryDir>

#include "panel/Main.h"
#include "platform/ComPorts.h"
#include "platform/EventClock.h"
#include "platform/SerialControl.h"
#include "platform/SocketDdeLink.h"
#include "simulator/SimulatedInstrument.h"
#include "stand_ins/FakeDesktop.h"
#include "support/FormHands.h"
#include "support/PrintQt.h"

// The clock of the program.
class BenchClock : public EventClock {
  public:
    bool paces = true;  // else a wait serves the events that are there and takes no time

    void WaitMs(qint32& ms) override {
        qint32 none = 0;
        EventClock::WaitMs(paces ? ms : none);
    }
};

// The whole program, short of its desktop: the form Main over the system's serial port to a simulated instrument.
class WholeBench : public ::testing::Test {
  public:
    // What went out without pacing would have its time to drain; a line that is gone needs none.
    void TearDown() override {
        for (const auto& instrument : instruments_) {
            instrument->Vanish();
        }
        com.InBufferCount();
    }

    // An instrument at one of the ports com1 to com4.
    sim::SimulatedInstrument& Plug(int port, sim::Options options) {
        options.linkPath = folder.filePath(QStringLiteral("com%1").arg(port)).toStdString();
        instruments_.push_back(std::make_unique<sim::SimulatedInstrument>(options));
        Replug(*instruments_.back());
        return *instruments_.back();
    }
    static void Replug(sim::SimulatedInstrument& instrument) {
        std::string error;
        instrument.Stop();
        EXPECT_TRUE(instrument.Start(&error)) << error;
    }

    void MakeForm(const QLocale& locale, LinkClock& time, Desktop& boxes, DdeLink& traces) {
        program.numbers = UserNumbers(locale);
        const auto describePort = [this](int number, bool openHere) {
            return DescribeComPort(number, folder.path(), openHere);
        };
        panel.form = std::make_unique<Main>(
            MainServices{program, com, time, boxes, traces, folder.path(), {folder.path()}, describePort, [this] {
                             return AnyComPort(folder.path());
                         }});
    }

    void Open(const QLocale& locale = QLocale::c()) {
        MakeForm(locale, clock, desktop, ziel);
        panel.form->Main_Form_Load();
        ASSERT_TRUE(panel.Show());
        desktop.boxes.clear();
    }

    // The program linked to an instrument on Com2 at this rate.
    sim::SimulatedInstrument& Connect(sim::Options options = {}, qint32 baud = 19200,
                                      const QLocale& locale = QLocale::c()) {
        options.rate = baud;
        auto& instrument = Plug(2, std::move(options));
        Open(locale);
        program.preferences.ComBaudRate = baud;
        panel.Click("cRM");
        EXPECT_EQ(program.link.LinkUp, 1);
        instrument.ClearLog();
        return instrument;
    }

    // Everything up to and with "RM0" has arrived.
    static bool GivenBack(sim::SimulatedInstrument& instrument) {
        return instrument.WaitForLine("RM0", std::chrono::seconds(20));
    }

    static QStringList Lines(const sim::SimulatedInstrument& instrument) {
        QStringList lines;
        for (const std::string& line : instrument.ReceivedLines()) {
            lines += QString::fromStdString(line);
        }
        return lines;
    }

    QTemporaryDir folder;
    ProgramState program;
    SerialControl com{[this](int number) { return FindComPort(number, folder.path()); }};
    BenchClock clock;
    FakeDesktop desktop;
    SocketDdeLink ziel{folder.path()};
    FormHands<Main> panel;

  private:
    std::vector<std::unique_ptr<sim::SimulatedInstrument>> instruments_;
};

inline const QString kReadBackQueries = QStringLiteral("amt? fk0? fk1? ph0? ph1? sta? amp? OFS? frq?");

#include "LinkBench.h"

namespace {

using Connection_ = LinkBench;

const QString kNotFound = QStringLiteral("Serial - Error|Unit not found");
const QString kCantOpen = QStringLiteral("Serial - Error| Can not open com. port");

TEST_F(Connection_, TakesTheModelNamesAndALoneCr) {
    for (const char* const model : {"KL5276-2", "KL5276", ""}) {
        line.wire.clear();
        line.replies = {{QStringLiteral("ID?"), QByteArray(model) + '\r'}, {QStringLiteral("VER?"), " V1.20  \r"}};
        link.connection.ConnectUnit();
        EXPECT_EQ(line.Lines(), QStringList({QStringLiteral("ID?"), QStringLiteral("ID?"), QStringLiteral("VER?")}));
        EXPECT_EQ(state.LinkUp, 1);
        EXPECT_TRUE(front.remoteChecked);
        EXPECT_EQ(front.caption, u"KL5276 - V1.02       Unit:V1.20");
    }
    EXPECT_FALSE(desktop.busy);
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(Connection_, SearchesTheRatesWhileTheReplyIsAWrongOne) {
    program.preferences.ComBaudRate = 9600;
    line.reply = [](const QString& command, const QString& settings) -> QByteArray {
        if (settings != u"38400,N,8,2") {
            return "kl5276\r";  // case counts
        }
        return command == u"VER?" ? "2\r" : "KL5276\r";
    };
    link.connection.ConnectUnit();
    EXPECT_EQ(line.openings.join(u' '), u"2: 9600,N,8,2 2: 4800,N,8,2 2: 9600,N,8,2 2: 19200,N,8,2 2: 38400,N,8,2");
    EXPECT_EQ(state.LinkUp, 1);
    EXPECT_EQ(program.preferences.ComBaudRate, 38400);
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(Connection_, GivesUpBehindTheLastRate) {
    line.reply = [](const QString&, const QString&) { return QByteArray("noise\r"); };
    link.connection.ConnectUnit();
    EXPECT_EQ(line.Lines().size(), 6);
    EXPECT_EQ(desktop.boxes, QStringList(kNotFound));
    EXPECT_EQ(state.LinkUp, 0);
    EXPECT_FALSE(front.remoteChecked);
    EXPECT_TRUE(line.PortOpen());  // Faulted, not Offline
    EXPECT_EQ(program.preferences.ComBaudRate, 19200);
}

TEST_F(Connection_, ShowsTwoBoxesForASilentInstrument) {
    link.connection.ConnectUnit();
    EXPECT_EQ(desktop.boxes, QStringList({kReadError.arg(u"ID?"), kReadError.arg(u"ID?")}));
    EXPECT_EQ(line.openings.join(u' '), u"2: 19200,N,8,2 2: 4800,N,8,2");
    EXPECT_EQ(line.Lines().size(), 2);
    EXPECT_NEAR(static_cast<double>(clock.nowMs), 6000.0, 400.0);
    EXPECT_EQ(state.LinkUp, 0);
    EXPECT_EQ(program.preferences.ComBaudRate, 19200);

    // Trying again starts afresh.
    line.replies = {{QStringLiteral("ID?"), "KL5276\r"}, {QStringLiteral("VER?"), "2\r"}};
    link.connection.ConnectUnit();
    EXPECT_EQ(state.LinkUp, 1);
    EXPECT_EQ(desktop.boxes.size(), 2);
}

TEST_F(Connection_, NeedsAnAnswerToVer) {
    front.caption = OfflineCaption();
    line.replies[QStringLiteral("ID?")] = "KL5276\r";
    link.connection.ConnectUnit();
    EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(u"VER?")));
    EXPECT_EQ(state.LinkUp, 0);
    EXPECT_EQ(front.caption, OfflineCaption());
}

TEST_F(Connection_, SaysWhenThePortCantBeOpened) {
    line.ports.clear();
    link.connection.ConnectUnit();
    EXPECT_EQ(desktop.boxes, QStringList(kCantOpen));
    EXPECT_FALSE(line.PortOpen());
    EXPECT_EQ(state.LinkUp, 0);

    // A port that goes away in the middle of the search: the text that stands is shown.
    desktop.boxes.clear();
    line.ports = {2};
    line.reply = [this](const QString&, const QString&) {
        line.ports.clear();
        return QByteArray("noise\r");
    };
    link.connection.ConnectUnit();
    EXPECT_EQ(desktop.boxes, QStringList(kReadError.arg(u"ID?")));
    EXPECT_EQ(state.LinkUp, 0);
}

TEST_F(Connection_, GivesTheInstrumentBack) {
    ConnectSilently();
    front.caption = LinkedCaption(QStringLiteral("V1"));
    link.connection.DisconnectUnit();
    EXPECT_EQ(line.wire, "RM0\r");
    EXPECT_FALSE(line.PortOpen());
    EXPECT_EQ(state.LinkUp, 0);
    EXPECT_EQ(front.caption, OfflineCaption());

    // With the port closed nothing changes.
    state.LinkUp = 1;
    link.connection.DisconnectUnit();
    EXPECT_EQ(state.LinkUp, 1);
    EXPECT_EQ(line.wire, "RM0\r");
}

TEST_F(Connection_, AutosearchTriesEachPortAtTheUsualRate) {
    program.preferences.ComBaudRate = 4800;
    line.ports = {3};
    line.replies = {{QStringLiteral("ID?"), "KL5276\r"}, {QStringLiteral("VER?"), "2\r"}};
    link.connection.AutoSearchUnit();
    EXPECT_EQ(desktop.boxes,
              QStringList({kCantOpen, kCantOpen, QStringLiteral("Autosearch|Unit found at port:  3   Baud:  19200")}));
    EXPECT_EQ(state.LinkUp, 1);
    EXPECT_EQ(program.preferences.ComPortNumber, 3);
    EXPECT_FALSE(desktop.busy);
}

TEST_F(Connection_, AutosearchOnDeadPortsShowsOneFaultForEach) {
    line.ports.clear();
    link.connection.AutoSearchUnit();
    EXPECT_EQ(desktop.boxes, QStringList({kCantOpen, kCantOpen, kCantOpen, kCantOpen}));
    EXPECT_EQ(state.LinkUp, 0);
    EXPECT_EQ(program.preferences.ComPortNumber, 4);
    EXPECT_FALSE(desktop.busy);
}

}  // namespace

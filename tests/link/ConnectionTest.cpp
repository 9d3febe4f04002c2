#include "LinkBench.h"

namespace {

using Connection_ = LinkBench;

const QString kNotFound = QStringLiteral("Serial - Error|Unit not found");
const QString kCantOpen = QStringLiteral("Serial - Error| Can not open com. port");

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

}  // namespace

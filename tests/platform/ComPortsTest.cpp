#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "platform/ComPorts.h"
#include "platform/ProgramFolder.h"
#include "support/PrintQt.h"

namespace {

constexpr uid_t kNobody = 65534;
constexpr gid_t kGroupWithoutRoot = 20;

// A mode for the group alone shuts out the device's owner, who runs this; root, who may do everything, runs it as
// another user meanwhile.
TEST(ComPorts, WhoHasNoPermissionIsToldTheGroupThatHasIt) {
    const QTemporaryDir folder;
    const QString device = folder.filePath(QStringLiteral("tty"));
    const QByteArray path = QFile::encodeName(device);
    ASSERT_TRUE(QFile(device).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(device, folder.filePath(QStringLiteral("com1"))));
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    const bool isRoot = ::geteuid() == 0;
    ASSERT_TRUE(!isRoot || ::chown(path.constData(), 0, kGroupWithoutRoot) == 0);
    const QString group = QFileInfo(device).group();
    const std::pair<mode_t, QString> table[]{
        {0666, QString()},
        {0060, QStringLiteral(": no permission, join the group %1 and log in again").arg(group)},
        {0020, QStringLiteral(": no permission")}};
    for (const auto& [mode, trouble] : table) {
        ASSERT_EQ(::chmod(path.constData(), mode), 0);
        ASSERT_TRUE(!isRoot || ::seteuid(kNobody) == 0);
        EXPECT_EQ(DescribeComPort(1, folder.path(), false), device + trouble);
        ASSERT_TRUE(!isRoot || ::seteuid(0) == 0);
    }
}

SystemPort Port(const char* name, bool usb) {
    return {QString::fromLatin1(name), QStringLiteral("/dev/") + QLatin1StringView(name), usb};
}

TEST(ComPorts, AdaptersComeFirstAndEachKindByItsNumbers) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/other"), folder.filePath(QStringLiteral("com4"))));
    const QList<SystemPort> here{Port("ttyS0", false), Port("ttyUSB10", true), Port("ttyUSB2", true)};
    const QList<SystemPort> mixed{Port("ttyUSB2", true), Port("ttyACM10", true)};
    const QList<SystemPort> elsewhere = here + QList<SystemPort>{Port("COM7", true)};
    const std::tuple<int, QList<SystemPort>, const char16_t*> cases[]{
        {0, here, u""},           {1, here, u"/dev/ttyUSB2"},  {2, here, u"/dev/ttyUSB10"},
        {3, here, u"/dev/ttyS0"}, {4, here, u"/dev/other"},    {5, here, u""},
        {2, elsewhere, u"COM2"},  {1, mixed, u"/dev/ttyACM10"}};
    for (const auto& [number, ports, device] : cases) {
        EXPECT_EQ(FindComPort(number, folder.path(), [&ports = ports] { return ports; }), device) << number;
    }
}

TEST(ProgramFolders, AreTheUsersOwnWhereTheProgramsOwnIsClosed) {
    const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", QFile::encodeName(data.path()));
    EXPECT_EQ(ProgramFolder(data.path()), data.path());
    for (const char* const closed : {"/proc/none", "/usr/bin"}) {  // for anybody, and for an administrator
        const QString own = ProgramFolder(QString::fromLatin1(closed));
        EXPECT_TRUE(own.startsWith(data.path())) << closed;
        EXPECT_TRUE(QFileInfo(own).isDir()) << closed;
    }
}

}  // namespace

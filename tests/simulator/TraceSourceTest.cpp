#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <functional>

#include "platform/SocketDdeLink.h"
#include "simulator/TraceShapes.h"
#include "simulator/TraceSource.h"
#include "support/PrintQt.h"

namespace {

constexpr qint64 kAtOnceMs = 15'000;  // half of the time limit: enough on the slowest machine
constexpr int kHastyTenths = 3;

struct TraceSources : ::testing::Test {
    sim::TraceOptions Options(const sim::TraceFaults& faults = {}) const {
        return {folder.filePath(QStringLiteral("qd204e")).toStdString(),
                {*sim::TraceShape("ramp"), *sim::TraceShape("burst")},
                faults};
    }

    // The first step of a conversation that fails; none if it goes through. `hasty`: a step with a short time limit.
    std::string FailingStep(const char* command = "getbincha", const char* topic = "qd204e|dde",
                            const std::string& hasty = {}) {
        link.SetLinkTopic(QString::fromLatin1(topic));
        link.SetLinkItem(QStringLiteral("data"));
        const std::pair<const char*, std::function<bool()>> steps[] = {
            {"initiate", [this] { return link.SetLinkMode(2); }},
            {"execute", [&] { return link.LinkExecute(QString::fromLatin1(command)); }},
            {"request", [this] { return link.LinkRequest(); }},
            {"terminate", [this] { return link.SetLinkMode(0); }}};
        elapsed.start();
        for (const auto& [name, run] : steps) {
            link.SetLinkTimeout(name == hasty ? kHastyTenths : 300);
            if (!run()) {
                return name;
            }
        }
        return {};
    }

    static std::string StartFault(sim::TraceSource& source) {
        std::string error;
        return source.Start(&error) ? "" : error;
    }

    QTemporaryDir folder;
    SocketDdeLink link{folder.path()};
    QElapsedTimer elapsed;
};

// One period from the middle up, at full scale; a burst starts there too.
TEST(TraceShapes, AreWhatTheirNamesSay) {
    const sim::Trace sine = *sim::TraceShape("sine");
    const std::pair<std::size_t, int> points[] = {{0, 16384}, {512, 32767}, {1024, 16384}, {1536, 1}};
    for (const auto& [at, level] : points) {
        EXPECT_NEAR(sine[at], level, 1) << at;
    }
    EXPECT_EQ(sim::TraceShape("square")->front(), 32767);
    EXPECT_EQ(sim::TraceShape("square")->back(), 1);
    EXPECT_EQ(sim::TraceShape("triangle")->at(1024), 32767);
    EXPECT_EQ(sim::TraceShape("ramp")->back(), 32767);
}

TEST_F(TraceSources, ServesBothChannelsAgainAndAgain) {
    sim::TraceSource source(Options());
    ASSERT_EQ(StartFault(source), "");
    EXPECT_EQ(link.Text(), u"dde!ziel");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(FailingStep("getbincha"), "");
        EXPECT_EQ(link.Text().count(u','), 2047);
        EXPECT_TRUE(link.Text().startsWith(u"1,17,"));
        EXPECT_TRUE(link.Text().endsWith(u",32751,32767"));
        EXPECT_EQ(FailingStep("getbinchb"), "");
        EXPECT_EQ(link.Text().section(u',', 40, 40).toInt(), sim::TraceShape("burst")->at(40));
    }
    EXPECT_EQ(FailingStep("getbinchc"), "execute");
    EXPECT_EQ(FailingStep(""), "execute");
    EXPECT_FALSE(link.LinkRequest());  // a failure has ended the conversation
    EXPECT_EQ(FailingStep("getbincha", "qd204e|file"), "initiate");
    EXPECT_EQ(FailingStep("getbincha"), "");
}

TEST_F(TraceSources, FaultsEndTheConversationAtOnceOrAtTheTimeLimit) {
    // the faults, the step that fails by them, whether by its time limit; else the head of the reply
    const std::tuple<sim::TraceFaults, std::string, bool, QString> cases[] = {
        {{.hangUpOn = {"execute"}}, "execute", false, {}},
        {{.nonsenseOn = {"initiate"}}, "initiate", false, {}},
        {{.endlessReply = true}, "request", false, {}},
        {{.silentOn = {"initiate"}}, "initiate", true, {}},
        {{.byteDelay = std::chrono::milliseconds(5)}, "request", true, {}},
        {{.delay = std::chrono::milliseconds(100)}, {}, false, QStringLiteral("1,17,33,49,6")},
        {{.emptyReply = true}, {}, false, {}},
        {{.shortReply = 3, .noNumber = true}, {}, false, QStringLiteral("1,overload,3")},
        {{.shortReply = 3, .beyond16Bits = true}, {}, false, QStringLiteral("1,40000,33")}};
    for (const auto& [faults, failing, late, text] : cases) {
        sim::TraceSource source(Options(faults));
        ASSERT_EQ(StartFault(source), "");
        const QString before = link.Text();
        EXPECT_EQ(FailingStep("getbincha", "qd204e|dde", late ? failing : ""), failing);
        EXPECT_LT(elapsed.elapsed(), kAtOnceMs) << failing;
        EXPECT_GE(elapsed.elapsed(), late ? kHastyTenths * 100 - 20 : 0) << failing;
        EXPECT_EQ(link.Text().left(12), failing.empty() ? text : before.left(12));
    }
}

TEST_F(TraceSources, AnAbsentSourceIsToldAtOnceAndAKilledOneMakesRoom) {
    EXPECT_EQ(FailingStep(), "initiate");
    EXPECT_LT(elapsed.elapsed(), kAtOnceMs);

    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    const sim::TraceOptions options = Options();
    options.socket.copy(address.sun_path, sizeof address.sun_path - 1);
    const int killed = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(killed, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(killed);
    EXPECT_EQ(FailingStep(), "initiate");
    EXPECT_LT(elapsed.elapsed(), kAtOnceMs);

    sim::TraceSource source(options);
    ASSERT_EQ(StartFault(source), "");
    sim::TraceSource second(options);
    EXPECT_NE(StartFault(second).find("served already"), std::string::npos);
    EXPECT_EQ(FailingStep(), "");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::System | QDir::Files), QStringList(QStringLiteral("qd204e")));

    // One that ends leaves alone what another has put in its place.
    ASSERT_TRUE(QFile::remove(QString::fromStdString(source.SocketPath())));
    sim::TraceSource next(options);
    ASSERT_EQ(StartFault(next), "");
    source.Stop();
    EXPECT_EQ(FailingStep(), "");
    next.Stop();
    EXPECT_EQ(FailingStep(), "initiate");
}

TEST_F(TraceSources, SaysWhyThereCanBeNoSocket) {
    QFile mine(folder.filePath(QStringLiteral("mine")));
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    const std::pair<QString, const char*> cases[] = {
        {QStringLiteral("mine"), "mine: a file or folder is in the socket's place"},
        {QStringLiteral("none/qd204e"), "/none: there is no such folder"},
        {QString(100, u'x'), "too long for a socket"}};
    for (const auto& [name, complaint] : cases) {
        sim::TraceOptions options = Options();
        options.socket = folder.filePath(name).toStdString();
        sim::TraceSource source(options);
        const std::string fault = StartFault(source);
        EXPECT_NE(fault.find(complaint), std::string::npos) << fault;
    }
    EXPECT_TRUE(mine.exists());
}

TEST_F(TraceSources, MeetsThePanelInTheUsersOwnFolder) {
    const QByteArray formerTemporary = qgetenv("TMPDIR");
    SocketDdeLink everywhere;
    sim::TraceOptions options = Options();
    options.socket = "qd204e";
    for (const bool hasRuntime : {true, false}) {
        const QTemporaryDir own;
        const QTemporaryDir temporary;
        qputenv("XDG_RUNTIME_DIR", hasRuntime ? own.path().toUtf8() : own.filePath(QStringLiteral("none")).toUtf8());
        qputenv("TMPDIR", temporary.path().toUtf8());
        sim::TraceSource source(options);
        ASSERT_EQ(StartFault(source), "");
        EXPECT_EQ(source.SocketPath(), (hasRuntime ? own : temporary).filePath(QStringLiteral("qd204e")).toStdString());
        everywhere.SetLinkTopic(QStringLiteral("qd204e|dde"));
        EXPECT_TRUE(everywhere.SetLinkMode(2));
        everywhere.SetLinkMode(0);
    }
    qputenv("TMPDIR", formerTemporary);
}

TEST_F(TraceSources, OfAnotherUserAreNotTaken) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "needs to become another user";
    }
    constexpr uid_t kNobody = 65534;
    ASSERT_EQ(::chmod(folder.path().toUtf8().constData(), 0777), 0);
    sim::TraceSource source(Options());
    sim::TraceSource second(Options());
    ASSERT_EQ(::seteuid(kNobody), 0);
    const std::string fault = StartFault(source);
    ASSERT_EQ(::seteuid(0), 0);
    ASSERT_EQ(fault, "");
    EXPECT_EQ(FailingStep(), "initiate");
    EXPECT_NE(StartFault(second).find("another user's socket"), std::string::npos);
}

}  // namespace

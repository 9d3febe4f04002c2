#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

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

class TraceSources : public ::testing::Test {
  public:
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

TEST_F(TraceSources, ServesBothChannelsAgainAndAgain) {
    sim::TraceSource source(Options());
    ASSERT_EQ(StartFault(source), "");
    EXPECT_EQ(link.Text(), u"dde!ziel");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(FailingStep("getbincha"), "");
        EXPECT_EQ(link.Text().count(u','), 2047);
        EXPECT_EQ(link.Text().section(u',', 2042), u"254,255,255,255,255,255");
        EXPECT_EQ(FailingStep("getbinchb"), "");
        EXPECT_EQ(link.Text().section(u',', 40, 40).toInt(), sim::TraceShape("burst")->at(40));
    }
    EXPECT_EQ(FailingStep("getbinchc"), "execute");
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
        {{.delay = std::chrono::milliseconds(100)}, {}, false, QStringLiteral("0,0,0,0,0,1,")},
        {{.emptyReply = true}, {}, false, {}},
        {{.shortReply = 3, .noNumber = true}, {}, false, QStringLiteral("0,overload,0")},
        {{.shortReply = 3, .beyond16Bits = true}, {}, false, QStringLiteral("0,40000,0")}};
    for (const auto& [faults, failing, late, text] : cases) {
        sim::TraceSource source(Options(faults));
        ASSERT_EQ(StartFault(source), "");
        const QString before = link.Text();
        EXPECT_EQ(FailingStep("getbincha", "qd204e|dde", late ? failing : ""), failing);
        EXPECT_LT(elapsed.elapsed(), kAtOnceMs) << failing;
        EXPECT_TRUE(!late || elapsed.elapsed() >= kHastyTenths * 100 - 20) << failing;
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

    source.Stop();
    QFile mine(folder.filePath(QStringLiteral("qd204e")));
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    EXPECT_NE(StartFault(source).find("qd204e: a file or folder"), std::string::npos);
    EXPECT_TRUE(mine.exists());
}

}  // namespace

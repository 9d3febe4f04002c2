#include <gtest/gtest.h>
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

namespace {

constexpr qint64 kAtOnceMs = 15'000;  // half of the time limit: enough on the slowest machine
constexpr int kHastyTenths = 3;

class TraceSourceTest : public ::testing::Test {
  public:
    sim::TraceOptions Options(const sim::TraceFaults& faults = {}) const {
        return {folder.filePath(QStringLiteral("qd204e")).toStdString(),
                {*sim::TraceShape("ramp"), *sim::TraceShape("burst")},
                faults};
    }

    // The first step of a conversation that fails; none if it goes through. `hasty`: a step with a short time limit.
    QString FailingStep(const char* command = "getbincha", const char* topic = "qd204e|dde",
                        const QString& hasty = {}) {
        link.SetLinkTopic(QString::fromLatin1(topic));
        link.SetLinkItem(QStringLiteral("data"));
        const std::pair<QString, std::function<bool()>> steps[] = {
            {QStringLiteral("initiate"), [this] { return link.SetLinkMode(2); }},
            {QStringLiteral("execute"), [&] { return link.LinkExecute(QString::fromLatin1(command)); }},
            {QStringLiteral("request"), [this] { return link.LinkRequest(); }},
            {QStringLiteral("terminate"), [this] { return link.SetLinkMode(0); }}};
        elapsed.start();
        for (const auto& [name, run] : steps) {
            link.SetLinkTimeout(name == hasty ? kHastyTenths : 300);
            if (!run()) {
                return name;
            }
        }
        return {};
    }

    QTemporaryDir folder;
    SocketDdeLink link{folder.path()};
    QElapsedTimer elapsed;
};

QString TextOf(const sim::Trace& trace) {
    QStringList numbers;
    for (const int number : trace) {
        numbers += QString::number(number);
    }
    return numbers.join(u',');
}

TEST_F(TraceSourceTest, ServesBothChannelsAgainAndAgain) {
    sim::TraceSource source(Options());
    std::string error;
    ASSERT_TRUE(source.Start(&error)) << error;
    EXPECT_EQ(link.Text(), u"dde!ziel");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(FailingStep("getbincha"), QString());
        EXPECT_EQ(link.Text(), TextOf(*sim::TraceShape("ramp")));
        EXPECT_EQ(FailingStep("getbinchb"), QString());
        EXPECT_EQ(link.Text(), TextOf(*sim::TraceShape("burst")));
    }
    EXPECT_EQ(FailingStep("getbinchc"), u"execute");
    EXPECT_FALSE(link.LinkRequest());  // a failure has ended the conversation
    EXPECT_EQ(FailingStep("getbincha", "qd204e|file"), u"initiate");
    EXPECT_EQ(FailingStep("getbincha"), QString());
}

TEST_F(TraceSourceTest, FaultsEndTheConversationAtOnceOrAtTheTimeLimit) {
    struct Case {
        sim::TraceFaults faults;
        const char* failingStep = "";
        const char* text = "";  // of the reply, its head
        bool late = false;      // by its time limit, else at once
    };
    const Case cases[] = {
        {{.hangUpOn = {"initiate"}}, "initiate", ""},
        {{.hangUpOn = {"execute"}}, "execute", ""},
        {{.hangUpOn = {"request"}}, "request", ""},
        {{.nonsenseOn = {"initiate"}}, "initiate", ""},
        {{.nonsenseOn = {"request"}}, "request", ""},
        {{.endlessReply = true}, "request", ""},
        {{.silentOn = {"initiate"}}, "initiate", "", true},
        {{.silentOn = {"execute"}}, "execute", "", true},
        {{.silentOn = {"request"}}, "request", "", true},
        {{.byteDelay = std::chrono::milliseconds(5)}, "request", "", true},
        {{.delay = std::chrono::milliseconds(100)}, "", "0,0,0,0,0,1,"},
        {{.shortReply = 2}, "", "0,0"},
        {{.emptyReply = true}, "", ""},
        {{.shortReply = 3, .noNumber = true}, "", "0,overload,0"},
        {{.shortReply = 3, .beyond16Bits = true}, "", "0,40000,0"},
    };
    for (const Case& c : cases) {
        sim::TraceSource source(Options(c.faults));
        std::string error;
        ASSERT_TRUE(source.Start(&error)) << error;
        const QString before = link.Text();
        const QString failing = QString::fromLatin1(c.failingStep);
        const auto number = &c - cases;
        EXPECT_EQ(FailingStep("getbincha", "qd204e|dde", c.late ? failing : QString()), failing) << number;
        EXPECT_LT(elapsed.elapsed(), kAtOnceMs) << number;
        EXPECT_TRUE(!c.late || elapsed.elapsed() >= kHastyTenths * 100 - 20) << number;
        const QString expected = failing.isEmpty() ? QString::fromLatin1(c.text) : before;
        EXPECT_EQ(link.Text().left(12).toStdString(), expected.left(12).toStdString()) << number;
    }
}

TEST_F(TraceSourceTest, AnAbsentSourceIsToldAtOnceAndAKilledOneMakesRoom) {
    EXPECT_EQ(FailingStep(), u"initiate");
    EXPECT_LT(elapsed.elapsed(), kAtOnceMs);

    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    const sim::TraceOptions options = Options();
    options.socket.copy(address.sun_path, sizeof address.sun_path - 1);
    const int killed = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(killed, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(killed);
    EXPECT_EQ(FailingStep(), u"initiate");
    EXPECT_LT(elapsed.elapsed(), kAtOnceMs);

    sim::TraceSource source(options);
    sim::TraceSource second(options);
    std::string error;
    ASSERT_TRUE(source.Start(&error)) << error;
    EXPECT_FALSE(second.Start(&error));
    EXPECT_NE(error.find("served already"), std::string::npos) << error;
    EXPECT_EQ(FailingStep(), QString());

    source.Stop();
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("qd204e"))));
    QFile mine(folder.filePath(QStringLiteral("qd204e")));
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    EXPECT_FALSE(source.Start(&error));
    EXPECT_NE(error.find("qd204e: a file or folder"), std::string::npos) << error;
    EXPECT_TRUE(mine.exists());
}

}  // namespace

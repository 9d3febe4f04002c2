#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include "CtlBench.h"

namespace {

using CtlEnds = CtlBench;

// Whatever is wrong: one sentence, status 1, nothing on the standard output, and the instrument given back.
TEST_F(CtlEnds, EveryFaultOfTheInstrumentIsToldAndTheLinkIsGivenBack) {
    // the faults, what the sentence tells, whether the instrument can be given back
    const std::tuple<sim::Faults, const char*, bool> rows[]{
        {{.muteAfterQueries = 6}, "nothing answers", true},
        {{.muteAfterQueries = 0}, "nothing answers", false},
        {{.silentOn = {"VER?"}}, "VER?", true},
        {{.silentOn = {"amp?"}}, "amp?", true},
        {{.byteDelay = std::chrono::milliseconds(400)}, "nothing answers", false},
        {{.cutReplyBytes = 3}, "nothing answers", false},
        {{.endlessReply = true}, "nothing answers", false},
        {{.loneCr = true}, "the answer to \"amt?\" has no usable value", true},
        {{.loneCrOn = {"sta?"}}, "the answer to \"sta?\" has no usable value", true},
        {{.garbledNumbers = true}, "the answer to \"amt?\" has no usable value", true},
        {{.vanishAfterLines = 8}, "has gone", false}};
    int number = 0;
    for (const auto& [faults, sentence, givenBack] : rows) {
        auto& far = Plug(1, {.faults = faults});
        // Long where the other queries have to be answered in time, also by a busy machine.
        const QString timeout =
            sentence == QByteArray("nothing answers") ? QStringLiteral("200ms") : QStringLiteral("1,2");
        for (const char* const words : {"get", "set level=1"}) {
            far.ClearLog();
            const Ended ended = Run(QStringLiteral("--timeout %1 %2").arg(timeout, QLatin1StringView(words)));
            EXPECT_EQ(ended.status, 1) << number;
            EXPECT_EQ(ended.err.size(), 1) << number << ended.err.join(u'\n');
            EXPECT_TRUE(ended.err.value(0).contains(QString::fromLatin1(sentence))) << number << ended.err.value(0);
            EXPECT_TRUE(ended.out.isEmpty()) << number;
            EXPECT_TRUE(!givenBack || GivenBack(far)) << number;
            if (faults.vanishAfterLines || faults.muteAfterQueries) {
                break;
            }
        }
        far.Stop();
        ++number;
    }
}

// What is merely slow, or told in small letters, is no fault; another device, or a stalled line, is one.
TEST_F(CtlEnds, OtherDevicesAndNoDeviceAreToldAsSuch) {
    Plug(1, {.faults = {.byteDelay = std::chrono::milliseconds(2), .lowerCaseStatus = true}});
    EXPECT_EQ(Run("set form=pink output=on").status, 0);
    Plug(3, {.model = "KL9999"});
    EXPECT_TRUE(Run(u"id --port " + Path("com3")).err.value(0).contains(u"but no KL5276"));
    EXPECT_EQ(Run(u"id --port " + Path("nowhere")).err.value(0),
              QString(u"kl5276ctl: " + Path("nowhere") +
                      u" can't be opened: missing; \"kl5276ctl ports\" lists the devices"));
    Plug(4, {.rate = 4800, .faults = {.stall = std::chrono::seconds(60)}});
    EXPECT_EQ(Run(u"--timeout 0.2 id --port " + Path("com4")).status, 1);
    // Nobody answers to a sample, so nobody would say that it got lost.
    Plug(2, {.faults = {.vanishAfterLines = 500}});
    WriteTable("t.csv");
    const Ended pulled = Run(u"memory send 4k " + Path("t.csv") + u" --port " + Path("com2"));
    EXPECT_EQ(pulled.status, 1);
    EXPECT_TRUE(pulled.err.value(0).contains(u"has gone"));
}

TEST_F(CtlEnds, CtrlCInATransferEndsItInOrder) {
    auto& far = Plug(1, {.realTime = true});
    WriteTable("t.csv");
    const QByteArray table = Content(Path("t.csv"));
    for (const auto& [way, done, last] : {std::tuple("send", "sent", "are"), {"read", "read", "=?"}}) {
        far.ClearLog();
        QProcess process;
        Start(process, u"--rate 115200 memory " + QString::fromLatin1(way) + u" 4k " + Path("t.csv"));
        ASSERT_TRUE(far.WaitForLines(60, std::chrono::seconds(20)));
        ::kill(static_cast<pid_t>(process.processId()), SIGINT);
        const Ended ended = End(process);
        EXPECT_EQ(ended.status, 130) << QString::fromLatin1(way);
        EXPECT_TRUE(ended.err.join(u'|').startsWith(u"kl5276ctl: stopped: ")) << ended.err.join(u'\n');
        EXPECT_TRUE(ended.err.join(u'|').endsWith(QString(u" of 4096 points " + QString::fromLatin1(done))));
        EXPECT_TRUE(GivenBack(far));
        const QStringList lines = Lines(far);
        EXPECT_LT(lines.size(), 4096);
        EXPECT_TRUE(lines.value(lines.size() - 2).endsWith(QLatin1StringView(last))) << lines.value(lines.size() - 2);
        EXPECT_EQ(lines.last(), u"RM0");
    }
    EXPECT_EQ(Content(Path("t.csv")), table);  // what was half read is not written
}

// The first Ctrl+C lets out what the port has taken, the next one drops it.
TEST_F(CtlEnds, CtrlCWhileOnlyTheLineStillDrainsEndsItInOrderAndAgainAtOnce) {
    auto& far = Plug(1, {.realTime = true});
    WriteTable("t.csv");
    QProcess process;
    Start(process, u"--log --rate 115200 memory send 4k " + Path("t.csv"));
    process.setReadChannel(QProcess::StandardError);
    QByteArray log;
    while (!log.contains(" > are") && process.waitForReadyRead(20'000)) {
        log += process.readAllStandardError();
    }
    ASSERT_TRUE(log.contains(" > are"));
    const std::size_t midway = (far.ReceivedLines().size() + 4096) / 2;
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    EXPECT_TRUE(far.WaitForLines(midway, std::chrono::seconds(20)));
    for (; process.state() == QProcess::Running; process.waitForFinished(50)) {
        ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    }
    const Ended ended = End(process);
    EXPECT_EQ(ended.status, 130);
    EXPECT_FALSE(ended.err.filter(QStringLiteral("stopped: 4096 of 4096 points sent at most")).isEmpty());
    EXPECT_TRUE(GivenBack(far));
    const QStringList lines = Lines(far);
    EXPECT_LT(lines.size(), 4096);
    EXPECT_EQ(lines.last(2).join(u' '), u"are RM0");
}

TEST_F(CtlEnds, CtrlCEndsTheWaitForAnAnswer) {
    auto& far = Plug(1, {.faults = {.silentOn = {"amt?"}}});
    QProcess process;
    Start(process, QStringLiteral("--timeout 3600s get"));
    ASSERT_TRUE(far.WaitForLine("amt?", std::chrono::seconds(20)));
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    EXPECT_EQ(End(process).status, 130);
    EXPECT_TRUE(GivenBack(far));
}

TEST_F(CtlEnds, ResultsThatNobodyGetsAreNoSuccess) {
    auto& far = Plug(1, {});
    QProcess full;
    full.setStandardOutputFile(QStringLiteral("/dev/full"));
    Start(full, QStringLiteral("get form"));
    const Ended ended = End(full);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err.join(u'\n'), u"kl5276ctl: the results can't be written: No space left on device");
    // A loop ends with its reader, in silence.
    QProcess loop;
    loop.start(QStringLiteral("sh"),
               {QStringLiteral("-c"),
                QStringLiteral("yes 'get form' | %1 --port %2 batch - | head -n 1").arg(Program(), Path("com1"))});
    const Ended read = End(loop);
    EXPECT_EQ(read.out.join(u' '), u"form=sine");
    EXPECT_TRUE(read.err.isEmpty()) << read.err.join(u'\n');
    EXPECT_TRUE(GivenBack(far));
}

TEST_F(CtlEnds, APortInUseIsToldAsSuchAndCtrlCEndsABatchThatWaits) {
    auto& far = Plug(1, {});
    QProcess batch;
    Start(batch, QStringLiteral("batch -"));
    batch.write("output on\n");
    ASSERT_TRUE(batch.waitForBytesWritten());
    ASSERT_TRUE(far.WaitForLine("sta?", std::chrono::seconds(20)));
    const Ended ended = Run("get");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err.join(u'\n'), QString(u"kl5276ctl: " + Path("com1") +
                                             u" is in use: end the program that has it open, the panel perhaps"));
    EXPECT_TRUE(DescribeComPort(1, folder.path(), false).endsWith(u": in use"));
    com.SetCommPort(1);
    EXPECT_FALSE(com.SetPortOpen(true));
    ::kill(static_cast<pid_t>(batch.processId()), SIGINT);
    EXPECT_EQ(End(batch).status, 130);
    EXPECT_TRUE(GivenBack(far));
    EXPECT_TRUE(com.SetPortOpen(true));  // and the other way round
    EXPECT_TRUE(Run("get").err.value(0).contains(u"is in use"));
}

TEST_F(CtlEnds, ATerminalSeesTheProgressAndNothingElseDoes) {
    Plug(1, {});
    WriteTable("t.csv");
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_TRUE(terminal >= 0 && ::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0);
    for (const auto& [words, shows] : {std::pair("", true), {"--quiet ", false}}) {
        QProcess process;
        process.setStandardErrorFile(QString::fromLatin1(::ptsname(terminal)));
        const int held = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY);
        Start(process, QLatin1StringView(words) + QStringLiteral("memory send 4k ") + Path("t.csv"));
        EXPECT_EQ(End(process).status, 0);
        ::fcntl(terminal, F_SETFL, O_NONBLOCK);
        QByteArray seen(65536, '\0');
        seen.truncate(std::max<ssize_t>(::read(terminal, seen.data(), 65536), 0));
        EXPECT_EQ(seen.contains(" %"), shows);
        ::close(held);
    }
    ::close(terminal);
    EXPECT_TRUE(Run(u"memory send 4k " + Path("t.csv")).err.isEmpty());
}

}  // namespace

#include <gtest/gtest.h>

#include <array>
#include <map>

#include "editor/TraceReply.h"

namespace {

constexpr qint16 kUntouched = 77;

QString Repeat(const char* number, int times) { return QString(QString::fromLatin1(number) + u',').repeated(times); }

// Expects these samples of the copy buffer, and that nothing but the samples 1 to 2048 was written.
void ExpectTrace(const QString& text, const std::map<std::size_t, int>& samples) {
    std::array<qint16, 16385> buffer{};
    buffer.fill(kUntouched);
    ASSERT_TRUE(ReadTrace(text, buffer)) << text.left(60).toStdString();
    for (const auto& [index, sample] : samples) {
        EXPECT_EQ(buffer.at(index), sample) << text.left(60).toStdString() << "... at " << index;
    }
    EXPECT_EQ(buffer[0], kUntouched);
    EXPECT_EQ(buffer[2049], kUntouched);
    EXPECT_EQ(buffer[16384], kUntouched);
}

TEST(TraceReply, ScalesTheTraceToAFixedSpan) {
    ExpectTrace(QStringLiteral("0,255,") + Repeat("128", 2045) + u"255", {{1, -1500}, {2, 1500}, {3, 6}, {2048, 1500}});
    ExpectTrace(QStringLiteral("0,10,2.5,3.5, 7 ,+8,abc,1e1"),
                {{3, -900}, {4, -300}, {5, 600}, {6, 900}, {7, -1500}, {8, 1500}, {9, 1500}, {2048, 1500}});
    ExpectTrace(QStringLiteral("-32000,767"), {{1, -1500}, {2, 1500}});
    // All above 255: the scale still begins at 255.
    ExpectTrace(QStringLiteral("1005,1755"), {{1, 0}, {2, 1500}});
    ExpectTrace(QStringLiteral("300"), {{1, 1500}, {2048, 1500}});
    ExpectTrace(QStringLiteral("256"), {{1, 1500}, {2048, 1500}});
}

TEST(TraceReply, LeavesATraceWithoutPositiveNumbersAsItIs) {
    ExpectTrace(Repeat("0", 2047) + u"0", {{1, 0}, {2048, 0}});
    ExpectTrace(QString(), {{1, 0}, {2048, 0}});
    ExpectTrace(QStringLiteral("no trace"), {{1, 0}, {2048, 0}});
    ExpectTrace(QStringLiteral("-5,-32768,-0.4"), {{1, -5}, {2, -32768}, {3, 0}, {2048, 0}});
    ExpectTrace(QStringLiteral("1e-999"), {{1, 0}});
}

TEST(TraceReply, EndsWithTheNumberBeforeAZero) {
    const QString head = QStringLiteral("10,") + Repeat("20", 2046);
    ExpectTrace(head + u"0", {{1, -1500}, {2047, 1500}, {2048, 1500}});
    ExpectTrace(head, {{1, -1500}, {2047, 1500}, {2048, 1500}});
    ExpectTrace(head + u"0.4", {{1, 0}, {2047, 1500}, {2048, -1500}});
    ExpectTrace(head + u"30,40", {{1, -1500}, {2047, 0}, {2048, 1500}});
}

TEST(TraceReply, FailsWhereANumberOrTheScaleDoesNotFit) {
    const QString cases[] = {QStringLiteral("1,32768"),     QStringLiteral("1,32767.5"), QStringLiteral("-32768.6"),
                             QStringLiteral("1,1e999"),     QStringLiteral("1,-1e999"),  Repeat("1", 2047) + u"40000",
                             QStringLiteral("1"),           QStringLiteral("255"),       QStringLiteral("-32000,768"),
                             QStringLiteral("-32768,32767")};
    for (const QString& text : cases) {
        std::array<qint16, 16385> buffer{};
        EXPECT_FALSE(ReadTrace(text, buffer)) << text.right(20).toStdString();
    }
    std::array<qint16, 16385> buffer{};
    EXPECT_TRUE(ReadTrace(QStringLiteral("0,32767.4"), buffer));
}

}  // namespace

// What is refused, with its sentence; the editor's own form; cancelling; what a long file takes.

#include <QTemporaryFile>
#include <cmath>

#include "Describe.h"

namespace {

using recording::Choice;

const std::tuple<std::string, Choice, const char*> kFaults[] = {
    {"", {}, "The file is empty. Save the recording again, as CSV."},
    {"\n  \n\t\n", {}, "The file is empty. Save the recording again, as CSV."},
    {"no numbers at all\n", {}, "The file holds no numbers. Save the samples as CSV."},
    {"wave\n0x10\n0x20\n", {}, "No cell of the file is a number; line 2 is \"0x10\"."},
    {"1,5;1,7\n2,5;1,8\n",
     {.separator = '|'},
     "With the chosen separator no cell is a number; line 1 is \"1,5;1,7\". Choose another one."},
    {"1,5\n2,5\n",
     {.separator = '|', .decimalMark = '.'},
     "With the chosen separator and decimal mark no cell is a number; line 1 is \"1,5\". Choose others."},
    {"1.5\n2.5\n",
     {.decimalMark = ','},
     "With the chosen decimal mark no cell is a number; line 1 is \"1.5\". Choose another one."},
    {"t,v\n0,1\nend\n", {}, "Nowhere do numbers stand in two rows below each other; line 2 has the first one."},
    {"Model,X\nLength,2500\nRate,5\n", {}, "Numbers stand only behind words, as in a header, from line 2 on."},
    {"Volt\n0,5\n1,5\n", {}, "Line 2 has more cells than titles stand above it, so that its commas may be decimal"},
    {"Spannung (V)\n1,5\n2,7\n", {}, "Line 2 has more cells than titles stand above it"},
    {"CH1\n1 234,50\n2\u00a0345,60\n", {}, "Line 2 has more cells than titles stand above it"},
    {"1,5\n2,7\n", {}, "The commas from line 1 on may be decimal marks, or separate two columns. Save the"},
    {"Rate: 5 Hz\n1,5\n2,7\n3,1\n9,9\n", {}, "The commas from line 2 on may be decimal marks, or separate two"},
    {"0,5\n1,5\n2,5\n3,5\n", {}, "The commas from line 1 on may be decimal marks, or separate two columns."},
    {"0,000E+00,1,2345E-01\n1,000E+00,2,2345E-01\n", {}, "Commas separate the cells and seem to be"},
    {"t;ADC\n0;998\n1;1,000\n", {}, "The comma in \"1,000\" may be a decimal mark, or separate thousands."},
    {"t\tADC\n0\t998\n1\t1.000\n", {}, "The point in \"1.000\" may be a decimal mark, or separate thousands."},
    {"0,01,1,05\n0,02,1,10\n", {}, "Commas separate the cells and seem to be decimal marks as well."},
    {"t\tU\n0\t1,234\n1\t2,345\n", {}, "The comma in \"2,345\" may be a decimal mark, or separate thousands."},
    {"Channel,Time,U\n1,0,.1\n2,0,.5\n1,1,.2\n2,1,.6\n",
     {},
     "Several channels stand in one column, one below the other, as column 1 \"Channel\" tells (1, 2). Save each "
     "channel in a column or block of its own, or choose the columns by their numbers."},
    {"Time;Sensor;U\n0;left;1,5\n0;right;2,5\n1;left;1,7\n1;right;2,7\n",
     {},
     "Several channels stand in one column, one below the other, as column 2 \"Sensor\" tells (left, right)."},
    {"channel,value\nA,1.5\nA,1.7\nB,2.5\nB,2.7\n", {}, "Several channels stand in one column, one below the"},
    {"09\n24\nFE\n1D\n3B\n", {}, "Line 3 is \"FE\", as in a list of hexadecimal numbers, which are not read."},
    {"A0:254,A1:3\nA0:25,A1:4\n", {}, "No cell of the file is a number; line 1 is \"A0:254,A1:3\"."},
    {{"1,2\n3\0,4\n", 9}, {}, "The file holds zero bytes, so it is no plain text."}};

TEST(RecordingFaults, EachSaysWhatIsWrong) {
    for (const auto& [text, choice, sentence] : kFaults) {
        EXPECT_TRUE(Describe(text, choice).starts_with(std::string("! ") + sentence)) << Describe(text, choice);
    }
    EXPECT_EQ(Describe("Model,X\nLength,2500\nRate,5\n", {.byNumber = true}), "X: 2500 5");
}

TEST(RecordingFaults, SamplesSideBySideAreNoChannels) {
    std::string wide;
    for (int i = 0; i < 200; ++i) {
        wide += (i % 100 == 0 ? "\n" : ",") + std::to_string(i);
    }
    EXPECT_EQ(
        Describe(wide),
        "! Line 2 has 100 numbers side by side, and there are 2 such rows. Save the recording with one row for each "
        "sample, or choose the columns by their numbers.");
    EXPECT_EQ(ReadBytes(QByteArray::fromStdString(wide), {.byNumber = true}).recording->blocks[0].columns.size(), 100U);
}

TEST(RecordingFaults, AColumnThatCannotBeTakenSaysWhy) {
    const std::tuple<const char*, std::size_t, const char*> cases[] = {
        {"t,v\n0,1\n1,9.91E+37\n2,3\n", 2, "Line 3 has no number in column 2 \"v\", and others follow below."},
        {"2,1\n1,\n2,2\n", 2, "Line 2 has no number in column 2, and others follow below."},
        {"t;v\n0;1.5\n1;1,5\n2;2\n", 2,
         "In column 2 \"v\" the decimal mark is a point by line 2 and a comma by line 3."},
        {"t;v\n0.001;1,5\n0.002;1,234\n", 2,
         "In column 2 \"v\" the decimal mark is a point by line 3 and a comma by line 2."},
        {"t,v\n0,1\n1,12V\n2,2\n", 2, "In line 3 the unit changes in column 2 \"v\"."},
        {"t,v,w\n0,1,5\n1,2,\n2,1,\n", 3,
         "One number only stands in column 3 \"w\", and a recording has two at least."},
        {"t,v\n0,1 mV\n1,9.9E+37 mV\n2,1 mV\n", 2, "Line 3 has no number in column 2 \"v\""},
        {"Time,X,CH2\n0,1.2g,5\n1,1.3g,6\n", 2,
         "\"1.2g\" in line 2 is no number: its unit or its marks are unknown in"},
        {"0,- 0.5\n1,- 0.7\n", 2, "\"- 0.5\" in line 1 is no number: its unit or its marks are unknown in column 2."},
        {"Segment,Time,A,B\n1,0,1,5\n1,1,2,\n1,2,1,6\n2,0,1,7\n2,1,2,8\n2,2,1,7\n", 4,
         "Line 3 has no number in column 4 \"B\", and others follow below."},
        {"t,v\n0,$1.5\n1,$1.6\n", 2, "\"$1.5\" in line 2 is no number: its unit or its marks are unknown"},
        {"Start,v\n12:00,1\n12:01,2\n", 1, "Dates or times of day stand in column 1 \"Start\"."}};
    for (const auto& [text, number, sentence] : cases) {
        const recording::Outcome outcome = ReadBytes(text);
        ASSERT_TRUE(outcome.recording) << text;
        const recording::Column& column = outcome.recording->blocks[0].columns.at(number - 1);
        EXPECT_TRUE(column.fault.startsWith(QString::fromUtf8(sentence))) << column.fault.toStdString();
        EXPECT_TRUE(column.values.empty());
    }
}

TEST(RecordingColumns, AreFoundByNumberAndTitle) {
    const recording::Outcome outcome =
        ReadBytes("Time;CH1 (mV);a, b;v;v\n0;1;2;3;4\n1;2;3;4;\n2;3;;5;6\n\nTime;Late;w\n0;5;6\n1;6;7\n");
    const recording::Recording& recording = *outcome.recording;
    const std::tuple<const char16_t*, Numbers, const char*> cases[] = {
        {u"2", {2}, ""},
        {u"ch1", {2}, ""},
        {u"CH1 (mV),4", {2, 4}, ""},
        {u"a, b", {3}, ""},
        {u" 1 , a, b ", {1, 3}, ""},
        {u"Late", {2}, ""},
        {u"v", {}, "Several columns are titled \"v\". Choose one by its number: 1 Time, 2 CH1 (mV), 3 a, b, 4 v, 5 v."},
        {u"7", {}, "There are no numbers in a column 7. Choose one of these: 1 Time, 2 CH1 (mV), 3 a, b, 4 v, 5 v."},
        {u"2,CH3", {}, "There is no column titled \"CH3\". Choose one of these: 1 Time, 2 CH1 (mV), 3 a, b, 4 v, 5 v."},
        {u"1,", {}, "A column is missing beside a comma in \"1,\". Name columns as in \"2,3\"."},
        {u"1,,2", {}, "A column is missing beside a comma in \"1,,2\". Name columns as in \"2,3\"."},
        {u"5",
         {},
         "Line 3 has no number in column 5 \"v\", and others follow below. Take another column, or save the "
         "rows above or below that line alone."}};
    for (const auto& [text, numbers, sentence] : cases) {
        QString fault;
        Numbers found;
        for (const recording::Column* const column : FindColumns(recording, 0, QString::fromUtf16(text), &fault)) {
            found.push_back(column->number);
        }
        EXPECT_EQ(found, numbers) << QString::fromUtf16(text);
        EXPECT_EQ(fault.toStdString(), sentence);
    }
}

TEST(RecordingAddressed, TheEditorsOwnFormIsTakenToTheLetter) {
    const recording::Outcome outcome = ReadBytes("address,value\r\n3,-2047\r\n0,05\r\n1,7\r\n");
    QString samples;
    for (const auto& [address, value, line] : outcome.recording->addressed) {
        samples += QStringLiteral("%1=%2 in line %3; ").arg(address).arg(value).arg(line);
    }
    EXPECT_EQ(samples, u"3=-2047 in line 2; 0=5 in line 3; 1=7 in line 4; ");
    EXPECT_EQ(outcome.recording->blocks.size(), 1U);
    EXPECT_EQ(ReadBytes("Address;Value\n0;1\n").recording->addressed.size(), 1U);

    for (const char* const text : {"address,value\n0,1\n1,1.5\n", "address,value\n0,1\n1\n",
                                   "address,value\n0,1\nx,1\n", "address,value\n0,1\n1,99999999999\n"}) {
        const recording::Outcome faulty = ReadBytes(text);
        EXPECT_TRUE(faulty.recording->addressed.empty());
        EXPECT_EQ(faulty.recording->addressedFault,
                  u"Line 3 is no address and value, two whole numbers. Correct it, or take the file as a recording.");
    }
    EXPECT_EQ(ReadBytes("address,value\n").recording->addressedFault,
              u"No address and value stands below the title line. Save the memory again.");
    EXPECT_TRUE(ReadBytes("address,value,x\n0,1,2\n1,2,3\n").recording->addressed.empty());
}

// A device that gives a few bytes at a time, as a slow disk may.
class Dribble : public QBuffer {
  public:
    using QBuffer::QBuffer;

  protected:
    qint64 readData(char* data, qint64 most) override { return QBuffer::readData(data, std::min<qint64>(most, 5)); }
};

TEST(RecordingReading, IsTheSameInPieces) {
    QByteArray text("t;CH1\r\n");
    for (int i = 0; i < 500; ++i) {
        text += QByteArray::number(i) + ";" + QByteArray::number(i * 7 % 13 - 5) + ",5\r\n";
    }
    Dribble buffer(&text);
    buffer.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    EXPECT_EQ(Describe(recording::Read(buffer)), Describe(text.toStdString()));
}

TEST(RecordingReading, TheWholeFileDecidesAndMayBeCancelled) {
    // A header of many lines with other separators than the samples.
    QByteArray text;
    for (int i = 0; i < 20'000; ++i) {
        text += "; remark " + QByteArray::number(i) + ", with; some; 1,5; cells\n";
    }
    const int rows = 200'000;
    for (int i = 0; i < rows; ++i) {
        text += QByteArray::number(i * 1e-6, 'f', 6) + "\t" + QByteArray::number(std::sin(i * 1e-3), 'f', 5) + "\n";
    }
    QTemporaryFile file;
    ASSERT_TRUE(file.open() && file.write(text) == text.size() && file.flush());
    double last = 0.0;
    int calls = 0;
    const recording::Outcome outcome = recording::Read(file, {}, [&](double part) {
        EXPECT_GE(part, last);
        EXPECT_LE(part, 1.0);
        last = part;
        return ++calls > 0;
    });
    const recording::Block& block = outcome.recording->blocks.at(0);
    const recording::Column& column = block.columns.at(1);
    EXPECT_EQ((Numbers{outcome.recording->linesLeftOut, block.rows, column.values.size(), column.lastLine}),
              (Numbers{20'000, rows, rows, 220'000}));
    EXPECT_EQ(column.values[1571], 1.0);
    EXPECT_GT(calls, 10);
    EXPECT_GT(last, 0.9);

    calls = 0;
    const recording::Outcome cancelled = recording::Read(file, {}, [&calls](double) { return ++calls < 3; });
    EXPECT_FALSE(cancelled.recording);
    EXPECT_EQ(cancelled.fault, u"");
    EXPECT_EQ(calls, 3);
}

}  // namespace

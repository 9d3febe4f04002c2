// The forms in which oscilloscopes, loggers and programs save recordings, and what must come of each.

#include <QStringEncoder>
#include <span>

#include "Describe.h"

namespace {

using recording::Choice;

struct Form {
    const char* text = nullptr;
    const char* result = nullptr;
    Choice choice = {};
};

void ExpectForms(std::span<const Form> forms) {
    for (const auto& [text, result, choice] : forms) {
        EXPECT_EQ(Describe(text, choice), result) << text;
    }
}

const Form kTitlesAndUnits[] = {
    {"Time,CH1,CH2\ns,V,V\n0,1,-5\n1,2,-4e-1\n2,.5,+3\n", "CH1 (V): 1 2 0.5; CH2 (V): -5 -0.4 3 [Time (s)] every 1 s"},
    {"Time;Channel A;Channel B\n(ms);(mV);(V)\n\n-1,0;10,5;1\n0,0;11,5;2\n",
     "Channel A (mV): 10.5 11.5; Channel B (V): 1 2 [Time (ms)] every 1 ms"},
    {"time, in ms;volts, at 1:10;x\n0,1;4,5;0\n0,2;3,5;0",
     "volts, at 1:10: 4.5 3.5; x: 0 0 [time (ms)] every 100 \302\265s"},
    {"t/us|U [mV]|I (A)\n0|1|5\n2|2|6\n", "U (mV): 1 2; I (A): 5 6 [t (us)] every 2 \302\265s"},
    {"\"Time, s\",\"CH1, mV\"\n\"0\",1\n\"1\",2\n", "CH1 (mV): 1 2 [Time (s)] every 1 s"},
    {"x-axis,1,2\nsecond,Volt,Volt\n-1e-3,1,2\n0,2,3\n", "1 (Volt): 1 2; 2 (Volt): 2 3 [x-axis (second)] every 1 ms"},
    {"Time,CH1\n[s],[V]\nSample,Sample\n0,1\n1,2\n", "CH1 (V): 1 2 [Time (s)] every 1 s"},
    {"Sample,ADC\n0,2048\n1,2050\n", "ADC: 2048 2050 [Sample]"},
    {"Name;U1;U2\nEinheit;V;A\n0;1;2\n1;3;2\n", "U1 (V): 1 3; U2 (A): 2 2 [column 1]"},
    {"Channel name;;U1;U2\nUnit;s;V;A\n;0;1;2\n;1;2;3\n", "U1 (V): 1 2; U2 (A): 2 3 [column 2 (s)] every 1 s"},
    {"Time,5V,12V\n0,5.01,12.1\n1,5.02,12\n", "5V: 5.01 5.02; 12V: 12.1 12 [Time] every 1 s"},
    {"% time  ch1\n0 1\n1 2\n", "ch1: 1 2 [time] every 1 s"},
    {",CH1,CH2\n0,10,20\n1,11,21\n", "CH1: 10 11; CH2: 20 21 [column 1]"},
    {"Volt\n0.5\n1.5\n", "Volt: 0.5 1.5"},
    {"t (\316\274s);R (\342\204\246)\n0;1\342\200\231500\n1;2\n",
     "R (\316\251): 1500 2 [t (\302\265s)] every 1 \302\265s"},        // as print has micro, ohm and thousands
    {"Time,CH1\nticks,V\n0,1\n1,2\n", "CH1 (V): 1 2 [Time (ticks)]"},  // one unit is unknown
    {"TraceName,CH1,CH2\nVUnit,V,mV\n,.1,5\n,.3,4\n", "CH1 (V): 0.1 0.3; CH2 (mV): 5 4"},
    {"Date,05 Nov 2024\n0,1\n1,2\n", "column 2: 1 2 [column 1]"},  // a key, no titles
};

TEST(RecordingForms, TitlesAndUnits) { ExpectForms(kTitlesAndUnits); }

const Form kWhichColumnsAreChannels[] = {
    {"Time,CH1,Time,CH2\n0,1,0,2\n1e-3,2,2e-3,1\n", "CH1: 1 2; CH2: 2 1 [Time, Time] every 1 ms"},
    {"TIME,CH1,CH1 Peak Detect,CH2,CH2 Peak Detect\n0,1,9,2,8\n1,2,9,1,8\n",
     "CH1: 1 2; CH2: 2 1 [TIME, CH1 Peak Detect, CH2 Peak Detect] every 1 s"},
    {"CH1,Zeit (ms)\n1,0\n2,1\n", "CH1: 1 2 [Zeit (ms)] every 1 ms"},
    {"Time,CH1\n0,0\n1,1\n2,2\n", "CH1: 0 1 2 [Time] every 1 s"},  // a channel that only rises
    {"n,Run time,CH1\n0,0.5,3\n1,0.6,4\n2,0.7,3\n", "CH1: 3 4 3 [n, Run time] every 100 ms"},
    {"foo,goo,baz\n0,0.5,3\n1,0.6,4\n2,0.7,3\n", "baz: 3 4 3 [foo, goo]"},  // both rise in line
    {"Time,Ramp\n0,0\n1,1\n2,2\n", "Ramp: 0 1 2 [Time] every 1 s"},         // a channel must be left
    {"0,1,3\n1,8,4\n2,9,3\n", "column 2: 1 8 9; column 3: 3 4 3 [column 1]"},
    {"4, 1\n2, 2\n4, 1\n", "column 1: 4 2 4; column 2: 1 2 1"},
    {"1,x\n2,y\n3,z\n", "column 1: 1 2 3"},
    {"Segment,Count,Time,CH1\n1,1,0,5\n1,1,1,6\n", "CH1: 5 6 [Segment, Count, Time] every 1 s"},
    {"Time,Count,Sample\n0,5,1\n1,7,3\n2,6,2\n", "Count: 5 7 6; Sample: 1 3 2 [Time] every 1 s"},
    {"X,Y\n0.5,1\n-0.2,2\n0.1,1\n", "X: 0.5 -0.2 0.1; Y: 1 2 1"},
    {"Frequency (Hz),Gain (dB)\n10,1\n100,2\n1000,1\n", "Gain (dB): 1 2 1 [Frequency (Hz)] uneven"},
    {"t;v;w\nMon 12:00;0,5;1\nTue 12:00;0,25;2\n", "v: 0.5 0.25; w: 1 2 [t]"},
    {"0.1,OK\n0.2,OK\n0.1,FAIL\n", "column 1: 0.1 0.2 0.1"},
    {"CH1,0,1.5\nCH1,1,2.5\nCH1,2,1.5\n", "column 3: 1.5 2.5 1.5 [column 2]"},
    // A word that may be a time, or an index, is a channel beside one that is.
    {"t,U,I\n0,5,1\n1,6,2\n", "U: 5 6; I: 1 2 [t] every 1 s"},
    {"t,x,y\n0,1,5\n1,2,6\n", "x: 1 2; y: 5 6 [t] every 1 s"},
    {"x,y\n0,5\n1,6\n", "y: 5 6 [x]"},
    {"i,U\n0,5\n1,6\n", "U: 5 6 [i]"},
    {"U,i\n5,0\n6,2\n", "U: 5 6; i: 0 2"},
    {"Time,Data,CH2\n0,1,5\n1,3,6\n", "Data: 1 3; CH2: 5 6 [Time] every 1 s"},
    {"Time (s),CH1 period (ms),CH2\n0,1,5\n1,2,6\n2,9,5\n", "CH1 period (ms): 1 2 9; CH2: 5 6 5 [Time (s)] every 1 s"},
    {"Time (s),Delay (ms),CH2\n0,1,5\n1,2,6\n2,9,5\n", "Delay (ms): 1 2 9; CH2: 5 6 5 [Time (s)] every 1 s"},
    {"Time,CH1 (real time),CH2\n0,1,5\n1,2,6\n2,9,5\n", "CH1 (real time): 1 2 9; CH2: 5 6 5 [Time] every 1 s"},
    {"CH1 Time,CH1 Volt,CH2 Time,CH2 Volt\n0,5,0,6\n1,4,2,7\n",
     "CH1 (Volt): 5 4; CH2 (Volt): 6 7 [CH1 Time, CH2 Time] every 1 s"},
    // A number that is the same in all rows
    {"Channel,Time (s),U (V)\n1,0,.1\n1,1,.3\n", "U (V): 0.1 0.3 [Channel, Time (s)] every 1 s"},
    {"n,CH1,CH2\n7,1,4\n7,3,3\n", "CH1: 1 3; CH2: 4 3 [n]"},
    {"Acq#,CH1\n7,1\n7,3\n", "CH1: 1 3 [Acq#]"},
    {"7,3,.1\n7,1,.3\n", "column 2: 3 1; column 3: 0.1 0.3 [column 1]"},
    {"7,0,5\n7,1,6\n7,2,5\n", "column 3: 5 6 5 [column 1, column 2]"},
    {"Time,Channel\n0,5\n1,6\n", "Channel: 5 6 [Time] every 1 s"},
    // Of the lines of one channel, the plain one or the first
    {"t,CH1,CH1_PEAK_DETECT,CH2,CH2 PkDet\n0,1,9,2,7\n1,2,8,1,6\n",
     "CH1: 1 2; CH2: 2 1 [t, CH1_PEAK_DETECT, CH2 PkDet] every 1 s"},
    {"t,CH1 Min,CH1 Max,CH2 Min,CH2 Max\n0,1,9,2,7\n1,2,8,1,6\n",
     "CH1 Min: 1 2; CH2 Min: 2 1 [t, CH1 Max, CH2 Max] every 1 s"},
    {"t,Min,Max\n0,1,9\n1,2,8\n", "Min: 1 2 [t, Max] every 1 s"},
    {"Frequency (Hz),Time,A\n10,0,5\n20,1,6\n", "A: 5 6 [Frequency (Hz), Time] every 1 s"},
    {"Time,Frequency (Hz)\n0,1000\n1,1001\n", "Frequency (Hz): 1000 1001 [Time] every 1 s"},  // of a counter
    {"Time,Channel,B\n0,5,1\n1,6,2\n2,7,1\n", "Channel: 5 6 7; B: 1 2 1 [Time] every 1 s"},
};

TEST(RecordingForms, WhichColumnsAreChannels) { ExpectForms(kWhichColumnsAreChannels); }

const Form kHeadersWithNumbers[] = {
    // Keys above, of all kinds, and settings beside the samples.
    {"Length,2500\nInterval,1e-9\nInfo,x\nSource,CH1\n0,4\n1,3\n2,4", "CH1: 4 3 4 [column 1] every 1 ns"},
    {"#Sampling rate: 500 kS/s\n#Offset: 0.5 V\nTime\tChannel A (mV)\n\n0\t1.5\n2e-6\t2.5\n",
     "Channel A (mV): 1.5 2.5 [Time] every 2 \302\265s"},
    {"[Waveform]\nXUNIT=s\nXINCR=4e-9\nYUNIT=V\nNR_PT=3\n[Data]\n0.5\n0.6\n0.5\n",
     "column 1 (V): 0.5 0.6 0.5 every 4 ns"},
    {"Sample Rate,1 MSa/s\nPoints,3\n0.5\n0.6\n0.5\n", "column 1: 0.5 0.6 0.5 every 1 \302\265s"},
    {"# name: U1\n# dt = 0.5 ms\n1 2\n2 1\n1 2\n", "U1: 1 2 1; column 2: 2 1 2 every 500 \302\265s"},
    {"Record Length,6,,0,4,\nSample Interval,2e-9,,2e-9,3,\nSource,CH1,,4e-9,2,\nVertical Units,V,,6e-9,3,\nHorizontal "
     "Units,s,,8e-9,4,\n,,,10e-9,5,\n,,,12e-9,5,\n,,,14e-9,5,\n,,,16e-9,5,\n",
     "CH1 (V): 4 3 2 3 4 5 5 5 5 [column 2, column 4 (s)] every 2 ns"},
    {"Source,CH1,,0,1,,Source,CH2,,0,5\nVertical Units,V,,1,2,,Vertical Units,A,,1,6\nSample "
     "Interval,1,,2,1,,,,,2,5\n,,,3,1,,,,,3,5\n,,,4,2,,,,,4,6\n",
     "CH1 (V): 1 2 1 1 2; CH2 (A): 5 6 5 5 6 [column 2, column 4, column 10] every 1 s"},
    {"Model,X100\nChannel,CH1,CH2\nScale,1.0,0.5\nOffset,0.0,0.1\nUnit,V,mV\nSample "
     "Rate,1.0E+9,1.0E+9\n.1,.2\n.2,.1\n.3,.2\n",
     "CH1 (V): 0.1 0.2 0.3; CH2 (mV): 0.2 0.1 0.2 every 1 ns"},
    {"X,CH1,CH2,Start,Increment\nSequence,Volt,Volt,-6.0e-04,1.0e-06\n0,1.2,3.4,,\n1,1.3,3.3,,\n",
     "CH1 (Volt): 1.2 1.3; CH2 (Volt): 3.4 3.3 [X (Sequence)] every 1 \302\265s"},
    {"Sample,CH1 (V),Start,Increment (ms)\n0,1.2,0,5\n1,1.3\n2,1.2\n3,1.3\n",
     "CH1 (V): 1.2 1.3 1.2 1.3 [Sample, Start, Increment (ms)] every 5 ms"},
    {"CH1V,t0 = -1.0e-3s, tInc = 2.0e-7s,\n1.5,,\n2.5,,\n", "CH1V: 1.5 2.5 every 200 ns"},
    {"2024;11;05\nt;v\n0;1,5\n1;0,5\n", "v: 1.5 0.5 [t] every 1 s"},
    {"3,1e-9\n.1,.2,.4\n.3,.1,.5\n.1,.2,.4\n", "column 1: 0.1 0.3 0.1; column 2: 0.2 0.1 0.2; column 3: 0.4 0.5 0.4"},
    {"3,5,7\n1,2\n2,1\n1,2\n", "column 1: 1 2 1; column 2: 2 1 2"},
    {"9,1e-6\n0,5\n1,6\n2,5\n3,6\n4,5\n5,6\n6,5\n7,6\n8,5\n", "column 2: 5 6 5 6 5 6 5 6 5 [column 1]"},
    // Keys in front of the samples, above and below; a line without a time, or with one from elsewhere
    {"HResolution,1e-6,1e-6\nHOffset,50,70\n,.1,.2\n,.3,.1\n,.1,.3\nMean,50,60\n",
     "column 2: 0.1 0.3 0.1; column 3: 0.2 0.1 0.3 every 1 \302\265s"},
    {"\"HOffset\";50;70\n\n;,3;,2\n;,1;,1\n", "column 2: 0.3 0.1; column 3: 0.2 0.1"},
    {"Channel,CH1,CH2\n,1000,2000\n0,.1,.2\n1,.3,.1\n,9,9\n", "CH1: 0.1 0.3; CH2: 0.2 0.1 [column 1]"},
    {"Time,A\n0.001,12\n0,1\n1,2\n2,1\n3,2\n4,1\n5,2\n6,1\n7,2\n", "A: 1 2 1 2 1 2 1 2 [Time] every 1 s"},
    // A count of the rows or columns, as digits without the marks of the samples
    {"3\n.5\n1.5\n2.5\n", "column 1: 0.5 1.5 2.5"},
    {"4\n.5\n1.5\n2.5\n", "column 1: 4 0.5 1.5 2.5"},
    {"3\n5\n15\n25\n", "column 1: 3 5 15 25"},
    {"0,1,2\n0,.5,1.5\n.1,.6,1.4\n.2,.5,1.5\n", "column 2: 0.5 0.6 0.5; column 3: 1.5 1.4 1.5 [column 1]"},
    {"1,2\n.6,1.5\n.5,1.4\n", "column 1: 0.6 0.5; column 2: 1.5 1.4"},
    {"0,1\n.1,.9\n.0,.8\n", "column 1: 0 0.1 0; column 2: 1 0.9 0.8"},
    {"0,1,2\n.1,.6,1.4\n.2,.5,1.5\n", "column 2: 1 0.6 0.5; column 3: 2 1.4 1.5 [column 1]"},
    {"4 1e-6\n.5\n1.5\n", "column 1: 0.5 1.5"},
    {"1,3\n.5,1.5\n.6,1.4\n", "column 1: 1 0.5 0.6; column 2: 3 1.5 1.4"},
    // Units of the time are none of the channels; a key for each channel; remarks that are no titles
    {"TraceName,A,B\nVUnit,V,A\nHResolution,1e-6,1e-6\nHUnit,s,s\n,.1,.2\n,.3,.1\n",
     "A (V): 0.1 0.3; B (A): 0.2 0.1 every 1 \302\265s"},
    {"Source,CH1,,Source,CH2\nUnit,V,,Unit,mV\n0,4,,0,5\n1,3,,1,7\n2,4,,2,6\n",
     "CH1 (V): 4 3 4; CH2 (mV): 5 7 6 [column 1, column 4]"},
    {"# Sample rate: 250 kSa/s\n.2 .5\n.1 .6\n", "column 1: 0.2 0.1; column 2: 0.5 0.6 every 4 \302\265s"},
    {"time [s] output voltage [V]\n0 .5\n.5 .6\n", "output voltage (V): 0.5 0.6 [time (s)] every 500 ms"},
    {"Samples per second\t1000\n.3\t.5\n.1\t.6\n", "column 1: 0.3 0.1; column 2: 0.5 0.6 every 1 ms"},
    {"Y_Unit_Label\tVolts\nDelta_X\t0,1\nX_Value\tU\n0,0\t1,5\n0,1\t1,4\n",
     "U (Volts): 1.5 1.4 [X_Value] every 100 ms"},
    {"Points,6,0,4\nScale,2,1,3\nSource,CH1,2,2\nX,5,3,1\n,,4,2\n,,5,3\n", "CH1: 4 3 2 1 2 3 [column 2, column 3]"},
};

TEST(RecordingForms, HeadersWithNumbers) { ExpectForms(kHeadersWithNumbers); }

const Form kEdgesWithoutNumbersAreLeftOut[] = {
    {"t,CH1,CH2\n0,Null,1\n1,--,2\n2,1.5,1\n3,2.5,2\n4,1.5,9.9E37\n5,2.5,NaN\n",
     "CH1: 1.5 2.5 1.5 2.5; CH2: 1 2 1 2 [t] every 1 s"},
    {"Time,A\n(ms),(V)\n0,\342\210\236\n1,2\n2,3\n3,-inf\n", "A (V): 2 3 [Time (ms)] every 1 ms"},
    {"0,1,5\n1,2,6\n2,1,7\n3,2,\n4,3", "column 2: 1 2 1 2 3; column 3: 5 6 7 [column 1]"},
    {"5;6\n\n3;2\n  \n4;1\n-- end, 3 samples --\n", "column 1: 5 3 4; column 2: 6 2 1"},
};

TEST(RecordingForms, EdgesWithoutNumbersAreLeftOut) {
    ExpectForms(kEdgesWithoutNumbersAreLeftOut);
    const recording::Outcome outcome = ReadBytes("Title\n\nt,CH1,CH2\n0,,1\n1,2,1\n2,3,\n3,1,\n4,2,\nEnd of file\n");
    const recording::Block& block = outcome.recording->blocks[0];
    const recording::Column& one = block.columns[1];
    const recording::Column& two = block.columns[2];
    EXPECT_EQ((Numbers{block.rows, block.firstLine, block.lastLine}), (Numbers{5, 4, 8}));
    EXPECT_EQ((Numbers{one.rowsLeftOut, one.firstLine, one.firstRow}), (Numbers{1, 5, 1}));
    EXPECT_EQ((Numbers{two.rowsLeftOut, two.lastLine}), (Numbers{3, 5}));
    EXPECT_EQ(one.lowest, 1.0);
    EXPECT_EQ(one.highest, 3.0);
    EXPECT_EQ(outcome.recording->linesLeftOut, 3U);
}

const Form kBlocksBelowEachOther[] = {
    {"Channel: CH1\nUnit: V\nSample interval: 1 us\n1\n2\n1\nChannel: CH2\nUnit: A\nSample interval: 2 us\n5\n6\n",
     "CH1 (V): 1 2 1 every 1 \302\265s || CH2 (A): 5 6 every 2 \302\265s"},
    {"Segment,Time,CH1\n1,0,5\n1,1,6\n1,2,5\n2,0,7\n2,1,8\n2,2,7\n",
     "CH1: 5 6 5 [Segment, Time] every 1 s || CH1: 7 8 7 [Segment, Time] every 1 s"},
    {"time v\n0 1\n1 2\n2 1\nStep 2 of 2\n0 5\n1 6\n2 5\n", "v: 1 2 1 [time] every 1 s || v: 5 6 5 [time] every 1 s"},
    {"0 1\n1 2\n2 1\n\n\n0 5\n1 6\n2 5\n", "column 2: 1 2 1 [column 1] || column 2: 5 6 5 [column 1]"},
    {"0 1\n1 2\n2 1\n0 5\n1 6\n2 5\n", "column 1: 0 1 2 0 1 2; column 2: 1 2 1 5 6 5"},
    // A remark between rows ends nothing; a title, a key or a time that starts again does.
    {"t,v\n0,1\n1,2\n# trigger here\n2,1\n3,2\n// a\n\n; seen, at once\n4,1\n5,3\n", "v: 1 2 1 2 1 3 [t] every 1 s"},
    {"t,v\n0,1\n1,2\ntrigger here\n2,1\n3,2\n", "v: 1 2 1 2 [t] every 1 s"},
    {"t,v,w\n0,,5\n1,2,6\n2,3,5\n# x\n3,3,7\n4,4,7\n5,4,\n", "v: 2 3 3 4 4; w: 5 6 5 7 7 [t] every 1 s"},
    {"5\n4\n# mark\n6\n4\n", "column 1: 5 4 6 4"},
    {"t,v\n0,1\n1,2\n# x\n2,1\n0,5\n1,6\n2,5\n", "v: 1 2 1 [t] every 1 s || v: 5 6 5 [t] every 1 s"},
    {"Rate: 1 kHz\nA\n1\n2\nB\n5\n4\n", "A: 1 2 every 1 ms || B: 5 4 every 1 ms"},
    {"foo\n1\n3\nbar\n5\n4\n", "foo: 1 3 || bar: 5 4"},
    {"t,v\n0,1\n1,2\n# again\n0,1\n1,2\n", "v: 1 2 [t] every 1 s || v: 1 2 [t] every 1 s"},
    {"t,v\n0,1\n1,2\n2,1\nmuch later\n9,1\n10,2\n", "v: 1 2 1 [t] every 1 s || v: 1 2 [t] every 1 s"},
    {"9;8\n4;7\n# remark\n0;1\n1;3\n2;1\n", "column 1: 9 4; column 2: 8 7 || column 2: 1 3 1 [column 1]"},
    // Numbers of segments or channels, where no time tells
    {"Segment,A\n1,5\n1,6\n2,7\n2,6\n2,5\n", "A: 5 6 [Segment] || A: 7 6 5 [Segment]"},
    {"Channel,Voltage\n1,.5\n1,.6\n2,.7\n2,.6\n", "Voltage: 0.5 0.6 [Channel] || Voltage: 0.7 0.6 [Channel]"},
    {"Segment,Time,A,B\n1,0,1,5\n1,1,2,\n1,2,1,6\n2,0,3,\n2,1,4,8\n2,2,3,7\n",
     "A: 1 2 1; B: ! Line 3 has no number in column 4 \"B\", and others follow below. Take another column, or save the "
     "rows above or below that line alone. [Segment, Time] every 1 s || A: 3 4 3; B: 8 7 [Segment, Time] every 1 s"},
    {"Segment,A\n1,5\n2,6\n3,5\n", "A: 5 6 5 [Segment]"},
    // The pages of a print are one recording.
    {"Index   time     v(out)\n-----------------------\n0\t0.0e+00\t1.0\n1\t1.0e-03\t2.0\n\f\nIndex   time     "
     "v(out)\n-----------------------\n2\t2.0e-03\t3.0\n3\t3.0e-03\t2.0\n",
     "v(out): 1 2 3 2 [Index, time] every 1 ms"},
};

TEST(RecordingForms, BlocksBelowEachOther) {
    ExpectForms(kBlocksBelowEachOther);
    const recording::Outcome apart = ReadBytes("0 1 7\n1 2 7\n2 1 7\n\n0 5\n1 6\n2 5 8\n");
    const recording::Block& second = apart.recording->blocks.at(1);
    EXPECT_EQ((Numbers{second.firstLine, second.lastLine, second.columns[1].firstLine}), (Numbers{5, 7, 5}));
    EXPECT_EQ((Numbers{second.columns[2].firstLine, second.columns[2].rowsLeftOut}), (Numbers{7, 2}));
    std::string run = "1\n2\n1\n2\n1\n2\n1\n2\n1\n2\n1\n2\n1\n2\n1\n2\n";  // long enough for a recording
    EXPECT_EQ(ReadBytes(QByteArray::fromStdString(run + "\n" + run + "\n" + run)).recording->blocks.size(), 3U);
    EXPECT_EQ(ReadBytes(QByteArray::fromStdString(run + "\n" + run + "3\n")).recording->blocks.size(), 1U);
    EXPECT_EQ(ReadBytes("t,v\n0,1\n1,2\n\nt,v\n0,1\n1,2\n2,3\n\nt,v\n0,1\n1,2\n2,3\n").recording->longest, 1U);
}

const Form kSeparatorsAndNumbers[] = {
    {"0;1,5;-2,5\r\n1;1,25;3\r\n2;1;0,5\r\n", "column 2: 1.5 1.25 1; column 3: -2.5 3 0.5 [column 1]"},
    {"t\tU\n0,000\t1,234\n0,001\t2,345\n", "U: 1.234 2.345 [t] every 1 ms"},
    {" 0.000e+000   1.5\n 1.000E-003  -2.5\n", "column 2: 1.5 -2.5 [column 1]"},
    {"  0,000   1,5\n  0,001  -2,5\n", "column 2: 1.5 -2.5 [column 1]"},
    {"| t (s) | U |\n|-------|---|\n| 0 | 1,5 |\n| 1 | 2,5 |\n", "U: 1.5 2.5 [t (s)] every 1 s"},
    {"t, U\n0.5,\t1.5\n1.5,\t2.5\n", "U: 1.5 2.5 [t] every 1 s"},
    {"\"CH1\",\"CH2\"\n\"0,5\",\"1\"\n \"0,25\" , 2 \n", "CH1: 0.5 0.25; CH2: 1 2"},
    {"\"my t\" \"my v\"\n\"0\" \"1.5\"\n\"1\" \"2.5\"\n\"2\" \"1\"\n", "my v: 1.5 2.5 1 [my t]"},
    {"sep=;\nt;U\n0;1,5\n1;2,5\n", "U: 1.5 2.5 [t] every 1 s"},
    // One column of numbers with a decimal comma, as no whole number begins with a zero.
    {"0,125\n-0,25\n1,05\n", "column 1: 0.125 -0.25 1.05"},
    // Two columns of whole numbers: the first one counts, or nothing of it can be a decimal.
    {"0,5\n1,25\n2,5\n3,7\n", "column 2: 5 25 5 7 [column 1]"},
    {"1,5\n2,-4\n1,3\n", "column 1: 1 2 1; column 2: 5 -4 3"},
    {"1,5\n2.5,4\n1,3\n", "column 1: 1 2.5 1; column 2: 5 4 3"},
    {"1,5,2\n2,4,3\n1,3,2\n", "column 1: 1 2 1; column 2: 5 4 3; column 3: 2 3 2"},
    {"Length,3\n1,5\n2,4\n1,3\n", "column 1: 1 2 1; column 2: 5 4 3"},
    {"1,5\n2,4\n1,3\n", "column 1: 1.5 2.4 1.3", {.decimalMark = ','}},
    {"1,5\n2,4\n1,3\n", "column 1: 1 2 1; column 2: 5 4 3", {.separator = ','}},
    {"1,5\n2,4\n1,3\n", "column 1: 1 2 1; column 2: 5 4 3", {.byNumber = true}},
    {"Volt\n0,5\n1,5\n", "Volt: 0.5 1.5", {.decimalMark = ','}},
    {"Volt\n0,5\n1,5\n", "Volt: 0 1; column 2: 5 5", {.byNumber = true}},
    {"Volt\n0,5\n1,5\n", "Volt: 0 1; column 2: 5 5", {.separator = ','}},
    {"a 1;5\nb 2;5\nc 1;5\n", "column 2: 5 5 5", {.separator = ';', .byNumber = true}},
    // Thousands
    {"t;U\n0;1.000,5\n1;1.001\n", "U: 1000.5 1001 [t] every 1 s"},
    {"t,U\n0,\"1,000.5\"\n1,\"1,001\"\n", "U: 1000.5 1001 [t] every 1 s"},
    {"t;U\n0;1'234.5\n1;-12'345\n", "U: 1234.5 -12345 [t] every 1 s"},
    {"t\tU\n0\t1,234,567\n1\t2,345\n2\t0.5\n", "U: 1234567 2345 0.5 [t] every 1 s"},
    {"t;U\n0;1,234\n1;2,345\n", "U: 1.234 2.345 [t] every 1 s"},
    {"t\tU\n0\t1,234\n1\t2,345\n", "U: 1234 2345 [t] every 1 s", {.decimalMark = '.'}},
    {"t;U\n0;\u00a01\u202f234,5\n1;\u22122\u00a0345,5\n", "U: 1234.5 -2345.5 [t] every 1 s"},
    // Units in the cells
    {"t;U\n0 ms;1.5V\n1 ms;20 mV\n2 ms;-1 V\n", "U (V): 1.5 0.02 -1 [t (s)] every 1 ms"},
    {"0 s 900 mV\n1 s 1.1 V\n2 s 1 V\n", "column 3 (V): 0.9 1.1 1 [column 1 (s)] every 1 s"},
    {"No.,Value,Unit\n1,0.512,V\n2,98.5,mV\n", "Value (V): 0.512 0.0985 [No.]"},
    {"t,U\n0,1.5m\n1u,2.5m\n2u,900u\n", "U: 0.0015 0.0025 0.0009 [t] every 1 \302\265s"},
    {"1e-400,1E+001\n1,2\n2,1e308\n", "column 2: 10 2 1e+308 [column 1]"},
};

TEST(RecordingForms, SeparatorsAndNumbers) { ExpectForms(kSeparatorsAndNumbers); }

const Form kTimesAndSteps[] = {
    {"2024-01-05T12:00:00.00Z,1\n2024-01-05T12:00:00.25Z,2\n", "column 2: 1 2 [column 1] every 250 ms"},
    {"1/5/2024 11:59:59 PM,1\n1/6/2024 12:00:00 AM,2\n1/6/2024 12:00:01 AM,1\n",
     "column 2: 1 2 1 [column 1] every 1 s"},
    {"Date;Time;T (\u00b0C)\n05.11.2024;12:00;20,5\n05.11.2024;12:10;20,6\n",
     "T (\u00b0C): 20.5 20.6 [Date, Time] every 600 s"},
    {"Elapsed,CH1\n00:59.5,1\n01:00.0,2\n", "CH1: 1 2 [Elapsed] every 500 ms"},
    {"No.,Time,ms,CH1\n1,12:00:00,0,+0.5\n2,12:00:00,500,+0.6\n3,12:00:01,0,+0.5\n",
     "CH1: 0.5 0.6 0.5 [No., Time, ms]"},
    {"time\tV(out)\n0.0e+000\t1\n1.0e-009\t1.5\n3.0e-009\t1\n1.0e-008\t0.5\n", "V(out): 1 1.5 1 0.5 [time] uneven"},
    {"Stamp,Clock,v\n2024-01-05 12:00:00,12:00:00,1\n2024-01-05 12:00:01,12:00:01,2\n",
     "v: 1 2 [Stamp, Clock] every 1 s"},
    {"Date,CH1\n2024-02-28,1\n2024-02-29,2\n2024-03-01,1\n", "CH1: 1 2 1 [Date] every 86.4 ks"},
    {"2024-01-01 00:00,1\n2024-01-02 06:00,2\n2024-01-03 12:00,1\n", "column 2: 1 2 1 [column 1] every 108 ks"},
    {"05 Nov 2024 12:00:00,1\n06-Nov-2024 12:00:00,2\n", "column 2: 1 2 [column 1] every 86.4 ks"},
    {"Date;Time;v\n1.1.2024;0:01;1\n1.1.2024;0:02;2\n9.1.2024;0:03;1\n", "v: 1 2 1 [Date, Time] uneven"},
    {"12/31/24 12:00:00,1\n01/01/25 12:00:00,2\n", "column 2: 1 2 [column 1] every 86.4 ks"},
    {"Time,v\n0:01,1\n0:02,2\n", "v: 1 2 [Time]"},                                 // minutes, or hours
    {"01/05/2024,1\n02/05/2024,2\n", "column 2: 1 2 [column 1]"},                  // January, or May
    {"Fri 5 Jan 12:00:00,1\nSat 6 Jan 12:00:00,2\n", "column 2: 1 2 [column 1]"},  // of no year
    {"1/5/2024 12:00:00:000,1\n1/5/2024 12:00:00:250,2\n", "column 2: 1 2 [column 1] every 250 ms"},
    {"Time,ms,v\n12:00:00,0,1\n12:00:00,250,2\n12:00:00,500,1\n12:00:01,0,2\n12:00:01,250,1\n12:00:01,500,2\n",
     "v: 1 2 1 2 1 2 [Time, ms]"},  // one recording
    {"Sample,v\nRate,10\n0,1\n1,2\n2,1\n", "v: 1 2 1 [Sample] every 100 ms"},
};

TEST(RecordingForms, TimesAndSteps) {
    ExpectForms(kTimesAndSteps);
    const recording::Outcome uneven = ReadBytes("t,v\n0,1\n1,2\n10,1\n");
    const recording::Timing& timing = uneven.recording->blocks[0].columns[1].timing;
    EXPECT_EQ(timing.times.size(), 3U);
    EXPECT_EQ(timing.duration, 10.0);
    EXPECT_EQ(timing.interval, std::nullopt);
    EXPECT_EQ(ReadBytes("t (ms),v\n0,1\n2,2\n").recording->blocks[0].columns[1].timing.duration, 4e-3);
}

// A title with anything unread behind the time is no time in seconds.
TEST(RecordingForms, TitlesOfTimes) {
    const auto course = [](const std::string& title) { return Describe(title + ",CH1\n0,5\n1,6\n"); };
    for (const auto& [title, interval] : {std::pair("Time", " every 1 s"),
                                          {"Elapsed time", " every 1 s"},
                                          {"Time (milliseconds)", " every 1 ms"},
                                          {"time in milliseconds", " every 1 ms"},
                                          {"Time (micro seconds)", " every 1 \302\265s"},
                                          {"Time {ms}", " every 1 ms"},
                                          {"Time (days)", " every 86.4 ks"}}) {
        EXPECT_TRUE(course(title).ends_with(std::string("]") + interval)) << title;
    }
    for (const char* const title : {"time.ms", "Time (US)", "TIME (MS)", "TIME (MSEC)", "Time (samples)",
                                    "Time (ms/div)", "Timestamp (epoch ms)", "Time [ticks]"}) {
        EXPECT_TRUE(course(title).ends_with("]")) << title;
    }
}

// A key gives the interval if it leaves no doubt.
TEST(RecordingForms, KeysOfIntervals) {
    const std::pair<const char*, const char*> cases[] = {
        // the header, and what is told of the interval
        {"Sample Interval (milliseconds),5", " every 5 ms"},
        {"\"Sampling rate: 1,000,000 Sa/s\"", " every 1 \302\265s"},
        {"ADC clock: 64 MHz\nSample Rate: 1 MHz", " every 1 \302\265s"},
        {"Sample interval: 1.000 ms", " every 1 ms"},
        {"Sample Rate,1e3,Trigger,0", " every 1 ms"},
        {"Sample rate: 1 kHz\nSample interval: 1 ms", " every 1 ms"},
        {"Sampling rate: 1,000,000 Sa/s", ""},
        {"Sampling interval: 5,5 ms", ""},
        {"Sample interval (MS): 2", ""},
        {"Sample Rate,9600,baud", ""},
        {"Sample Rate: 5 V", ""},
        {"Recording period: 60 s", ""},
        {"Sample rate: 2 kHz\nSample interval: 1 ms", ""}};
    for (const auto& [header, interval] : cases) {
        EXPECT_TRUE(Describe(std::string(header) + "\nA,B\n.1,.5\n.3,.7\n").ends_with(std::string(" 0.7") + interval))
            << header;
    }
    EXPECT_EQ(Describe("Sample rate: 1 kHz\nTime,A\n0,5\n1,7\n"), "A: 5 7 [Time]");  // not both are true
    EXPECT_EQ(Describe("Rate: 1,5 kHz\nA;B\n0,5;1,5\n0,7;1,2\n"), "A: 0.5 0.7; B: 1.5 1.2 every 666.667 \302\265s");
}

// Times on a straight line up to their digits, and with rows missing.
TEST(RecordingForms, EvenUpToTheirDigitsOnly) {
    const auto read = [](const char* picture, double step, int gap) {
        std::string text = "t,v\n";
        for (int i = 0; i < 40; ++i) {
            const double time = (i + (i < 20 ? 0 : gap)) * step;
            text += QString::asprintf(picture, time).toStdString() + (i % 2 == 0 ? ",1\n" : ",2\n");
        }
        return ReadBytes(QByteArray::fromStdString(text)).recording->blocks[0].columns[1].timing.interval.value_or(0.0);
    };
    for (const auto& [picture, step, even] : {std::tuple("%.0f", 1.0, 1.0),
                                              {"%.3f", 0.004, 0.004},
                                              {"%.3f", 0.0032, 0.125 / 39},
                                              {"%.2e", 8e-7, 3.12e-5 / 39}}) {
        EXPECT_NEAR(read(picture, step, 0), even, even * 1e-9) << picture << step;
        EXPECT_EQ(read(picture, step, 4), 0.0) << picture << step;
    }
    EXPECT_EQ(read("%.0f", 1.0, 1), 0.0);
    EXPECT_EQ(read("%.3f", 0.004, 1), 0.0);
    EXPECT_TRUE(Describe("t,A\n0,0\n1,1\n2,0\n4,3\n").ends_with("[t] uneven"));
    EXPECT_TRUE(Describe("time (s),v\n0.0,1\n0.1,2\n0.3,1\n0.4,2\n").ends_with("[time (s)] uneven"));
}

TEST(RecordingForms, EncodingsAndLineEnds) {
    const QString text = QStringLiteral("Zeit (s);U (\u00B5V)\n0;-1,5\n1;2,5\n\n2;1,5\n");
    const std::string result = Describe(text.toStdString());
    EXPECT_EQ(result, "U (\302\265V): -1.5 2.5 1.5 [Zeit (s)] every 1 s");
    for (const char* const end : {"\r\n", "\r", "\r\r\n"}) {
        EXPECT_EQ(Describe(QString(text).replace(u'\n', QLatin1String(end)).toStdString()), result);
    }
    EXPECT_EQ(Describe(ReadBytes("\xEF\xBB\xBF" + text.toUtf8())), result);
    EXPECT_EQ(Describe(ReadBytes(text.toLatin1())), result);
    EXPECT_EQ(Describe(ReadBytes(text.toUtf8() + QByteArray(300'000, '\0'))), result);  // padding
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        EXPECT_EQ(Describe(ReadBytes(encoder(text))), result);
    }
}

}  // namespace

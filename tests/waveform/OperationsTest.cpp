#include "WaveformBench.h"

namespace {

using Operations = WaveformBench;

TEST_F(Operations, SayWhichFileTheyChangedOrWhyTheyCouldNot) {
    for (const StoreOutcome outcome : {StoreOutcome::Done, StoreOutcome::Failed}) {
        if (outcome == StoreOutcome::Failed) {
            Guard(set, "ARB4", 1503);
            Guard(con, "ARB4", 1503);
        }
        const QString before = Rows(set, "ARB4") + Rows(con, "ARB4");
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto& [operate, inSignal] = all[i];
            const TableResult result = operate();
            EXPECT_EQ(result.fileName, inSignal ? con : set) << i;
            EXPECT_EQ(result.outcome, outcome) << i;
            EXPECT_EQ(result.changed, outcome == StoreOutcome::Done) << i;
            EXPECT_TRUE(result.changed || Rows(set, "ARB4") + Rows(con, "ARB4") == before) << i;
        }
    }
}

TEST_F(Operations, SurviveEmptyTables) {
    for (const auto& [operate, inSignal] : all) {
        Execute(set, "delete from ARB4");
        Execute(con, "delete from ARB4");
        EXPECT_FALSE(operate().Failed());
    }
}

TEST_F(Operations, FillTheStretchAloneWithEveryRecordOfAnAddressAndMissingOnes) {
    const std::vector<qint16> samples{5, 6, 7, 8};
    Execute(set, "delete from ARB4 where Adr not in (9, 11, 14); insert into ARB4 values (11, 1), (12, 1)");
    EXPECT_TRUE(FillMemory(editor, tables, {10, 13}, samples).changed);
    EXPECT_EQ(Rows(set, "ARB4"), u"9=0 10=5 11=6 11=6 12=7 13=8 14=0");
    editor.Size = &kMemory16k;
    EXPECT_TRUE(FillMemory(editor, tables, {16380, 16383}, samples).changed);
    EXPECT_EQ(Rows(set, "ARB16 where Adr > 16378"), u"16379=0 16380=5 16381=6 16382=7 16383=8");
}

TEST_F(Operations, DrawFromTheFirstAddressToTheLastAndNotBesideThem) {
    Execute(set, "delete from ARB4 where Adr not in (0, 4095)");
    for (const float x : {-0.1F, 4095.1F, 0.0F, 4095.0F}) {
        Press(Pen::Draw, x);  // begins a line
        Press(Pen::Draw, x);
        EXPECT_EQ(Rows(set, "ARB4"), x == 4095.0F ? u"0=50 4095=50" : x == 0.0F ? u"0=50 4095=0" : u"0=0 4095=0");
    }
}

TEST_F(Operations, KnowTheStretchesOfTheTable) {
    for (const auto& [size, start, end, copied] : {std::tuple(&kMemory4k, 16000, 4090, Stretch{4090, 4095}),
                                                   {&kMemory4k, 4096, 16384, Stretch{0, -1}},
                                                   {&kMemory16k, 10, -1, Stretch{0, 10}}}) {  // a drag under way
        editor.Size = size;
        editor.CopyStart = static_cast<qint16>(start);
        editor.CopyEnd = static_cast<qint16>(end);
        EXPECT_TRUE(StretchOf(FillStretch::Copied, editor).value_or(Stretch{0, -1}) == copied) << start;
    }
    editor.ViewRight = 16384;
    EXPECT_TRUE(StretchOf(FillStretch::View, editor) == (Stretch{1000, 16383}));
}

}  // namespace

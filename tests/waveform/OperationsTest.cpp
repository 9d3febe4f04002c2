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

TEST_F(Operations, ThatFindNothingToWorkOnChangeNothing) {
    for (const TableResult& result :
         {Press(Pen::Draw, -0.5F), Press(Pen::Delete, 0.4F), Fit(0), EnterPoint(editor, tables, 40000, 5)}) {
        EXPECT_TRUE(result.fileName.isEmpty() && !result.changed && !result.Failed());
    }
}

}  // namespace

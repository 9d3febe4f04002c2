#include "StorageBench.h"
#include "storage/RecordStore.h"

namespace {

class RecordStores : public StorageBench {
  protected:
    void SetUp() override {
        Run("CREATE TABLE ARB4 (Adr SMALLINT, Value SMALLINT);"
            "INSERT INTO ARB4 VALUES (9, 1), (3, 2), (9, 3), (0, 4), (NULL, 5)");
        ASSERT_EQ(store_.Open(name_), StoreOutcome::Done);
    }
    std::string Rows(RecordOrder order) {
        std::string rows;
        EXPECT_TRUE(RecordTable(store_, "arb4").Walk(order, [&](qint16 adr, qint16 value) {
            rows += std::to_string(adr) + '=' + std::to_string(value) + ' ';
        }));
        return rows;
    }
    RecordStore store_;
};

TEST_F(RecordStores, WalksFindsChangesAddsAndRemoves) {
    RecordTable table(store_, "aRb4");
    EXPECT_EQ(Rows(RecordOrder::Insertion), "9=1 3=2 9=3 0=4 ");
    auto nine = table.FindFirst(9);
    ASSERT_TRUE(nine);
    nine->Value = -2047;
    EXPECT_TRUE(table.Change(*nine) && table.Add(9, 6));
    EXPECT_EQ(Rows(RecordOrder::Address), "0=4 3=2 9=-2047 9=3 9=6 ");
    std::vector<Record> records;
    ASSERT_TRUE(table.Read(RecordOrder::Address, records));
    for (const Record& record : records) {
        EXPECT_TRUE(record.Adr == 3 || table.Remove(record.id));
    }
    EXPECT_FALSE(table.Change(*nine));
    EXPECT_EQ(Rows(RecordOrder::Insertion), "3=2 ");
}

TEST_F(RecordStores, ATransactionIsAllOrNothing) {
    RecordTable table(store_, "ARB4");
    {
        StoreTransaction failing(store_);
        EXPECT_TRUE(table.Add(2, 2));
        EXPECT_FALSE(RecordTable(store_, "ARB16").Add(2, 2));
        EXPECT_FALSE(table.Add(4, 4));
        EXPECT_FALSE(failing.Commit());
    }
    {
        SQLite::Database other(name_.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN IMMEDIATE");
        StoreTransaction refused(store_);
        EXPECT_EQ(store_.Outcome(), StoreOutcome::Locked);
        EXPECT_FALSE(refused.Begun() || table.Add(1, 1) || refused.Commit());
    }
    EXPECT_EQ(table.Count(), 5);
    StoreTransaction good(store_);
    EXPECT_TRUE(table.Add(5, 5) && good.Commit());
    EXPECT_EQ(Ask("SELECT count(*) FROM ARB4"), "6");
}

}  // namespace

#include <QElapsedTimer>

#include "StorageBench.h"
#include "storage/ConstructionFile.h"
#include "storage/StoreOutcome.h"

namespace {

const Content kStored(1);
const Content kBefore(2);

TEST_F(StorageTest, GivesBackAllThatItStores) {
    for (const int seed : {1, 4}) {  // the second over the first
        ASSERT_TRUE(Content(seed).Save(name_));
        Content loaded = kBefore;
        EXPECT_EQ(loaded.Load(name_), LoadOutcome::Loaded);
        EXPECT_TRUE(loaded == Content(seed).Over(kBefore)) << seed;
    }
    EXPECT_EQ(Files(), 1);
}

TEST_F(StorageTest, SettingFileHasItsTablesAndRows) {
    ASSERT_TRUE(kStored.Save(name_));
    EXPECT_EQ(Ask("SELECT group_concat(substr(sql, 14), ';') FROM sqlite_master"),
              "ARB_CON4 (Adr SMALLINT, Value SMALLINT);ARB_CON16 (Adr SMALLINT, Value SMALLINT);"
              "ARB4 (Adr SMALLINT, Value SMALLINT);ARB16 (Adr SMALLINT, Value SMALLINT);"
              "Settings (mAmp DOUBLE, bmBereich TINYINT, mFreq DOUBLE, mOffset DOUBLE, tmOffset BOOLEAN, "
              "tmOut BOOLEAN, tmIntRef BOOLEAN, bmWobbel TINYINT, bmSignal TINYINT, bmAmpMod TINYINT, bmFMod TINYINT, "
              "bmMode TINYINT, tmVPP BOOLEAN, bmAmDepth TINYINT, mcFreq DOUBLE, mhFreq DOUBLE, mPhasea DOUBLE, "
              "mPhaseb DOUBLE, msWobbel DOUBLE, meWobbel DOUBLE, mtWobbel DOUBLE, Version TINYINT)");
    EXPECT_EQ(Ask("SELECT count(*) || ' ' || Version || ' ' || (tmIntRef IS NULL) FROM Settings"), "1 100 1");
    EXPECT_EQ(Ask("SELECT count(*) || ' ' || min(Adr) || ' ' || sum(rowid = Adr + 1) FROM ARB4"), "4096 0 4096");
    EXPECT_EQ(Ask("SELECT count(*) || ' ' || min(Adr) || ' ' || sum(rowid = Adr + 1) FROM ARB16"), "16384 0 16384");
    EXPECT_EQ(Ask("SELECT (SELECT count(*) FROM ARB_CON4) + (SELECT count(*) FROM ARB_CON16)"), "0");
}

TEST_F(StorageTest, AnotherVersionLoadsTheMemoriesOnly) {
    for (const char* const change : {"UPDATE Settings SET Version = 99", "UPDATE Settings SET Version = NULL",
                                     "DELETE FROM Settings", "ALTER TABLE Settings DROP COLUMN Version"}) {
        ASSERT_TRUE(kStored.Save(name_));
        Run(change);
        Content expected = kStored.Over(kBefore);
        expected.panel = kBefore.panel;
        Content loaded = kBefore;
        EXPECT_EQ(loaded.Load(name_), LoadOutcome::OtherVersion) << change;
        EXPECT_TRUE(loaded == expected) << change;
    }
}

TEST_F(StorageTest, PassesOverWhatDoesNotFit) {
    ASSERT_TRUE(kStored.Save(name_));
    Run("UPDATE SETTINGS SET bmmode = 256, bmSignal = -1, bmAmDepth = 1.5, mAmp = NULL, mFreq = 'x', mcFreq = 9e999,"
        " tmOffset = 2, tmVPP = 1, bmBereich = 255; ALTER TABLE Settings DROP COLUMN mhFreq;"
        "DELETE FROM ARB4 WHERE Adr > 9; DELETE FROM ARB16;"
        "INSERT INTO ARB4 VALUES (4097, 1), (-1, 2), (32768, 3), (3, 40000), (4, NULL), (NULL, 5), (5, 'x'), (4096, 6);"
        "INSERT INTO arb16 VALUES (16384, -7), (16385, 8), (0, -32768), (65536, 9)");
    Content expected = kBefore;
    std::copy_n(kStored.memories.ArbMemory4.begin(), 10, expected.memories.ArbMemory4.begin());
    expected.memories.ArbMemory4[4096] = 6;
    expected.memories.ArbMemory16[16384] = -7;
    expected.memories.ArbMemory16[0] = -32768;
    expected.panel = kStored.Over(kBefore).panel;
    for (const auto field : {&PanelState::bmMode, &PanelState::bmSignal, &PanelState::bmAmDepth}) {
        expected.panel.*field = kBefore.panel.*field;
    }
    for (const auto field : {&PanelState::mAmp, &PanelState::mFreq, &PanelState::mcFreq, &PanelState::mhFreq}) {
        expected.panel.*field = kBefore.panel.*field;
    }
    expected.panel.tmOffset = kBefore.panel.tmOffset;
    expected.panel.tmVPP = kTrue;
    expected.panel.bmBereich = 255;
    Content loaded = kBefore;
    EXPECT_EQ(loaded.Load(name_), LoadOutcome::Loaded);
    EXPECT_TRUE(loaded == expected);
}

TEST_F(StorageTest, LeavesStateAndFolderAloneWhereThereIsNoSettingFile) {
    Content loaded = kBefore;
    for (const QString& name : {name_, folder_.path(), QString()}) {
        EXPECT_EQ(loaded.Load(name), LoadOutcome::Unreadable);
        EXPECT_EQ(CheckConstructionFile(name), ConstructionOutcome::Unreadable);
    }
    EXPECT_EQ(Files(), 0);
    const QByteArray noise(9000, 'x');
    for (const QByteArray& bytes : {QByteArray(), QByteArray("short"), noise,
                                    QByteArray(noise).replace(0, 16, QByteArray("SQLite format 3", 16))}) {
        QFile::remove(name_);
        Write(bytes);
        EXPECT_EQ(loaded.Load(name_), LoadOutcome::NotASettingFile) << bytes.left(20).constData();
        EXPECT_EQ(CheckConstructionFile(name_), ConstructionOutcome::NotAConstructionFile);
    }
    EXPECT_TRUE(CreateConstructionFile(name_) && SaveConstructionFile(name_));
    EXPECT_EQ(loaded.Load(name_), LoadOutcome::NotASettingFile);
    EXPECT_EQ(Files(), 1);
    EXPECT_TRUE(loaded == kBefore);
}

TEST_F(StorageTest, WaitsForALockAndGivesUp) {
    for (const bool writeAhead : {false, true}) {  // with a write-ahead log, a writer keeps no reader away
        ASSERT_TRUE(kStored.Save(name_));
        Run(writeAhead ? "PRAGMA journal_mode = WAL" : "PRAGMA journal_mode = DELETE");
        Content loaded = kBefore;
        {
            SQLite::Database other(name_.toStdString(), SQLite::OPEN_READWRITE);
            other.exec("BEGIN EXCLUSIVE");
            EXPECT_EQ(loaded.Load(name_), writeAhead ? LoadOutcome::Loaded : LoadOutcome::Locked);
            EXPECT_TRUE(loaded == (writeAhead ? kStored.Over(kBefore) : kBefore));
            QElapsedTimer waited;
            waited.start();
            EXPECT_FALSE(kBefore.Save(name_));
            EXPECT_GE(waited.elapsed(), kLockWaitMs);
            EXPECT_LT(waited.elapsed(), 2 * 5000);
        }
        EXPECT_EQ(loaded.Load(name_), LoadOutcome::Loaded);
        EXPECT_TRUE(loaded == kStored.Over(kBefore));
        EXPECT_EQ(Files(), 1);
        EXPECT_TRUE(kBefore.Save(name_));
    }
}

TEST_F(StorageTest, ReplacesAFileBehindALinkAndNoFolder) {
    Write("a text");
    EXPECT_FALSE(kStored.Save(folder_.path()));
    EXPECT_FALSE(kStored.Save(name_ + QStringLiteral("/below.set")));
    EXPECT_EQ(Content(kBefore).Load(name_), LoadOutcome::NotASettingFile);
    const QString link = folder_.filePath(QStringLiteral("link.set"));
    QFile::setPermissions(name_, QFile::ReadOwner | QFile::WriteOwner);
    ASSERT_TRUE(QFile::link(name_, link) && kStored.Save(link));
    EXPECT_EQ(Content(kBefore).Load(name_), LoadOutcome::Loaded);
    EXPECT_FALSE(QFile::permissions(name_) & QFile::ReadOther);
    EXPECT_EQ(Files(), 2);
}

TEST_F(StorageTest, ConstructionFileHasTwoEndPointsInEachTable) {
    ASSERT_TRUE(kStored.Save(name_) && CreateConstructionFile(name_) && SaveConstructionFile(name_));
    EXPECT_EQ(CheckConstructionFile(name_), ConstructionOutcome::Usable);
    EXPECT_EQ(Ask("SELECT group_concat(name) FROM sqlite_master"), "ARB4,ARB16");
    EXPECT_EQ(Ask("SELECT group_concat(Adr || ' ' || Value) FROM ARB4"), "0 0,4095 0");
    EXPECT_EQ(Ask("SELECT group_concat(Adr || ' ' || Value) FROM ARB16"), "0 0,16384 0");
    Run("ALTER TABLE ARB16 DROP COLUMN Value");
    EXPECT_EQ(CheckConstructionFile(name_), ConstructionOutcome::NotAConstructionFile);
}

}  // namespace

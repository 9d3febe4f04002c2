#include <QElapsedTimer>

#include "StorageBench.h"
#include "storage/ConstructionFile.h"
#include "storage/StoreOutcome.h"

namespace {

using SettingFiles = StorageBench;
using ConstructionFiles = StorageBench;

TEST_F(SettingFiles, HaveTheirTablesAndRows) {
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
}

TEST_F(SettingFiles, OfAnotherVersionLoadTheMemoriesOnly) {
    for (const char* const change : {"UPDATE Settings SET Version = 99", "UPDATE Settings SET Version = NULL",
                                     "DELETE FROM Settings", "ALTER TABLE Settings DROP COLUMN Version"}) {
        ASSERT_TRUE(kStored.Save(name_));
        Run(change);
        Content expected = kStored.Over(kBefore);
        expected.panel = kBefore.panel;
        ExpectLoad(LoadOutcome::OtherVersion, expected);
    }
}

TEST_F(SettingFiles, ALoadPassesOverWhatDoesNotFit) {
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
    const auto unfit = [](auto& p) {
        return std::tie(p.bmMode, p.bmSignal, p.bmAmDepth, p.mAmp, p.mFreq, p.mcFreq, p.mhFreq, p.tmOffset);
    };
    unfit(expected.panel) = unfit(kBefore.panel);
    expected.panel.tmVPP = kTrue;
    expected.panel.bmBereich = 255;
    ExpectLoad(LoadOutcome::Loaded, expected);
}

TEST_F(SettingFiles, ALoadLeavesStateAndFolderAloneWhereThereIsNone) {
    for (const QString& name : {name_, folder_.path(), QString()}) {
        EXPECT_EQ(Content(kBefore).Load(name), LoadOutcome::Unreadable);
        EXPECT_EQ(CheckConstructionFile(name), ConstructionOutcome::Unreadable);
    }
    EXPECT_EQ(Files(), 0);
    const QByteArray noise(9000, 'x');
    for (const QByteArray& bytes : {QByteArray(), QByteArray("short"), noise,
                                    QByteArray(noise).replace(0, 16, QByteArray("SQLite format 3", 16))}) {
        QFile::remove(name_);
        Write(bytes);
        ExpectLoad(LoadOutcome::NotASettingFile, kBefore);
        EXPECT_EQ(CheckConstructionFile(name_), ConstructionOutcome::NotAConstructionFile);
    }
    EXPECT_TRUE(SaveConstructionFile(CreateConstructionFile(name_)));
    ExpectLoad(LoadOutcome::NotASettingFile, kBefore);
    EXPECT_EQ(Files(), 1);
}

TEST_F(SettingFiles, WaitForALockAndGiveUp) {
    for (const bool writeAhead : {false, true}) {  // with a write-ahead log, a writer keeps no reader away
        ASSERT_TRUE(kStored.Save(name_));
        Run(writeAhead ? "PRAGMA journal_mode = WAL" : "PRAGMA journal_mode = DELETE");
        {
            SQLite::Database other(name_.toStdString(), SQLite::OPEN_READWRITE);
            other.exec("BEGIN EXCLUSIVE");
            ExpectLoad(writeAhead ? LoadOutcome::Loaded : LoadOutcome::Locked,
                       writeAhead ? kStored.Over(kBefore) : kBefore);
            QElapsedTimer waited;
            waited.start();
            EXPECT_FALSE(kBefore.Save(name_));
            EXPECT_GE(waited.elapsed(), kLockWaitMs);
        }
        ExpectLoad(LoadOutcome::Loaded, kStored.Over(kBefore));
        EXPECT_EQ(Files(), 1);
    }
}

TEST_F(SettingFiles, ASaveReplacesAFileBehindALinkAndNoFolder) {
    Write("a text");
    EXPECT_FALSE(kStored.Save(folder_.path()));
    EXPECT_FALSE(kStored.Save(name_ + QStringLiteral("/below.set")));
    const QString link = folder_.filePath(QStringLiteral("link.set"));
    QFile::setPermissions(name_, QFile::ReadOwner | QFile::WriteOwner);
    ASSERT_TRUE(QFile::link(name_, link) && kStored.Save(link));
    ExpectLoad(LoadOutcome::Loaded, kStored.Over(kBefore));
    EXPECT_FALSE(QFile::permissions(name_) & QFile::ReadOther);
    EXPECT_EQ(Files(), 2);
}

TEST_F(ConstructionFiles, HaveTwoEndPointsInEachTable) {
    ASSERT_TRUE(kStored.Save(name_) && SaveConstructionFile(CreateConstructionFile(name_)));
    EXPECT_EQ(CheckConstructionFile(name_), ConstructionOutcome::Usable);
    EXPECT_EQ(Ask("SELECT group_concat(name) FROM sqlite_master"), "ARB4,ARB16");
    EXPECT_EQ(Ask("SELECT group_concat(Adr || ' ' || Value) FROM ARB4"), "0 0,4095 0");
    EXPECT_EQ(Ask("SELECT group_concat(Adr || ' ' || Value) FROM ARB16"), "0 0,16384 0");
    Run("ALTER TABLE ARB16 DROP COLUMN Value");
    EXPECT_EQ(CheckConstructionFile(name_), ConstructionOutcome::NotAConstructionFile);
}

}  // namespace

#include <sys/stat.h>

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
              u"ARB_CON4 (Adr SMALLINT, Value SMALLINT);ARB_CON16 (Adr SMALLINT, Value SMALLINT);"
              "ARB4 (Adr SMALLINT, Value SMALLINT);ARB16 (Adr SMALLINT, Value SMALLINT);"
              "Settings (mAmp DOUBLE, bmBereich TINYINT, mFreq DOUBLE, mOffset DOUBLE, tmOffset BOOLEAN, "
              "tmOut BOOLEAN, tmIntRef BOOLEAN, bmWobbel TINYINT, bmSignal TINYINT, bmAmpMod TINYINT, bmFMod TINYINT, "
              "bmMode TINYINT, tmVPP BOOLEAN, bmAmDepth TINYINT, mcFreq DOUBLE, mhFreq DOUBLE, mPhasea DOUBLE, "
              "mPhaseb DOUBLE, msWobbel DOUBLE, meWobbel DOUBLE, mtWobbel DOUBLE, Version TINYINT)");
    EXPECT_EQ(Ask("SELECT count(*) || ' ' || Version || ' ' || (tmIntRef IS NULL) FROM Settings"), u"1 100 1");
    EXPECT_EQ(Ask("SELECT count(*) || ' ' || min(Adr) || ' ' || sum(rowid = Adr + 1) FROM ARB4"), u"4096 0 4096");
    EXPECT_EQ(Ask("SELECT count(*) || ' ' || min(Adr) || ' ' || sum(rowid = Adr + 1) FROM ARB16"), u"16384 0 16384");
}

// The first of an enumeration, as the sine, is a value like others.
TEST_F(SettingFiles, BringZerosBack) {
    Content zeros = kStored;
    std::apply([](auto&... field) { ((field = {}), ...); }, Content::Fields(zeros.panel));
    ASSERT_TRUE(zeros.Save(name_));
    ExpectLoad(LoadOutcome::Loaded, zeros.Over(kBefore));
}

TEST_F(SettingFiles, ALoadLeavesStateAndFolderAloneWhereThereIsNone) {
    for (const QString& name : {name_, folder_.path(), QString()}) {
        EXPECT_EQ(Content(kBefore).Load(name), LoadOutcome::Failed);
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
    ASSERT_TRUE(kStored.Save(name_));
    Write(noise, 100);  // behind a head that is whole
    ExpectLoad(LoadOutcome::NotASettingFile, kBefore);
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
            ExpectLoad(writeAhead ? LoadOutcome::Loaded : LoadOutcome::Failed,
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

TEST_F(SettingFiles, ASaveReplacesAFileBehindALinkAndNothingElse) {
    Write("a text");
    const QString pipe = folder_.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0666), 0);
    for (const QString& name : QStringList{folder_.path(), name_ + QStringLiteral("/below.set"), pipe}) {
        EXPECT_FALSE(kStored.Save(name)) << name;
        EXPECT_EQ(Content(kBefore).Load(name), LoadOutcome::Failed) << name;
    }
    ASSERT_TRUE(QFile::remove(pipe));
    const QString link = folder_.filePath(QStringLiteral("link.set"));
    QFile::setPermissions(name_, QFile::ReadOwner | QFile::WriteOwner);
    ASSERT_TRUE(QFile::link(name_, link));
    EXPECT_TRUE(kStored.Save(link));
    ExpectLoad(LoadOutcome::Loaded, kStored.Over(kBefore));
    EXPECT_FALSE(QFile::permissions(name_) & QFile::ReadOther);
    EXPECT_EQ(Files(), 2);
}

TEST_F(ConstructionFiles, HaveTwoEndPointsInEachTable) {
    ASSERT_TRUE(kStored.Save(name_));
    EXPECT_TRUE(SaveConstructionFile(CreateConstructionFile(name_)));
    EXPECT_EQ(CheckConstructionFile(name_), ConstructionOutcome::Usable);
    EXPECT_EQ(Ask("SELECT group_concat(name) FROM sqlite_master"), u"ARB4,ARB16");
    EXPECT_EQ(Ask("SELECT group_concat(Adr || ' ' || Value) FROM ARB4"), u"0 0,4095 0");
    EXPECT_EQ(Ask("SELECT group_concat(Adr || ' ' || Value) FROM ARB16"), u"0 0,16384 0");
    Run("ALTER TABLE ARB16 DROP COLUMN Value");
    EXPECT_EQ(CheckConstructionFile(name_), ConstructionOutcome::NotAConstructionFile);
}

}  // namespace

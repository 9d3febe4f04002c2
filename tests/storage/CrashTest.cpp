// Saves that are killed, each at another of the operations by which a process changes the disk.

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <regex>

#include "StorageBench.h"
#include "support/DiskWatch.h"

namespace {

class Crashes : public StorageBench {
  protected:
    void SetUp() override { ASSERT_TRUE(old_.Save(name_)); }

    // The file holds the whole new content; if not, then the whole old one.
    bool HoldsNew(std::size_t moment) const {
        Content loaded(3);
        EXPECT_EQ(loaded.Load(name_), LoadOutcome::Loaded) << moment;
        EXPECT_EQ(Ask("PRAGMA integrity_check"), u"ok") << moment;
        const bool isNew = loaded == new_.Over(Content(3));
        EXPECT_TRUE(isNew || loaded == old_.Over(Content(3))) << moment;
        return isNew;
    }

    const Content old_ = Content(1);
    const Content new_ = Content(2);
};

TEST_F(Crashes, ASaveSyncsThenRenamesThenSyncsTheFolder) {
    operations = {true, {}, 0};
    ASSERT_TRUE(new_.Save(name_));
    operations.watched = false;
    EXPECT_TRUE(std::regex_match(operations.done, std::regex("u*w{50,}su*rs"))) << operations.done;
}

TEST_F(Crashes, AKillAtAnyMomentLeavesTheOldFileOrTheNewOne) {
    int status = -1;
    std::size_t moments = 0;
    std::size_t withNewFile = 0;
    while (status != 0) {
        ++moments;
        status = InChild([&] {
            operations = {true, {}, moments};
            new_.Save(name_);
        });
        ASSERT_TRUE(status == 0 || WTERMSIG(status) == SIGKILL) << moments;
        EXPECT_LE(Files(), 2) << moments;  // at most one unfinished file
        if (HoldsNew(moments)) {
            ++withNewFile;
            ASSERT_TRUE(old_.Save(name_));
            EXPECT_EQ(Files(), 1) << moments;
        }
    }
    EXPECT_GT(moments, 50U);
    EXPECT_EQ(withNewFile, 2U);  // killed at the sync of the folder, and not at all
}

// Two savers of one name, each at every stage of the other.
TEST_F(Crashes, SavesForOneNameLeaveEachOthersUnfinishedFilesAlone) {
    const auto saveElsewhere = [&] { EXPECT_EQ(InChild([&] { ::_exit(new_.Save(name_) ? 0 : 1); }), 0); };
    NewFile first = CreateSettingFile(name_);
    NewFile second = CreateSettingFile(name_);
    InChild([&] {
        const NewFile killed = CreateSettingFile(name_);
        ::kill(::getpid(), SIGKILL);
    });
    EXPECT_EQ(Files(), 4);
    saveElsewhere();
    EXPECT_EQ(Files(), 3);  // what was killed is gone, what lives is not
    EXPECT_TRUE(HoldsNew(0));
    EXPECT_TRUE(SaveSettingFile(std::move(second), new_.panel, new_.memories));
    EXPECT_TRUE(SaveSettingFile(std::move(first), old_.panel, old_.memories));
    EXPECT_FALSE(HoldsNew(0));  // the last one stays
    // A file that is not locked yet looks as if it had been left behind.
    operations.created = saveElsewhere;
    EXPECT_TRUE(old_.Save(name_));
    EXPECT_FALSE(operations.created);
    EXPECT_FALSE(HoldsNew(0));
    EXPECT_EQ(Files(), 1);
}

TEST_F(Crashes, SavesThatWaitForOneFileGoOnOneAfterTheOther) {
    int words[2] = {};
    ASSERT_EQ(::pipe(words), 0);
    const auto tell = [&] { EXPECT_EQ(::write(words[1], "w", 1), 1); };
    const auto startAndHear = [&](const auto& work) {
        const pid_t child = StartChild(work);
        char word = 0;
        EXPECT_EQ(::read(words[0], &word, 1), 1);
        return child;
    };
    const auto save = [&] {
        operations.waits = tell;
        ::_exit(new_.Save(name_) ? 0 : 1);
    };
    const pid_t editor = startAndHear([&] {
        SQLite::Database database(name_.toStdString(), SQLite::OPEN_READWRITE);
        database.exec("BEGIN IMMEDIATE");
        tell();
        ::pause();
    });
    const pid_t savers[] = {startAndHear(save), startAndHear(save)};
    ::kill(editor, SIGKILL);
    for (const pid_t child : {editor, savers[0], savers[1]}) {
        EXPECT_EQ(WaitStatus(child), child == editor ? SIGKILL : 0);
    }
    EXPECT_TRUE(HoldsNew(0));
    EXPECT_EQ(Files(), 1);
}

TEST_F(Crashes, AFullDiskLeavesTheOldFile) {
    for (const rlim_t bytes : {0, 5000, 100000, 250000}) {
        EXPECT_EQ(InChild([&] {
                      const rlimit limit{bytes, bytes};
                      ::setrlimit(RLIMIT_FSIZE, &limit);
                      ::signal(SIGXFSZ, SIG_IGN);
                      ::_exit(new_.Save(name_) ? 1 : 0);
                  }),
                  0);
        EXPECT_FALSE(HoldsNew(bytes));
        EXPECT_EQ(Files(), 1);
    }
}

// Whoever runs this may be allowed to write everywhere; a child of it is not.
TEST_F(Crashes, AProtectedFileStays) {
    QFile(name_).resize(0);
    ASSERT_EQ(::chmod(name_.toUtf8().constData(), 0444) | ::chmod(folder_.path().toUtf8().constData(), 0777), 0);
    EXPECT_EQ(InChild([&] { ::_exit(::setuid(::geteuid() == 0 ? 65534 : ::geteuid()) != 0 || new_.Save(name_)); }), 0);
    EXPECT_EQ(QFileInfo(name_).size(), 0);
    EXPECT_EQ(Files(), 1);
}

// The journal that a killed editor leaves belongs to the file that it edited, and to no other that takes its place.
TEST_F(Crashes, AJournalOfTheOldFileDoesNotReachTheNewOne) {
    enum { kLoad, kSaveOver, kSaveAnew };
    for (const int next : {kLoad, kSaveOver, kSaveAnew}) {
        ASSERT_TRUE(old_.Save(name_));
        InChild([&] {
            SQLite::Database editor(name_.toStdString(), SQLite::OPEN_READWRITE);
            editor.exec("PRAGMA cache_size = 1; BEGIN; UPDATE ARB16 SET Value = 5; UPDATE ARB4 SET Value = 5");
            ::kill(::getpid(), SIGKILL);
        });
        ASSERT_EQ(Files(), 2);
        ASSERT_TRUE(next != kSaveAnew || QFile::remove(name_));
        ASSERT_TRUE(next == kLoad || new_.Save(name_));
        EXPECT_EQ(HoldsNew(0), next != kLoad);
        EXPECT_EQ(Files(), 1);
    }
}

}  // namespace

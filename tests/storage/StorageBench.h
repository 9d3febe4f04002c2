#pragma once

#include <QDir>
#include <QTemporaryDir>

#include "storage/SettingFile.h"
#include "support/DatabaseHands.h"
#include "support/PrintQt.h"

// What a setting file holds, with values of its own for each seed.
struct Content {
    PanelState panel;
    ArbMemories memories;

    static auto Fields(auto& p) {
        return std::tie(p.mAmp, p.bmBereich, p.mFreq, p.mOffset, p.tmOffset, p.tmOut, p.tmIntRef, p.bmWobbel,
                        p.bmSignal, p.bmAmpMod, p.bmFMod, p.bmMode, p.tmVPP, p.bmAmDepth, p.mcFreq, p.mhFreq, p.mPhasea,
                        p.mPhaseb, p.msWobbel, p.meWobbel, p.mtWobbel);
    }
    explicit Content(int seed) {
        int value = seed * 30;
        const auto next = [&](auto& field) { field = static_cast<std::decay_t<decltype(field)>>(++value); };
        std::apply([&](auto&... field) { (next(field), ...); }, Fields(panel));
        panel.mFreq += 0.1;
        for (Truth* const field : {&panel.tmOffset, &panel.tmOut, &panel.tmIntRef, &panel.tmVPP}) {
            *field = ToTruth(++value % 4 < 2);
        }
        for (std::size_t i = 0; i < memories.ArbMemory16.size(); ++i) {
            memories.ArbMemory16[i] = static_cast<qint16>(static_cast<int>(i) * (seed + 1) % 4095 - 2047);
            memories.ArbMemory4[i % memories.ArbMemory4.size()] = memories.ArbMemory16[i];
        }
    }
    bool operator==(const Content&) const = default;

    bool Save(const QString& name) const { return SaveSettingFile(CreateSettingFile(name), panel, memories); }
    LoadOutcome Load(const QString& name) { return LoadSettingFile(name, panel, memories); }

    // What a load of this content leaves of another.
    Content Over(Content other) const {
        const Truth tmIntRef = std::exchange(other.panel, panel).tmIntRef;
        other.panel.tmIntRef = tmIntRef;
        std::copy_n(memories.ArbMemory4.begin(), 4096, other.memories.ArbMemory4.begin());
        std::copy_n(memories.ArbMemory16.begin(), 16384, other.memories.ArbMemory16.begin());
        return other;
    }
};

inline const Content kStored(1);
inline const Content kBefore(2);

class StorageBench : public ::testing::Test {
  protected:
    QTemporaryDir folder_;
    QString name_ = folder_.filePath(QStringLiteral("f.set"));

    qsizetype Files() const {
        return QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size();
    }
    void Write(const QByteArray& bytes, qint64 at = 0) const {
        QFile file(name_);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(at) && file.write(bytes) == bytes.size());
    }
    void Run(const char* statements) const { ::Execute(name_, statements); }
    QString Ask(const char* query) const { return ::Ask(name_, query); }
    // What a load leaves of kBefore.
    void ExpectLoad(LoadOutcome outcome, const Content& content) const {
        Content loaded = kBefore;
        EXPECT_EQ(loaded.Load(name_), outcome);
        EXPECT_TRUE(loaded == content);
    }
};

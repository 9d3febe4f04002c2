#include "ctl/DryPort.h"

#include <algorithm>

#include "core/Enumerations.h"
#include "core/LevelRange.h"

namespace {

constexpr char kCr = '\r';

QByteArray Number(double value) { return QByteArray::number(value, 'g', 17); }

struct Query {
    const char* word;
    double (*number)(const PanelState& panel);
};

constexpr auto kQueries = std::to_array<Query>({
    {"frq?", [](const PanelState& p) { return p.mFreq; }},
    {"stt?", [](const PanelState& p) { return p.msWobbel; }},
    {"stp?", [](const PanelState& p) { return p.meWobbel; }},
    {"swt?", [](const PanelState& p) { return p.mtWobbel; }},
    {"amt?", [](const PanelState& p) { return static_cast<double>(p.bmAmDepth); }},
    {"fk0?", [](const PanelState& p) { return p.mcFreq; }},
    {"fk1?", [](const PanelState& p) { return p.mhFreq; }},
    {"ph0?", [](const PanelState& p) { return p.mPhasea; }},
    {"ph1?", [](const PanelState& p) { return p.mPhaseb; }},
    {"amp?", [](const PanelState& p) { return p.mAmp; }},
    {"OFS?",
     [](const PanelState& p) {
         const quint8 range = LevelRangeNumber(p.mAmp, p.tmVPP);
         return p.tmOffset ? p.mOffset * RangeOf(range).offsetReplyFactor : 0.0;
     }},
});

// The sample behind "arp16:100=?".
int SampleOf(const QString& query, const MemorySize& size, ArbMemories& memories) {
    const auto head = static_cast<qsizetype>(qstrlen(size.pointCommand));
    const int address = query.sliced(head, query.indexOf(u'=') - head).toInt();
    return size.samples(memories)[static_cast<std::size_t>(std::clamp(address, 0, size.LastAdr))];
}

}  // namespace

void DryPort::Output(char character) {
    if (character != kCr) {
        line_ += QLatin1Char(character);
        return;
    }
    sent_(line_);
    if (line_.endsWith(u'?')) {
        reply_ = Answer(line_) + kCr;
    }
    line_.clear();
}

QByteArray DryPort::Input() {
    QByteArray next = reply_.first(std::min<qsizetype>(reply_.size(), 1));
    reply_.remove(0, 1);
    return next;
}

QByteArray DryPort::Answer(const QString& query) const {
    for (const MemorySize* const size : kMemorySizes) {
        if (query.startsWith(QLatin1StringView(size->pointCommand))) {
            return query.chopped(1).toLatin1() + QByteArray::number(SampleOf(query, *size, program_.memories));
        }
    }
    for (const Query& known : kQueries) {
        if (query == QLatin1StringView(known.word)) {
            return Number(known.number(program_.panel));
        }
    }
    return query == u"ID?" ? QByteArray("KL5276-2") : query == u"sta?" ? Status() : QByteArray();
}

QByteArray DryPort::Status() const {
    const PanelState& panel = program_.panel;
    QByteArrayList tokens{RowOf(kSweeps, panel.bmWobbel).token,     RowOf(kSignals, panel.bmSignal).token,
                          RowOf(kModes, panel.bmMode).token,        RowOf(kAmplitudeModulations, panel.bmAmpMod).token,
                          RowOf(kShiftKeyings, panel.bmFMod).token, panel.tmOut ? "OT1" : "OT0",
                          panel.tmIntRef ? "RFI" : "RFX",           panel.tmVPP ? "VPP" : "RMS"};
    tokens.removeAll(QByteArray());
    return tokens.join(' ');
}

#include "simulator/StatusLine.h"

#include <array>

namespace sim {
namespace {

// Each list stands in the order of its enumeration. No token is part of another one, and the blank between them keeps
// two neighbours from forming a third.
constexpr std::array kSignalTokens{"SIN", "SQR", "TRI", "RMP", "RMN", "AR4", "A16", "WNS", "PNK"};
constexpr std::array kSweepTokens{"SW0", "SL1", "SL2"};
constexpr std::array kAmTokens{"AM0", "AMX", "AMI"};
constexpr std::array kKeyingTokens{"SK0", "PS1", "FS1"};
constexpr std::array kModeTokens{"CTM", "GT+", "GT-", "TR+", "TR-"};
constexpr std::array kUnitTokens{"VPP", "RMS"};

template <typename Tokens, typename Value>
const char* TokenOf(const Tokens& tokens, Value value) {
    return tokens.at(static_cast<std::size_t>(value));
}

}  // namespace

std::string StatusLine(const InstrumentState& state) {
    const std::array tokens{
        TokenOf(kSignalTokens, state.signal),    TokenOf(kModeTokens, state.mode), TokenOf(kSweepTokens, state.sweep),
        state.internalReference ? "RFI" : "RFX", TokenOf(kAmTokens, state.am),     TokenOf(kKeyingTokens, state.keying),
        TokenOf(kUnitTokens, state.levelUnit),   state.outputOn ? "OT1" : "OT0",
    };
    std::string line;
    for (const char* token : tokens) {
        line += line.empty() ? "" : " ";
        line += token;
    }
    return line;
}

}  // namespace sim

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sim {

enum class Signal : std::uint8_t { Sine, Square, Triangle, RampUp, RampDown, Arb4k, Arb16k, WhiteNoise, PinkNoise };
enum class LevelUnit : std::uint8_t { Vpp, Vrms };
enum class Sweep : std::uint8_t { Off, Linear, Logarithmic };
enum class AmSource : std::uint8_t { Off, External, Internal };
enum class Keying : std::uint8_t { Off, Phase, Frequency };
enum class Mode : std::uint8_t { FreeRunning, GateHigh, GateLow, TriggerRising, TriggerFalling };
enum class OpenMemory : std::uint8_t { None, Points4k, Points16k };

// What the instrument holds. Frequencies in Hz, times in s, phases in degrees, offset in V.
struct InstrumentState {
    double frequency = 1000.0;         // 0.0001 to 15e6
    double level = 1.0;                // in levelUnit; 0.02 to 20 Vpp or 0.0071 to 7.07 Vrms, in steps of 0.1 mV
    double offsetVolts = 0.0;          // as last set, -5 to 5; the range may put out less, see HeldOffsetVolts
    double sweepStart = 1000.0;        // 0.0001 to 15e6
    double sweepStop = 50000.0;        // 0.0001 to 15e6
    double sweepTime = 1.0;            // 0.01 to 40
    double amDepth = 50.0;             // percent, 0 to 100
    double carrierFrequency = 1000.0;  // 0.0001 to 15e6
    double hopFrequency = 1100.0;      // 0.0001 to 15e6
    double phase0 = 90.0;              // 0 to 359.9
    double phase1 = 180.0;             // 0 to 359.9
    std::vector<std::int16_t> memory4k = std::vector<std::int16_t>(4096);    // -2047 to 2047
    std::vector<std::int16_t> memory16k = std::vector<std::int16_t>(16385);  // -2047 to 2047
    std::string model = "KL5276-2";
    std::string versionText = "V1.20 Kx";
    std::size_t ignoredTexts = 0;  // texts without a meaning for the instrument

    Signal signal = Signal::Sine;
    LevelUnit levelUnit = LevelUnit::Vpp;
    bool offsetOn = false;
    Sweep sweep = Sweep::Off;
    Sweep sweepLaw = Sweep::Linear;  // the law that the next switch-on of the sweep takes; never Off
    AmSource am = AmSource::Off;
    Keying keying = Keying::Off;
    Mode mode = Mode::FreeRunning;
    bool internalReference = true;
    bool outputOn = false;
    OpenMemory openMemory = OpenMemory::None;  // the memory whose write lines count now
};

// The instrument's reading of the texts on its line, without the line and without a clock.
class Kl5276 {
  public:
    InstrumentState state;

    // Acts on one text, given without its CR. Returns the reply without CR, or nothing for a plain command and for
    // a text that the instrument does not know; the latter changes nothing but the count of ignored texts.
    std::optional<std::string> Take(const std::string& text);

    // Level range 1, 2 or 3 that the level held now falls into.
    int LevelRange() const;

    // The offset at the output in V: 0 while off, else the one set, cut to what the range in force can add (50 mV,
    // 0.5 V, 5 V). It is cut here and not when set, because level and unit follow the offset on the line.
    double HeldOffsetVolts() const;

  private:
    bool TakePlain(const std::string& text);
    bool TakeValue(const std::string& text);
    bool TakeMemoryWrite(const std::string& text);
    std::optional<std::string> AnswerQuery(const std::string& text) const;
    std::optional<std::string> AnswerMemory(const std::string& text) const;
};

}  // namespace sim

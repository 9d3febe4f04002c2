#include <algorithm>
#include <cmath>
#include <vector>

#include "Fuzz.h"
#include "simulator/CsvTrace.h"
#include "simulator/Trace.h"

namespace {

using Channels = std::array<sim::CsvColumn, 2>;

struct Reading {
    Channels channels;
    std::string error;
    bool done = false;
};

Reading Read(std::string_view text, const std::vector<int>& columns) {
    Reading reading;
    reading.done = sim::ReadCsv(text, columns, &reading.channels, &reading.error);
    Require(reading.done == reading.error.empty(), "either a recording or a sentence");
    return reading;
}

bool Same(const Reading& one, const Reading& other) {
    return one.done == other.done && (!one.done || (one.channels[0].values == other.channels[0].values &&
                                                    one.channels[1].values == other.channels[1].values));
}

void RequireTrace(const std::vector<double>& values) {
    const sim::Trace trace = sim::MakeTrace(values);
    const auto [low, high] = std::ranges::minmax(trace);
    Require(low == 0 && (high == 255 || high == 0), "a trace spans 0 to 255, or is flat");
}

void RequireColumn(const sim::CsvColumn& column, std::size_t lines, const std::vector<int>& columns) {
    Require(columns.empty() ? column.number >= 1 : std::ranges::count(columns, column.number) > 0, "a column of these");
    Require(column.values.size() >= 2, "a recording has two values at least");
    Require(column.firstLine >= 1 && column.lastLine <= lines, "its lines are lines of the file");
    Require(column.lastLine - column.firstLine + 1 >= column.values.size(), "each value has a line of its own");
    Require(std::ranges::all_of(column.values, [](double value) { return std::isfinite(value); }), "values are finite");
    RequireTrace(column.values);
    // A long recording is brought to a trace in another way than a short one.
    std::vector<double> longer;
    while (longer.size() < 2 * sim::kTraceSamples) {
        longer.insert(longer.end(), column.values.begin(), column.values.end());
    }
    RequireTrace(longer);
}

// Written plainly, the values read as they were.
void RequireRoundTrip(const Reading& reading) {
    std::string plain;
    for (std::size_t i = 0; i < reading.channels[0].values.size(); ++i) {
        plain += QByteArray::number(reading.channels[0].values[i], 'g', 17).toStdString() + ';' +
                 QByteArray::number(reading.channels[1].values[i], 'g', 17).toStdString() + '\n';
    }
    const Reading again = Read(plain, {1, 2});
    Require(Same(again, reading), "values written with 17 digits come back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto lines =
        static_cast<std::size_t>(1 + std::max(std::ranges::count(text, '\n'), std::ranges::count(text, '\r')));
    for (const std::vector<int>& columns : {std::vector<int>{}, {1}, {2, 3}}) {
        const Reading reading = Read(text, columns);
        if (reading.done) {
            for (const sim::CsvColumn& column : reading.channels) {
                RequireColumn(column, lines, columns);
            }
            Require(reading.channels[0].values.size() == reading.channels[1].values.size(), "channels end together");
            RequireRoundTrip(reading);
        }
        if (text.find('\r') == std::string::npos && text.find('\n') != std::string::npos) {
            const QByteArray windows = QByteArray::fromStdString(text).replace('\n', "\r\n");
            Require(Same(Read(windows.toStdString(), columns), reading), "line ends of either kind read alike");
        }
    }
    return 0;
}

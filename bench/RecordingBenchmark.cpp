// A recording of five million rows, beside a bare scan that finds its numbers with the standard library and keeps them,
// and its memory beside that of the values alone.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "Table.h"
#include "recording/Recording.h"

namespace {

constexpr std::size_t kRows = 5'000'000;
constexpr std::size_t kNumbers = 3 * kRows;
constexpr int kRuns = 3;
constexpr double kMegabyte = 1e6;

void WriteRow(std::size_t row, char separator, char decimalMark, QByteArray* text) {
    std::array<char, 64> line{};
    const double time = static_cast<double>(row) * 1e-6;
    const int size = std::snprintf(line.data(), line.size(), "%.9f%c%.5f%c%.5f\n", time, separator,
                                   std::sin(time * 1e3), separator, 2.0 * std::cos(time * 777.0));
    std::replace(line.begin(), line.begin() + size, '.', decimalMark);
    text->append(line.data(), size);
}

// A time and two channels, about 30 bytes in a row.
QString WrittenRecording(const QTemporaryDir& folder, char separator, char decimalMark) {
    QFile file(folder.filePath(QStringLiteral("recording")));
    file.open(QIODevice::WriteOnly);
    QByteArray text(QStringLiteral("Time (s)%1CH1 (V)%1CH2 (V)\n").arg(QChar::fromLatin1(separator)).toLatin1());
    for (std::size_t row = 0; row < kRows; ++row) {
        WriteRow(row, separator, decimalMark, &text);
        if (text.size() > 1'000'000) {
            file.write(text);
            text.clear();
        }
    }
    file.write(text);
    return file.fileName();
}

bool ReadsAll(const QString& name) {
    QFile file(name);
    file.open(QIODevice::ReadOnly);
    const recording::Outcome outcome = recording::Read(file);
    return outcome.recording && outcome.recording->blocks[0].rows == kRows &&
           outcome.recording->blocks[0].Channels().size() == 2;
}

// Keeps the numbers of the text, found by trying at each place, those of a column together, and counts them.
std::size_t KeepNumbers(const QString& name, std::size_t columns, char decimalMark) {
    QFile file(name);
    file.open(QIODevice::ReadOnly);
    QByteArray text = file.readAll();
    if (decimalMark != '.') {
        text.replace(decimalMark, '.');
    }
    std::vector<std::vector<double>> values(columns);
    std::size_t count = 0;
    for (const char* at = text.cbegin(); at != text.cend();) {
        double value = 0.0;
        const auto [end, error] = std::from_chars(at, text.cend(), value);
        if (error == std::errc()) {
            values[count++ % columns].push_back(value);
        }
        at = error == std::errc() ? end : at + 1;
    }
    benchmark::DoNotOptimize(values.data());
    return count;
}

void ReadRows(benchmark::State& state, char separator, char decimalMark) {
    const QTemporaryDir folder;
    const QString name = WrittenRecording(folder, separator, decimalMark);
    bool good = true;
    const Figure row = Compare(
        state, [&] { good = ReadsAll(name) && good; },
        [&] { good = KeepNumbers(name, 3, decimalMark) >= kNumbers && good; });
    Put(state, row, good);
}

void ReadPoints(benchmark::State& state) { ReadRows(state, ',', '.'); }
BENCHMARK(ReadPoints)->Name("Read a recording of 5,000,000 rows")->Iterations(kRuns);

void ReadCommas(benchmark::State& state) { ReadRows(state, ';', ','); }
BENCHMARK(ReadCommas)->Name("Read one with decimal commas")->Iterations(kRuns);

// The most memory that a process of its own has had for it.
double MostMegabytes(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    rusage used{};
    int status = 0;
    const bool hasEnded = ::wait4(child, &status, 0, &used) == child;
    return hasEnded ? static_cast<double>(used.ru_maxrss) * 1024.0 / kMegabyte : 0.0;
}

void Memory(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString name = WrittenRecording(folder, ',', '.');
    double most = 0.0;
    for ([[maybe_unused]] auto _ : state) {
        most = MostMegabytes([&name] { ReadsAll(name); }) - MostMegabytes([] {});
    }
    Put(state, {"MB", most, kNumbers * sizeof(double) / kMegabyte}, most > 0.0);
}
BENCHMARK(Memory)->Name("Its memory, beside its values")->Iterations(1);

}  // namespace

int main(int argc, char** argv) { return RunTable(argc, argv); }

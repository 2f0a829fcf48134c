#include "FullPayload.h"
#include "RunBenchmarks.h"

#include "CapturedColor.h"
#include "ColorFormat.h"
#include "ColorNames.h"
#include "DataFile.h"
#include "PayloadCoding.h"
#include "TailwindColors.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace tintwick;

std::vector<CapturedColor> randomColors()
{
    std::mt19937 random(20250314);
    std::uniform_int_distribution<int> byte(0, 255);
    std::vector<CapturedColor> colors;
    constexpr int count = 1024;
    colors.reserve(count);
    for (int i = 0; i < count; ++i) {
        colors.push_back(
            CapturedColor::capture(byte(random) / 255.0, byte(random) / 255.0, byte(random) / 255.0, 1));
    }
    return colors;
}

/// A data folder on the disk of the temporary files.
class DataFolder final
{
public:
    DataFolder() { qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path())); }

    [[nodiscard]] QByteArray path() const { return QFile::encodeName(m_folder.path()); }

private:
    QTemporaryDir m_folder;
};

/// The name and the palette token of a colour.
void nearestNameAndToken(benchmark::State& state)
{
    state.SetLabel("(aim 1 us)");
    const auto colors = randomColors();
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        const CapturedColor& color = colors[i++ % colors.size()];
        benchmark::DoNotOptimize(ColorNames::shared().nearest(color));
        benchmark::DoNotOptimize(TailwindColors::shared().nearest(color));
    }
}
BENCHMARK(nearestNameAndToken);

void textInFormat(benchmark::State& state)
{
    const auto colors = randomColors();
    const ColorFormat format = allColorFormats.at(static_cast<std::size_t>(state.range(0)));
    state.SetLabel(rawValue(format).toStdString());
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(string(format, colors[i++ % colors.size()]));
    }
}
BENCHMARK(textInFormat)->DenseRange(0, allColorFormats.size() - 1);

void encode(benchmark::State& state)
{
    const Payload payload = fullPayload();
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(encodePayload(payload));
    }
}
BENCHMARK(encode)->Unit(benchmark::kMicrosecond);

void decode(benchmark::State& state)
{
    const QByteArray text = *encodePayload(fullPayload());
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(decodePayload(text));
    }
}
BENCHMARK(decode)->Unit(benchmark::kMicrosecond);

/// Lower bound of a save: writes the same bytes, synchronises, renames over the old file, and synchronises the
/// folder.
bool writeBare(const QByteArray& folder, const QByteArray& text)
{
    const QByteArray target = folder + "/data.json";
    const QByteArray temporary = folder + "/data.tmp.json";
    const int file = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const bool written =
        ::write(file, text.constData(), static_cast<std::size_t>(text.size())) == text.size();
    const bool replaced = ::fsync(file) == 0 && std::rename(temporary.constData(), target.constData()) == 0;
    ::close(file);
    const int directory = ::open(folder.constData(), O_RDONLY | O_DIRECTORY);
    const bool synced = ::fsync(directory) == 0;
    ::close(directory);
    return written && replaced && synced;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/// 100 colours and 20 collections, alternating with the bare write, since the speed of the disk changes within seconds.
/// Both are measured in elapsed time.
void save(benchmark::State& state)
{
    state.SetLabel("(aim 1.5 times bare)");
    const DataFolder folder;
    const Payload payload = fullPayload();
    const QByteArray text = *encodePayload(payload);
    const DataFile storage;
    using Clock = std::chrono::steady_clock;
    using Microseconds = std::chrono::duration<double, std::micro>;
    std::vector<double> saves;
    std::vector<double> bareWrites;
    for ([[maybe_unused]] auto _ : state) {
        const auto start = Clock::now();
        const int error = storage.save(payload);
        const auto saved = Clock::now();
        if (error != 0 || !writeBare(folder.path(), text)) {
            state.SkipWithError("The file cannot be saved");
            break;
        }
        const auto written = Clock::now();
        state.SetIterationTime(std::chrono::duration<double>(saved - start).count());
        saves.push_back(Microseconds(saved - start).count());
        bareWrites.push_back(Microseconds(written - saved).count());
    }
    const double bare = median(bareWrites);
    state.counters["bare write + fsync + rename (us)"] = bare;
    state.counters["ratio of medians"] = median(saves) / bare;
}
BENCHMARK(save)->Unit(benchmark::kMicrosecond)->UseManualTime()->Iterations(60);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}

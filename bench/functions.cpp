#include "model/CapturedColor.h"
#include "model/ColorFormat.h"
#include "model/ColorNameService.h"
#include "model/TailwindService.h"
#include "state/PayloadCoding.h"
#include "state/Preferences.h"
#include "state/StorageService.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

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

/// What a user of some months has: a full history and 20 collections of ten colours.
Payload fullPayload()
{
    Payload payload;
    for (CapturedColor& color : randomColors()) {
        if (payload.history.size() == 100) {
            break;
        }
        color.customName = ColorNameService::shared().nearest(color);
        payload.history.append(color);
    }
    for (int i = 0; i < 20; ++i) {
        ColorCollection collection = ColorCollection::create(QStringLiteral("Collection %1").arg(i));
        for (int member = 0; member < 10; ++member) {
            collection.colorIds.append(payload.history[i * 5 % 90 + member].id);
        }
        payload.collections.append(collection);
    }
    return payload;
}

/// A data folder of its own, on the disk that temporary files go to.
class DataFolder final
{
public:
    DataFolder() { qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path())); }

    [[nodiscard]] QByteArray path() const { return QFile::encodeName(m_folder.path()); }

private:
    QTemporaryDir m_folder;
};

/// The name and the palette token of a colour; the aim is 1 µs for both.
void nearestNameAndToken(benchmark::State& state)
{
    const auto colors = randomColors();
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        const CapturedColor& color = colors[i++ % colors.size()];
        benchmark::DoNotOptimize(ColorNameService::shared().nearest(color));
        benchmark::DoNotOptimize(TailwindService::shared().nearest(color));
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

/// What the loupe asks of the preferences for every frame.
void scopePreferences(benchmark::State& state)
{
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));
    preferences::setScopeShape(QStringLiteral("circle"));
    preferences::setScopePhysicalSize(QStringLiteral("large"));
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(preferences::scopeIsCircle());
        benchmark::DoNotOptimize(preferences::scopeSide());
    }
}
BENCHMARK(scopePreferences)->Unit(benchmark::kMicrosecond);

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

/// 100 colours and 20 collections; the aim is 1.5 times `bareSave`.
void save(benchmark::State& state)
{
    const DataFolder folder;
    const Payload payload = fullPayload();
    const StorageService storage;
    for ([[maybe_unused]] auto _ : state) {
        storage.save(payload.history, payload.collections, payload.defaultFormat);
    }
}
BENCHMARK(save)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// The floor of a save: the same bytes written, synchronised, renamed over the old file, and the folder
/// synchronised.
void bareSave(benchmark::State& state)
{
    const DataFolder folder;
    const QByteArray text = *encodePayload(fullPayload());
    const QByteArray target = folder.path() + "/data.json";
    const QByteArray temporary = folder.path() + "/data.tmp.json";
    for ([[maybe_unused]] auto _ : state) {
        const int file = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const bool written =
            ::write(file, text.constData(), static_cast<std::size_t>(text.size())) == text.size();
        const bool replaced =
            ::fsync(file) == 0 && std::rename(temporary.constData(), target.constData()) == 0;
        ::close(file);
        const int directory = ::open(folder.path().constData(), O_RDONLY | O_DIRECTORY);
        const bool synced = ::fsync(directory) == 0;
        ::close(directory);
        if (!written || !replaced || !synced) {
            state.SkipWithError("The file cannot be saved");
        }
    }
}
BENCHMARK(bareSave)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();

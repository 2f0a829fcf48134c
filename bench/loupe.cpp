// The cost of one frame of the loupe in the client, without the grab and the upload.

#include "RunBenchmarks.h"

#include "LoupeRenderer.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

using namespace tintwick;

namespace {

PixelGrid colorfulGrid(int radius)
{
    const int side = 2 * radius + 1;
    PixelGrid grid;
    grid.reserve(static_cast<std::size_t>(side));
    for (int r = 0; r < side; ++r) {
        std::vector<SampledColor> row;
        row.reserve(static_cast<std::size_t>(side));
        for (int c = 0; c < side; ++c) {
            row.push_back({(c * 8 % 256) / 255.0, (r * 8 % 256) / 255.0, ((r + c) * 4 % 256) / 255.0, 1});
        }
        grid.push_back(row);
    }
    return grid;
}

/// Arguments: side in points, scale in percent, radius.
void renderFrame(benchmark::State& state)
{
    const LoupeLook look{.isCircle = false, .side = static_cast<double>(state.range(0))};
    const double scale = static_cast<double>(state.range(1)) / 100;
    const PixelGrid grid = colorfulGrid(static_cast<int>(state.range(2)));
    LoupeRenderer view;
    view.setPixels(grid);
    view.render(look, scale);
    int frame = 0;
    for ([[maybe_unused]] auto _ : state) {
        // Each move changes the text, as over a photograph.
        ++frame;
        view.setPixels(grid);
        view.setCenterColor(SampledColor{(frame % 251) / 255.0, (frame % 83) / 255.0, 0.5});
        benchmark::DoNotOptimize(view.render(look, scale).constBits());
    }
}

/// The first frame of a pick, which builds all caches.
void renderFirstFrame(benchmark::State& state)
{
    const LoupeLook look{.isCircle = false, .side = static_cast<double>(state.range(0))};
    const double scale = static_cast<double>(state.range(1)) / 100;
    const PixelGrid grid = colorfulGrid(static_cast<int>(state.range(2)));
    for ([[maybe_unused]] auto _ : state) {
        LoupeRenderer view;
        view.setPixels(grid);
        benchmark::DoNotOptimize(view.render(look, scale).constBits());
    }
}

/// A frame after a zoom step, which draws the grid's lines again.
void renderAfterZoom(benchmark::State& state)
{
    const LoupeLook look{.isCircle = false, .side = static_cast<double>(state.range(0))};
    const double scale = static_cast<double>(state.range(1)) / 100;
    const PixelGrid grids[] = {colorfulGrid(static_cast<int>(state.range(2))),
                               colorfulGrid(static_cast<int>(state.range(2)) - 1)};
    LoupeRenderer view;
    std::size_t step = 0;
    for ([[maybe_unused]] auto _ : state) {
        view.setPixels(grids[++step % 2]);
        benchmark::DoNotOptimize(view.render(look, scale).constBits());
    }
}

BENCHMARK(renderFrame)
    ->ArgNames({"side", "scale%", "radius"})
    ->ArgsProduct({{100, 130, 160}, {100, 200}, {7, 15}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(renderFirstFrame)
    ->ArgNames({"side", "scale%", "radius"})
    ->ArgsProduct({{130, 160}, {100, 200}, {7}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(renderAfterZoom)
    ->ArgNames({"side", "scale%", "radius"})
    ->ArgsProduct({{130, 160}, {100, 200}, {7, 15}})
    ->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return runBenchmarks(argc, argv);
}

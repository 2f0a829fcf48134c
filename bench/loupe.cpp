// The cost of one frame of the loupe in the client, without the grab and the upload.

#include "RunBenchmarks.h"

#include "LoupeRenderer.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

using namespace tintwick;

namespace {

QImage colorfulPixels(int radius)
{
    const int side = 2 * radius + 1;
    QImage pixels(side, side, QImage::Format_RGB32);
    for (int r = 0; r < side; ++r) {
        for (int c = 0; c < side; ++c) {
            pixels.setPixel(c, r, qRgb(c * 8 % 256, r * 8 % 256, (r + c) * 4 % 256));
        }
    }
    return pixels;
}

/// Arguments: side in points, scale in percent, radius.
void renderFrame(benchmark::State& state)
{
    const LoupeLook look{.isCircle = false, .side = static_cast<double>(state.range(0))};
    const double scale = static_cast<double>(state.range(1)) / 100;
    const QImage grid = colorfulPixels(static_cast<int>(state.range(2)));
    LoupeRenderer view;
    view.render(look, scale);
    int frame = 0;
    for ([[maybe_unused]] auto _ : state) {
        // Each move changes the text, as over a photograph.
        ++frame;
        view.setPixels(grid);
        view.setCenterColor(qRgb(frame % 251, frame % 83, 128));
        benchmark::DoNotOptimize(view.render(look, scale).constBits());
    }
}

/// The first frame of a pick, which builds all caches.
void renderFirstFrame(benchmark::State& state)
{
    const LoupeLook look{.isCircle = false, .side = static_cast<double>(state.range(0))};
    const double scale = static_cast<double>(state.range(1)) / 100;
    const QImage grid = colorfulPixels(static_cast<int>(state.range(2)));
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
    const QImage grids[] = {colorfulPixels(static_cast<int>(state.range(2))),
                            colorfulPixels(static_cast<int>(state.range(2)) - 1)};
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

// What a frame of the panel's screens costs. The aim of a scrolled frame is 4 ms, so that the grid keeps up with any screen.

#include "state/AppState.h"
#include "ui/Appearance.h"
#include "ui/DS.h"
#include "ui/HistoryDetailView.h"

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QImage>
#include <QLayout>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using namespace tintwick;

void fill(AppState& state)
{
    state.clearHistory();
    for (int i = 0; i < AppState::historyLimit; ++i) {
        const QColor color = QColor::fromHsv((i * 137) % 360, 150 + (i * 31) % 100, 150 + (i * 53) % 105,
                                             i % 5 == 0 ? 128 : 255);
        state.colorCaptured(
            CapturedColor::capture(color.redF(), color.greenF(), color.blueF(), color.alphaF()));
    }
}

/// A full history, every fifth colour translucent, is turned by one notch of the wheel; all that is in view is drawn anew.
void scrolledFrameOfTheHistory(benchmark::State& state)
{
    const QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
    AppState appState([](std::chrono::milliseconds, const std::function<void()>&) {});
    fill(appState);
    QWidget panel;
    panel.resize(380, 529);
    const Appearance appearance(panel);
    (new QVBoxLayout(&panel))->setContentsMargins(0, 0, 0, 0);
    panel.layout()->addWidget(new HistoryDetailView(appState, panel));
    panel.show();
    QApplication::processEvents();

    auto* scroll = panel.findChild<QScrollArea*>();
    QScrollBar* bar = scroll->verticalScrollBar();
    const auto scale = static_cast<int>(state.range(0));
    QImage frame(panel.size() * scale, QImage::Format_ARGB32_Premultiplied);
    frame.setDevicePixelRatio(scale);
    frame.fill(DS::bg.in(Scheme::Light));
    constexpr int notch = 60;
    int step = notch;
    for ([[maybe_unused]] auto _ : state) {
        if (bar->value() == bar->maximum() || bar->value() == 0) {
            step = bar->value() == 0 ? notch : -notch;
        }
        bar->setValue(bar->value() + step);
        scroll->viewport()->render(&frame, QPoint(), QRegion(), QWidget::DrawChildren);
    }
}
BENCHMARK(scrolledFrameOfTheHistory)->Arg(1)->Arg(2)->ArgName("scale")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

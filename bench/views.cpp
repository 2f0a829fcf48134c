// What a frame of the panel's screens costs. The aim of a scrolled frame is 4 ms, so that the grid keeps up with any screen;
// that of a hovered one 2 ms.

#include "state/AppState.h"
#include "ui/Appearance.h"
#include "ui/CollectionRowCard.h"
#include "ui/DS.h"
#include "ui/DashboardSwatchView.h"
#include "ui/DashboardView.h"
#include "ui/HistoryDetailView.h"
#include "ui/kit/Shadow.h"
#include "ui/kit/Ticker.h"

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QHoverEvent>
#include <QImage>
#include <QLayout>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>

#include <functional>
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

void hover(QWidget& widget, QEvent::Type type)
{
    const QPointF middle = widget.rect().center();
    QHoverEvent event(type, middle, widget.mapToGlobal(middle), middle);
    QApplication::sendEvent(&widget, &event);
}

/// The pointer comes and goes; every frame of the way there and back is measured.
void hoverFrames(benchmark::State& run, QWidget& view)
{
    bool isOver = false;
    const int blurredBefore = blurCount();
    for ([[maybe_unused]] auto _ : run) {
        if (!Ticker::shared().hasMotion()) {
            isOver = !isOver;
            hover(view, isOver ? QEvent::HoverEnter : QEvent::HoverLeave);
        }
        Ticker::shared().advance(1 / 60.0);
        QApplication::processEvents();
    }
    run.counters["shadows blurred"] = blurCount() - blurredBefore;
}

/// On the dashboard with fifteen recent colours and a few collections.
void hoveredFrame(benchmark::State& run, const std::function<QWidget*(const DashboardView&)>& target)
{
    const QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path()));
    Ticker::shared().setMode(Ticker::Mode::ByHand);
    AppState appState([](std::chrono::milliseconds, const std::function<void()>&) {});
    fill(appState);
    for (int i = 0; i < 4; ++i) {
        const QUuid id = appState.createCollection(QString::number(i)).id;
        for (int member = 0; member < 4; ++member) {
            appState.addColor(appState.history()[member].id, id);
        }
    }
    QWidget panel;
    panel.resize(380, 529);
    const Appearance appearance(panel);
    (new QVBoxLayout(&panel))->setContentsMargins(0, 0, 0, 0);
    auto* dashboard = new DashboardView(appState, panel);
    panel.layout()->addWidget(dashboard);
    panel.show();
    QApplication::processEvents();
    hoverFrames(run, *target(*dashboard));
}

void hoveredFrameOfARecentColor(benchmark::State& run)
{
    hoveredFrame(run, [](const DashboardView& dashboard) { return dashboard.swatches().at(1); });
}
BENCHMARK(hoveredFrameOfARecentColor)->Unit(benchmark::kMillisecond);

void hoveredFrameOfACollection(benchmark::State& run)
{
    hoveredFrame(run, [](const DashboardView& dashboard) { return dashboard.cards().at(1); });
}
BENCHMARK(hoveredFrameOfACollection)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

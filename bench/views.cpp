// The cost of a frame of the panel's screens.

#include "FullPayload.h"
#include "RunBenchmarks.h"

#include "AppState.h"
#include "Appearance.h"
#include "CollectionDetailView.h"
#include "CollectionRowCard.h"
#include "ColorDetailRow.h"
#include "ColorScreen.h"
#include "DashboardSwatchView.h"
#include "DashboardView.h"
#include "DataFile.h"
#include "HistoryDetailView.h"
#include "Preferences.h"
#include "ReorderList.h"
#include "Shadow.h"
#include "Slider.h"
#include "Theme.h"
#include "Ticker.h"

#include <QApplication>
#include <QFile>
#include <QHoverEvent>
#include <QImage>
#include <QLayout>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>

namespace {

using namespace tintwick;

/// A screen of the panel for a user with many colours.
class Panel final : public QWidget
{
public:
    explicit Panel(const std::function<QWidget*(AppState&, QWidget& panel)>& makeScreen)
    {
        resize(380, 529);
        (new QVBoxLayout(this))->setContentsMargins(0, 0, 0, 0);
        layout()->addWidget(makeScreen(m_state, *this));
        show();
        QApplication::processEvents();
    }

private:
    /// The data folder of the state.
    class DataFolder final
    {
    public:
        DataFolder()
        {
            qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path()));
            const Payload payload = fullPayloadWithFullCollection();
            static_cast<void>(DataFile().save(payload));
        }

    private:
        QTemporaryDir m_folder;
    };

    DataFolder m_folder;
    AppState m_state{[](std::chrono::milliseconds, const std::function<void()>&) {}};
    Appearance m_appearance{*this};
};

/// Scrolls a full history, with every fifth colour translucent, by one notch of the wheel and repaints the view.
void scrolledFrameOfTheHistory(benchmark::State& state)
{
    state.SetLabel("(aim 4 ms)");
    Panel panel([](AppState& appState, QWidget& around) { return new HistoryDetailView(appState, around); });
    auto* scroll = panel.findChild<QScrollArea*>();
    QScrollBar* bar = scroll->verticalScrollBar();
    const auto scale = static_cast<int>(state.range(0));
    QImage frame(panel.size() * scale, QImage::Format_ARGB32_Premultiplied);
    frame.setDevicePixelRatio(scale);
    frame.fill(theme::bg.in(Scheme::Light));
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

void drag(QWidget& widget, QEvent::Type type, QPoint position)
{
    const bool isMove = type == QEvent::MouseMove;
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, position, widget.mapToGlobal(position), isMove ? Qt::NoButton : Qt::LeftButton,
                      isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

/// Drags a row of a palette of 100 up and down over its neighbours, which make room and move back.
void draggedFrameOfAPalette(benchmark::State& run)
{
    run.SetLabel("(aim 4 ms)");
    Panel panel([](AppState& appState, QWidget& around) {
        return new CollectionDetailView(appState, appState.collections().first().id, around);
    });
    auto* screen = panel.findChild<CollectionDetailView*>();
    ColorDetailRow* row = screen->rows().at(2);
    // Pointer positions are in coordinates of the list, which does not move with the row.
    QWidget* list = row->parentWidget();
    const auto pointer = [&](int y) { return row->mapFromGlobal(list->mapToGlobal(QPoint(160, y))); };
    constexpr int start = 130;
    constexpr int step = 12;
    int y = start;
    int direction = step;
    drag(*row, QEvent::MouseButtonPress, pointer(y));
    for ([[maybe_unused]] auto _ : run) {
        if (y > start + 100 || y < start - 100) {
            direction = -direction;
        }
        y += direction;
        drag(*row, QEvent::MouseMove, pointer(y));
        Ticker::shared().advance(1 / 60.0);
        QApplication::processEvents();
    }
    if (!panel.findChild<ReorderList*>()->isCarrying()) {
        run.SkipWithError("The row is not carried");
    }
    drag(*row, QEvent::MouseButtonRelease, pointer(y));
}
BENCHMARK(draggedFrameOfAPalette)->Unit(benchmark::kMillisecond);

/// Drags a slider of an opened colour, which changes the tracks of the others, and repaints the view.
void draggedFrameOfASlider(benchmark::State& run)
{
    run.SetLabel("(aim 6 ms)");
    const QTemporaryDir folder;
    Preferences preferences(folder.filePath(QStringLiteral("Tintwick.conf")));
    Panel panel([&](AppState& appState, QWidget& around) {
        return new ColorScreen(appState, preferences, CapturedColor::capture(0x3B82F6), around);
    });
    auto* slider = panel.findChild<Slider*>();
    const auto scale = static_cast<int>(run.range(0));
    QImage frame(panel.size() * scale, QImage::Format_ARGB32_Premultiplied);
    frame.setDevicePixelRatio(scale);
    frame.fill(theme::bg.in(Scheme::Light));
    int x = 40;
    int step = 1;
    drag(*slider, QEvent::MouseButtonPress, QPoint(x, slider->height() / 2));
    for ([[maybe_unused]] auto _ : run) {
        if (x <= 20 || x >= slider->width() - 20) {
            step = x <= 20 ? 1 : -1;
        }
        x += step;
        drag(*slider, QEvent::MouseMove, QPoint(x, slider->height() / 2));
        slider->window()->render(&frame, QPoint(), QRegion(), QWidget::DrawChildren);
    }
}
BENCHMARK(draggedFrameOfASlider)->Arg(1)->Arg(2)->ArgName("scale")->Unit(benchmark::kMillisecond);

void hover(QWidget& widget, QEvent::Type type)
{
    const QPointF middle = widget.rect().center();
    QHoverEvent event(type, middle, widget.mapToGlobal(middle), middle);
    QApplication::sendEvent(&widget, &event);
}

/// The pointer enters and leaves; measures each frame of both animations.
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

void hoveredFrame(benchmark::State& run, const std::function<QWidget*(const DashboardView&)>& target)
{
    run.SetLabel("(aim 2 ms)");
    Panel panel([](AppState& appState, QWidget& around) { return new DashboardView(appState, around); });
    hoverFrames(run, *target(*panel.findChild<DashboardView*>()));
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
    Ticker::shared().setMode(Ticker::Mode::ByHand);
    return runBenchmarks(argc, argv);
}

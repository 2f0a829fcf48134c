#include "shots/HistoryShots.h"

#include "shots/Shooting.h"
#include "state/AppState.h"
#include "ui/Appearance.h"
#include "ui/DS.h"
#include "ui/HistoryDetailView.h"
#include "ui/RenameColorSheet.h"
#include "ui/kit/MenuButton.h"
#include "ui/kit/Paint.h"

#include <QApplication>
#include <QColor>
#include <QHoverEvent>
#include <QMenu>
#include <QPainter>

#include <algorithm>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// What the panel leaves to a screen below its header and the rule.
constexpr QSize screenSize(380, 529);

/// The screen over the panel's ground. A menu that is open is drawn where it stands, as a window of its own does not
/// come into the picture.
class DemoHistory final : public QWidget
{
public:
    explicit DemoHistory(const QList<QColor>& colors)
        : m_appState([](std::chrono::milliseconds, const std::function<void()>&) {})
    {
        m_appState.clearHistory();
        while (!m_appState.collections().isEmpty()) {
            m_appState.deleteCollection(m_appState.collections().first().id);
        }
        std::for_each(colors.rbegin(), colors.rend(), [this](const QColor& color) {
            m_appState.colorCaptured(
                CapturedColor::capture(color.redF(), color.greenF(), color.blueF(), color.alphaF()));
        });
        m_view = new HistoryDetailView(m_appState, *this);
        m_view->setParent(this);
        m_view->setFixedSize(screenSize);
        setFixedSize(screenSize);
    }

    [[nodiscard]] AppState& state() { return m_appState; }
    [[nodiscard]] const QList<ColorSwatchView*>& swatches() const { return m_view->swatches(); }

    /// Opens a menu and keeps a picture of it.
    void showOpen(QMenu* menu, QPoint at)
    {
        m_picture = new Picture(this, menu);
        m_picture->move(at);
        m_picture->show();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), DS::bg.in(Appearance::of(this)));
    }

private:
    class Picture final : public QWidget
    {
    public:
        Picture(QWidget* parent, QMenu* menu)
            : QWidget(parent)
            , m_menu(menu)
        {
            setFixedSize(menu->size());
        }

    protected:
        void paintEvent(QPaintEvent*) override
        {
            QPainter painter(this);
            const double scale = devicePixelRatioOf(painter);
            QImage picture(size() * scale, QImage::Format_ARGB32_Premultiplied);
            picture.setDevicePixelRatio(scale);
            picture.fill(Qt::transparent);
            m_menu->render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
            painter.drawImage(0, 0, picture);
        }

    private:
        QMenu* m_menu;
    };

    AppState m_appState;
    HistoryDetailView* m_view;
    Picture* m_picture = nullptr;
};

QList<QColor> manyColors(int count)
{
    QList<QColor> colors;
    for (int i = 0; i < count; ++i) {
        // Steps of the golden angle keep neighbours apart.
        colors.append(QColor::fromHsv((210 + i * 137) % 360, 150 + (i * 31) % 100, 150 + (i * 53) % 105));
    }
    return colors;
}

QList<QColor> translucentColors()
{
    QList<QColor> colors = manyColors(12);
    for (int i = 0; i < colors.size(); ++i) {
        colors[i].setAlphaF(std::min(0.1F * static_cast<float>(i), 0.99F));
    }
    return colors;
}

void hover(QWidget& widget)
{
    const QPointF middle = widget.rect().center();
    QHoverEvent enter(QEvent::HoverEnter, middle, widget.mapToGlobal(middle), QPointF(-1, -1));
    QApplication::sendEvent(&widget, &enter);
}

void openExportMenu(DemoHistory& history)
{
    auto& button = *history.findChild<MenuButton*>();
    button.click();
    history.showOpen(button.menu(), button.mapTo(&history, QPoint(0, button.height() + 4)));
}

void openContextMenu(DemoHistory& history, int swatch)
{
    ColorSwatchView& view = *history.swatches().at(swatch);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F10, Qt::ShiftModifier);
    QApplication::sendEvent(&view, &key);
    auto* menu = view.findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    menu->setActiveAction(menu->actions().first());
    history.showOpen(menu, view.mapTo(&history, view.rect().center()));
}

} // namespace

void shootHistory(const QDir& folder)
{
    const auto shootState = [&](const QString& name, const QList<QColor>& colors,
                                const std::function<void(DemoHistory&)>& arrange = {}) {
        shoot(
            folder, u"history-"_s + name, [&] { return std::make_unique<DemoHistory>(colors); },
            [&](QWidget& widget) {
                if (arrange) {
                    arrange(static_cast<DemoHistory&>(widget));
                }
            });
    };
    const auto renamed = [](DemoHistory& history, const QString& name) {
        AppState& state = history.state();
        state.renameColor(state.history().at(1).id, name);
        openRenameColorSheet(history, state, state.history().at(1));
    };

    shootState(u"empty"_s, {});
    shootState(u"one"_s, manyColors(1));
    shootState(u"forty"_s, manyColors(40));
    shootState(u"hundred"_s, manyColors(100), [](DemoHistory& history) {
        history.activateWindow();
        history.swatches().last()->setFocus(Qt::TabFocusReason);
    });
    shootState(u"translucent"_s, translucentColors());
    shootState(u"hover"_s, manyColors(40), [](DemoHistory& history) { hover(*history.swatches().at(6)); });
    shootState(u"hover-translucent"_s, translucentColors(),
               [](DemoHistory& history) { hover(*history.swatches().at(3)); });
    shootState(u"focus"_s, manyColors(12), [](DemoHistory& history) {
        history.activateWindow();
        history.swatches().at(2)->setFocus(Qt::TabFocusReason);
    });
    shootState(u"menu"_s, manyColors(40), [](DemoHistory& history) { openContextMenu(history, 6); });
    shootState(u"menu-palettes"_s, manyColors(40), [](DemoHistory& history) {
        history.state().createCollection(u"Brand"_s);
        openContextMenu(history, 6);
    });
    shootState(u"export"_s, manyColors(12), openExportMenu);
    shootState(u"rename"_s, manyColors(12),
               [&](DemoHistory& history) { renamed(history, u"Harbour at dusk"_s); });
    shootState(u"rename-unnamed"_s, manyColors(12), [&](DemoHistory& history) { renamed(history, {}); });
    shootState(u"rename-long"_s, manyColors(12), [&](DemoHistory& history) {
        renamed(history, u"The green of the ferns behind the greenhouse after two days of rain"_s);
    });
}

} // namespace tintwick

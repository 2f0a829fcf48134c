#include "shots/HistoryShots.h"

#include "AppState.h"
#include "ColorActions.h"
#include "HistoryDetailView.h"
#include "MenuButton.h"
#include "RenameColorOverlay.h"
#include "shots/Scene.h"
#include "shots/Shooting.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

class DemoHistory final : public ScreenGround
{
public:
    explicit DemoHistory(const QList<QColor>& colors)
        : m_appState([](std::chrono::milliseconds, const std::function<void()>&) {})
        , m_view(new HistoryDetailView(m_appState, *this))
    {
        fill(m_appState, colors);
        m_view->setPickKeys(u"⌥⇧C"_s, u"Alt+Shift+C"_s);
        setScreen(m_view);
    }

    [[nodiscard]] AppState& state() { return m_appState; }
    [[nodiscard]] const QList<ColorSwatchView*>& swatches() const { return m_view->swatches(); }

private:
    AppState m_appState;
    HistoryDetailView* m_view;
};

void openExportMenu(DemoHistory& history)
{
    auto& button = *history.findChild<MenuButton*>();
    button.click();
    showMenu(history, *button.menu(), button.mapTo(&history, QPoint(0, button.height() + 4)));
}

void openOtherFormats(DemoHistory& history)
{
    auto& button = *history.findChild<MenuButton*>();
    button.click();
    QMenu& others = *button.menu()->actions().last()->menu();
    others.adjustSize();
    others.setActiveAction(others.actions().first());
    showMenu(history, others, button.mapTo(&history, QPoint(0, button.height() + 4)));
}

void openContextMenu(DemoHistory& history, int swatch)
{
    ColorSwatchView& view = *history.swatches().at(swatch);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F10, Qt::ShiftModifier);
    QApplication::sendEvent(&view, &key);
    auto* menu = view.findChild<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    menu->setActiveAction(menu->actions().first());
    showMenu(history, *menu, view.mapTo(&history, view.rect().center()));
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
        openRenameColorOverlay(history, state, state.history().at(1));
    };

    shootState(u"empty"_s, {});
    shootState(u"one"_s, manyColors(1));
    shootState(u"forty"_s, manyColors(40));
    shootState(u"hundred"_s, manyColors(100), [](DemoHistory& history) {
        history.activateWindow();
        history.swatches().last()->setFocus(Qt::TabFocusReason);
    });
    shootState(u"translucent"_s, translucentColors(12));
    shootState(u"hover"_s, manyColors(40), [](DemoHistory& history) { hover(*history.swatches().at(6)); });
    shootState(u"hover-translucent"_s, translucentColors(12),
               [](DemoHistory& history) { hover(*history.swatches().at(3)); });
    shootState(u"focus"_s, manyColors(12), [](DemoHistory& history) {
        history.activateWindow();
        history.swatches().at(2)->setFocus(Qt::TabFocusReason);
    });
    shootState(u"drop-on-color"_s, manyColors(12),
               [](DemoHistory& history) { dragOver(*history.swatches().at(6), u"#FFE9A8"_s); });
    shootState(u"menu"_s, manyColors(40), [](DemoHistory& history) { openContextMenu(history, 6); });
    shootState(u"menu-copy"_s, manyColors(40), [](DemoHistory& history) {
        ColorSwatchView& view = *history.swatches().at(6);
        QMenu* menu = makeMenu(view, copyAsMenu(history.state(), view.color()).children);
        menu->adjustSize();
        showMenu(history, *menu, view.mapTo(&history, view.rect().center()));
    });
    shootState(u"menu-palettes"_s, manyColors(40), [](DemoHistory& history) {
        history.state().createCollection(u"Brand"_s);
        openContextMenu(history, 6);
    });
    shootState(u"export"_s, manyColors(12), openExportMenu);
    shootState(u"export-other-formats"_s, manyColors(12), openOtherFormats);
    shootState(u"rename"_s, manyColors(12),
               [&](DemoHistory& history) { renamed(history, u"Harbour at dusk"_s); });
    shootState(u"rename-unnamed"_s, manyColors(12), [&](DemoHistory& history) { renamed(history, {}); });
    shootState(u"rename-long"_s, manyColors(12), [&](DemoHistory& history) {
        renamed(history, u"The green of the ferns behind the greenhouse after two days of rain"_s);
    });
}

} // namespace tintwick

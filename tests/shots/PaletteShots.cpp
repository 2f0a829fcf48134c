#include "shots/PaletteShots.h"

#include "AppState.h"
#include "Button.h"
#include "CollectionActions.h"
#include "CollectionDetailView.h"
#include "ColorDetailRow.h"
#include "MenuButton.h"
#include "shots/Scene.h"
#include "shots/Shooting.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

class DemoPalette final : public ScreenGround
{
public:
    DemoPalette(const QString& name, const QList<QColor>& colors)
        : m_appState([](std::chrono::milliseconds, const std::function<void()>&) {})
    {
        fill(m_appState, colors);
        const QUuid palette = m_appState.createCollection(name).id;
        for (const CapturedColor& color : m_appState.history()) {
            m_appState.addColor(color.id, palette);
        }
        m_view = new CollectionDetailView(m_appState, palette, *this);
        setScreen(m_view);
    }

    [[nodiscard]] AppState& state() { return m_appState; }
    [[nodiscard]] CollectionDetailView& view() { return *m_view; }
    [[nodiscard]] ColorDetailRow& row(qsizetype position) { return *m_view->rows().at(position); }

private:
    AppState m_appState;
    CollectionDetailView* m_view;
};

void press(QWidget& widget, QEvent::Type type, const QPointF& place)
{
    QMouseEvent event(type, place, widget.mapToGlobal(place),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

/// Drags a row by an offset and does not release it.
void carry(ColorDetailRow& row, double by)
{
    hover(row);
    const QPointF start(120, 27);
    const QPointF there = start + QPointF(0, by);
    press(row, QEvent::MouseButtonPress, start);
    press(row, QEvent::MouseMove, there);
}

} // namespace

void shootPalette(const QDir& folder)
{
    const auto shootState = [&](const QString& state, const QString& name, const QList<QColor>& colors,
                                const std::function<void(DemoPalette&)>& arrange = {}) {
        shoot(
            folder, u"palette-"_s + state, [&] { return std::make_unique<DemoPalette>(name, colors); },
            [&](QWidget& widget) {
                if (arrange) {
                    arrange(static_cast<DemoPalette&>(widget));
                }
            });
    };
    const auto focus = [](DemoPalette& palette, QWidget& widget) {
        palette.activateWindow();
        widget.setFocus(Qt::TabFocusReason);
    };

    shootState(u"empty"_s, u"Brand"_s, {});
    shootState(u"one"_s, u"Brand"_s, manyColors(1));
    shootState(u"few"_s, u"Brand"_s, manyColors(4));
    shootState(u"thirty"_s, u"Website"_s, manyColors(30), [](DemoPalette& palette) {
        palette.findChild<QScrollArea*>()->verticalScrollBar()->setValue(20);
    });
    shootState(u"translucent"_s, u"Glass"_s, translucentColors(6));
    shootState(u"long-names"_s, u"Everything that was ever on the landing page of the shop"_s, manyColors(4),
               [](DemoPalette& palette) {
                   AppState& state = palette.state();
                   state.renameColor(
                       palette.row(0).color().id,
                       u"The green of the ferns behind the greenhouse after two days of rain"_s);
                   state.renameColor(palette.row(1).color().id, u"Wörterbuchverlagsgestaltungsrichtlinien"_s);
                   state.renameColor(palette.row(2).color().id, {});
                   QApplication::processEvents();
               });
    shootState(u"hover"_s, u"Brand"_s, manyColors(4), [](DemoPalette& palette) { hover(palette.row(1)); });
    shootState(u"pressed"_s, u"Brand"_s, manyColors(4), [](DemoPalette& palette) {
        hover(palette.row(1));
        press(palette.row(1), QEvent::MouseButtonPress, QPointF(120, 27));
    });
    shootState(u"focus"_s, u"Brand"_s, manyColors(4),
               [&](DemoPalette& palette) { focus(palette, palette.row(1)); });
    shootState(u"focus-remove"_s, u"Brand"_s, manyColors(4),
               [&](DemoPalette& palette) { focus(palette, palette.row(1).removeButton()); });
    shootState(u"drag"_s, u"Brand"_s, manyColors(6), [](DemoPalette& palette) { carry(palette.row(1), 70); });
    shootState(u"drag-first"_s, u"Brand"_s, manyColors(6),
               [](DemoPalette& palette) { carry(palette.row(2), -95); });
    shootState(u"drop-target"_s, u"Brand"_s, manyColors(4),
               [](DemoPalette& palette) { dragOver(palette.view(), u"a colour"_s); });
    shootState(u"drop-target-empty"_s, u"Brand"_s, {},
               [](DemoPalette& palette) { dragOver(palette.view(), u"a colour"_s); });
    shootState(u"drop-on-color"_s, u"Brand"_s, manyColors(4), [](DemoPalette& palette) {
        // The square at the start of the row.
        dragOver(*palette.row(1).childAt(30, 27), u"#FFE9A8"_s);
    });
    shootState(u"actions"_s, u"Brand"_s, manyColors(4), [](DemoPalette& palette) {
        auto& actions = static_cast<MenuButton&>(button(palette, u"Palette Actions"_s));
        actions.click();
        actions.menu()->setActiveAction(actions.menu()->actions().first());
        showMenu(palette, *actions.menu(),
                 actions.mapTo(&palette, QPoint(actions.width() - actions.menu()->sizeHint().width(),
                                                actions.height() + 4)));
    });
    shootState(u"rename"_s, u"Brand"_s, manyColors(4), [](DemoPalette& palette) {
        openRenameCollectionOverlay(palette, palette.state(), palette.state().collections().first());
    });
    shootState(u"menu"_s, u"Brand"_s, manyColors(4), [](DemoPalette& palette) {
        MenuButton& button = palette.row(0).copyButton();
        hover(palette.row(0));
        button.click();
        button.menu()->setActiveAction(button.menu()->actions().at(2));
        showMenu(palette, *button.menu(), button.mapTo(&palette, QPoint(0, button.height() + 4)));
    });
}

} // namespace tintwick

#include "shots/PanelShots.h"

#include "ActionPill.h"
#include "AppState.h"
#include "Appearance.h"
#include "Button.h"
#include "CollectionDetailView.h"
#include "CollectionRowCard.h"
#include "ColorDetailRow.h"
#include "ColorSelector.h"
#include "DashboardSwatchView.h"
#include "DashboardView.h"
#include "HistoryDetailView.h"
#include "IconColor.h"
#include "OpenSaveRequests.h"
#include "Overlay.h"
#include "PanelNavigation.h"
#include "PanelView.h"
#include "Preferences.h"
#include "SelectableColor.h"
#include "shots/Scene.h"
#include "shots/Shooting.h"

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

struct Palette
{
    QString name;
    int members;
};

/// The panel with its own state.
class DemoPanel final : public QWidget
{
public:
    DemoPanel(const QList<QColor>& colors, const QList<Palette>& palettes)
        : m_appState([this](std::chrono::milliseconds, std::function<void()> action) {
            m_later = std::move(action);
        })
    {
        fill(m_appState, colors);
        if (m_later) {
            m_later();
        }
        for (const Palette& palette : palettes) {
            const ColorCollection collection = m_appState.createCollection(palette.name);
            for (const CapturedColor& color : m_appState.history().mid(0, palette.members)) {
                m_appState.addColor(color.id, collection.id);
            }
        }
        m_view = new PanelView(m_appState, m_preferences, [](QWidget&) { return new QWidget; });
        m_view->setParent(this);
        setFixedSize(theme::panelSize);
    }

    [[nodiscard]] AppState& state() { return m_appState; }
    [[nodiscard]] PanelView& view() { return *m_view; }
    [[nodiscard]] DashboardView& dashboard() { return m_view->dashboard(); }

private:
    std::function<void()> m_later;
    AppState m_appState;
    Preferences m_preferences;
    PanelView* m_view;
};

/// Ends the time for which the last change is offered for undo.
void letOfferEnd(DemoPanel& panel)
{
    panel.view().findChild<ActionPill*>()->findChild<QTimer*>()->start(0);
    QApplication::processEvents();
}

void select(SelectableColor& view)
{
    view.selector()->takeClick(view.color().id, Qt::ControlModifier);
}

const QList<QColor> fewColors{QColor(0x3B, 0x82, 0xF6), QColor(0xF5, 0x4D, 0x4D), QColor(0x1A, 0xBF, 0x80)};

} // namespace

void shootMainPanel(const QDir& folder)
{
    const auto shootState = [&](const QString& name, const QList<QColor>& colors,
                                const QList<Palette>& palettes,
                                const std::function<void(DemoPanel&)>& arrange = {}) {
        shoot(
            folder, u"panel-"_s + name, [&] { return std::make_unique<DemoPanel>(colors, palettes); },
            [&](QWidget& widget) {
                auto& panel = static_cast<DemoPanel&>(widget);
                panel.view().setSystemScheme(Appearance::of(&panel));
                if (arrange) {
                    arrange(panel);
                }
            });
    };
    const QList<Palette> twoPalettes{{u"Brand"_s, 3}, {u"Website"_s, 1}};

    shootState(u"empty"_s, {}, {});
    shootState(u"few"_s, fewColors, {});
    shootState(u"forty"_s, manyColors(40), twoPalettes);
    shootState(u"translucent"_s, translucentColors(6), {{u"Glass"_s, 6}});
    shootState(u"long-names"_s, manyColors(8),
               {{u"Everything that was ever on the landing page"_s, 8},
                {u"Wörterbuchverlagsgestaltungsrichtlinien"_s, 1},
                {u"Nothing in here yet, but the name is a long one"_s, 0}});
    shootState(u"six-palettes"_s, manyColors(12),
               {{u"Brand"_s, 3},
                {u"Website"_s, 1},
                {u"Icons"_s, 4},
                {u"Print"_s, 0},
                {u"Dark"_s, 7},
                {u"Sea"_s, 2}});
    shootState(u"hover-swatch"_s, manyColors(8), twoPalettes,
               [](DemoPanel& panel) { hover(*panel.dashboard().swatches().at(1)); });
    shootState(u"drop-on-swatch"_s, manyColors(8), twoPalettes,
               [](DemoPanel& panel) { dragOver(*panel.dashboard().swatches().at(1), u"#FFE9A8"_s); });
    shootState(u"hover-card"_s, manyColors(8), twoPalettes,
               [](DemoPanel& panel) { hover(*panel.dashboard().cards().first()); });
    shootState(u"focus-swatch"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.activateWindow();
        panel.dashboard().swatches().at(2)->setFocus(Qt::TabFocusReason);
    });
    shootState(u"focus-card"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.activateWindow();
        panel.dashboard().cards().first()->setFocus(Qt::TabFocusReason);
    });
    shootState(u"saved"_s, manyColors(8), twoPalettes, [](DemoPanel&) {
        Q_EMIT OpenSaveRequests::shared().saved(u"/home/ada/history-palette.css"_s);
    });
    shootState(u"pinned"_s, manyColors(8), twoPalettes,
               [](DemoPanel& panel) { button(panel, u"Keep Open"_s).click(); });
    shootState(u"imported"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.state().importCollection(u"Harbour"_s, {CapturedColor::capture(0x0EA5E9)});
        QApplication::processEvents();
    });
    shootState(u"import-refused"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.view().importFiles({u"/nowhere/harbour.gpl"_s});
        QApplication::processEvents();
    });
    shootState(u"icon-colors"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        AppState& state = panel.state();
        state.setIconColor(state.collections().last().id, u"pink"_s);
        QApplication::processEvents();
        CollectionRowCard& card = *panel.dashboard().cards().last();
        QMenu* menu = makeMenu(card, iconColorMenu(state, card.collection()).children);
        menu->adjustSize();
        menu->setActiveAction(menu->actions().last());
        showMenu(panel, *menu, card.mapTo(&panel, QPoint(60, -30)));
    });
    shootState(u"selected"_s, manyColors(40), twoPalettes, [](DemoPanel& panel) {
        panel.view().setSelectedCollectionId(PanelView::historySelectionId);
        QApplication::processEvents();
        select(*panel.view().findChild<HistoryDetailView*>()->swatches().at(1));
        select(*panel.view().findChild<HistoryDetailView*>()->swatches().at(7));
        select(*panel.view().findChild<HistoryDetailView*>()->swatches().at(8));
        QApplication::processEvents();
    });
    shootState(u"selected-rows"_s, manyColors(8), {{u"Harbour"_s, 8}}, [](DemoPanel& panel) {
        letOfferEnd(panel);
        panel.view().setSelectedCollectionId(panel.state().collections().first().id);
        QApplication::processEvents();
        select(*panel.view().findChild<CollectionDetailView*>()->rows().at(1));
        select(*panel.view().findChild<CollectionDetailView*>()->rows().at(2));
        QApplication::processEvents();
    });
    shootState(u"history"_s, manyColors(40), twoPalettes, [](DemoPanel& panel) {
        panel.view().setSelectedCollectionId(PanelView::historySelectionId);
        QApplication::processEvents();
    });
    shootState(u"contrast-added"_s, manyColors(40), twoPalettes, [](DemoPanel& panel) {
        PanelNavigation::of(&panel.dashboard())->openContrast(CapturedColor::capture(0x3B82F6));
        QApplication::processEvents();
        button(panel, u"Add #4D95FF, passes AAA with 7.06 to 1"_s).click();
        QApplication::processEvents();
    });
    shootState(u"palette"_s, manyColors(8), {{u"Harbour"_s, 6}}, [](DemoPanel& panel) {
        const QStringList names{u"Sail"_s, u"Buoy"_s, u"Kelp"_s, u"Deep Water"_s};
        for (qsizetype i = 0; i < names.size(); ++i) {
            panel.state().renameColor(panel.state().history().at(i).id, names.at(i));
        }
        letOfferEnd(panel);
        panel.view().setSelectedCollectionId(panel.state().collections().first().id);
        QApplication::processEvents();
    });
    // Colours that are nearly those of their grounds.
    const QList<QColor> pale{Qt::white, QColor(0xF5, 0xF5, 0xF7), QColor(0x1F, 0x1F, 0x23),
                             QColor(0x2A, 0x2A, 0x2F), Qt::black};
    shootState(u"pale"_s, pale, {{u"Light & dark"_s, 5}});
    shootState(u"pale-history"_s, pale, {},
               [](DemoPanel& panel) { panel.view().setSelectedCollectionId(PanelView::historySelectionId); });
    shootState(u"pale-palette"_s, pale, {{u"Light & dark"_s, 5}}, [](DemoPanel& panel) {
        panel.view().setSelectedCollectionId(panel.state().collections().first().id);
    });
    shootState(u"recent-scrolled"_s, manyColors(15), twoPalettes, [](DemoPanel& panel) {
        QWidget* row = panel.dashboard().swatches().first()->parentWidget();
        qobject_cast<QScrollArea*>(row->parentWidget()->parentWidget())->horizontalScrollBar()->setValue(187);
    });
    shootState(u"hover-see-all"_s, manyColors(8), twoPalettes,
               [](DemoPanel& panel) { hover(button(panel, u"Recent History, See all"_s)); });
    shootState(u"focus-see-all"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.activateWindow();
        button(panel, u"Recent History, See all"_s).setFocus(Qt::TabFocusReason);
    });
    shootState(u"focus-back"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.activateWindow();
        panel.view().setSelectedCollectionId(panel.state().collections().first().id);
        button(panel, u"Back from Brand"_s).setFocus(Qt::TabFocusReason);
    });
    shootState(u"ghost-palette"_s, manyColors(3), {}, [](DemoPanel& panel) {
        const QUuid ghost = panel.state().createCollection(u"Ghost"_s).id;
        panel.state().addColor(QUuid::createUuid(), ghost);
        letOfferEnd(panel);
    });
    shootState(u"undo"_s, manyColors(8), twoPalettes,
               [](DemoPanel& panel) { panel.state().deleteColor(panel.state().history().first().id); });
    shootState(u"undo-palettes"_s, manyColors(8),
               {{u"Brand"_s, 3}, {u"Website"_s, 1}, {u"Icons"_s, 4}, {u"Print"_s, 0}}, [](DemoPanel& panel) {
                   panel.state().deleteCollection(panel.state().collections().at(1).id);
                   QApplication::processEvents();
               });
    shootState(u"undo-history"_s, manyColors(60), {}, [](DemoPanel& panel) {
        panel.view().setSelectedCollectionId(PanelView::historySelectionId);
        panel.state().deleteColor(panel.state().history().at(3).id);
    });
    shootState(u"undo-cleared"_s, manyColors(60), {}, [](DemoPanel& panel) {
        panel.view().setSelectedCollectionId(PanelView::historySelectionId);
        panel.state().clearHistory();
    });
    shootState(u"undo-row"_s, manyColors(12), {{u"Brand"_s, 12}}, [](DemoPanel& panel) {
        panel.view().setSelectedCollectionId(panel.state().collections().first().id);
        QApplication::processEvents();
        ColorDetailRow& row = *panel.findChildren<ColorDetailRow*>().at(2);
        hover(row);
        row.removeButton().click();
    });
    shootState(u"undo-long-name"_s, manyColors(8),
               {{u"Everything that was ever on the landing page of the shop"_s, 3}}, [](DemoPanel& panel) {
                   panel.state().deleteCollection(panel.state().collections().first().id);
               });
    shootState(u"undo-focus"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.activateWindow();
        panel.state().deleteColor(panel.state().history().first().id);
        button(panel, u"Undo"_s).setFocus(Qt::TabFocusReason);
    });
    shootState(u"undone"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.state().deleteColor(panel.state().history().first().id);
        panel.state().undo();
        QApplication::processEvents();
    });
    shootState(u"kept"_s, manyColors(102), {{u"Brand"_s, 4}}, [](DemoPanel& panel) {
        for (int i = 0; i < 100; ++i) {
            panel.state().addToHistory(CapturedColor::capture(0x88AA99));
        }
        panel.view().setSelectedCollectionId(panel.state().collections().first().id);
    });
    shootState(u"copied"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.state().showCopyFeedback(ColorFormat::Hex6, panel.state().history().first());
    });
    shootState(u"notice"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.view().showNotice(u"No color can be picked now: another program holds the pointer."_s);
    });
    shootState(u"notice-disk"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        // A folder in the place of the data file prevents saving.
        const QString file = panel.state().dataFolder() + u"/data.json"_s;
        panel.state().flush();
        QFile::remove(file);
        QDir().mkpath(file);
        panel.state().clearHistory();
        panel.state().flush();
        QDir().rmdir(file);
    });
    shootState(u"overlay-empty"_s, manyColors(8), twoPalettes,
               [](DemoPanel& panel) { panel.dashboard().openNewPaletteOverlay(); });
    shootState(u"overlay"_s, manyColors(8), twoPalettes, [](DemoPanel& panel) {
        panel.dashboard().openNewPaletteOverlay();
        panel.findChild<QLineEdit*>()->setText(u"Harbour"_s);
    });
}

} // namespace tintwick

#pragma once

#include "Bound.h"
#include "CapturedColor.h"
#include "ColorCollection.h"
#include "RecordViews.h"
#include "Stack.h"
#include "View.h"
#include "WantedPick.h"

#include <QPointer>
#include <QString>

namespace tintwick {

class AppState;
class CollectionRowCard;
class DashboardSwatchView;
class Overlay;

/// The first screen: the pick button, the recent colours and the collections.
class DashboardView final : public View
{
    Q_OBJECT

public:
    /// `panel` contains the view and is what overlays cover.
    DashboardView(AppState& appState, QWidget& panel);

    [[nodiscard]] const QList<DashboardSwatchView*>& swatches() const { return m_swatches.views(); }
    [[nodiscard]] const QList<CollectionRowCard*>& cards() const { return m_cards.views(); }

    /// Starts with the name that was typed before a cancel.
    void openNewPaletteOverlay();

Q_SIGNALS:
    void pickRequested(const tintwick::WantedPick& pick);
    /// "See all" was clicked.
    void historySelected();
    void collectionSelected(const QUuid& id);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    [[nodiscard]] QWidget* eyedropperButton();
    [[nodiscard]] QWidget* recentHeader();
    [[nodiscard]] QWidget* recentRow();
    [[nodiscard]] QWidget* sectionLabel(const QString& title);
    [[nodiscard]] QWidget* collectionsSection();
    [[nodiscard]] QWidget* createFirstPaletteButton();
    [[nodiscard]] QWidget* addPaletteRow();

    [[nodiscard]] Bound<bool> historyIsNotEmpty() const;
    [[nodiscard]] Bound<bool> hasCollections() const;

    void showHistory();
    void showCollections();
    /// Sets the tab order: top to bottom.
    void orderFocus() const;
    void createCollection();

    AppState& m_appState;
    QWidget& m_panel;
    QString m_newCollectionName;
    QPointer<Overlay> m_newPaletteOverlay;

    QWidget* m_pick = nullptr;
    QWidget* m_seeAll = nullptr;
    QWidget* m_createFirst = nullptr;
    QWidget* m_add = nullptr;
    Stack* m_recentRow;
    Stack* m_cardList;
    RecordViews<DashboardSwatchView, CapturedColor, Stack> m_swatches;
    RecordViews<CollectionRowCard, ColorCollection, Stack> m_cards;
};

} // namespace tintwick

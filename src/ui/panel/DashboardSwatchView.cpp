#include "DashboardSwatchView.h"

#include "AppState.h"
#include "ColorActions.h"

namespace tintwick {

namespace {

constexpr SwatchLook::State look{.border = theme::colorEdge,
                                 .borderWidth = theme::colorEdgeWidth,
                                 .shadow = {.opacity = 0.4, .radius = 6, .drop = 3},
                                 .label = theme::textSecond};

constexpr SwatchLook dashboardLook{.side = 62,
                                   .sideRoom = 0,
                                   .cornerRadius = 14,
                                   .labelGap = 6,
                                   .showsChecks = false,
                                   .atRest = look,
                                   .hovered = look,
                                   .hoverScale = 1.05,
                                   .hoverVeil = theme::black.opacity(0.18),
                                   .symbolSize = 14,
                                   .symbolShadow = theme::clear,
                                   .hover = Spring(0.2, 0.7)};

} // namespace

DashboardSwatchView::DashboardSwatchView(AppState& appState)
    : SwatchView(appState, dashboardLook)
{
}

QList<MenuEntry> DashboardSwatchView::contextMenu() const
{
    QList<MenuEntry> entries{copyAsMenu(appState(), color())};
    if (!appState().collections().isEmpty()) {
        entries << menuSeparator() << addToCollectionMenu(appState(), color(), tr("Add to Palette…"));
    }
    entries << screenEntries(*this, color());
    return entries << menuSeparator() << deleteColorEntry(appState(), color());
}

} // namespace tintwick

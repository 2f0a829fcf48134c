#include "ColorSwatchView.h"

#include "AppState.h"
#include "ColorActions.h"
#include "RenameColorOverlay.h"

namespace tintwick {

namespace {

SwatchLook lookOfSize(int size)
{
    return {.side = size,
            .sideRoom = 3,
            .cornerRadius = 7,
            .labelGap = 4,
            .showsChecks = true,
            .atRest = {.border = theme::colorEdge,
                       .borderWidth = theme::colorEdgeWidth,
                       .shadow = {.opacity = 0.2, .radius = 3, .drop = 1},
                       .label = theme::textSecond},
            .hovered = {.border = theme::white.opacity(0.7),
                        .borderWidth = 1.5,
                        .shadow = {.opacity = 0.5, .radius = 8, .drop = 3},
                        .label = theme::textPrimary},
            .hoverScale = 1.06,
            .hoverVeil = theme::black.opacity(0.25),
            .symbolSize = 12,
            .symbolShadow = theme::black.opacity(0.5),
            .hover = Spring(0.18, 0.75)};
}

} // namespace

ColorSwatchView::ColorSwatchView(AppState& appState, int size, QWidget& panel)
    : SwatchView(appState, lookOfSize(size))
    , m_panel(panel)
{
}

QList<MenuEntry> ColorSwatchView::contextMenu() const
{
    QList<MenuEntry> entries{copyAsMenu(appState(), color()), menuSeparator()};
    if (!appState().collections().isEmpty()) {
        entries << addToCollectionMenu(appState(), color(), tr("Add to Collection"));
    }
    entries << menuAction(tr("Rename…"), [&panel = m_panel, &state = appState(), color = color()] {
        openRenameColorOverlay(panel, state, color);
    });
    entries << screenEntries(*this, color());
    return entries << menuSeparator() << deleteColorEntry(appState(), color());
}

} // namespace tintwick

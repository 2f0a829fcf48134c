#include "SwatchGrid.h"

#include "ScrollArea.h"
#include "Stack.h"

namespace tintwick {

namespace {

constexpr int swatchSize = 48;
constexpr GridShape gridShape{.columns = 5, .columnGap = 8, .rowGap = 10, .padding = 14};

} // namespace

SwatchGrid::SwatchGrid(AppState& appState, QWidget& panel)
    : m_appState(appState)
    , m_grid(new Grid(gridShape))
    , m_swatches(
          *m_grid,
          [this, &panel] {
              auto* swatch = new ColorSwatchView(m_appState, swatchSize, panel);
              connect(swatch, &ColorSwatchView::stepRequested, this,
                      [this, swatch](int columns, int rows) { moveFocus(*swatch, columns, rows); });
              if (m_selector != nullptr) {
                  swatch->setSelector(*m_selector);
              }
              return swatch;
          },
          [](ColorSwatchView& swatch, const CapturedColor& color, qsizetype) { swatch.setColor(color); })
{
    setContent(verticalScroll(column(m_grid)));
}

void SwatchGrid::setColors(const QList<CapturedColor>& colors)
{
    m_swatches.show(colors);
}

void SwatchGrid::putInTabOrderAfter(QWidget* control) const
{
    for (QWidget* swatch : swatches()) {
        setTabOrder(control, swatch);
        control = swatch;
    }
}

void SwatchGrid::moveFocus(const ColorSwatchView& from, int columns, int rows)
{
    if (rows < 0 && swatches().indexOf(&from) < gridShape.columns) {
        Q_EMIT leftAbove();
    } else {
        m_swatches.moveFocus(from, columns + rows * gridShape.columns);
    }
}

} // namespace tintwick

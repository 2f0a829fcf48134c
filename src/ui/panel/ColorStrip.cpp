#include "ColorStrip.h"

#include "Accessibility.h"
#include "AppState.h"
#include "KeyInRow.h"
#include "ScrollArea.h"
#include "StripSwatch.h"
#include "Theme.h"

#include <QKeyEvent>
#include <QSet>

#include <utility>

namespace tintwick {

namespace {

constexpr int dividerHeight = 20;

CapturedColor named(std::uint32_t rgb, const QString& name)
{
    CapturedColor color = CapturedColor::capture(rgb);
    color.customName = name;
    return color;
}

/// The history, and then the palettes. Each code once, and none of those that the strip has already.
QList<CapturedColor> storedColors(const AppState& state, QSet<QString> codes)
{
    QList<CapturedColor> colors = state.history();
    for (const ColorCollection& collection : state.collections()) {
        colors += state.colorsOf(collection);
    }
    colors.removeIf([&codes](const CapturedColor& color) {
        const QString code = color.hex8();
        const bool isKnown = codes.contains(code);
        codes.insert(code);
        return isKnown;
    });
    return colors;
}

} // namespace

ColorStrip::ColorStrip(AppState& appState, std::function<void(const CapturedColor&)> choose)
    : m_appState(appState)
    , m_choose(std::move(choose))
    , m_others(row(gap(2)))
    , m_swatches(
          *m_others, [this] { return makeSwatch(); },
          [](StripSwatch& swatch, const CapturedColor& color, qsizetype) { swatch.setColor(color); })
{
    describeToScreenReaders<ColorStrip>(QAccessible::List);
    for (const CapturedColor& color : {named(0xFFFFFF, tr("White")), named(0x000000, tr("Black"))}) {
        m_extremes.append(makeSwatch());
        m_extremes.last()->setColor(color);
    }
    setContent(horizontalScroll(row(gap(6), row(gap(2), m_extremes.first(), m_extremes.last()),
                                    row(fixedSize(1, dividerHeight), ground(theme::border)), m_others)));
    connect(&m_appState, &AppState::historyChanged, this, &ColorStrip::showColors);
    connect(&m_appState, &AppState::collectionsChanged, this, &ColorStrip::showColors);
    showColors();
}

StripSwatch* ColorStrip::makeSwatch()
{
    auto* swatch = new StripSwatch;
    swatch->installEventFilter(this);
    swatch->onClick([this, swatch] { m_choose(swatch->color()); });
    return swatch;
}

QList<StripSwatch*> ColorStrip::swatches() const
{
    return m_extremes + m_swatches.views();
}

void ColorStrip::showColors()
{
    QSet<QString> codes;
    for (const StripSwatch* swatch : std::as_const(m_extremes)) {
        codes.insert(swatch->color().hex8());
    }
    m_swatches.show(storedColors(m_appState, codes));
    updateMarks();
}

void ColorStrip::mark(const CapturedColor& color)
{
    m_markedCode = color.hex8();
    updateMarks();
}

void ColorStrip::updateMarks()
{
    StripSwatch* marked = nullptr;
    for (StripSwatch* swatch : swatches()) {
        const bool isMarked = marked == nullptr && swatch->color().hex8() == m_markedCode;
        swatch->setMarked(isMarked);
        marked = isMarked ? swatch : marked;
    }
    setCurrent(marked != nullptr ? *marked : *m_extremes.first());
}

void ColorStrip::setCurrent(StripSwatch& swatch)
{
    for (StripSwatch* each : swatches()) {
        each->setFocusPolicy(each == &swatch ? Qt::TabFocus : Qt::NoFocus);
    }
}

bool ColorStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return View::eventFilter(watched, event);
    }
    const QList<StripSwatch*> all = swatches();
    const qsizetype from = all.indexOf(static_cast<StripSwatch*>(watched));
    const auto to = positionAfterKey(static_cast<QKeyEvent*>(event)->key(), from, all.size());
    if (!to) {
        return View::eventFilter(watched, event);
    }
    setCurrent(*all[*to]);
    all[*to]->setFocus(Qt::TabFocusReason);
    return true;
}

} // namespace tintwick

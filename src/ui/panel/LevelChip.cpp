#include "LevelChip.h"

#include "Accessibility.h"
#include "Appearance.h"
#include "ColorContrast.h"
#include "ContrastTexts.h"
#include "Paint.h"
#include "Symbol.h"
#include "Theme.h"

#include <QFontMetricsF>
#include <QPainter>

namespace tintwick {

namespace {

// In points.
constexpr int chipHeight = 22;
constexpr double radius = 7;
constexpr double padding = 7;
constexpr double gap = 4;
constexpr int signSize = 9;

QFont textFont()
{
    return theme::font(11, QFont::DemiBold);
}

} // namespace

LevelChip::LevelChip(ContrastUse use, ContrastLevel level)
    : m_use(use)
    , m_level(level)
{
    describeToScreenReaders<LevelChip>(QAccessible::StaticText);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setToolTip(tr("At least %1").arg(limitText(requiredRatio(use, level).value_or(1))));
}

void LevelChip::setContrast(const ColorContrast& contrast)
{
    m_passes = contrast.passes(m_use, m_level);
    setAccessibleName(
        (m_passes ? tr("%1 passes %2") : tr("%1 fails %2")).arg(useName(m_use), levelName(m_level)));
    update();
}

QSize LevelChip::sizeHint() const
{
    const double text = QFontMetricsF(textFont()).horizontalAdvance(levelName(m_level));
    return {qCeil(2 * padding + symbolSide(signSize) + gap + text), chipHeight};
}

void LevelChip::paintEvent(QPaintEvent*)
{
    const Scheme scheme = Appearance::of(this);
    QPainter painter(this);
    fillRounded(painter, rect(), radius, (m_passes ? theme::surface : theme::surfaceHigh).in(scheme));
    if (m_passes) {
        strokeInside(painter, rect(), radius, theme::border.in(scheme), 1);
    }
    const QRectF sign(padding, 0, symbolSide(signSize), rect().height());
    drawSymbol(painter, m_passes ? u"check" : u"close", signSize, SymbolWeight::Semibold,
               (m_passes ? theme::green : theme::textThird).in(scheme), sign);
    painter.setFont(textFont());
    painter.setPen((m_passes ? theme::textPrimary : theme::textThird).in(scheme));
    painter.drawText(QRectF(rect()).adjusted(sign.right() + gap, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     levelName(m_level));
}

} // namespace tintwick

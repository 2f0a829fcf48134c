#include "ColorWell.h"

#include "Appearance.h"
#include "ColorActions.h"
#include "ColorPatch.h"
#include "Paint.h"
#include "Theme.h"

#include <QFontMetrics>
#include <QPainter>

#include <utility>

namespace tintwick {

namespace {

// In points.
constexpr double radius = 12;
constexpr int padding = 8;
constexpr int patchSide = 36;
constexpr double patchRadius = 8;
constexpr int gap = 10;
constexpr theme::Color chosenTint = theme::accent.opacity(0.1);
constexpr theme::Color chosenLine = theme::accentText.opacity(0.5);

QFont partFont()
{
    return theme::font(11);
}

QFont codeFont()
{
    return theme::monospacedFont(13, QFont::DemiBold);
}

} // namespace

ColorWell::ColorWell(QString part, const AppState& appState,
                     std::function<void(const CapturedColor&)> replace)
    : Clickable({})
    , m_part(std::move(part))
    , m_dropTarget(*this, appState, std::move(replace))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    updateNames();
}

void ColorWell::setPart(const QString& part)
{
    m_part = part;
    updateNames();
    update();
}

void ColorWell::setColor(const CapturedColor& color)
{
    m_color = color;
    updateNames();
    update();
}

void ColorWell::setChosen(bool isChosen)
{
    m_isChosen = isChosen;
    updateNames();
    update();
}

void ColorWell::updateNames()
{
    setAccessibleName(QStringLiteral("%1: %2").arg(m_part, spokenName(m_color)));
    setAccessibleDescription(m_isChosen ? tr("The colors at the bottom replace it")
                                        : tr("Lets the colors at the bottom replace it"));
    setToolTip(spokenName(m_color));
}

QSize ColorWell::sizeHint() const
{
    return {2 * padding + patchSide, 2 * padding + patchSide};
}

double ColorWell::cornerRadius() const
{
    return radius;
}

void ColorWell::paintEvent(QPaintEvent*)
{
    const Scheme scheme = Appearance::of(this);
    QPainter painter(this);
    fillRounded(painter, rect(), radius, theme::surface.in(scheme));
    if (m_isChosen) {
        fillRounded(painter, rect(), radius, chosenTint.in(scheme));
    }
    strokeInside(painter, rect(), radius, (m_isChosen ? chosenLine : theme::border).in(scheme), 1);
    const CapturedColor shown = m_dropTarget.dragged().value_or(m_color);
    const QRectF patch(padding, padding, patchSide, patchSide);
    drawColorPatch(painter, patch, patchRadius, paintColor(shown), scheme);
    if (m_dropTarget.dragged()) {
        drawFocusRing(painter, patch, patchRadius, scheme);
    }

    const QFontMetrics part(partFont());
    const QFontMetrics code(codeFont());
    QRect place = rect().adjusted(padding + patchSide + gap, 0, -padding, 0);
    place.setTop((height() - part.height() - code.height()) / 2);
    painter.setFont(partFont());
    painter.setPen((m_isChosen ? theme::accentText : theme::textThird).in(scheme));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                     part.elidedText(m_part, Qt::ElideRight, place.width()));
    place.setTop(place.top() + part.height());
    painter.setFont(codeFont());
    painter.setPen(theme::textPrimary.in(scheme));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                     code.elidedText(codeOf(shown), Qt::ElideRight, place.width()));
    paintStateLayer(painter);
}

} // namespace tintwick

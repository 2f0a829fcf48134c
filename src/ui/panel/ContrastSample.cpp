#include "ContrastSample.h"

#include "Accessibility.h"
#include "Appearance.h"
#include "ColorContrast.h"
#include "ColorPatch.h"
#include "ContrastTexts.h"
#include "Theme.h"

#include <QFontMetrics>
#include <QPainter>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

// In points.
constexpr double cardRadius = 12;
constexpr QMargins cardPadding(14, 10, 14, 12);
constexpr int lineGap = 2;
constexpr int noteGap = 8;
constexpr int wrapped = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

// The sizes at which large text begins and text of the body is usual.
QFont largeFont()
{
    return theme::font(24);
}

QFont bodyFont()
{
    return theme::font(13);
}

QFont lightnessFont()
{
    return theme::font(12, QFont::DemiBold);
}

QFont adviceFont()
{
    return theme::font(11);
}

int heightOf(const QFont& font, int width, const QString& text)
{
    return QFontMetrics(font).boundingRect(0, 0, width, QWIDGETSIZE_MAX, wrapped, text).height();
}

QColor colorOf(const Components& srgb)
{
    return QColor::fromRgbF(static_cast<float>(srgb[0]), static_cast<float>(srgb[1]),
                            static_cast<float>(srgb[2]));
}

QString largeText()
{
    return ContrastSample::tr("Large text");
}

QString bodyText()
{
    return ContrastSample::tr("Body text is read at this size, line by line.");
}

} // namespace

ContrastSample::ContrastSample(int width)
{
    describeToScreenReaders<ContrastSample>(QAccessible::StaticText);
    setFixedWidth(width);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ContrastSample::setContrast(const ColorContrast& contrast)
{
    m_text = colorOf(contrast.seenText());
    m_ground = colorOf(contrast.seenGround());
    m_lightness = lightnessText(contrast.lightness());
    m_advice = lightnessAdvice(contrast.lightness());
    setAccessibleName(tr("%1 on %2: %3. %4")
                          .arg(m_text.name().toUpper(), m_ground.name().toUpper(), m_lightness, m_advice));
    updateGeometry();
    update();
}

QRect ContrastSample::card() const
{
    const int inside = width() - cardPadding.left() - cardPadding.right();
    const int height =
        QFontMetrics(largeFont()).height() + lineGap + heightOf(bodyFont(), inside, bodyText());
    return {0, 0, width(), height + cardPadding.top() + cardPadding.bottom()};
}

QSize ContrastSample::sizeHint() const
{
    // Room for two lines, so that what is below does not move when the colours change.
    const int advice =
        std::max(2 * QFontMetrics(adviceFont()).height(), heightOf(adviceFont(), width(), m_advice));
    return {width(), card().height() + noteGap + QFontMetrics(lightnessFont()).height() + advice};
}

void ContrastSample::paintEvent(QPaintEvent*)
{
    const Scheme scheme = Appearance::of(this);
    QPainter painter(this);
    drawColorPatch(painter, card(), cardRadius, m_ground, scheme);

    QRect place = card().marginsRemoved(cardPadding);
    painter.setPen(m_text);
    painter.setFont(largeFont());
    const QFontMetrics large(largeFont());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                     large.elidedText(largeText(), Qt::ElideRight, place.width()));
    place.setTop(place.top() + large.height() + lineGap);
    painter.setFont(bodyFont());
    painter.drawText(place, wrapped, bodyText());

    place = rect().adjusted(0, card().height() + noteGap, 0, 0);
    painter.setPen(theme::textPrimary.in(scheme));
    painter.setFont(lightnessFont());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, m_lightness);
    painter.setPen(theme::textThird.in(scheme));
    painter.setFont(adviceFont());
    painter.drawText(QRect(place.topLeft(), QSize(place.width(), QFontMetrics(lightnessFont()).height())),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, u"APCA"_s);
    place.setTop(place.top() + QFontMetrics(lightnessFont()).height());
    painter.setPen(theme::textSecond.in(scheme));
    painter.drawText(place, wrapped, m_advice);
}

} // namespace tintwick

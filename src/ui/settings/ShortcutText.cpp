#include "ShortcutText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <QRectF>

#include <algorithm>

namespace tintwick {

namespace {

constexpr QChar keycap(0x20E3);

constexpr double frameSide = 16;
constexpr double frameMargin = 3;
constexpr double keycapRadius = 4;
constexpr double frameGap = 2;

struct Parts
{
    /// The text before the framed key; the whole text when no key is framed.
    QString plain;
    QString framed;
};

Parts partsOf(const QString& text)
{
    const bool isFramed = text.size() > 1 && text.back() == keycap;
    if (!isFramed) {
        return {text, {}};
    }
    return {text.chopped(2), text.sliced(text.size() - 2, 1)};
}

double widthOf(const QString& text, const QFont& font)
{
    return QFontMetricsF(font).horizontalAdvance(text);
}

double frameWidth(const Parts& parts, const QFont& font)
{
    return std::max(frameSide, widthOf(parts.framed, font) + 2 * frameMargin);
}

} // namespace

double widthOfShortcut(const QString& text, const QFont& font)
{
    const Parts parts = partsOf(text);
    const double plain = widthOf(parts.plain, font);
    if (parts.framed.isEmpty()) {
        return plain;
    }
    return plain + (parts.plain.isEmpty() ? 0 : frameGap) + frameWidth(parts, font);
}

void drawShortcut(QPainter& painter, const QRectF& place, const QString& text, const QFont& font)
{
    painter.setFont(font);
    const Parts parts = partsOf(text);
    if (parts.framed.isEmpty()) {
        painter.drawText(place, Qt::AlignCenter, text);
        return;
    }
    const double width = widthOfShortcut(text, font);
    const double left = place.center().x() - width / 2;
    painter.drawText(QRectF(left, place.top(), width, place.height()), Qt::AlignLeft | Qt::AlignVCenter,
                     parts.plain);

    const double side = frameWidth(parts, font);
    const QRectF frame(left + width - side, place.center().y() - frameSide / 2, side, frameSide);
    painter.drawText(frame, Qt::AlignCenter, parts.framed);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), keycapRadius, keycapRadius);
}

} // namespace tintwick

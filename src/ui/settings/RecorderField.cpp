#include "RecorderField.h"

#include "Paint.h"
#include "ShortcutText.h"
#include "Theme.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

constexpr double cornerRadius = 7;
constexpr double borderOpacity = 0.6;
constexpr double recordingTint = 0.2;
constexpr double recordingRing = 2;

constexpr int fontSize = 13;
constexpr int smallestFontSize = 10;
constexpr int leastMargin = 6;

/// A long text is drawn smaller, and cut if it is still too long.
void drawText(QPainter& painter, const RecorderField& field, const QRect& place)
{
    if (widthOfShortcut(field.text, theme::font(fontSize)) <= place.width() - 2 * field.endMargin) {
        drawShortcut(painter, place, field.text, theme::font(fontSize));
        return;
    }
    const QRect room = place.adjusted(leastMargin, 0, -std::max(leastMargin, field.endMargin), 0);
    int size = fontSize;
    while (size > smallestFontSize && widthOfShortcut(field.text, theme::font(size)) > room.width()) {
        --size;
    }
    const QFont font = theme::font(size);
    const bool fits = widthOfShortcut(field.text, font) <= room.width();
    drawShortcut(painter, room,
                 fits ? field.text : QFontMetrics(font).elidedText(field.text, Qt::ElideMiddle, room.width()),
                 font);
}

} // namespace

int RecorderField::widthOf(const QString& text)
{
    return static_cast<int>(std::ceil(widthOfShortcut(text, theme::font(fontSize))));
}

void RecorderField::paint(QPainter& painter, const QRect& place, Scheme scheme) const
{
    fillRounded(painter, place, cornerRadius, theme::field.in(scheme));
    if (isRecording) {
        fillRounded(painter, place, cornerRadius, theme::accent.opacity(recordingTint).in(scheme));
        strokeInside(painter, place, cornerRadius, theme::focusRing.in(scheme), recordingRing);
    } else {
        strokeInside(painter, place, cornerRadius, theme::textThird.opacity(borderOpacity).in(scheme), 1);
        if (hasFocusRing) {
            drawFocusRing(painter, place, cornerRadius, scheme);
        }
    }
    painter.setPen((isCurrent ? theme::textPrimary : theme::textSecond).in(scheme));
    drawText(painter, *this, place);
}

} // namespace tintwick

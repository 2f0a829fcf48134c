#include "TextField.h"

#include "Appearance.h"
#include "KitStyle.h"
#include "Paint.h"
#include "Theme.h"

#include <QPainter>
#include <QPalette>

namespace tintwick {

namespace {

constexpr double cornerRadius = 7;
constexpr int horizontalPadding = 6;
constexpr double borderOpacity = 0.6;
constexpr int fieldHeight = 30;

} // namespace

TextField::TextField(const QString& placeholder, const QString& text)
    : QLineEdit(text)
{
    setStyle(KitStyle::shared());
    setFrame(false);
    setFont(theme::font(13));
    setTextMargins(horizontalPadding, 0, horizontalPadding, 0);
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // `paintEvent()` paints a rounded ground instead.
    QPalette ground;
    ground.setColor(QPalette::Base, Qt::transparent);
    setPalette(ground);
}

QSize TextField::sizeHint() const
{
    return {QLineEdit::sizeHint().width(), fieldHeight};
}

void TextField::paintEvent(QPaintEvent* event)
{
    if (m_isFrameShown) {
        paintFrame();
    }
    QLineEdit::paintEvent(event);
}

void TextField::paintFrame()
{
    QPainter painter(this);
    const Scheme scheme = Appearance::of(this);
    fillRounded(painter, rect(), cornerRadius, theme::field.in(scheme));
    if (m_isRefused) {
        strokeInside(painter, rect(), cornerRadius, theme::red.in(scheme), 2);
    } else if (hasFocus()) {
        strokeInside(painter, rect(), cornerRadius, theme::focusRing.in(scheme), 2);
    } else {
        strokeInside(painter, rect(), cornerRadius, theme::textThird.opacity(borderOpacity).in(scheme), 1);
    }
}

void TextField::setFrameShown(bool shown)
{
    m_isFrameShown = shown;
    update();
}

void TextField::setRefused(bool refused)
{
    m_isRefused = refused;
    update();
}

} // namespace tintwick

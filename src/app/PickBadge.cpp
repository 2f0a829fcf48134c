#include "PickBadge.h"

#include "AppState.h"
#include "Paint.h"
#include "Picker.h"
#include "PointerBadge.h"
#include "Shadow.h"
#include "Symbol.h"
#include "Theme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

// Lengths in points.
constexpr Shadow shadow{theme::black.opacity(0.3), 8, QPointF(0, 2)};
constexpr double dialSide = 34;
constexpr double dialWidth = 3;
constexpr double dialInset = 4;
constexpr double pillHeight = 26;
constexpr double padding = 11;
constexpr double gap = 5;
constexpr double symbolSize = 12;

constexpr int fullCircle = 360 * 16; // in sixteenths of a degree
constexpr int topOfCircle = 90 * 16;

/// A picture with a rounded ground of `size` points and its shadow, on which `paint` paints.
template <typename Paint>
QImage onGround(QSizeF size, Scheme scheme, double scale, Paint paint)
{
    const QMargins room = shadow.extents();
    const QSizeF whole = size.grownBy(QMarginsF(room));
    QImage picture((whole * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ground(QPointF(room.left(), room.top()), size);
    const double radius = size.height() / 2;
    drawShadow(painter, ground, radius, shadow, scheme);
    fillRounded(painter, ground, radius, theme::surface.in(scheme));
    strokeInside(painter, ground, radius, theme::border.in(scheme), 1);
    paint(painter, ground);
    painter.end();
    picture.setDevicePixelRatio(1);
    return picture;
}

} // namespace

PickBadge::PickBadge(PointerBadge* badge, QObject* parent)
    : QObject(parent)
    , m_badge(badge)
{
    m_end.setSingleShot(true);
    connect(&m_end, &QTimer::timeout, this, &PickBadge::hide);
}

PickBadge::~PickBadge()
{
    hide();
}

void PickBadge::follow(const Picker& picker)
{
    connect(&picker, &Picker::isWaiting, this, &PickBadge::showSentence);
    connect(&picker, &Picker::begun, this, &PickBadge::hide);
    connect(&picker, &Picker::ended, this, [this] {
        // What was copied may be shown already.
        if (!m_end.isActive()) {
            hide();
        }
    });
}

void PickBadge::showCountdown(int left, int total)
{
    m_end.stop();
    if (m_badge) {
        m_badge->show(
            [=, scheme = m_scheme](double scale) { return countdownPicture(left, total, scheme, scale); },
            PointerBadge::Place::FollowsPointer);
    }
}

void PickBadge::showSentence(const QString& sentence)
{
    m_end.stop();
    if (m_badge) {
        m_badge->show(
            [=, scheme = m_scheme](double scale) { return textPicture(sentence, {}, scheme, scale); },
            PointerBadge::Place::FollowsPointer);
    }
}

void PickBadge::showCopied()
{
    if (m_badge) {
        m_badge->show([text = tr("Copied!"), scheme = m_scheme](
                          double scale) { return textPicture(text, u"check-circle"_s, scheme, scale); },
                      PointerBadge::Place::Fixed);
        m_end.start(AppState::feedbackDuration);
    }
}

void PickBadge::hide()
{
    m_end.stop();
    if (m_badge) {
        m_badge->hide();
    }
}

QImage PickBadge::countdownPicture(int left, int total, Scheme scheme, double scale)
{
    return onGround({dialSide, dialSide}, scheme, scale, [&](QPainter& painter, const QRectF& ground) {
        const QRectF dial = ground.adjusted(dialInset, dialInset, -dialInset, -dialInset);
        painter.setPen(QPen(theme::surfaceHigh.in(scheme), dialWidth));
        painter.drawEllipse(dial);
        painter.setPen(QPen(theme::accentText.in(scheme), dialWidth, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(dial, topOfCircle, -fullCircle * left / total);
        painter.setFont(theme::font(14, QFont::DemiBold));
        painter.setPen(theme::textPrimary.in(scheme));
        painter.drawText(ground, Qt::AlignCenter, QString::number(left));
    });
}

QImage PickBadge::textPicture(const QString& text, const QString& symbol, Scheme scheme, double scale)
{
    const QFont font = theme::font(12, QFont::Medium);
    const double mark = symbol.isEmpty() ? 0 : symbolSide(symbolSize) + gap;
    const double width = 2 * padding + mark + std::ceil(QFontMetricsF(font).horizontalAdvance(text));
    return onGround({width, pillHeight}, scheme, scale, [&](QPainter& painter, const QRectF& ground) {
        const QRectF inside = ground.adjusted(padding, 0, -padding, 0);
        if (!symbol.isEmpty()) {
            drawSymbol(painter, symbol, symbolSize, SymbolWeight::Regular, theme::green.in(scheme),
                       QRectF(inside.topLeft(), QSizeF(symbolSide(symbolSize), inside.height())));
        }
        painter.setFont(font);
        painter.setPen(theme::textPrimary.in(scheme));
        painter.drawText(inside.adjusted(mark, 0, 1, 0), Qt::AlignLeading | Qt::AlignVCenter, text);
    });
}

} // namespace tintwick

#include "Switch.h"

#include "Appearance.h"
#include "Paint.h"
#include "Shadow.h"
#include "Theme.h"

#include <QPainter>

#include <utility>

namespace tintwick {

namespace {

constexpr QSize trackSize{38, 22};
constexpr double trackRadius = 11;
/// Points between the edge of the track and the thumb.
constexpr double inset = 2;
constexpr double thumbSide = 18;
constexpr double response = 0.28;
constexpr double damping = 0.9;
constexpr Shadow thumbShadow{theme::black.opacity(0.16), 3, QPointF(0, 1)};

} // namespace

Switch::Switch(const QString& name, bool isOn)
    : Clickable(name)
    , m_thumb(response, damping, isOn ? 1 : 0)
    , m_animator([this](double seconds) {
        const bool isMoving = m_thumb.advance(seconds);
        update();
        return isMoving;
    })
{
    setCheckable(true);
    setChecked(isOn);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::toggled, this, [this](bool isNowOn) {
        m_thumb.setTarget(isNowOn ? 1 : 0);
        m_animator.start();
    });
    onClick([this] {
        if (m_onSwitch && !m_onSwitch(isChecked())) {
            setChecked(!isChecked());
        }
    });
}

void Switch::onSwitch(std::function<bool(bool)> action)
{
    m_onSwitch = std::move(action);
}

QSize Switch::sizeHint() const
{
    return trackSize;
}

double Switch::cornerRadius() const
{
    return trackRadius;
}

void Switch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Scheme scheme = Appearance::of(this);
    fillRounded(painter, rect(), trackRadius, theme::surfaceHigh.in(scheme));
    strokeInside(painter, rect(), trackRadius, theme::border.in(scheme), 1);
    fillRounded(painter, rect(), trackRadius, theme::accent.opacity(m_thumb.fraction()).in(scheme));
    const double way = width() - 2 * inset - thumbSide;
    const QRectF thumb(inset + way * m_thumb.fraction(), inset, thumbSide, thumbSide);
    drawShadow(painter, thumb, thumbSide / 2, thumbShadow, scheme);
    fillRounded(painter, thumb, thumbSide / 2, (isChecked() ? theme::white : theme::thumb).in(scheme));
    paintStateLayer(painter);
}

} // namespace tintwick

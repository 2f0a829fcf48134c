#include "FadeThrough.h"

#include "Animator.h"
#include "EaseInOut.h"

#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

constexpr double duration = 0.18;

/// Covers a widget with pictures that fade out, and deletes itself.
class FadingPicture final : public QWidget
{
public:
    FadingPicture(QWidget& parent, QPixmap before, QPixmap ground)
        : QWidget(&parent)
        , m_before(std::move(before))
        , m_ground(std::move(ground))
        , m_presence(duration, 1)
        , m_animator([this](double seconds) {
            const bool isMoving = m_presence.advance(seconds);
            update();
            if (!isMoving) {
                hide();
                deleteLater();
            }
            return isMoving;
        })
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(parent.rect());
        show();
        m_presence.setTarget(0);
        m_animator.start();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        // In the first half the picture fades out on the ground, in the second half the ground on what is below.
        QPainter painter(this);
        painter.setOpacity(std::min(1.0, 2 * m_presence.position()));
        painter.drawPixmap(0, 0, m_ground);
        painter.setOpacity(std::max(0.0, 2 * m_presence.position() - 1));
        painter.drawPixmap(0, 0, m_before);
    }

private:
    QPixmap m_before;
    QPixmap m_ground;
    EaseInOut m_presence;
    Animator m_animator;
};

QPixmap groundBelow(QWidget& ground, const QRect& place)
{
    QPixmap picture(place.size() * ground.devicePixelRatioF());
    picture.setDevicePixelRatio(ground.devicePixelRatioF());
    picture.fill(Qt::transparent);
    ground.render(&picture, {}, place, QWidget::DrawWindowBackground);
    return picture;
}

} // namespace

void fadeThrough(QWidget& ground, const QList<QWidget*>& parts, const std::function<void()>& change)
{
    if (!ground.isVisible()) {
        change();
        return;
    }
    QList<QPixmap> before;
    for (const QWidget* part : parts) {
        before.append(ground.grab({part->mapTo(&ground, QPoint(0, 0)), part->size()}));
    }
    change();
    for (qsizetype i = 0; i < parts.size(); ++i) {
        QWidget& part = *parts[i];
        new FadingPicture(part, before[i],
                          groundBelow(ground, {part.mapTo(&ground, QPoint(0, 0)), part.size()}));
    }
}

} // namespace tintwick

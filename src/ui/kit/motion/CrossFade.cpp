#include "CrossFade.h"

#include "Animator.h"
#include "EaseInOut.h"

#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <utility>

namespace tintwick {

namespace {

constexpr double duration = 0.18;

/// A picture over a widget that fades out and deletes itself.
class FadingPicture final : public QWidget
{
public:
    FadingPicture(QWidget& parent, QPixmap picture)
        : QWidget(&parent)
        , m_picture(std::move(picture))
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
        QPainter painter(this);
        painter.setOpacity(m_presence.position());
        painter.drawPixmap(0, 0, m_picture);
    }

private:
    QPixmap m_picture;
    EaseInOut m_presence;
    Animator m_animator;
};

} // namespace

void crossFade(QWidget& widget, const std::function<void()>& change)
{
    if (!widget.isVisible()) {
        change();
        return;
    }
    const QPixmap before = widget.parentWidget()->window()->grab(
        QRect(widget.mapTo(widget.window(), QPoint(0, 0)), widget.size()));
    change();
    new FadingPicture(widget, before);
}

} // namespace tintwick

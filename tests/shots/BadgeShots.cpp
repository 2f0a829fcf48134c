#include "shots/BadgeShots.h"

#include "Appearance.h"
#include "Paint.h"
#include "PickBadge.h"
#include "Theme.h"
#include "shots/Shooting.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

#include <functional>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

using Draw = std::function<QImage(Scheme scheme, double scale)>;

/// The picture on the ground of the scheme.
class DemoBadge final : public QWidget
{
public:
    explicit DemoBadge(Draw draw)
        : m_draw(std::move(draw))
    {
        setFixedSize(m_draw(Scheme::Light, 1).size());
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Scheme scheme = Appearance::of(this);
        QPainter painter(this);
        painter.fillRect(rect(), theme::bg.in(scheme));
        painter.drawImage(rect(), m_draw(scheme, devicePixelRatioOf(painter)));
    }

private:
    Draw m_draw;
};

} // namespace

void shootBadges(const QDir& folder)
{
    const auto shootBadge = [&](const QString& name, const Draw& draw) {
        shoot(folder, u"badge-"_s + name, [&] { return std::make_unique<DemoBadge>(draw); });
    };
    for (const int left : {3, 2, 1}) {
        shootBadge(u"countdown-%1"_s.arg(left), [left](Scheme scheme, double scale) {
            return PickBadge::countdownPicture(left, 3, scheme, scale);
        });
    }
    shootBadge(u"copied"_s, [](Scheme scheme, double scale) {
        return PickBadge::textPicture(u"Copied!"_s, u"check-circle"_s, scheme, scale);
    });
    shootBadge(u"waiting"_s, [](Scheme scheme, double scale) {
        return PickBadge::textPicture(u"The pick begins when the open menu closes"_s, {}, scheme, scale);
    });
}

} // namespace tintwick

#include "shots/LoupeShots.h"

#include "Appearance.h"
#include "LoupeGeometry.h"
#include "LoupeRenderer.h"
#include "Paint.h"
#include "Theme.h"
#include "shots/Shooting.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int cells = 15;

/// A gradient around `middle`.
QImage pixelsAround(const QColor& middle)
{
    QImage pixels(cells, cells, QImage::Format_RGB32);
    for (int y = 0; y < cells; ++y) {
        for (int x = 0; x < cells; ++x) {
            const int percent = 100 + 3 * (x + y - (cells - 1));
            pixels.setPixelColor(x, y, middle.lighter(percent));
        }
    }
    return pixels;
}

/// The loupe on the ground of the scheme.
class DemoLoupe final : public QWidget
{
public:
    DemoLoupe(const LoupeLook& look, const QColor& middle, const PickSigns& signs)
        : m_look(look)
    {
        setFixedSize(LoupeGeometry(look, 1).size());
        const QImage pixels = pixelsAround(middle);
        m_renderer.setPixels(pixels);
        m_renderer.setSigns(signs);
        m_renderer.setText(u"oklch(0.62 0.09 211)"_s);
        m_renderer.setCenterColor(pixels.pixel(cells / 2, cells / 2));
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), theme::bg.in(Appearance::of(this)));
        painter.drawImage(rect(), m_renderer.render(m_look, devicePixelRatioOf(painter)));
    }

private:
    LoupeLook m_look;
    LoupeRenderer m_renderer;
};

} // namespace

void shootLoupe(const QDir& folder)
{
    const auto shootLook = [&](const QString& name, const LoupeLook& look, const QColor& middle,
                               const PickSigns& signs = {}) {
        shoot(folder, u"loupe-"_s + name, [&] { return std::make_unique<DemoLoupe>(look, middle, signs); });
    };
    const QColor pale(0xFF, 0xE9, 0xA8);
    const QColor medium(0x80, 0x74, 0x9C);
    const QColor deep(0x24, 0x1B, 0x4B);
    const LoupeLook circle{.isCircle = true};
    const LoupeLook highContrast{.hasHighContrast = true};

    shootLook(u"square"_s, {}, pale);
    shootLook(u"square-dark"_s, {}, deep);
    shootLook(u"circle"_s, circle, pale);
    shootLook(u"high-contrast"_s, highContrast, pale);
    shootLook(u"high-contrast-medium"_s, highContrast, medium);
    shootLook(u"high-contrast-dark"_s, highContrast, deep);
    shootLook(u"frozen"_s, {}, pale, {.isFrozen = true});
    shootLook(u"text"_s, {.showsName = false, .showsText = true}, deep);
    shootLook(u"both"_s, {.showsText = true}, pale);
    shootLook(u"many"_s, {}, medium, {.taken = 3});
    shootLook(u"frozen-10-bit"_s, circle, deep, {.isFrozen = true, .bitsPerChannel = 10});
}

} // namespace tintwick

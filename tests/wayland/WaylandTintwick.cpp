#include "wayland/WaylandTintwick.h"

#include "desktop/TintwickProcess.h"
#include "support/WaitUntil.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QFile>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

constexpr QRgb ringColor = qRgb(18, 18, 18);

QRect placeOfLoupe(WaylandDesktop& desktop, const WaylandDesktop::Pixel& pixel)
{
    return loupePlace(pixel.point, desktop.screen(pixel.output), desktop.outputScale(pixel.output));
}

/// The loupe may be off by the rounding to logical units, which is less than its ring is wide.
bool hasRing(const QImage& screen, const QRect& place, double scale)
{
    const int reach = static_cast<int>(std::lround(3 * scale));
    int found = 0;
    for (int y = place.top() - reach; y <= place.top() + 2 * reach; ++y) {
        found +=
            screen.valid(place.center().x(), y) && screen.pixel(place.center().x(), y) == ringColor ? 1 : 0;
    }
    return found > reach / 2;
}

} // namespace

WaylandTintwick::WaylandTintwick(WaylandDesktop& desktop, const QStringList& arguments,
                                 const QProcessEnvironment& environment)
    : m_desktop(desktop)
    , m_process(desktop.start(QStringLiteral(TINTWICK_PROGRAM), arguments, environment))
{
}

bool WaylandTintwick::waitForStart()
{
    const QString name = QStringLiteral("WaylandTintwick");
    const auto bus = QDBusConnection::connectToBus(m_desktop.session().busAddress(), name);
    const bool isThere = waitUntil([&] {
        return bus.interface() != nullptr &&
               bus.interface()->isServiceRegistered(QStringLiteral("org.tintwick.Tintwick"));
    });
    QDBusConnection::disconnectFromBus(name);
    return isThere;
}

void WaylandTintwick::askForPick()
{
    const QString name = QStringLiteral("WaylandTintwick");
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.tintwick.Tintwick"), QStringLiteral("/org/tintwick/Tintwick"),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("ActivateAction"));
    call << QStringLiteral("pick") << QVariantList() << QVariantMap();
    QDBusConnection::connectToBus(m_desktop.session().busAddress(), name).call(call);
    QDBusConnection::disconnectFromBus(name);
}

bool WaylandTintwick::showsLoupe(const Pixel& pixel)
{
    return hasRing(m_desktop.screenshot(pixel.output), placeOfLoupe(m_desktop, pixel),
                   m_desktop.outputScale(pixel.output));
}

bool WaylandTintwick::waitForLoupe(const Pixel& pixel, QRgb color)
{
    const QRect place = placeOfLoupe(m_desktop, pixel);
    const QPoint middle = middleOfGrid(m_desktop, pixel);
    const double scale = m_desktop.outputScale(pixel.output);
    return waitUntil([&] {
        const QImage screen = m_desktop.screenshot(pixel.output);
        return hasRing(screen, place, scale) && screen.pixel(middle) == color;
    });
}

QRgb WaylandTintwick::cell(const Pixel& pixel, int column, int row, int radius)
{
    return m_desktop.pixel({pixel.output, middleOfCell(m_desktop, pixel, column, row, radius)});
}

bool WaylandTintwick::waitForPickToEnd()
{
    return waitUntil([this] {
        for (std::size_t output = 0; output < m_desktop.outputCount(); ++output) {
            if (!m_desktop.showsPictureOnly(output)) {
                return false;
            }
        }
        return true;
    });
}

QString WaylandTintwick::dataFile() const
{
    return m_desktop.session().dataHome() + QStringLiteral("/Tintwick/data.json");
}

QJsonObject WaylandTintwick::data() const
{
    QFile file(dataFile());
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

QJsonArray WaylandTintwick::history() const
{
    return data().value(QLatin1StringView("history")).toArray();
}

bool WaylandTintwick::waitForClipboard(const QByteArray& text)
{
    return waitUntil([&] { return m_desktop.clipboard() == text; });
}

QPoint middleOfGrid(WaylandDesktop& desktop, const WaylandDesktop::Pixel& pixel)
{
    const QRect place = placeOfLoupe(desktop, pixel);
    return place.topLeft() + QPoint(place.width() / 2, place.width() / 2);
}

QPoint middleOfCell(WaylandDesktop& desktop, const WaylandDesktop::Pixel& pixel, int column, int row,
                    int radius)
{
    // The ring takes 3.5 points on each side of the grid.
    constexpr double ringWidth = 3.5;
    const double scale = desktop.outputScale(pixel.output);
    const double side = (placeOfLoupe(desktop, pixel).width() - 2 * ringWidth * scale) / (2 * radius + 1);
    return middleOfGrid(desktop, pixel) +
           QPoint(static_cast<int>(std::lround(column * side)), static_cast<int>(std::lround(row * side)));
}

} // namespace tintwick

#include "support/wayland/WaylandDesktop.h"

#include "support/Pattern.h"
#include "support/WaitUntil.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace tintwick {

WaylandDesktop::WaylandDesktop(bool hasBus)
{
    if (hasBus) {
        m_session.startBus();
    }
}

WaylandDesktop::~WaylandDesktop() = default;

void WaylandDesktop::connectTo(const QByteArray& socket)
{
    m_socket = socket;
    m_session.setVariable(QStringLiteral("WAYLAND_DISPLAY"), QString::fromLatin1(socket));
    m_session.setVariable(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland"));
    m_client = std::make_unique<WaylandClient>(socket);
}

std::unique_ptr<RunningProgram> WaylandDesktop::start(const QString& program, const QStringList& arguments,
                                                      const QProcessEnvironment& additions)
{
    return m_session.start(program, arguments, additions);
}

std::size_t WaylandDesktop::outputCount()
{
    m_client->synchronize();
    return m_client->outputs().size();
}

const WaylandClient::Output& WaylandDesktop::output(std::size_t index)
{
    m_client->synchronize();
    if (index >= m_client->outputs().size()) {
        throw std::runtime_error("no such output");
    }
    return *std::next(m_client->outputs().begin(), static_cast<std::ptrdiff_t>(index));
}

QSize WaylandDesktop::outputSize(std::size_t index)
{
    return output(index).size();
}

QRect WaylandDesktop::outputPlace(std::size_t index)
{
    return output(index).place;
}

QRect WaylandDesktop::desktop()
{
    QRect all;
    for (const auto& output : m_client->outputs()) {
        all |= output.place;
    }
    return all;
}

double WaylandDesktop::outputScale(std::size_t index)
{
    return static_cast<double>(outputSize(index).width()) / outputPlace(index).width();
}

void WaylandDesktop::movePointer(const Pixel& pixel)
{
    const auto& on = output(pixel.output);
    const auto middle = QPointF(pixel.point) + QPointF(0.5, 0.5);
    movePointerTo(QPointF(on.place.topLeft()) + QPointF(middle.x() * on.place.width() / on.size().width(),
                                                        middle.y() * on.place.height() / on.size().height()));
}

void WaylandDesktop::click()
{
    click(BTN_LEFT);
}

void WaylandDesktop::click(std::uint32_t button)
{
    setButton(button, true);
    setButton(button, false);
}

void WaylandDesktop::typeKey(std::uint32_t key, std::initializer_list<std::uint32_t> held)
{
    std::for_each(held.begin(), held.end(), [this](std::uint32_t modifier) { setKey(modifier, true); });
    setKey(key, true);
    setKey(key, false);
    std::for_each(std::rbegin(held), std::rend(held),
                  [this](std::uint32_t modifier) { setKey(modifier, false); });
}

QRgb WaylandDesktop::patternPixel(const Pixel& pixel)
{
    const QPoint position = output(pixel.output).place.topLeft() + pixel.point;
    return tintwick::patternPixel(position.x(), position.y());
}

bool WaylandDesktop::waitForRest(std::size_t index)
{
    constexpr int equalPictures = 10;
    QImage last;
    int equal = 0;
    return waitUntil([&] {
        const QImage now = screenshot(index);
        equal = now == last ? equal + 1 : 0;
        last = now;
        return equal >= equalPictures;
    });
}

bool WaylandDesktop::showsPictureOnly(std::size_t index)
{
    return screenshot(index) == picture(index);
}

QImage WaylandDesktop::picture(std::size_t index)
{
    return patternImage({outputPlace(index).topLeft(), outputSize(index)});
}

std::unique_ptr<RunningProgram> WaylandDesktop::showColor(const QColor& color)
{
    return start(QStringLiteral(PICTURE_PROGRAM), {color.name()});
}

std::unique_ptr<RunningProgram> WaylandDesktop::showPicture()
{
    auto program = start(QStringLiteral(PICTURE_PROGRAM));
    for (std::size_t index = 0; index < outputCount(); ++index) {
        const QSize size = outputSize(index);
        const Pixel corner{index, {size.width() - 1, size.height() - 1}};
        if (!waitUntil([&] { return pixel(corner) == patternPixel(corner); })) {
            throw std::runtime_error("the picture does not come up");
        }
    }
    return program;
}

QByteArray WaylandDesktop::clipboard()
{
    const auto reader = start(QStringLiteral("wl-paste"), {QStringLiteral("--no-newline")});
    return reader->waitForEnd() == 0 ? reader->standardOutput() : QByteArray();
}

void WaylandDesktop::takeClipboard(const QByteArray& text)
{
    m_clipboardOwner =
        start(QStringLiteral("wl-copy"), {QStringLiteral("--foreground"), QString::fromUtf8(text)});
    if (!waitUntil([&] { return clipboard() == text; })) {
        throw std::runtime_error("wl-copy does not take the clipboard");
    }
}

} // namespace tintwick

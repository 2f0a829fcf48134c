#include "WaylandPickingSession.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tintwick {

namespace {

// The compositor reports the pointer as soon as the surfaces are there. A tablet with a finger or a keyboard alone has
// none.
constexpr std::chrono::milliseconds patienceForPointer{150};
// Two or three frames of a program that draws what it shows below the pointer, after the pointer has reached it.
constexpr std::chrono::milliseconds timeToDraw{150};

bool contains(QSize size, QPointF point)
{
    return point.x() >= 0 && point.x() < size.width() && point.y() >= 0 && point.y() < size.height();
}

/// Follows the pointer's move in one direction. At the edge of the screen the pointer cannot move further, so there the
/// position is that of the pointer.
double movedAlong(double position, double before, double now, int length)
{
    const bool isAtEdge = now < 1 || now >= length - 1;
    return isAtEdge ? now : std::clamp(position + now - before, 0.0, length - 1.0);
}

} // namespace

WaylandPickingSession::WaylandPickingSession(WaylandPickingParts& parts, PickingSession::Listener& listener)
    : m_parts(parts)
    , m_listener(&listener)
{
    m_pointerPatience.setSingleShot(true);
    m_retakeDelay.setSingleShot(true);
    connect(&m_pointerPatience, &QTimer::timeout, this, &WaylandPickingSession::reportMiddle);
    connect(&m_retakeDelay, &QTimer::timeout, this, &WaylandPickingSession::coverOutputs);
    QMetaObject::invokeMethod(this, &WaylandPickingSession::start, Qt::QueuedConnection);
}

WaylandPickingSession::~WaylandPickingSession()
{
    end();
}

void WaylandPickingSession::start()
{
    if (!m_listener) {
        return;
    }
    m_parts.dropKept();
    WaylandConnection& connection = m_parts.connection;
    if (!m_parts.shell.isUsable()) {
        refuse(tr("No color can be picked: this desktop does not let a program cover the screen."));
        return;
    }
    if (connection.outputs().empty()) {
        refuse(tr("No color can be picked: there is no screen."));
        return;
    }
    for (const auto& output : connection.outputs()) {
        m_outputs.push_back(output.get());
    }
    m_covers.resize(m_outputs.size());
    m_screens.resize(m_outputs.size());
    connect(&connection, &WaylandConnection::drained, this, &WaylandPickingSession::showPendingLoupe);
    connect(&connection, &WaylandConnection::outputRemoved, this, [this](WaylandOutput* output) {
        const auto found = std::ranges::find(m_outputs, output);
        if (found != m_outputs.end()) {
            removeScreen(static_cast<std::size_t>(found - m_outputs.begin()));
        }
    });
    m_parts.seat.setListener(this);
    coverOutputs();
}

void WaylandPickingSession::coverOutputs()
{
    for (std::size_t screen = 0; screen < m_outputs.size(); ++screen) {
        if (m_outputs[screen]) {
            m_covers[screen] = std::make_unique<OutputCover>(
                m_parts.shell, *m_outputs[screen],
                OutputCover::Reports{[this, screen] { handleShown(screen); },
                                     [this, screen] {
                                         // Not from within the surface's own event.
                                         QMetaObject::invokeMethod(
                                             this, [this, screen] { removeScreen(screen); },
                                             Qt::QueuedConnection);
                                     }});
        }
    }
    capture(0);
}

void WaylandPickingSession::capture(std::size_t way)
{
    if (way >= m_parts.captures.size()) {
        refuse(
            m_hasFailed
                ? tr("No color can be picked: the desktop returned no picture of the screen.")
                : tr("No color can be picked: this desktop offers no way to take a picture of the screen."));
        return;
    }
    std::vector<WaylandOutput*> outputs = m_outputs;
    std::erase(outputs, nullptr);
    m_parts.captures[way]->start(outputs,
                                 [this, way](CaptureOutcome outcome, ScreenCapture::Pictures pictures) {
                                     handleCapture(way, outcome, std::move(pictures));
                                 });
}

void WaylandPickingSession::handleCapture(std::size_t way, CaptureOutcome outcome,
                                          ScreenCapture::Pictures pictures)
{
    switch (outcome) {
    case CaptureOutcome::Failed:
        m_hasFailed = true;
        [[fallthrough]];
    case CaptureOutcome::Unavailable:
        capture(way + 1);
        return;
    case CaptureOutcome::Cancelled:
        m_listener->lost();
        return;
    case CaptureOutcome::Denied:
        refuse(tr(
            "No color can be picked: the desktop does not allow Tintwick to take pictures of the screen."));
        return;
    case CaptureOutcome::Taken:
        break;
    }
    auto picture = pictures.begin();
    for (std::size_t screen = 0; screen < m_outputs.size(); ++screen) {
        if (!m_outputs[screen] || picture == pictures.end()) {
            continue;
        }
        if (*picture && m_covers[screen]) {
            m_covers[screen]->show(std::move(*picture));
        } else {
            m_covers[screen].reset();
        }
        ++picture;
    }
    if (!m_reported) {
        m_pointerPatience.start(patienceForPointer);
    }
}

void WaylandPickingSession::refuse(const QString& reason)
{
    PickingSession::Listener& listener = *m_listener;
    end();
    listener.refused(reason);
}

void WaylandPickingSession::handleShown(std::size_t screen)
{
    m_screens[screen] = m_covers[screen]->screen();
    if (m_reported) {
        m_listener->contentChanged();
    }
}

void WaylandPickingSession::removeScreen(std::size_t screen)
{
    if (!m_listener || screen >= m_outputs.size()) {
        return;
    }
    m_outputs[screen] = nullptr;
    m_covers[screen].reset();
    m_screens[screen] = {};
    const auto isGone = [](const WaylandOutput* output) { return output == nullptr; };
    if (std::ranges::all_of(m_outputs, isGone)) {
        m_listener->lost();
    } else if (m_reported && m_reported->screen == static_cast<int>(screen)) {
        m_pointer.reset();
        reportMiddle();
    }
}

QImage WaylandPickingSession::grab(int screen, const QRect& pixels)
{
    const OutputCover* cover = coverAt(screen);
    return cover && cover->picture() ? cover->picture()->read(pixels) : QImage();
}

void WaylandPickingSession::retake()
{
    const auto isShown = [](const auto& cover) { return cover && cover->picture(); };
    if (!m_listener || m_retakeDelay.isActive() || !std::ranges::any_of(m_covers, isShown)) {
        return;
    }
    m_keepsReported = m_reported && m_pointer && *m_reported != *m_pointer;
    m_pendingLoupe.reset();
    for (auto& cover : m_covers) {
        cover.reset();
    }
    m_parts.connection.flush();
    m_retakeDelay.start(timeToDraw);
}

void WaylandPickingSession::showLoupe(const QImage& picture, int screen, QPoint topLeft)
{
    if (std::exchange(m_loupeScreen, screen) != screen) {
        for (const auto& cover : m_covers) {
            if (cover && cover.get() != coverAt(screen)) {
                cover->hideLoupe();
            }
        }
    }
    m_pendingLoupe = LoupeFrame{picture, screen, topLeft};
    showPendingLoupe();
}

void WaylandPickingSession::showPendingLoupe()
{
    if (!m_pendingLoupe) {
        return;
    }
    OutputCover* cover = coverAt(m_pendingLoupe->screen);
    if (!cover || cover->showLoupe(m_pendingLoupe->picture, m_pendingLoupe->topLeft)) {
        m_pendingLoupe.reset();
        m_parts.connection.flush();
    }
}

std::optional<ScreenPosition> WaylandPickingSession::onScreen(const ScreenPosition& position) const
{
    const OutputCover* from = coverAt(position.screen);
    if (!from) {
        return std::nullopt;
    }
    // Some desktops place their outputs in other units than those of the surfaces.
    const auto unitsOfDesktop = [this](const QRect& place, std::size_t screen) {
        const QSize pixels = m_screens[screen].size;
        return QSizeF(static_cast<double>(place.width()) / pixels.width(),
                      static_cast<double>(place.height()) / pixels.height());
    };
    const QRect place = from->output().logical();
    const QSizeF unit = unitsOfDesktop(place, static_cast<std::size_t>(position.screen));
    const QPointF desktop =
        place.topLeft() + QPointF(position.point.x() * unit.width(), position.point.y() * unit.height());
    for (std::size_t screen = 0; screen < m_covers.size(); ++screen) {
        if (!m_covers[screen] || !m_covers[screen]->picture()) {
            continue;
        }
        const QRect other = m_covers[screen]->output().logical();
        const QSizeF unitThere = unitsOfDesktop(other, screen);
        const QPointF offset = desktop - other.topLeft();
        const QPointF point(offset.x() / unitThere.width(), offset.y() / unitThere.height());
        if (contains(m_screens[screen].size, point)) {
            return ScreenPosition{static_cast<int>(screen), point};
        }
    }
    return std::nullopt;
}

bool WaylandPickingSession::warpPointer(const ScreenPosition& position)
{
    m_reported = position;
    return false;
}

bool WaylandPickingSession::copyText(const QString& text)
{
    return m_parts.clipboard.copy(text.toUtf8(), m_serial) && m_parts.clipboard.isOwner();
}

void WaylandPickingSession::end()
{
    if (!std::exchange(m_listener, nullptr)) {
        return;
    }
    m_pointerPatience.stop();
    m_retakeDelay.stop();
    m_pendingLoupe.reset();
    for (const auto& capture : m_parts.captures) {
        capture->cancel();
    }
    m_parts.seat.setListener(nullptr);
    m_parts.connection.disconnect(this);
    if (const OutputCover* cover = m_reported ? coverAt(m_reported->screen) : nullptr) {
        m_parts.lastPosition = {cover->output().globalName(), m_reported->point};
    }
    m_parts.keepUntilReleased(std::exchange(m_covers, {}));
    m_parts.connection.flush();
}

OutputCover* WaylandPickingSession::coverAt(int screen) const
{
    const auto index = static_cast<std::size_t>(screen);
    return index < m_covers.size() && m_covers[index] && m_covers[index]->picture() ? m_covers[index].get()
                                                                                    : nullptr;
}

std::optional<ScreenPosition> WaylandPickingSession::positionOn(const wl_surface& surface,
                                                                QPointF logical) const
{
    for (std::size_t screen = 0; screen < m_covers.size(); ++screen) {
        const auto& cover = m_covers[screen];
        if (cover && cover->surface() == &surface && cover->picture()) {
            return ScreenPosition{static_cast<int>(screen), cover->toPixels(logical)};
        }
    }
    return std::nullopt;
}

ScreenPosition WaylandPickingSession::clamped(const ScreenPosition& position) const
{
    const QSize size = m_screens[static_cast<std::size_t>(position.screen)].size;
    return {position.screen,
            QPointF(std::clamp(position.point.x(), 0.0, std::max(0.0, size.width() - 1.0)),
                    std::clamp(position.point.y(), 0.0, std::max(0.0, size.height() - 1.0)))};
}

ScreenPosition WaylandPickingSession::movedFromWarp(const ScreenPosition& pointer) const
{
    if (pointer.screen != m_pointer->screen) {
        return pointer;
    }
    if (pointer.screen != m_reported->screen) {
        const ScreenPosition moved{m_reported->screen, m_reported->point + pointer.point - m_pointer->point};
        return clamped(onScreen(moved).value_or(moved));
    }
    const QSize size = m_screens[static_cast<std::size_t>(pointer.screen)].size;
    return {pointer.screen,
            {movedAlong(m_reported->point.x(), m_pointer->point.x(), pointer.point.x(), size.width()),
             movedAlong(m_reported->point.y(), m_pointer->point.y(), pointer.point.y(), size.height())}};
}

void WaylandPickingSession::report(const ScreenPosition& position)
{
    m_pointerPatience.stop();
    m_reported = position;
    m_listener->pointerMoved(position);
}

void WaylandPickingSession::reportMiddle()
{
    const auto index = [this] {
        if (coverAt(m_keyboardScreen)) {
            return m_keyboardScreen;
        }
        const auto shown =
            std::ranges::find_if(m_covers, [](const auto& cover) { return cover && cover->picture(); });
        return static_cast<int>(shown - m_covers.begin());
    }();
    if (coverAt(index)) {
        const QSize size = m_screens[static_cast<std::size_t>(index)].size;
        report({index, QRect(QPoint(), size).center()});
    }
}

void WaylandPickingSession::pointerEntered(wl_surface& surface, QPointF position)
{
    const auto entered = positionOn(surface, position);
    if (!entered) {
        return;
    }
    m_pointer = entered;
    if (!std::exchange(m_keepsReported, false)) {
        report(*entered);
    }
}

void WaylandPickingSession::pointerMoved(wl_surface& surface, QPointF position)
{
    const auto moved = positionOn(surface, position);
    if (!moved) {
        return;
    }
    const bool isWarped = m_pointer && m_reported && *m_pointer != *m_reported;
    const ScreenPosition target = isWarped ? movedFromWarp(*moved) : *moved;
    m_pointer = moved;
    report(target);
}

void WaylandPickingSession::buttonPressed(PointerButton button, std::uint32_t serial)
{
    m_serial = serial;
    if (m_reported) {
        const WaylandKeyboard* keyboard = m_parts.seat.keyboard();
        m_listener->buttonPressed(button, *m_reported, keyboard ? keyboard->modifiers() : 0);
    }
}

void WaylandPickingSession::scrolled(ScrollDelta delta)
{
    m_listener->scrolled(delta);
}

void WaylandPickingSession::fingerMoved(wl_surface& surface, QPointF position)
{
    if (auto moved = positionOn(surface, position)) {
        moved->isFinger = true;
        m_pointer = moved;
        report(*moved);
    }
}

void WaylandPickingSession::fingerLifted(std::uint32_t serial)
{
    buttonPressed(PointerButton::Primary, serial);
}

void WaylandPickingSession::keyboardEntered(wl_surface& surface)
{
    if (const auto middle = positionOn(surface, {})) {
        m_keyboardScreen = middle->screen;
    }
}

void WaylandPickingSession::keyPressed(const KeyPress& press, std::uint32_t serial)
{
    m_serial = serial;
    m_listener->keyPressed(press);
}

} // namespace tintwick

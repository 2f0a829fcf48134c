#include "PickSession.h"

#include "KeyCode.h"
#include "LoupeGeometry.h"
#include "Platform.h"
#include "ZoomRadius.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

namespace tintwick {

namespace {

// Where a program draws without pause, more frames would only keep the server and the compositor from showing them.
constexpr std::chrono::milliseconds frameTime{16};

constexpr char32_t escapeCharacter = U'\u001B';

/// The action of a key during a pick, by the character it types, else by its position.
enum class PickKey : std::uint8_t {
    None,
    Cancel,
    Pick,
    ZoomIn,
    ZoomOut,
    Left,
    Right,
    Up,
    Down,
    Freeze,
    Retake
};

/// Whether the key types the letter, or is at its place on a layout that types no Latin letter there.
bool isLetter(const KeyPress& press, char32_t letter, int keyCode)
{
    constexpr char32_t caseBit = 0x20;
    const char32_t typed = press.character | caseBit;
    const bool typesLetter = typed >= U'a' && typed <= U'z';
    return typesLetter ? typed == letter : press.keyCode == keyCode;
}

PickKey meaningOf(const KeyPress& press)
{
    switch (press.character) {
    case escapeCharacter:
        return PickKey::Cancel;
    case U'+':
    case U'=':
        return PickKey::ZoomIn;
    case U'-':
        return PickKey::ZoomOut;
    default:
        break;
    }
    if (isLetter(press, U'f', keycode::f)) {
        return PickKey::Freeze;
    }
    if (isLetter(press, U'r', keycode::r)) {
        return PickKey::Retake;
    }
    switch (press.keyCode) {
    case keycode::escape:
        return PickKey::Cancel;
    case keycode::f5:
        return PickKey::Retake;
    case keycode::returnKey:
    case keycode::keypadEnter:
    case keycode::space:
        return PickKey::Pick;
    case keycode::equal:
    case keycode::keypadPlus:
        return PickKey::ZoomIn;
    case keycode::minus:
    case keycode::keypadMinus:
        return PickKey::ZoomOut;
    case keycode::leftArrow:
        return PickKey::Left;
    case keycode::rightArrow:
        return PickKey::Right;
    case keycode::upArrow:
        return PickKey::Up;
    case keycode::downArrow:
        return PickKey::Down;
    default:
        return PickKey::None;
    }
}

QRect squareAround(QPoint pixel, int radius)
{
    return {pixel.x() - radius, pixel.y() - radius, 2 * radius + 1, 2 * radius + 1};
}

/// The content of the lens while the desktop returns no image.
QImage darkPixels(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(qRgb(0x55, 0x55, 0x55));
    return image;
}

} // namespace

PickSession::PickSession(Platform& platform, LoupeRenderer& loupe, Options options, QObject* parent)
    : QObject(parent)
    , m_options(std::move(options))
    , m_radius(zoomradius::atStart(m_options.radius))
    , m_loupe(loupe)
{
    m_contentTimer.setSingleShot(true);
    connect(&m_contentTimer, &QTimer::timeout, this, &PickSession::updateLoupe);
    m_sinceUpdate.start();
    m_session = platform.startPick(*this);
    if (m_options.mode.startsFrozen) {
        m_session->setFrozen(true);
    }
}

void PickSession::cancel()
{
    end({m_taken > 0 ? PickOutcome::Kind::Picked : PickOutcome::Kind::Cancelled});
}

void PickSession::refused(const QString& reason)
{
    end({PickOutcome::Kind::Failed, reason});
}

void PickSession::pointerMoved(const ScreenPosition& position)
{
    // Our own warps are reported too.
    if (!m_hasPosition || position != m_position) {
        if (!std::exchange(m_hasPosition, true)) {
            Q_EMIT begun();
        }
        m_position = position;
        updateLoupe();
    }
}

void PickSession::buttonPressed(PointerButton button, const ScreenPosition& position, int modifiers)
{
    if (button == PointerButton::Primary) {
        pick(position, modifiers);
    } else if (button == PointerButton::Secondary) {
        cancel();
    }
}

void PickSession::scrolled(ScrollDelta delta)
{
    zoomBy(m_scroll.add(delta));
}

void PickSession::keyPressed(const KeyPress& press)
{
    // Window managers often grab combinations with Super. Control works everywhere.
    const bool zooms = (press.modifiers & (modifier::super | modifier::control)) != 0;
    const int distance = (press.modifiers & modifier::shift) != 0 ? 10 : 1;
    switch (meaningOf(press)) {
    case PickKey::Cancel:
        if (!press.isRepeat) {
            cancel();
        }
        break;
    case PickKey::Pick:
        // The key that started the pick may still be held down.
        if (!press.isRepeat && m_hasPosition) {
            pick(m_position, press.modifiers);
        }
        break;
    case PickKey::ZoomIn:
        zoomBy(zooms ? 1 : 0);
        break;
    case PickKey::ZoomOut:
        zoomBy(zooms ? -1 : 0);
        break;
    case PickKey::Left:
        moveBy({-distance, 0});
        break;
    case PickKey::Right:
        moveBy({distance, 0});
        break;
    case PickKey::Up:
        moveBy({0, -distance});
        break;
    case PickKey::Down:
        moveBy({0, distance});
        break;
    case PickKey::Freeze:
        if (!press.isRepeat) {
            m_session->setFrozen(!m_session->isFrozen());
        }
        break;
    case PickKey::Retake:
        if (!press.isRepeat) {
            m_session->retake();
        }
        break;
    case PickKey::None:
        break;
    }
}

void PickSession::contentChanged()
{
    if (!m_contentTimer.isActive()) {
        const std::chrono::milliseconds sinceUpdate(m_sinceUpdate.elapsed());
        m_contentTimer.start(std::max(std::chrono::milliseconds(0), frameTime - sinceUpdate));
    }
}

void PickSession::lost()
{
    cancel();
}

void PickSession::moveBy(QPoint distance)
{
    const QSize size = screenSize(m_position);
    if (!m_hasPosition || size.isEmpty()) {
        return;
    }
    const QPoint pixel = m_position.pixel() + distance;
    ScreenPosition target{m_position.screen, pixel};
    if (!isOnScreen(target)) {
        const QPoint nearest(std::clamp(pixel.x(), 0, size.width() - 1),
                             std::clamp(pixel.y(), 0, size.height() - 1));
        target = m_session->onScreen(target).value_or(ScreenPosition{m_position.screen, nearest});
    }
    if (target == m_position) {
        return;
    }
    m_position = target;
    m_session->warpPointer(target);
    updateLoupe();
}

void PickSession::zoomBy(int steps)
{
    const int radius = zoomradius::zoomedBy(m_radius, steps);
    if (steps == 0 || radius == m_radius) {
        return;
    }
    m_radius = radius;
    updateLoupe();
}

void PickSession::pick(const ScreenPosition& position, int modifiers)
{
    if (!isOnScreen(position)) {
        return;
    }
    const QImage pixel = m_session->grab(position.screen, squareAround(position.pixel(), 0));
    if (pixel.isNull()) {
        return;
    }
    const QRgb color = pixel.pixel(0, 0) | 0xff000000;
    const bool isCopied = copy(color);
    ++m_taken;
    if (goesOn(modifiers)) {
        updateLoupe();
        Q_EMIT picked(color, isCopied);
    } else {
        m_session->end();
        Q_EMIT picked(color, isCopied);
        end({PickOutcome::Kind::Picked});
    }
}

bool PickSession::goesOn(int modifiers) const
{
    const std::optional<int> count = m_options.mode.count;
    return count ? m_taken < *count : (modifiers & modifier::shift) != 0;
}

bool PickSession::copy(QRgb color)
{
    const auto text = m_options.copiedText(color);
    if (!text) {
        return false;
    }
    m_texts << *text;
    return m_session->copyText(m_texts.join(u'\n'));
}

void PickSession::end(const PickOutcome& outcome)
{
    if (std::exchange(m_hasEnded, true)) {
        return;
    }
    m_contentTimer.stop();
    m_session->end();
    Q_EMIT ended(outcome);
}

void PickSession::updateLoupe()
{
    // This grab contains all changes reported so far.
    m_contentTimer.stop();
    m_sinceUpdate.start();
    const auto screen = static_cast<std::size_t>(m_position.screen);
    if (!m_hasPosition || screen >= m_session->screens().size()) {
        return;
    }
    const QSize size = m_session->screens()[screen].size;
    const double scale = m_session->screens()[screen].scale;
    const QImage pixels = m_session->grab(m_position.screen, squareAround(m_position.pixel(), m_radius));
    m_loupe.setPixels(pixels.isNull() ? darkPixels(2 * m_radius + 1) : pixels);
    m_loupe.setCenterColor(pixels.isNull() ? std::nullopt : std::optional(pixels.pixel(m_radius, m_radius)));
    if (m_options.look.showsText && !pixels.isNull()) {
        m_loupe.setText(m_options.copiedText(pixels.pixel(m_radius, m_radius)).value_or(QString()));
    }
    m_loupe.setSigns({.isFrozen = m_session->isFrozen(),
                      .bitsPerChannel = m_session->screens()[screen].bitsPerChannel,
                      .taken = m_taken});
    const QRect body = LoupeGeometry(m_options.look, scale).body();
    const double margin = loupe::screenMargin * scale;
    const QPointF place = m_position.isFinger ? loupePlaceForFinger(m_position.point, body.size(), size,
                                                                    margin, loupe::fingerRoom * scale)
                                              : loupePlace(m_position.point, body.size(), size, margin);
    m_session->showLoupe(m_loupe.render(m_options.look, scale), m_position.screen,
                         place.toPoint() - body.topLeft());
}

QSize PickSession::screenSize(const ScreenPosition& position) const
{
    const auto screen = static_cast<std::size_t>(position.screen);
    return screen < m_session->screens().size() ? m_session->screens()[screen].size : QSize();
}

bool PickSession::isOnScreen(const ScreenPosition& position) const
{
    return QRect(QPoint(), screenSize(position)).contains(position.pixel());
}

} // namespace tintwick

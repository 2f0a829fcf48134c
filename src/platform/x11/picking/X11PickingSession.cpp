#include "X11PickingSession.h"

#include "ClientResources.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tintwick {

namespace {

bool contains(const QRect& frame, QPointF position)
{
    return position.x() >= frame.x() && position.x() < frame.x() + frame.width() &&
           position.y() >= frame.y() && position.y() < frame.y() + frame.height();
}

/// How often a held input is asked for, and for how long.
constexpr std::chrono::milliseconds attemptInterval{30};
constexpr std::chrono::milliseconds longestWait{5000};

} // namespace

X11PickingParts::X11PickingParts(XcbConnection& ofConnection, XkbKeymap& keymap)
    : connection(ofConnection)
    , extensions(ofConnection)
    , closedWindows(ofConnection)
    , input(ofConnection, keymap)
{
}

X11PickingSession::X11PickingSession(X11PickingParts& parts, PickingSession::Listener& listener)
    : m_parts(parts)
    , m_listener(&listener)
{
    QMetaObject::invokeMethod(this, &X11PickingSession::start, Qt::QueuedConnection);
}

X11PickingSession::~X11PickingSession()
{
    end();
}

void X11PickingSession::start()
{
    if (!m_listener) {
        return;
    }
    // Create the reader first: it copies the screen, and the copy must not contain windows of ours.
    m_reader.emplace(m_parts.connection, m_parts.extensions, m_parts.closedWindows.region());
    if (m_isFrozen) {
        m_reader->freeze();
    }
    connect(&m_nextAttempt, &QTimer::timeout, this, [this] { tryToBegin(InputGrab::Patience::None); });
    tryToBegin(InputGrab::Patience::Brief);
}

void X11PickingSession::tryToBegin(InputGrab::Patience patience)
{
    const InputGrab::Outcome outcome = m_parts.input.begin(*this, patience);
    const bool isHeld =
        outcome == InputGrab::Outcome::PointerIsHeld || outcome == InputGrab::Outcome::KeyboardIsHeld;
    if (outcome == InputGrab::Outcome::Started) {
        m_nextAttempt.stop();
        begin();
    } else if (isHeld && !m_nextAttempt.isActive()) {
        wait();
    } else if (!isHeld || m_waiting.hasExpired(longestWait.count())) {
        m_nextAttempt.stop();
        refuse(outcome);
    }
}

// A menu would be closed before the pick begins.
void X11PickingSession::wait()
{
    if (!std::exchange(m_isFrozen, true)) {
        m_reader->freeze();
    }
    m_waiting.start();
    m_nextAttempt.start(attemptInterval);
    m_listener->waiting(tr("The pick begins when the open menu closes"));
}

void X11PickingSession::begin()
{
    m_reader->showFrozen(XCB_WINDOW_NONE);
    connect(&*m_reader, &ScreenReader::contentChanged, this, [this] { m_listener->contentChanged(); });
    connect(&*m_reader, &ScreenReader::screensChanged, this, &X11PickingSession::readScreens);
    // Not reported from within the reader's signal, because the listener may end the session.
    connect(&*m_reader, &ScreenReader::screensChanged, this, &X11PickingSession::followScreens,
            Qt::QueuedConnection);
    readScreens();
    if (!m_screens.empty()) {
        m_listener->pointerMoved(toScreen(m_parts.input.pointerPosition()));
    }
}

void X11PickingSession::refuse(InputGrab::Outcome outcome)
{
    m_reader.reset();
    PickingSession::Listener& listener = *std::exchange(m_listener, nullptr);
    switch (outcome) {
    case InputGrab::Outcome::PointerIsHeld:
        listener.refused(tr("No color can be picked now: another program holds the pointer."));
        return;
    case InputGrab::Outcome::KeyboardIsHeld:
        listener.refused(tr("No color can be picked now: another program holds the keyboard."));
        return;
    case InputGrab::Outcome::NoInputExtension:
    case InputGrab::Outcome::Started:
        break;
    }
    listener.refused(tr("No color can be picked: this X server lacks the X Input extension 2."));
}

QImage X11PickingSession::grab(int screen, const QRect& pixels)
{
    return m_reader ? m_reader->grab(pixels.translated(originOf(screen))) : QImage();
}

void X11PickingSession::setFrozen(bool isFrozen)
{
    if (isFrozen != m_isFrozen) {
        m_isFrozen = isFrozen;
        freezeOrThaw();
    }
}

void X11PickingSession::retake()
{
    if (m_isFrozen) {
        freezeOrThaw();
    }
}

void X11PickingSession::freezeOrThaw()
{
    if (!m_reader) {
        return;
    }
    if (m_isFrozen) {
        freeze();
    } else {
        m_reader->thaw();
    }
    const auto report = [this] {
        if (m_listener) {
            m_listener->contentChanged();
        }
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

void X11PickingSession::freeze()
{
    m_reader->freeze();
    m_reader->showFrozen(m_loupe ? m_loupe->id() : xcb_window_t{XCB_WINDOW_NONE});
}

void X11PickingSession::showLoupe(const QImage& picture, int screen, QPoint topLeft)
{
    if (!m_reader) {
        return;
    }
    if (!m_loupe) {
        m_loupe.emplace(m_parts.connection, *m_reader);
    }
    m_loupe->show(picture, originOf(screen) + topLeft);
}

std::optional<ScreenPosition> X11PickingSession::onScreen(const ScreenPosition& position) const
{
    const ScreenPosition found = toScreen(position.point + originOf(position.screen));
    const auto screen = static_cast<std::size_t>(found.screen);
    const bool isThere =
        screen < m_screens.size() && contains(QRect(QPoint(), m_screens[screen].size), found.point);
    return isThere ? std::optional(found) : std::nullopt;
}

bool X11PickingSession::warpPointer(const ScreenPosition& position)
{
    m_parts.input.warpPointer(position.pixel() + originOf(position.screen));
    return true;
}

// The server rejects a clipboard owner whose time is older than the current owner's. The toolkit has only the time of
// the last event of its own windows.
bool X11PickingSession::copyText(const QString& text)
{
    m_parts.toolkitClock.bringUpToDate();
    QGuiApplication::clipboard()->setText(text);
    xcb_connection_t* toolkit = toolkit::connection();
    const xcb_window_t owner = m_parts.connection.selectionOwner(m_parts.connection.atom("CLIPBOARD"));
    return toolkit && isFromClient(owner, *xcb_get_setup(toolkit));
}

void X11PickingSession::end()
{
    if (!std::exchange(m_listener, nullptr) || !m_reader) {
        return;
    }
    m_nextAttempt.stop();
    m_loupe.reset();
    m_parts.input.end();
    m_reader.reset();
}

void X11PickingSession::pointerMoved(QPointF position)
{
    m_listener->pointerMoved(toScreen(position));
}

void X11PickingSession::buttonPressed(PointerButton button, QPointF position, int modifiers)
{
    m_listener->buttonPressed(button, toScreen(position), modifiers);
}

void X11PickingSession::scrolled(ScrollDelta delta)
{
    m_listener->scrolled(delta);
}

void X11PickingSession::keyPressed(const KeyPress& press)
{
    m_listener->keyPressed(press);
}

void X11PickingSession::readScreens()
{
    m_screens.clear();
    for (const X11Screen& screen : m_reader->screens()) {
        m_screens.push_back({screen.frame.size(), screen.scale, bitsPerChannel(m_parts.connection)});
    }
}

void X11PickingSession::followScreens()
{
    if (!m_listener) {
        return;
    }
    if (m_screens.empty()) {
        m_listener->lost();
    } else {
        // The frozen picture does not contain new parts of the desktop.
        retake();
        // The server moves the pointer to a remaining screen.
        m_listener->pointerMoved(toScreen(m_parts.input.pointerPosition()));
    }
}

QPoint X11PickingSession::originOf(int screen) const
{
    const auto index = static_cast<std::size_t>(screen);
    return m_reader && index < m_reader->screens().size() ? m_reader->screens()[index].frame.topLeft()
                                                          : QPoint();
}

ScreenPosition X11PickingSession::toScreen(QPointF position) const
{
    if (m_screens.empty()) {
        return {0, position};
    }
    const std::vector<X11Screen>& screens = m_reader->screens();
    const auto found = std::ranges::find_if(
        screens, [&](const X11Screen& screen) { return contains(screen.frame, position); });
    const auto& screen = found == screens.end() ? screens.front() : *found;
    return {static_cast<int>(&screen - screens.data()), position - screen.frame.topLeft()};
}

} // namespace tintwick

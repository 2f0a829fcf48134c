#pragma once

#include "ClosedWindows.h"
#include "InputGrab.h"
#include "LoupeWindow.h"
#include "PickingExtensions.h"
#include "PickingSession.h"
#include "ScreenReader.h"
#include "ToolkitConnection.h"
#include "XcbConnection.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <optional>
#include <vector>

namespace tintwick {

/// The objects that all picks on one connection share.
struct X11PickingParts
{
    /// The application object must exist; both must outlive this object.
    X11PickingParts(XcbConnection& connection, XkbKeymap& keymap);

    XcbConnection& connection;
    PickingExtensions extensions;
    ClosedWindows closedWindows;
    InputGrab input;
    toolkit::Clock toolkitClock;
};

/// One pick on an X server. Screens are the monitors of the root window, the primary one first. A pointer outside all
/// of them is reported relative to the primary one.
class X11PickingSession final : public QObject, public PickingSession, private InputGrab::Listener
{
    Q_OBJECT

public:
    /// Starts from the event loop. Both must outlive the session.
    X11PickingSession(X11PickingParts& parts, PickingSession::Listener& listener);
    ~X11PickingSession() override;

    [[nodiscard]] const std::vector<Screen>& screens() const override { return m_screens; }
    [[nodiscard]] QImage grab(int screen, const QRect& pixels) override;
    [[nodiscard]] bool isFrozen() const override { return m_isFrozen; }
    void setFrozen(bool isFrozen) override;
    void retake() override;
    void showLoupe(const QImage& picture, int screen, QPoint topLeft) override;
    [[nodiscard]] std::optional<ScreenPosition> onScreen(const ScreenPosition& position) const override;
    bool warpPointer(const ScreenPosition& position) override;
    [[nodiscard]] bool copyText(const QString& text) override;
    void end() override;

private:
    void start();
    void tryToBegin(InputGrab::Patience patience);
    void begin();
    /// Takes the picture, and begins when the other client returns the input.
    void wait();
    void refuse(InputGrab::Outcome outcome);
    void pointerMoved(QPointF position) override;
    void buttonPressed(PointerButton button, QPointF position, int modifiers) override;
    void scrolled(ScrollDelta delta) override;
    void keyPressed(const KeyPress& press) override;
    void freezeOrThaw();
    void freeze();
    void readScreens();
    void followScreens();
    [[nodiscard]] QPoint originOf(int screen) const;
    [[nodiscard]] ScreenPosition toScreen(QPointF position) const;

    X11PickingParts& m_parts;
    /// Null once the session has ended.
    PickingSession::Listener* m_listener;
    bool m_isFrozen = false;
    std::vector<Screen> m_screens;
    std::optional<ScreenReader> m_reader;
    std::optional<LoupeWindow> m_loupe;
    /// Runs while another client holds the input.
    QTimer m_nextAttempt;
    QElapsedTimer m_waiting;
};

} // namespace tintwick

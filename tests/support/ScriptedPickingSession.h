#pragma once

#include "PickingSession.h"

#include <QImage>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace tintwick::test {

/// A desktop for picks, scripted by the test: the test moves, clicks and types, and reads what was grabbed and shown.
/// Its state is kept between sessions.
struct ScriptedDesktop
{
    /// The loupe, as one call showed it.
    struct Frame
    {
        QImage picture;
        int screen = 0;
        QPoint topLeft;
    };

    struct Grab
    {
        int screen = 0;
        QRect pixels;

        friend bool operator==(const Grab&, const Grab&) = default;
    };

    /// What sessions did, in order: "start", "grab", "freeze", "thaw", "retake", "show loupe", "warp", "copy <text>",
    /// "end".
    QStringList journal;
    /// The monitors; `origins` places them beside each other, in physical pixels.
    std::vector<Screen> screens{{{1920, 1080}, 1}};
    std::vector<QPoint> origins{{0, 0}};
    /// Where the pointer is when a session begins.
    ScreenPosition pointer;
    /// The next session is refused with this reason.
    std::optional<QString> refusal;
    bool canWarp = true;
    bool canThaw = true;
    bool acceptsClipboard = true;
    /// Of the running session, and of the next one where the desktop cannot thaw.
    bool isFrozen = false;
    /// The pixels of a grab, which the world below gives by default; null for no picture.
    std::function<QImage(const Grab&)> picture;
    std::vector<Grab> grabs;
    std::vector<Frame> frames;
    /// Of the running session; null while there is none.
    PickingSession::Listener* listener = nullptr;

    ScriptedDesktop();

    [[nodiscard]] bool isPicking() const { return listener != nullptr; }
    // Delivered to the running session at once; ignored when there is none.
    void move(const ScreenPosition& to);
    void press(PointerButton button, const ScreenPosition& at, int modifiers = 0);
    void scroll(ScrollDelta delta) const;
    void key(const KeyPress& press) const;
    void reportChange() const;
    void lose() const;
};

/// Reports the input of a ScriptedDesktop and records its own calls there. The desktop must outlive the session. The
/// session starts from the event loop.
class ScriptedPickingSession final : public PickingSession
{
public:
    ScriptedPickingSession(ScriptedDesktop& desktop, Listener& listener);
    ~ScriptedPickingSession() override;

    [[nodiscard]] const std::vector<Screen>& screens() const override { return m_desktop.screens; }
    [[nodiscard]] QImage grab(int screen, const QRect& pixels) override;
    [[nodiscard]] bool isFrozen() const override { return m_desktop.isFrozen; }
    void setFrozen(bool isFrozen) override;
    void retake() override;
    void showLoupe(const QImage& picture, int screen, QPoint topLeft) override;
    [[nodiscard]] std::optional<ScreenPosition> onScreen(const ScreenPosition& position) const override;
    bool warpPointer(const ScreenPosition& position) override;
    [[nodiscard]] bool copyText(const QString& text) override;
    void end() override;

private:
    void start();

    ScriptedDesktop& m_desktop;
    /// Null once the session has ended.
    Listener* m_listener;
    /// Context of the queued start. Its destruction drops the start.
    QObject m_context;
};

/// The colour of a pixel of the scripted world: different for neighbours, and for each screen.
[[nodiscard]] QRgb worldColor(int screen, int x, int y);

} // namespace tintwick::test

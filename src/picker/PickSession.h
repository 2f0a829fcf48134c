#pragma once

#include "LoupeLook.h"
#include "LoupeRenderer.h"
#include "PickingSession.h"
#include "ScrollAccumulator.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tintwick {

class Platform;

/// How a pick ended.
struct PickOutcome
{
    enum class Kind : std::uint8_t { Picked, Cancelled, Failed };

    Kind kind = Kind::Cancelled;
    /// The colour of the pixel, opaque. Only of Picked.
    QRgb color = 0;
    /// One sentence for the user. Only of Failed.
    QString reason = {};

    friend bool operator==(const PickOutcome&, const PickOutcome&) = default;
};

/// Returns the clipboard text of a picked colour, or nothing if the clipboard stays as it is.
using CopiedText = std::function<std::optional<QString>(QRgb color)>;

/// One pick, from the request to its outcome. Owns the loupe, the zoom and the position. The pixel in the centre of the
/// loupe is the picked one.
class PickSession final : public QObject, private PickingSession::Listener
{
    Q_OBJECT

public:
    struct Options
    {
        LoupeLook look;
        /// Pixels on each side of the centre pixel when the pick begins; at least 1, without an upper bound.
        int radius = 7;
        CopiedText copiedText;
    };

    /// Starts the pick on the platform. The pick begins from the event loop. Platform and loupe must outlive this
    /// object.
    PickSession(Platform& platform, LoupeRenderer& loupe, Options options, QObject* parent = nullptr);

    /// Ends the pick without a colour. Does nothing when the pick has ended.
    void cancel();

Q_SIGNALS:
    /// Emitted once, after the input is released. A slot must not destroy the session; use deleteLater().
    void ended(const tintwick::PickOutcome& outcome);

private:
    void refused(const QString& reason) override;
    void pointerMoved(const ScreenPosition& position) override;
    void buttonPressed(PointerButton button, const ScreenPosition& position) override;
    void scrolled(ScrollDelta delta) override;
    void keyPressed(const KeyPress& press) override;
    void contentChanged() override;
    void lost() override;

    void moveBy(QPoint distance);
    void zoomBy(int steps);
    void pick(const ScreenPosition& position);
    void end(const PickOutcome& outcome);
    /// Updates the loupe from the current pixels.
    void updateLoupe();
    [[nodiscard]] QSize screenSize(const ScreenPosition& position) const;
    [[nodiscard]] bool isOnScreen(const ScreenPosition& position) const;

    Options m_options;
    bool m_hasEnded = false;
    /// Whether m_position is known and the loupe is shown.
    bool m_hasPosition = false;
    ScreenPosition m_position;
    int m_radius;
    ScrollAccumulator m_scroll;
    LoupeRenderer& m_loupe;
    /// Merges the content changes of one frame.
    QTimer m_contentTimer;
    QElapsedTimer m_sinceUpdate;
    // Destroyed first, because it reports to this object.
    std::unique_ptr<PickingSession> m_session;
};

} // namespace tintwick

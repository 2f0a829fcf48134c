#pragma once

#include "LoupeLook.h"
#include "LoupeRenderer.h"
#include "PickingSession.h"
#include "ScrollAccumulator.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
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
    enum class Kind : std::uint8_t {
        /// At least one colour was picked.
        Picked,
        Cancelled,
        Failed
    };

    Kind kind = Kind::Cancelled;
    /// One sentence for the user. Only of Failed.
    QString reason = {};

    friend bool operator==(const PickOutcome&, const PickOutcome&) = default;
};

/// Returns the clipboard text of one picked colour, or nothing if the clipboard stays as it is.
using CopiedText = std::function<std::optional<QString>(QRgb color)>;

/// How a pick begins and when it ends.
struct PickMode
{
    /// The pick goes on until it has this many colours, or is cancelled. None: a click or Return ends it, and goes on
    /// with Shift.
    std::optional<int> count = std::nullopt;
    /// The pixels are taken before the input is grabbed, with open menus and tool tips.
    bool startsFrozen = false;
};

/// One pick, from the request to its outcome. Owns the loupe, the zoom and the position. The pixel in the centre of the
/// loupe is the picked one. A pick can take several colours; the clipboard then holds all their texts, one per line.
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
        PickMode mode;
    };

    /// Starts the pick on the platform. The pick begins from the event loop. Platform and loupe must outlive this
    /// object.
    PickSession(Platform& platform, LoupeRenderer& loupe, Options options, QObject* parent = nullptr);

    /// Ends the pick without a further colour. Does nothing when the pick has ended.
    void cancel();

Q_SIGNALS:
    /// The loupe is shown for the first time.
    void begun();
    /// The pick cannot begin yet. `sentence` tells the user what it waits for.
    void isWaiting(const QString& sentence);
    /// `color` is opaque. `isCopied` says whether the clipboard holds its text, after those before it. The input is
    /// released when it was the last colour.
    void picked(QRgb color, bool isCopied);
    /// Emitted once, after the input is released. A slot must not destroy the session; use deleteLater().
    void ended(const tintwick::PickOutcome& outcome);

private:
    void refused(const QString& reason) override;
    void waiting(const QString& sentence) override { Q_EMIT isWaiting(sentence); }
    void pointerMoved(const ScreenPosition& position) override;
    void buttonPressed(PointerButton button, const ScreenPosition& position, int modifiers) override;
    void scrolled(ScrollDelta delta) override;
    void keyPressed(const KeyPress& press) override;
    void contentChanged() override;
    void lost() override;

    void moveBy(QPoint distance);
    void zoomBy(int steps);
    /// The same for a click and a key.
    void pick(const ScreenPosition& position, int modifiers);
    [[nodiscard]] bool goesOn(int modifiers) const;
    [[nodiscard]] bool copy(QRgb color);
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
    int m_taken = 0;
    QStringList m_texts;
    ScrollAccumulator m_scroll;
    LoupeRenderer& m_loupe;
    /// Merges the content changes of one frame.
    QTimer m_contentTimer;
    QElapsedTimer m_sinceUpdate;
    // Destroyed first, because it reports to this object.
    std::unique_ptr<PickingSession> m_session;
};

} // namespace tintwick

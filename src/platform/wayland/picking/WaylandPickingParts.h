#pragma once

#include "CoverShell.h"
#include "ScreenCapture.h"
#include "WaylandClipboard.h"
#include "WaylandConnection.h"
#include "WaylandSeat.h"

#include <QObject>
#include <QPointF>

#include <memory>
#include <optional>
#include <vector>

namespace tintwick {

class OutputCover;

/// What all picks use of the compositor, made once.
class WaylandPickingParts final : public QObject
{
    Q_OBJECT

public:
    /// The ways to take pictures are tried in the given order. Connection and seat must outlive the object.
    WaylandPickingParts(WaylandConnection& ofConnection, WaylandSeat& ofSeat,
                        std::vector<std::unique_ptr<ScreenCapture>> ofCaptures);
    ~WaylandPickingParts() override;

    /// Keeps the surfaces of a pick that has ended, without a loupe, until no button and no key is down: otherwise
    /// another client would get the release of a press that it has not seen.
    void keepUntilReleased(std::vector<std::unique_ptr<OutputCover>> covers);
    /// Destroys those that are kept.
    void dropKept();
    [[nodiscard]] bool keepsAny() const { return !m_kept.empty(); }

    /// Where a pick has ended.
    struct Position
    {
        /// The number by which the registry names the output.
        std::uint32_t output;
        QPointF pixel;
    };

    WaylandConnection& connection;
    WaylandSeat& seat;
    CoverShell shell;
    WaylandClipboard clipboard;
    std::vector<std::unique_ptr<ScreenCapture>> captures;
    /// None before the first pick.
    std::optional<Position> lastPosition;

private:
    std::vector<std::unique_ptr<OutputCover>> m_kept;
};

} // namespace tintwick

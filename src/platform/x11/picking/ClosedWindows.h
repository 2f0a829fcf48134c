#pragma once

#include "XcbConnection.h"

#include <QObject>
#include <QRegion>

#include <chrono>
#include <vector>

namespace tintwick {

/// Records the areas of our windows that have just closed. A compositor shows them for another frame or fades them out,
/// so these pixels will change although no window is left.
class ClosedWindows final : public QObject
{
    Q_OBJECT

public:
    /// The application object must exist; the connection must outlive this object.
    explicit ClosedWindows(const XcbConnection& connection);

    /// The areas of our windows that closed within the last second, with their shadows, in root coordinates.
    [[nodiscard]] QRegion region() const;
    /// A window that the toolkit does not know has just closed.
    void add(const QRect& frame);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct ClosedWindow
    {
        QRect area;
        std::chrono::steady_clock::time_point when;
    };

    const XcbConnection& m_connection;
    std::vector<ClosedWindow> m_windows;
};

} // namespace tintwick

#pragma once

#include "ScreenCapture.h"
#include "WaylandConnection.h"

#include <QObject>

#include <memory>
#include <vector>

namespace tintwick {

/// Pictures by KWin's own interface on the session bus (org.kde.KWin.ScreenShot2). KWin allows it to programs whose
/// desktop entry asks for the interface.
class KWinCapture final : public ScreenCapture
{
public:
    /// The connection must outlive the object.
    explicit KWinCapture(WaylandConnection& connection);
    ~KWinCapture() override;

    void start(const std::vector<WaylandOutput*>& outputs, Done done) override;
    void cancel() override;

private:
    class Monitor;

    void finishWhenComplete();
    void finish();

    WaylandConnection& m_connection;
    std::vector<std::unique_ptr<Monitor>> m_monitors;
    Done m_done;
    QObject m_context;
};

} // namespace tintwick

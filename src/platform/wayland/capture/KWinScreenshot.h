#pragma once

#include "CaptureOutcome.h"
#include "PipeReader.h"

#include <QImage>
#include <QObject>
#include <QSize>
#include <QString>
#include <QTimer>

#include <cstddef>
#include <functional>
#include <span>

class QDBusPendingCallWatcher;

namespace tintwick {

/// One picture of one monitor from org.kde.KWin.ScreenShot2. KWin writes the pixels into a pipe.
class KWinScreenshot final : public QObject
{
    Q_OBJECT

public:
    struct Layout
    {
        /// In physical pixels.
        QSize size;
        /// Bytes from one row to the next.
        int stride = 0;
        QImage::Format format = QImage::Format_Invalid;
    };
    /// Returns the memory for a picture of this layout, stride × height bytes, which must stay until the screenshot has
    /// ended; empty when the picture is of no use.
    using Allocate = std::function<std::span<std::byte>(const Layout& layout)>;

    explicit KWinScreenshot(QObject* parent = nullptr);

    /// Asks for the monitor with this name of its connector, without the pointer. Call once.
    void take(const QString& output, Allocate allocate);

Q_SIGNALS:
    /// Emitted once, from the event loop. When the outcome is Taken the picture is in the memory.
    void ended(tintwick::CaptureOutcome outcome);

private:
    void takeReply(QDBusPendingCallWatcher* call);
    void end(CaptureOutcome outcome);

    PipeReader m_pipe;
    Allocate m_allocate;
    QTimer m_deadline;
    bool m_hasEnded = false;
};

} // namespace tintwick

#pragma once

#include "PortalRequest.h"

#include <QImage>
#include <QTimer>

#include <chrono>

namespace tintwick {

/// One picture of all monitors from the portal org.freedesktop.portal.Screenshot. The desktop may ask the user for the
/// permission first.
class ScreenshotRequest final : public PortalRequest
{
    Q_OBJECT

public:
    /// Meanwhile the user may read a question of the desktop.
    static constexpr std::chrono::minutes usualPatience{2};

    explicit ScreenshotRequest(QObject* parent = nullptr);

    /// Call once. Emits failed() and closes the question when there is no answer in this time.
    void takeScreenshot(std::chrono::milliseconds patience = usualPatience);

Q_SIGNALS:
    /// The smallest rectangle with all monitors. The desktop chooses the pixels per logical unit.
    void taken(const QImage& picture);
    void cancelled();
    /// The permission is denied, the desktop could not take the picture or does not answer, or the picture cannot be read.
    void failed();

private:
    void takeAnswer(Answer answer, const QVariantMap& results) override;
    void takeFile(const QString& path);

    QTimer m_deadline{this};
};

} // namespace tintwick

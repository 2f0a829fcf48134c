#pragma once

#include "PortalRequest.h"

#include <QImage>

namespace tintwick {

/// One picture of all monitors from the portal org.freedesktop.portal.Screenshot. The desktop may ask the user for the
/// permission first.
class ScreenshotRequest final : public PortalRequest
{
    Q_OBJECT

public:
    explicit ScreenshotRequest(QObject* parent = nullptr);

    /// Call once.
    void takeScreenshot();

Q_SIGNALS:
    /// The smallest rectangle with all monitors. The desktop chooses the pixels per logical unit.
    void taken(const QImage& picture);
    void cancelled();
    /// The permission is denied, the desktop could not take the picture, or the picture cannot be read.
    void failed();

private:
    void takeAnswer(Answer answer, const QVariantMap& results) override;
    void takeFile(const QString& path);
};

} // namespace tintwick

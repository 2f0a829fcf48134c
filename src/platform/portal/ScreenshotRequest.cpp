#include "ScreenshotRequest.h"

#include "Portal.h"

#include <QFile>
#include <QImageReader>
#include <QUrl>

namespace tintwick {

using namespace Qt::StringLiterals;

ScreenshotRequest::ScreenshotRequest(QObject* parent)
    : PortalRequest(parent)
{
}

void ScreenshotRequest::takeScreenshot()
{
    send([](const QString& token) {
        const QString noParentWindow;
        return portal::call(u"org.freedesktop.portal.Screenshot"_s, u"Screenshot"_s)
               << noParentWindow << QVariantMap{{u"handle_token"_s, token}, {u"interactive"_s, false}};
    });
}

void ScreenshotRequest::takeAnswer(Answer answer, const QVariantMap& results)
{
    const QUrl url(results.value(u"uri"_s).toString());
    if (answer == Answer::Cancelled) {
        Q_EMIT cancelled();
    } else if (answer == Answer::Success && url.isLocalFile()) {
        takeFile(url.toLocalFile());
    } else {
        Q_EMIT failed();
    }
}

void ScreenshotRequest::takeFile(const QString& path)
{
    // The limit of the toolkit is below the picture of some large monitors.
    constexpr int megabytes = 1024;
    QImageReader::setAllocationLimit(megabytes);
    const QImage picture = QImageReader(path, "png").read();
    // The portal leaves the file to its caller.
    QFile::remove(path);
    if (picture.isNull()) {
        Q_EMIT failed();
    } else {
        Q_EMIT taken(picture);
    }
}

} // namespace tintwick

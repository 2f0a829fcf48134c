#include "ScreenshotRequest.h"

#include "Portal.h"

#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QPointer>
#include <QThreadPool>
#include <QUrl>

namespace tintwick {

using namespace Qt::StringLiterals;

ScreenshotRequest::ScreenshotRequest(QObject* parent)
    : PortalRequest(parent)
{
    m_deadline.setSingleShot(true);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        close();
        Q_EMIT failed();
    });
    connect(this, &PortalRequest::unavailable, &m_deadline, &QTimer::stop);
}

void ScreenshotRequest::takeScreenshot(std::chrono::milliseconds patience)
{
    m_deadline.start(patience);
    send([](const QString& token) {
        const QString noParentWindow;
        return portal::call(u"org.freedesktop.portal.Screenshot"_s, u"Screenshot"_s)
               << noParentWindow << QVariantMap{{u"handle_token"_s, token}, {u"interactive"_s, false}};
    });
}

void ScreenshotRequest::takeAnswer(Answer answer, const QVariantMap& results)
{
    m_deadline.stop();
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
    // In another thread, because a large picture takes longer than a frame.
    QThreadPool::globalInstance()->start([path, request = QPointer(this)] {
        const QImage picture = QImageReader(path, "png").read();
        // The portal leaves the file to its caller.
        QFile::remove(path);
        const auto report = [request, picture] {
            if (!request) {
                return;
            }
            if (picture.isNull()) {
                Q_EMIT request->failed();
            } else {
                Q_EMIT request->taken(picture);
            }
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), report);
    });
}

} // namespace tintwick

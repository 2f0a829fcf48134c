#include "shots/Shooting.h"

#include "Appearance.h"
#include "Ticker.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWidget>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// Longer than any animation.
constexpr double settled = 60;

void save(QWidget& view, const QString& path, int scale)
{
    QImage image(view.size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    view.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    painter.end();
    if (!image.save(path)) {
        qFatal("cannot write %s", qUtf8Printable(path));
    }
}

} // namespace

void shoot(const QDir& folder, const QString& name, const std::function<std::unique_ptr<QWidget>()>& make,
           const std::function<void(QWidget&)>& arrange)
{
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        const std::unique_ptr<QWidget> view = make();
        const Appearance appearance(*view, scheme);
        view->setAttribute(Qt::WA_TranslucentBackground);
        view->adjustSize();
        view->show();
        QApplication::processEvents();
        if (arrange) {
            arrange(*view);
        }
        QApplication::processEvents();
        Ticker::shared().advance(settled);
        QApplication::processEvents();
        const QString word = scheme == Scheme::Light ? u"light"_s : u"dark"_s;
        save(*view, folder.filePath(u"%1-%2.png"_s.arg(name, word)), 1);
        save(*view, folder.filePath(u"%1-%2@2x.png"_s.arg(name, word)), 2);
    }
}

} // namespace tintwick

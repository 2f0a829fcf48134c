#include "ColorDrag.h"

#include "PopupWindow.h"

#include <QBitmap>
#include <QCoreApplication>
#include <QCursor>
#include <QDrag>
#include <QDropEvent>
#include <QEvent>
#include <QGuiApplication>
#include <QHoverEvent>
#include <QImage>
#include <QMimeData>
#include <QPixmap>
#include <QPointer>
#include <QRegion>
#include <QStringList>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <optional>
#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

/// Cuts the corners of the window that the toolkit moves with the pointer, where the desktop does not blend windows.
class DragPictureMask final : public QObject
{
public:
    explicit DragPictureMask(QRegion mask)
        : m_mask(std::move(mask))
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && watched->inherits("QShapedPixmapWindow")) {
            static_cast<QWindow*>(watched)->setMask(m_mask);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QRegion m_mask;
};

/// The picture with pixels that are either opaque or transparent: the toolkit paints it on white there.
QImage withoutSoftEdges(const QPixmap& picture)
{
    constexpr int halfOpaque = 0x80;
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(line, line + image.width(), line, [](QRgb pixel) {
            return qAlpha(pixel) < halfOpaque ? qRgba(0, 0, 0, 0) : pixel | qRgb(0, 0, 0);
        });
    }
    return image;
}

/// The opaque pixels, in points.
QRegion opaquePart(const QImage& picture)
{
    const QSize points = picture.deviceIndependentSize().toSize();
    return QBitmap::fromImage(picture.scaled(points).createAlphaMask());
}

/// Where the pointer is now. On Wayland the toolkit does not learn that before the pointer enters a window of ours.
QHoverEvent* hoverAfterDrag(const QWidget& source)
{
    if (QGuiApplication::platformName().startsWith("wayland"_L1)) {
        constexpr QPointF outside(-1, -1);
        return new QHoverEvent(QEvent::HoverLeave, outside, outside, outside);
    }
    const QPointF global = QCursor::pos();
    const QPointF now = source.mapFromGlobal(global);
    return new QHoverEvent(QEvent::HoverMove, now, global, now);
}

} // namespace

void dragColors(QWidget& source, const QList<QUuid>& ids, const QPixmap& picture, QPoint hotSpot)
{
    QStringList lines;
    for (const QUuid& id : ids) {
        lines.append(id.toString(QUuid::WithoutBraces).toUpper());
    }
    auto* data = new QMimeData;
    data->setText(lines.join(u'\n'));
    auto* drag = new QDrag(&source);
    drag->setMimeData(data);
    std::optional<DragPictureMask> mask;
    if (desktopBlends()) {
        drag->setPixmap(picture);
    } else {
        const QImage cut = withoutSoftEdges(picture);
        drag->setPixmap(QPixmap::fromImage(cut));
        mask.emplace(opaquePart(cut));
    }
    drag->setHotSpot(hotSpot);
    const QPointer<QWidget> remaining(&source);
    drag->exec(Qt::CopyAction);
    if (remaining) {
        // The toolkit will report the move that started the drag as a hover. This report follows it.
        QCoreApplication::postEvent(&source, hoverAfterDrag(source));
    }
}

bool carriesText(const QMimeData& data)
{
    return data.hasText() && !data.hasUrls();
}

void acceptAsCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

QList<QUuid> droppedColorIds(const QMimeData& data)
{
    QList<QUuid> ids;
    const QStringList lines = data.text().split(u'\n');
    for (const QString& line : lines) {
        // QUuid accepts several forms, but the payload has only the canonical one.
        const QString text = line.trimmed();
        const auto id = QUuid::fromString(text);
        if (!id.isNull() && id.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) == 0) {
            ids.append(id);
        }
    }
    return ids;
}

} // namespace tintwick

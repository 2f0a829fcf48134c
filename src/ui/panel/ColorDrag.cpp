#include "ColorDrag.h"

#include <QDrag>
#include <QMimeData>
#include <QPixmap>
#include <QStringList>
#include <QWidget>

namespace tintwick {

void dragColor(QWidget& source, const CapturedColor& color, const QPixmap& picture, QPoint hotSpot)
{
    auto* data = new QMimeData;
    data->setText(color.id.toString(QUuid::WithoutBraces).toUpper());
    auto* drag = new QDrag(&source);
    drag->setMimeData(data);
    drag->setPixmap(picture);
    drag->setHotSpot(hotSpot);
    drag->exec(Qt::CopyAction);
}

bool carriesText(const QMimeData& data)
{
    return data.hasText() && !data.hasUrls();
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

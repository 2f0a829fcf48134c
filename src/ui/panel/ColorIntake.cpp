#include "ColorIntake.h"

#include "AppState.h"
#include "ColorsInText.h"
#include "ImportFiles.h"
#include "Overlay.h"
#include "PictureColors.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QShortcut>

namespace tintwick {

using namespace Qt::StringLiterals;

ColorIntake::ColorIntake(AppState& appState, QWidget& panel)
    : QObject(&panel)
    , m_appState(appState)
{
    auto* shortcut =
        new QShortcut(QKeySequence::Paste, &panel, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, &panel] {
        if (const QMimeData* content = QGuiApplication::clipboard()->mimeData();
            content != nullptr && Overlay::of(panel) == nullptr) {
            paste(*content);
        }
    });
    connect(&m_appState, &AppState::changeMade, this, [this] { setRemark({}); });
    connect(&m_appState, &AppState::changeUndone, this, [this] { setRemark({}); });
}

void ColorIntake::paste(const QMimeData& content)
{
    if (const QStringList files = localFilesIn(content); !files.isEmpty()) {
        Q_EMIT filesPasted(files);
        return;
    }
    const TextColors found = colorsInText(content.text(), AppState::historyLimit);
    if (!found.colors.isEmpty()) {
        take(found);
        return;
    }
    const QList<CapturedColor> pictured = content.hasImage()
                                              ? colorsOfPicture(qvariant_cast<QImage>(content.imageData()))
                                              : QList<CapturedColor>();
    if (pictured.isEmpty()) {
        Q_EMIT refused(tr("There are no colors on the clipboard"));
    } else {
        m_appState.importCollection(tr("Picture"), pictured);
    }
}

void ColorIntake::take(const TextColors& found)
{
    m_appState.insertColors(found.colors);
    QStringList remarks;
    if (found.hasMore) {
        remarks += tr("the first %1 colors of the text were taken").arg(found.colors.size());
    }
    if (found.mappedCount > 0 && found.colors.size() == 1) {
        remarks += tr("the color was outside sRGB and is mapped");
    } else if (found.mappedCount > 0) {
        remarks += found.mappedCount == 1 ? tr("1 was outside sRGB and is mapped")
                                          : tr("%1 were outside sRGB and are mapped").arg(found.mappedCount);
    }
    QString sentence = remarks.join(u"; "_s);
    if (!sentence.isEmpty()) {
        sentence[0] = sentence[0].toUpper();
    }
    setRemark(sentence);
}

void ColorIntake::setRemark(const QString& sentence)
{
    if (m_remark != sentence) {
        m_remark = sentence;
        Q_EMIT remarked(sentence);
    }
}

} // namespace tintwick

#include "state/ClipboardService.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>
#include <QUrl>

namespace tintwick {

class ClipboardServiceTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyingReplacesEverythingOnTheClipboard();
    void copyingAnEmptyTextLeavesNoOlderText();
};

void ClipboardServiceTest::copyingReplacesEverythingOnTheClipboard()
{
    auto* older = new QMimeData;
    older->setText(QStringLiteral("older"));
    older->setHtml(QStringLiteral("<b>older</b>"));
    older->setUrls({QUrl(QStringLiteral("file:///older"))});
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(older);

    ClipboardService().copy(QStringLiteral("#3B82F6"));

    QCOMPARE(clipboard->text(), QStringLiteral("#3B82F6"));
    QCOMPARE(clipboard->mimeData()->formats(), QStringList{QStringLiteral("text/plain")});
}

void ClipboardServiceTest::copyingAnEmptyTextLeavesNoOlderText()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("older"));
    ClipboardService().copy(QString());
    QCOMPARE(QGuiApplication::clipboard()->text(), QString());
}

} // namespace tintwick

QTEST_MAIN(tintwick::ClipboardServiceTest)
#include "ClipboardServiceTest.moc"

#include "Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>
#include <QUrl>

namespace tintwick {

class ClipboardTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyingReplacesEverythingOnTheClipboard();
    void copyingAnEmptyTextLeavesNoOlderText();
};

void ClipboardTest::copyingReplacesEverythingOnTheClipboard()
{
    auto* older = new QMimeData;
    older->setText(QStringLiteral("older"));
    older->setHtml(QStringLiteral("<b>older</b>"));
    older->setUrls({QUrl(QStringLiteral("file:///older"))});
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(older);

    Clipboard().copy(QStringLiteral("#3B82F6"));

    QCOMPARE(clipboard->text(), QStringLiteral("#3B82F6"));
    QCOMPARE(clipboard->mimeData()->formats(), QStringList{QStringLiteral("text/plain")});
}

void ClipboardTest::copyingAnEmptyTextLeavesNoOlderText()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("older"));
    Clipboard().copy(QString());
    QCOMPARE(QGuiApplication::clipboard()->text(), QString());
}

} // namespace tintwick

QTEST_MAIN(tintwick::ClipboardTest)
#include "ClipboardTest.moc"

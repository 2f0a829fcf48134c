#include "SaveDialog.h"

#include "ContentType.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>
#include <utility>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

const QColor darkBackground(0x1F, 0x1F, 0x23);

/// A dialog with a dark palette and an empty folder.
struct DarkDialog
{
    DarkDialog()
    {
        QPalette dark;
        dark.setColor(QPalette::Window, darkBackground);
        dialog->setPalette(dark);
    }

    void save() const { dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click(); }

    QTemporaryDir folder;
    /// The paths that the dialog wrote to, and the reason why the next write fails.
    QStringList paths;
    std::optional<QString> failure;
    std::unique_ptr<SaveDialog> dialog = std::make_unique<SaveDialog>(
        ContentType{u"CSS"_s, u"css"_s}, folder.path(), u"a.css"_s, [this](const QString& path) {
            paths.append(path);
            return std::exchange(failure, std::nullopt);
        });
};

QColor backgroundOf(const QWidget& widget)
{
    return widget.palette().color(QPalette::Window);
}

} // namespace

class SaveDialogTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theConfirmationHasTheDialogPalette();
    void menusHaveTheDialogPalette();
    void theCompletionListHasTheDialogPalette();
    void otherWindowsKeepTheirPalette();
    void aFailedWriteKeepsTheDialogOpenAndShowsTheReason();
    void theDialogCanBeCancelledAfterAFailedWrite();
};

void SaveDialogTest::theConfirmationHasTheDialogPalette()
{
    DarkDialog dark;
    QFile there(dark.folder.filePath(u"a.css"_s));
    QVERIFY(there.open(QIODevice::WriteOnly));
    dark.dialog->showOn(*QGuiApplication::primaryScreen());
    const auto* buttons = dark.dialog->findChild<QDialogButtonBox*>();
    QVERIFY(buttons != nullptr);
    buttons->button(QDialogButtonBox::Save)->click();
    const auto questions = dark.dialog->findChildren<QMessageBox*>();
    QCOMPARE(questions.size(), 1);
    QVERIFY(questions.first()->isVisible());
    QCOMPARE(backgroundOf(*questions.first()), darkBackground);
}

void SaveDialogTest::menusHaveTheDialogPalette()
{
    const DarkDialog dark;
    dark.dialog->showOn(*QGuiApplication::primaryScreen());
    QMenu menu(dark.dialog->findChild<QDialogButtonBox*>());
    menu.addAction(u"New Folder"_s);
    menu.popup(QPoint());
    QCOMPARE(backgroundOf(menu), darkBackground);
}

void SaveDialogTest::theCompletionListHasTheDialogPalette()
{
    const DarkDialog dark;
    dark.dialog->showOn(*QGuiApplication::primaryScreen());
    const auto* field = dark.dialog->findChild<QLineEdit*>();
    QVERIFY(field != nullptr);
    QAbstractItemView* names = field->completer()->popup();
    names->show();
    QCOMPARE(backgroundOf(*names), darkBackground);
}

void SaveDialogTest::otherWindowsKeepTheirPalette()
{
    const DarkDialog dark;
    dark.dialog->showOn(*QGuiApplication::primaryScreen());
    QWidget panel;
    QMenu menu(&panel);
    menu.addAction(u"Delete"_s);
    menu.popup(QPoint());
    QCOMPARE(backgroundOf(menu), QApplication::palette().color(QPalette::Window));
    QVERIFY(backgroundOf(menu) != darkBackground);
}

void SaveDialogTest::aFailedWriteKeepsTheDialogOpenAndShowsTheReason()
{
    DarkDialog dark;
    const QSignalSpy finished(dark.dialog.get(), &SaveDialog::finished);
    dark.dialog->showOn(*QGuiApplication::primaryScreen());
    dark.failure = u"Permission denied"_s;
    dark.save();
    QCOMPARE(dark.paths, QStringList{dark.folder.filePath(u"a.css"_s)});
    QVERIFY(dark.dialog->isVisible());
    QCOMPARE(finished.count(), 0);
    const auto messages = dark.dialog->findChildren<QMessageBox*>();
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.first()->isVisible());
    QCOMPARE(messages.first()->text(), u"a.css cannot be saved.\nPermission denied"_s);
    QCOMPARE(backgroundOf(*messages.first()), darkBackground);

    messages.first()->button(QMessageBox::Ok)->click();
    QVERIFY(dark.dialog->isVisible());
    dark.dialog->selectFile(u"b.css"_s);
    dark.save();
    QCOMPARE(dark.paths.last(), dark.folder.filePath(u"b.css"_s));
    QVERIFY(!dark.dialog->isVisible());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), static_cast<int>(QDialog::Accepted));
}

void SaveDialogTest::theDialogCanBeCancelledAfterAFailedWrite()
{
    DarkDialog dark;
    const QSignalSpy finished(dark.dialog.get(), &SaveDialog::finished);
    dark.dialog->showOn(*QGuiApplication::primaryScreen());
    dark.failure = u"Permission denied"_s;
    dark.save();
    dark.dialog->findChild<QMessageBox*>()->button(QMessageBox::Ok)->click();
    dark.dialog->reject();
    QCOMPARE(dark.paths.size(), 1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), static_cast<int>(QDialog::Rejected));
}

QTEST_MAIN(SaveDialogTest)
#include "SaveDialogTest.moc"

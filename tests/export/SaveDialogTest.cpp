#include "SaveDialog.h"

#include "ContentType.h"
#include "SaveRequest.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPixmapCache>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
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

/// The visible dialog, or null.
SaveDialog* openDialog()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<SaveDialog*>(window); dialog && dialog->isVisible()) {
            return dialog;
        }
    }
    return nullptr;
}

} // namespace

class SaveDialogTest final : public QObject
{
    Q_OBJECT

public:
    explicit SaveDialogTest(QString configHome)
        : m_configHome(std::move(configHome))
    {
    }

private Q_SLOTS:
    void theConfirmationHasTheDialogPalette();
    void menusHaveTheDialogPalette();
    void theCompletionListHasTheDialogPalette();
    void otherWindowsKeepTheirPalette();
    void aFailedWriteKeepsTheDialogOpenAndShowsTheReason();
    void theDialogCanBeCancelledAfterAFailedWrite();
    void manyDialogsLeaveNoMemoryBehind();
    void theToolkitKeepsNoRecordOfFolders();

private:
    QString m_configHome;
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

void SaveDialogTest::manyDialogsLeaveNoMemoryBehind()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer keeps freed memory");
#endif
    // Memory of the process's own, without the pages of libraries and caches that the kernel shares.
    const auto ownMegabytes = [] {
        QFile file(u"/proc/self/status"_s);
        const QByteArray status = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        const QByteArray kilobytes = status.mid(status.indexOf("RssAnon:")).simplified().split(' ').value(1);
        return kilobytes.toDouble() / 1024;
    };
    // As in the program.
    QPixmapCache::setCacheLimit(0);
    const double before = ownMegabytes();
    QVERIFY(before > 0);
    for (int i = 0; i < 200; ++i) {
        const QPointer<SaveRequest> request =
            new SaveRequest("text", u"a.css"_s, ContentType{u"CSS"_s, u"css"_s}, {});
        request->begin();
        QTRY_VERIFY(openDialog());
        openDialog()->reject();
        QTRY_VERIFY(!request);
    }
    const double more = ownMegabytes() - before;
    QVERIFY2(more < 4, qPrintable(QString::number(more)));
}

void SaveDialogTest::theToolkitKeepsNoRecordOfFolders()
{
    const QTemporaryDir folder;
    // Dialogs of other tests, which no request has made.
    QFile::remove(m_configHome + u"/QtProject.conf"_s);
    const QString before = QSettings(u"Tintwick"_s, u"Tintwick"_s).fileName();
    const QPointer<SaveRequest> request =
        new SaveRequest("text", u"a.css"_s, ContentType{u"CSS"_s, u"css"_s}, {});
    request->begin();
    QTRY_VERIFY(openDialog());
    openDialog()->setDirectory(folder.path());
    openDialog()->findChild<QLineEdit*>()->setText(folder.filePath(u"a.css"_s));
    static_cast<QDialog*>(openDialog())->accept();
    QTRY_VERIFY(!request);
    QVERIFY(QFile::exists(folder.filePath(u"a.css"_s)));
    QCOMPARE(QDir(m_configHome).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
    // Our own preferences keep their place.
    QCOMPARE(QSettings(u"Tintwick"_s, u"Tintwick"_s).fileName(), before);
}

int main(int argc, char** argv)
{
    // Without a bus the toolkit's dialog is used.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    const QApplication application(argc, argv);
    SaveDialogTest test(home.path());
    return QTest::qExec(&test, argc, argv);
}
#include "SaveDialogTest.moc"

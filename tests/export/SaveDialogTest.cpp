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
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

const QColor darkGround(0x1F, 0x1F, 0x23);

/// A dialog in the colours of a dark panel, over an empty folder.
struct DarkDialog
{
    DarkDialog()
    {
        QPalette dark;
        dark.setColor(QPalette::Window, darkGround);
        dialog->setPalette(dark);
    }

    QTemporaryDir folder;
    std::unique_ptr<SaveDialog> dialog =
        std::make_unique<SaveDialog>(ContentType{u"CSS"_s, u"css"_s}, folder.path(), u"a.css"_s);
};

QColor groundOf(const QWidget& widget)
{
    return widget.palette().color(QPalette::Window);
}

} // namespace

class SaveDialogTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theQuestionWearsWhatTheDialogWears();
    void soDoTheMenusInIt();
    void soDoesTheListOfNames();
    void otherWindowsKeepTheirColors();
};

void SaveDialogTest::theQuestionWearsWhatTheDialogWears()
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
    QCOMPARE(groundOf(*questions.first()), darkGround);
}

void SaveDialogTest::soDoTheMenusInIt()
{
    const DarkDialog dark;
    dark.dialog->showOn(*QGuiApplication::primaryScreen());
    QMenu menu(dark.dialog->findChild<QDialogButtonBox*>());
    menu.addAction(u"New Folder"_s);
    menu.popup(QPoint());
    QCOMPARE(groundOf(menu), darkGround);
}

void SaveDialogTest::soDoesTheListOfNames()
{
    const DarkDialog dark;
    dark.dialog->showOn(*QGuiApplication::primaryScreen());
    const auto* field = dark.dialog->findChild<QLineEdit*>();
    QVERIFY(field != nullptr);
    QAbstractItemView* names = field->completer()->popup();
    names->show();
    QCOMPARE(groundOf(*names), darkGround);
}

void SaveDialogTest::otherWindowsKeepTheirColors()
{
    const DarkDialog dark;
    dark.dialog->showOn(*QGuiApplication::primaryScreen());
    QWidget panel;
    QMenu menu(&panel);
    menu.addAction(u"Delete"_s);
    menu.popup(QPoint());
    QCOMPARE(groundOf(menu), QApplication::palette().color(QPalette::Window));
    QVERIFY(groundOf(menu) != darkGround);
}

QTEST_MAIN(SaveDialogTest)
#include "SaveDialogTest.moc"

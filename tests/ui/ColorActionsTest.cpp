#include "ColorActions.h"
#include "AppState.h"
#include "support/QuickTemporaryDir.h"
#include "ui/Probes.h"

#include <QClipboard>
#include <QColor>
#include <QFile>
#include <QGuiApplication>
#include <QTest>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

CapturedColor dodgerBlue()
{
    CapturedColor color = CapturedColor::capture(59 / 255.0, 130 / 255.0, 246 / 255.0, 1);
    color.customName = u"Dodger Blue"_s;
    return color;
}

QStringList titles(const QList<MenuEntry>& entries)
{
    QStringList result;
    for (const MenuEntry& entry : entries) {
        result.append(entry.title);
    }
    return result;
}

} // namespace

class ColorActionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aSwatchIsLabeledAndSpoken();
    void paintKeepsToWhatCanBeShown();
    void aCopyIsOnTheClipboardAndSaid();
    void everyFormatIsOffered();
    void choosingAFormatCopiesInIt();
    void everyCollectionIsOffered();

private:
    std::unique_ptr<QTemporaryDir> m_dataHome;
};

void ColorActionsTest::init()
{
    m_dataHome = test::quickTemporaryDir();
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_dataHome->path()));
}

void ColorActionsTest::aSwatchIsLabeledAndSpoken()
{
    CapturedColor color = dodgerBlue();
    QCOMPARE(swatchLabel(color), u"3B82F6"_s);
    QCOMPARE(spokenName(color), u"Dodger Blue, #3B82F6"_s);
    color.customName.reset();
    QCOMPARE(spokenName(color), u"#3B82F6"_s);
}

void ColorActionsTest::paintKeepsToWhatCanBeShown()
{
    QCOMPARE(paintColor(dodgerBlue()).rgba(), qRgba(59, 130, 246, 255));
    CapturedColor wild = dodgerBlue();
    wild.red = 7;
    wild.green = -1;
    wild.alpha = 0.5;
    QCOMPARE(paintColor(wild).rgba(), qRgba(255, 0, 246, 128));
    wild.alpha = 3;
    QCOMPARE(paintColor(wild).rgba(), qRgba(255, 0, 246, 255));
}

void ColorActionsTest::aCopyIsOnTheClipboardAndSaid()
{
    AppState state;
    copyWithFeedback(state, ColorFormat::Rgb, dodgerBlue());
    QCOMPARE(QGuiApplication::clipboard()->text(), u"rgb(59, 130, 246)"_s);
    QVERIFY(state.showCopiedFeedback());
    QCOMPARE(state.lastCopiedString(), u"rgb(59, 130, 246)"_s);
}

void ColorActionsTest::everyFormatIsOffered()
{
    AppState state;
    const MenuEntry menu = copyAsMenu(state, dodgerBlue());
    QCOMPARE(menu.kind, MenuEntry::Kind::Submenu);
    QCOMPARE(menu.title, u"Copy as…"_s);
    QCOMPARE(titles(menu.children), test::formatTitles().replaceInStrings(QStringLiteral("-"), QString()));
    QCOMPARE(menu.children.at(2).detail, u"rgb(59, 130, 246)"_s);
    QCOMPARE(menu.children.at(10).detail, u"oklch(62.308% 0.18801 259.815)"_s);
}

void ColorActionsTest::choosingAFormatCopiesInIt()
{
    AppState state;
    copyAsMenu(state, dodgerBlue()).children.at(4).action();
    QCOMPARE(QGuiApplication::clipboard()->text(), u"hsl(217, 91%, 60%)"_s);
    QVERIFY(state.showCopiedFeedback());
}

void ColorActionsTest::everyCollectionIsOffered()
{
    AppState state;
    const CapturedColor color = dodgerBlue();
    state.createCollection(u"Brand"_s);
    state.createCollection(u"Salt & Pepper"_s);
    const MenuEntry menu = addToCollectionMenu(state, color, u"Add to Palette…"_s);
    QCOMPARE(menu.title, u"Add to Palette…"_s);
    QCOMPARE(titles(menu.children), (QStringList{u"Brand"_s, u"Salt & Pepper"_s}));
    menu.children.at(1).action();
    QCOMPARE(state.collections().at(1).colorIds, QList<QUuid>{color.id});
    QVERIFY(state.collections().at(0).colorIds.isEmpty());
}

QTEST_MAIN(ColorActionsTest)
#include "ColorActionsTest.moc"

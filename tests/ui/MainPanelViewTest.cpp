#include "ui/MainPanelView.h"

#include "ui/Appearance.h"
#include "ui/CollectionDetailView.h"
#include "ui/CollectionRowCard.h"
#include "ui/CopiedPill.h"
#include "ui/HistoryDetailView.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"
#include "ui/kit/Button.h"
#include "ui/kit/Clickable.h"
#include "ui/kit/ScrollArea.h"

#include <QScrollBar>
#include <QSettings>

using namespace tintwick;
using tintwick::test::PanelFixture;

class MainPanelViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theAppearanceButtonTellsAndCycles_data();
    void theAppearanceButtonTellsAndCycles();
    void autoFollowsTheDesktop();
    void autoFollowsThePaletteWhereTheDesktopSaysNothing();
    void aChosenAppearanceDoesNot();
    void onALowScreenThePageEndsWithThePanel();
    void thePillComesWithACopyAndFadesAway();
    void thePillLeavesTheAppearanceButtonWhereItIs();
    void seeAllOpensTheHistoryAndTheTitleLeadsBack();
    void aCardOpensItsCollection();
    void aSelectionOfNothingShowsTheDashboard();
    void aCollectionThatIsDeletedGivesWayToTheDashboard();
    void theGearOpensTheSettingsAndDoneClosesThem();
    void theSettingsComeBackToWhereTheyWereOpened();
    void whoOnlyClicksSeesNoFocusRing();
    void thePillIsNotInTheSettings();
    void aLongNameLeavesTheButtonsTheirPlace();
    void altLeftLeadsBack();
    void theHeaderFadesFromOneScreenToTheOther();

private:
    static QAbstractButton* button(const PanelFixture& panel, const QString& name);
    static QAbstractButton* toggle(const PanelFixture& panel);
};

namespace {

const QString key = QStringLiteral("colorSchemePref");

QRgb ground(const PanelFixture& panel)
{
    return panel.picture().pixel(5, 300);
}

constexpr QRgb light = qRgb(0xF5, 0xF5, 0xF7);
constexpr QRgb dark = qRgb(0x1F, 0x1F, 0x23);

} // namespace

QAbstractButton* MainPanelViewTest::button(const PanelFixture& panel, const QString& name)
{
    panel.settle();
    for (auto* candidate : panel.view->findChildren<QAbstractButton*>()) {
        if (candidate->accessibleName() == name && candidate->isVisible()) {
            return candidate;
        }
    }
    return nullptr;
}

QAbstractButton* MainPanelViewTest::toggle(const PanelFixture& panel)
{
    for (auto* candidate : panel.view->findChildren<PlainButton*>()) {
        if (candidate->accessibleName().startsWith(QStringLiteral("Appearance"))) {
            return candidate;
        }
    }
    return nullptr;
}

void MainPanelViewTest::init()
{
    QSettings().clear();
}

void MainPanelViewTest::theAppearanceButtonTellsAndCycles_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("help");
    QTest::addColumn<QString>("next");
    const auto help = [](const char* current) {
        return QStringLiteral("Appearance: %1 — click to cycle").arg(QLatin1StringView(current));
    };
    QTest::newRow("auto") << QStringLiteral("auto") << help("Auto") << QStringLiteral("light");
    QTest::newRow("light") << QStringLiteral("light") << help("Light") << QStringLiteral("dark");
    QTest::newRow("dark") << QStringLiteral("dark") << help("Dark") << QStringLiteral("auto");
    QTest::newRow("unknown") << QStringLiteral("sepia") << help("Auto") << QStringLiteral("light");
    QTest::newRow("another case") << QStringLiteral("Dark") << help("Auto") << QStringLiteral("light");
}

void MainPanelViewTest::theAppearanceButtonTellsAndCycles()
{
    QFETCH(const QString, stored);
    QFETCH(const QString, help);
    QFETCH(const QString, next);
    QSettings().setValue(key, stored);
    const PanelFixture panel;
    QCOMPARE(toggle(panel)->toolTip(), help);
    QTest::mouseClick(toggle(panel), Qt::LeftButton);
    QCOMPARE(QSettings().value(key).toString(), next);
}

void MainPanelViewTest::autoFollowsTheDesktop()
{
    const PanelFixture panel;
    QCOMPARE(ground(panel), light);
    panel.view->setSystemScheme(Scheme::Dark);
    QCOMPARE(ground(panel), dark);
    panel.view->setSystemScheme(Scheme::Light);
    QCOMPARE(ground(panel), light);
}

void MainPanelViewTest::autoFollowsThePaletteWhereTheDesktopSaysNothing()
{
    const QPalette before = QApplication::palette();
    const PanelFixture panel;
    // As in the program, where the window is another widget.
    QWidget window;
    panel.view->setParent(&window);
    window.show();
    panel.view->show();
    panel.view->setSystemScheme(std::nullopt);
    QPalette night = before;
    night.setColor(QPalette::Window, QColor(30, 30, 30));
    night.setColor(QPalette::WindowText, QColor(220, 220, 220));
    QApplication::setPalette(night);
    const QRgb atNight = ground(panel);
    QApplication::setPalette(before);
    const QRgb byDay = ground(panel);
    panel.view->setParent(nullptr);
    QCOMPARE(atNight, dark);
    QCOMPARE(byDay, light);
}

void MainPanelViewTest::onALowScreenThePageEndsWithThePanel()
{
    PanelFixture panel;
    for (int i = 0; i < 3; ++i) {
        panel.state.createCollection(QString::number(i));
    }
    const auto* page = panel.dashboard().findChild<ScrollArea*>();
    panel.settle();
    QCOMPARE(page->mapTo(panel.view.get(), QPoint(0, page->height())), QPoint(0, 580));
    panel.view->resize(380, 300);
    panel.settle();
    QCOMPARE(page->mapTo(panel.view.get(), QPoint(0, page->height())), QPoint(0, 300));
    QVERIFY(page->verticalScrollBar()->maximum() > 0);
}

void MainPanelViewTest::aChosenAppearanceDoesNot()
{
    QSettings().setValue(key, QStringLiteral("dark"));
    const PanelFixture panel;
    QCOMPARE(ground(panel), dark);
    panel.view->setSystemScheme(Scheme::Dark);
    panel.view->setSystemScheme(Scheme::Light);
    QCOMPARE(ground(panel), dark);
    QTest::mouseClick(toggle(panel), Qt::LeftButton);
    QCOMPARE(ground(panel), light);
}

void MainPanelViewTest::thePillComesWithACopyAndFadesAway()
{
    PanelFixture panel;
    const auto* pill = panel.view->findChild<CopiedPill*>();
    panel.settle();
    QVERIFY(!pill->isVisible());

    panel.capture(0x3B82F6);
    QVERIFY(pill->isVisible());
    panel.settle();
    QVERIFY(pill->isVisible());

    panel.letFeedbackEnd();
    Ticker::shared().advance(0.09);
    QVERIFY(pill->isVisible());
    Ticker::shared().advance(0.1);
    QVERIFY(!pill->isVisible());
    QVERIFY(!Ticker::shared().hasMotion());
}

void MainPanelViewTest::thePillLeavesTheAppearanceButtonWhereItIs()
{
    PanelFixture panel;
    panel.settle();
    const QRect before(toggle(panel)->mapTo(panel.view.get(), QPoint(0, 0)), toggle(panel)->size());
    QCOMPARE(before, QRect(296, 10, 30, 30));
    panel.capture(0x3B82F6);
    panel.settle();
    QCOMPARE(QRect(toggle(panel)->mapTo(panel.view.get(), QPoint(0, 0)), toggle(panel)->size()), before);
    const auto* pill = panel.view->findChild<CopiedPill*>();
    QCOMPARE(pill->mapTo(panel.view.get(), QPoint(pill->width(), 0)).x(), 296 - 10);
}

void MainPanelViewTest::seeAllOpensTheHistoryAndTheTitleLeadsBack()
{
    PanelFixture panel;
    panel.capture(0x3B82F6);
    QVERIFY(panel.dashboard().isVisible());
    QTest::mouseClick(button(panel, QStringLiteral("Recent History, See all")), Qt::LeftButton);
    QVERIFY(qobject_cast<HistoryDetailView*>(&panel.view->screen()));
    QVERIFY(panel.view->screen().isVisible());
    QVERIFY(!panel.dashboard().isVisible());
    QTest::mouseClick(button(panel, QStringLiteral("Back from All History")), Qt::LeftButton);
    QCOMPARE(&panel.view->screen(), &panel.dashboard());
    QVERIFY(panel.dashboard().isVisible());
    QVERIFY(!button(panel, QStringLiteral("Back from All History")));
}

void MainPanelViewTest::aCardOpensItsCollection()
{
    PanelFixture panel;
    panel.state.createCollection(QStringLiteral("Sea"));
    panel.state.createCollection(QStringLiteral("Sand"));
    panel.settle();
    QTest::mouseClick(panel.dashboard().cards()[1], Qt::LeftButton);
    QVERIFY(qobject_cast<CollectionDetailView*>(&panel.view->screen()));
    QVERIFY(button(panel, QStringLiteral("Back from Sand")));
}

void MainPanelViewTest::aSelectionOfNothingShowsTheDashboard()
{
    const PanelFixture panel;
    panel.view->setSelectedCollectionId(QUuid::createUuid());
    QCOMPARE(&panel.view->screen(), &panel.dashboard());
    QVERIFY(button(panel, QStringLiteral("Back from Palette")));
}

void MainPanelViewTest::aCollectionThatIsDeletedGivesWayToTheDashboard()
{
    PanelFixture panel;
    const ColorCollection sea = panel.state.createCollection(QStringLiteral("Sea"));
    panel.view->setSelectedCollectionId(sea.id);
    panel.settle();
    panel.state.deleteCollection(sea.id);
    panel.settle();
    QCOMPARE(&panel.view->screen(), &panel.dashboard());
    QVERIFY(panel.dashboard().isVisible());
}

void MainPanelViewTest::theGearOpensTheSettingsAndDoneClosesThem()
{
    const PanelFixture panel;
    QTest::mouseClick(button(panel, QStringLiteral("Settings")), Qt::LeftButton);
    QVERIFY(&panel.view->screen() != &panel.dashboard());
    QVERIFY(!panel.dashboard().isVisible());
    QVERIFY(!button(panel, QStringLiteral("Settings")));
    QVERIFY(!toggle(panel)->isVisible());
    QTest::mouseClick(button(panel, QStringLiteral("Done")), Qt::LeftButton);
    QVERIFY(panel.dashboard().isVisible());
    QVERIFY(toggle(panel)->isVisible());
    QVERIFY(!button(panel, QStringLiteral("Done")));
}

void MainPanelViewTest::theSettingsComeBackToWhereTheyWereOpened()
{
    const PanelFixture panel;
    panel.view->setSelectedCollectionId(MainPanelView::historySelectionId);
    panel.view->setShowingSettings(true);
    QVERIFY(!button(panel, QStringLiteral("Back from All History")));
    panel.view->setShowingSettings(false);
    QVERIFY(qobject_cast<HistoryDetailView*>(&panel.view->screen()));
    QVERIFY(button(panel, QStringLiteral("Back from All History")));
}

void MainPanelViewTest::whoOnlyClicksSeesNoFocusRing()
{
    const PanelFixture panel;
    const auto showsRing = [&] {
        const auto* focused = dynamic_cast<const Clickable*>(panel.view->focusWidget());
        return focused != nullptr && focused->showsFocusRing();
    };
    toggle(panel)->setFocus(Qt::ActiveWindowFocusReason);
    QTest::mouseClick(button(panel, QStringLiteral("Settings")), Qt::LeftButton);
    QVERIFY(!showsRing());
    QTest::mouseClick(button(panel, QStringLiteral("Done")), Qt::LeftButton);
    QVERIFY(panel.view->focusWidget());
    QVERIFY(!showsRing());

    button(panel, QStringLiteral("Settings"))->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button(panel, QStringLiteral("Settings")), Qt::Key_Return);
    QVERIFY(showsRing());
}

void MainPanelViewTest::thePillIsNotInTheSettings()
{
    PanelFixture panel;
    panel.view->setShowingSettings(true);
    panel.capture(0x3B82F6);
    panel.settle();
    QVERIFY(!panel.view->findChild<CopiedPill*>()->isVisible());
    panel.view->setShowingSettings(false);
    panel.settle();
    QVERIFY(panel.view->findChild<CopiedPill*>()->isVisible());
}

void MainPanelViewTest::aLongNameLeavesTheButtonsTheirPlace()
{
    PanelFixture panel;
    const QString name = QStringLiteral("Everything that was ever picked in the long summer by the sea");
    const ColorCollection collection = panel.state.createCollection(name);
    panel.view->setSelectedCollectionId(collection.id);
    panel.capture(0x3B82F6);
    panel.settle();
    QCOMPARE(toggle(panel)->mapTo(panel.view.get(), QPoint(0, 0)), QPoint(296, 10));
    QCOMPARE(button(panel, QStringLiteral("Settings"))->mapTo(panel.view.get(), QPoint(0, 0)),
             QPoint(336, 10));
    const QAbstractButton* back = button(panel, QStringLiteral("Back from ") + name);
    QCOMPARE(back->mapTo(panel.view.get(), QPoint(0, 0)).x(), 14);
    QCOMPARE(back->toolTip(), name);
    const auto* pill = panel.view->findChild<CopiedPill*>();
    QVERIFY(back->mapTo(panel.view.get(), QPoint(back->width(), 0)).x() <=
            pill->mapTo(panel.view.get(), QPoint(0, 0)).x() - 10);
}

void MainPanelViewTest::altLeftLeadsBack()
{
    const PanelFixture panel;
    panel.view->setSelectedCollectionId(MainPanelView::historySelectionId);
    panel.view->setShowingSettings(true);
    QTest::keyClick(panel.view.get(), Qt::Key_Left, Qt::AltModifier);
    QVERIFY(qobject_cast<HistoryDetailView*>(&panel.view->screen()));
    QTest::keyClick(panel.view.get(), Qt::Key_Left, Qt::AltModifier);
    QVERIFY(panel.dashboard().isVisible());
}

void MainPanelViewTest::theHeaderFadesFromOneScreenToTheOther()
{
    const PanelFixture panel;
    const auto header = [&panel] { return panel.view->grab(QRect(0, 0, 380, 50)).toImage(); };
    panel.settle();
    const QImage before = header();
    panel.view->setShowingSettings(true);
    QApplication::processEvents();
    QCOMPARE(header(), before);
    Ticker::shared().advance(0.09);
    const QImage between = header();
    panel.settle();
    const QImage after = header();
    QVERIFY(between != before);
    QVERIFY(between != after);
    QVERIFY(after != before);
    QVERIFY(!Ticker::shared().hasMotion());
}

int main(int argc, char** argv)
{
    return tintwick::test::runWithOwnHome<MainPanelViewTest>(argc, argv);
}
#include "MainPanelViewTest.moc"

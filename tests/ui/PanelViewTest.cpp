#include "PanelView.h"

#include "ActionPill.h"
#include "Appearance.h"
#include "Button.h"
#include "Clickable.h"
#include "CollectionDetailView.h"
#include "CollectionRowCard.h"
#include "ColorDetailRow.h"
#include "ColorScreen.h"
#include "ContrastScreen.h"
#include "CopiedPill.h"
#include "DashboardSwatchView.h"
#include "HistoryDetailView.h"
#include "NoticeView.h"
#include "OpenSaveRequests.h"
#include "Overlay.h"
#include "PanelNavigation.h"
#include "RenameColorOverlay.h"
#include "ScrollArea.h"
#include "Stack.h"
#include "SwatchView.h"
#include "ui/Contrast.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"
#include "ui/Probes.h"

#include <QAccessible>
#include <QDesktopServices>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUrl>

using namespace tintwick;
using namespace Qt::StringLiterals;
using tintwick::test::choose;
using tintwick::test::contextMenu;
using tintwick::test::PanelFixture;

class PanelViewTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void appearanceButtonShowsAndCyclesTheScheme_data();
    void appearanceButtonShowsAndCyclesTheScheme();
    void autoFollowsTheDesktop();
    void autoFollowsThePaletteWithoutADesktopPreference();
    void chosenSchemeIgnoresTheDesktop();
    void screenFitsALowPanel();
    void pillAppearsAfterACopyAndFades();
    void pillDoesNotMoveTheAppearanceButton();
    void seeAllOpensTheHistoryAndTheTitleGoesBack();
    void cardOpensItsCollection();
    void noSelectionShowsTheDashboard();
    void deletedCollectionIsReplacedByTheDashboard();
    void gearOpensTheSettingsAndDoneClosesThem();
    void closingTheSettingsReturnsToTheScreenBefore();
    void clicksShowNoFocusRing();
    void pillIsHiddenInTheSettings();
    void longNameDoesNotMoveTheButtons();
    void altLeftGoesBack();
    void aColorOpensAboveTheScreenThatShowsIt_data();
    void aColorOpensAboveTheScreenThatShowsIt();
    void backFromAColorReturnsToWhatWasShown();
    void contrastOpensFromTheMenuOfAColor();
    void altLeftGoesBackFromAFocusedControl_data();
    void altLeftGoesBackFromAFocusedControl();
    void headerAndScreenFadeTogether_data();
    void headerAndScreenFadeTogether();
    void textLeavesRoomInsideItsControl();
    void titleOfADeletedCollectionIsPalette();
    void nameOfSeveralLinesBecomesATitleOfOne();
    void everyControlHasANameAndARole_data();
    void everyControlHasANameAndARole();
    void keyboardFocusFollowsTheScreenAndReturns_data();
    void keyboardFocusFollowsTheScreenAndReturns();
    void noFocusRingAfterAClick();
    void noControlHasFocusBeforeTab();
    void pinShowsWhetherThePanelIsKeptOpen();
    void noticeIsShownBelowTheHeader();
    void everyTextHasEnoughContrast_data();
    void everyTextHasEnoughContrast();
    void aFailedSaveIsToldUntilOneSucceeds();
    void anUnreadableFileIsToldUntilThePanelIsHidden();
    void aSavedFileIsNamedAndItsFolderIsOneClickAway();
    void droppedFilesBecomePalettes();
    void filesDroppedOnACardAreImported();
    void ctrlOAsksForFilesToImport();
    void theButtonOfANoticeShowsTheFolder();
    void aShortNoticeHasRoomForItsButton();

private:
    static QAbstractButton* button(const PanelFixture& panel, const QString& name);
    static QAbstractButton* toggle(const PanelFixture& panel);
};

namespace {

using namespace Qt::StringLiterals;

const QString key = QStringLiteral("colorSchemePref");

/// Takes the place of the desktop's file manager.
class FileManager final : public QObject
{
    Q_OBJECT

public:
    FileManager() { QDesktopServices::setUrlHandler(u"file"_s, this, "show"); }
    ~FileManager() override { QDesktopServices::unsetUrlHandler(u"file"_s); }

    QList<QUrl> shown;

public Q_SLOTS:
    void show(const QUrl& url) { shown.append(url); }
};

QRgb ground(const PanelFixture& panel)
{
    return panel.picture().pixel(5, 300);
}

constexpr QRgb light = qRgb(0xF5, 0xF5, 0xF7);
constexpr QRgb dark = qRgb(0x1F, 0x1F, 0x23);

} // namespace

QAbstractButton* PanelViewTest::button(const PanelFixture& panel, const QString& name)
{
    panel.settle();
    for (auto* candidate : panel.view->findChildren<QAbstractButton*>()) {
        if (candidate->accessibleName() == name && candidate->isVisible()) {
            return candidate;
        }
    }
    return nullptr;
}

QAbstractButton* PanelViewTest::toggle(const PanelFixture& panel)
{
    for (auto* candidate : panel.view->findChildren<PlainButton*>()) {
        if (candidate->accessibleName().startsWith(QStringLiteral("Appearance"))) {
            return candidate;
        }
    }
    return nullptr;
}

void PanelViewTest::init()
{
    QSettings().clear();
}

void PanelViewTest::appearanceButtonShowsAndCyclesTheScheme_data()
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

void PanelViewTest::appearanceButtonShowsAndCyclesTheScheme()
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

void PanelViewTest::autoFollowsTheDesktop()
{
    const PanelFixture panel;
    QCOMPARE(ground(panel), light);
    panel.view->setSystemScheme(Scheme::Dark);
    QCOMPARE(ground(panel), dark);
    panel.view->setSystemScheme(Scheme::Light);
    QCOMPARE(ground(panel), light);
}

void PanelViewTest::autoFollowsThePaletteWithoutADesktopPreference()
{
    const QPalette before = QApplication::palette();
    const PanelFixture panel;
    // In the program the window is another widget.
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

void PanelViewTest::screenFitsALowPanel()
{
    PanelFixture panel;
    for (int i = 0; i < 3; ++i) {
        panel.state.createCollection(QString::number(i));
    }
    const auto* page = panel.dashboard().findChild<ScrollArea*>();
    panel.letOfferEnd();
    QCOMPARE(page->mapTo(panel.view.get(), QPoint(0, page->height())), QPoint(0, 580));
    panel.view->resize(380, 300);
    panel.settle();
    QCOMPARE(page->mapTo(panel.view.get(), QPoint(0, page->height())), QPoint(0, 300));
    QVERIFY(page->verticalScrollBar()->maximum() > 0);
}

void PanelViewTest::chosenSchemeIgnoresTheDesktop()
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

void PanelViewTest::pillAppearsAfterACopyAndFades()
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

void PanelViewTest::pillDoesNotMoveTheAppearanceButton()
{
    PanelFixture panel;
    panel.settle();
    const QRect before(toggle(panel)->mapTo(panel.view.get(), QPoint(0, 0)), toggle(panel)->size());
    QCOMPARE(before, QRect(296, 10, 30, 30));
    panel.capture(0x3B82F6);
    panel.settle();
    QCOMPARE(QRect(toggle(panel)->mapTo(panel.view.get(), QPoint(0, 0)), toggle(panel)->size()), before);
    const auto* pill = panel.view->findChild<CopiedPill*>();
    QCOMPARE(pill->mapTo(panel.view.get(), QPoint(pill->width(), 0)).x(), 256 - 10);
}

void PanelViewTest::seeAllOpensTheHistoryAndTheTitleGoesBack()
{
    PanelFixture panel;
    panel.capture(0x3B82F6);
    QVERIFY(panel.dashboard().isVisible());
    QTest::mouseClick(button(panel, QStringLiteral("Recent History, See all")), Qt::LeftButton);
    QVERIFY(qobject_cast<HistoryDetailView*>(&panel.view->currentScreen()));
    QVERIFY(panel.view->currentScreen().isVisible());
    QVERIFY(!panel.dashboard().isVisible());
    QTest::mouseClick(button(panel, QStringLiteral("Back from All History")), Qt::LeftButton);
    QCOMPARE(&panel.view->currentScreen(), &panel.dashboard());
    QVERIFY(panel.dashboard().isVisible());
    QVERIFY(!button(panel, QStringLiteral("Back from All History")));
}

void PanelViewTest::cardOpensItsCollection()
{
    PanelFixture panel;
    panel.state.createCollection(QStringLiteral("Sea"));
    panel.state.createCollection(QStringLiteral("Sand"));
    panel.settle();
    QTest::mouseClick(panel.dashboard().cards()[1], Qt::LeftButton);
    QVERIFY(qobject_cast<CollectionDetailView*>(&panel.view->currentScreen()));
    QVERIFY(button(panel, QStringLiteral("Back from Sand")));
}

void PanelViewTest::noSelectionShowsTheDashboard()
{
    const PanelFixture panel;
    panel.view->setSelectedCollectionId(QUuid::createUuid());
    QCOMPARE(&panel.view->currentScreen(), &panel.dashboard());
    QVERIFY(button(panel, QStringLiteral("Back from Palette")));
}

void PanelViewTest::deletedCollectionIsReplacedByTheDashboard()
{
    PanelFixture panel;
    const ColorCollection sea = panel.state.createCollection(QStringLiteral("Sea"));
    panel.view->setSelectedCollectionId(sea.id);
    panel.settle();
    panel.state.deleteCollection(sea.id);
    panel.settle();
    QCOMPARE(&panel.view->currentScreen(), &panel.dashboard());
    QVERIFY(panel.dashboard().isVisible());
}

void PanelViewTest::gearOpensTheSettingsAndDoneClosesThem()
{
    const PanelFixture panel;
    QTest::mouseClick(button(panel, QStringLiteral("Settings")), Qt::LeftButton);
    QVERIFY(&panel.view->currentScreen() != &panel.dashboard());
    QVERIFY(!panel.dashboard().isVisible());
    QVERIFY(!button(panel, QStringLiteral("Settings")));
    QVERIFY(!toggle(panel)->isVisible());
    QTest::mouseClick(button(panel, QStringLiteral("Done")), Qt::LeftButton);
    QVERIFY(panel.dashboard().isVisible());
    QVERIFY(toggle(panel)->isVisible());
    QVERIFY(!button(panel, QStringLiteral("Done")));
}

void PanelViewTest::closingTheSettingsReturnsToTheScreenBefore()
{
    const PanelFixture panel;
    panel.view->setSelectedCollectionId(PanelView::historySelectionId);
    panel.view->setShowingSettings(true);
    QVERIFY(!button(panel, QStringLiteral("Back from All History")));
    panel.view->setShowingSettings(false);
    QVERIFY(qobject_cast<HistoryDetailView*>(&panel.view->currentScreen()));
    QVERIFY(button(panel, QStringLiteral("Back from All History")));
}

void PanelViewTest::clicksShowNoFocusRing()
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

void PanelViewTest::pillIsHiddenInTheSettings()
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

void PanelViewTest::longNameDoesNotMoveTheButtons()
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
    QCOMPARE(back->toolTip(), name);
    // Its ring overhangs the text by 8.
    const QRect text = tintwick::test::placeIn(*panel.view, *back).adjusted(8, 0, -8, 0);
    const auto* pill = panel.view->findChild<CopiedPill*>();
    QCOMPARE(text.left(), 14);
    QVERIFY(text.right() < tintwick::test::placeIn(*panel.view, *pill).left() - 10);
}

void PanelViewTest::altLeftGoesBack()
{
    const PanelFixture panel;
    panel.view->setSelectedCollectionId(PanelView::historySelectionId);
    panel.view->setShowingSettings(true);
    QTest::keyClick(panel.view.get(), Qt::Key_Left, Qt::AltModifier);
    QVERIFY(qobject_cast<HistoryDetailView*>(&panel.view->currentScreen()));
    QTest::keyClick(panel.view.get(), Qt::Key_Left, Qt::AltModifier);
    QVERIFY(panel.dashboard().isVisible());
}

void PanelViewTest::aColorOpensAboveTheScreenThatShowsIt_data()
{
    QTest::addColumn<QString>("screen");
    QTest::newRow("the dashboard") << QString();
    QTest::newRow("the history") << u"history"_s;
    QTest::newRow("a palette") << u"palette"_s;
}

void PanelViewTest::aColorOpensAboveTheScreenThatShowsIt()
{
    QFETCH(const QString, screen);
    PanelFixture panel;
    const QUuid brand = panel.state.createCollection(u"Brand"_s).id;
    panel.state.addColor(panel.capture(0x1E90FF).id, brand);
    if (!screen.isEmpty()) {
        panel.view->setSelectedCollectionId(screen == "history"_L1 ? PanelView::historySelectionId : brand);
    }
    panel.settle();
    QWidget& before = panel.view->currentScreen();
    QWidget* color = button(panel, u"Dodger Blue, #1E90FF"_s);
    QVERIFY(color);
    color->setFocus(Qt::TabFocusReason);
    QTest::keyClick(color, Qt::Key_E, Qt::ControlModifier);
    QVERIFY(qobject_cast<ColorScreen*>(&panel.view->currentScreen()));
    QVERIFY(!before.isVisible());
    QCOMPARE(panel.view->focusWidget(), button(panel, u"Back from Dodger Blue"_s));

    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Space);
    QCOMPARE(&panel.view->currentScreen(), &before);
    QCOMPARE(panel.view->focusWidget(), color);
}

void PanelViewTest::backFromAColorReturnsToWhatWasShown()
{
    PanelFixture panel;
    for (unsigned rgb = 0; rgb < 60; ++rgb) {
        panel.capture(rgb);
    }
    panel.view->setSelectedCollectionId(PanelView::historySelectionId);
    panel.settle();
    auto* scroll = panel.view->currentScreen().findChild<QScrollArea*>();
    scroll->verticalScrollBar()->setValue(120);
    PanelNavigation::of(scroll)->openColor(panel.state.history().at(20));
    panel.view->setShowingSettings(true);
    panel.view->setShowingSettings(false);
    QVERIFY(qobject_cast<ColorScreen*>(&panel.view->currentScreen()));
    QTest::keyClick(panel.view.get(), Qt::Key_Left, Qt::AltModifier);
    panel.settle();
    QVERIFY(scroll->isVisible());
    QCOMPARE(scroll->verticalScrollBar()->value(), 120);
}

void PanelViewTest::contrastOpensFromTheMenuOfAColor()
{
    PanelFixture panel;
    panel.capture(0x1E90FF);
    panel.settle();
    QWidget* swatch = panel.dashboard().swatches().first();
    choose(*contextMenu(*swatch), u"Contrast With…"_s);
    QVERIFY(qobject_cast<ContrastScreen*>(&panel.view->currentScreen()));
    QTest::mouseClick(button(panel, u"Back from Contrast"_s), Qt::LeftButton);
    QCOMPARE(&panel.view->currentScreen(), &panel.dashboard());
}

void PanelViewTest::altLeftGoesBackFromAFocusedControl_data()
{
    QTest::addColumn<bool>("opensHistory");
    QTest::addColumn<bool>("opensOverlay");
    QTest::newRow("a swatch") << true << false;
    QTest::newRow("a row") << false << false;
    QTest::newRow("a field of an overlay") << true << true;
}

void PanelViewTest::altLeftGoesBackFromAFocusedControl()
{
    QFETCH(const bool, opensHistory);
    QFETCH(const bool, opensOverlay);
    PanelFixture panel;
    const QUuid brand = panel.state.createCollection(QStringLiteral("Brand")).id;
    panel.state.addColor(panel.capture(0x3B82F6).id, brand);
    panel.view->setSelectedCollectionId(opensHistory ? PanelView::historySelectionId : brand);
    panel.settle();
    if (opensOverlay) {
        openRenameColorOverlay(*panel.view, panel.state, panel.state.history().first());
    } else if (opensHistory) {
        panel.view->currentScreen().findChild<SwatchView*>()->setFocus(Qt::TabFocusReason);
    } else {
        panel.view->currentScreen().findChild<ColorDetailRow*>()->setFocus(Qt::TabFocusReason);
    }
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(panel.dashboard().isVisible(), !opensOverlay);
}

void PanelViewTest::headerAndScreenFadeTogether_data()
{
    QTest::addColumn<bool>("opens");
    QTest::newRow("into the settings") << true;
    QTest::newRow("out of the settings") << false;
}

void PanelViewTest::headerAndScreenFadeTogether()
{
    QFETCH(const bool, opens);
    PanelFixture panel;
    panel.capture(0x3B82F6);
    panel.letFeedbackEnd();
    panel.view->setShowingSettings(!opens);
    panel.settle();
    const auto part = [&panel](int top, int bottom) {
        return panel.view->grab(QRect(0, top, 380, bottom - top)).toImage();
    };
    const auto header = [&] { return part(0, 50); };
    const auto screen = [&] { return part(51, 580); };
    const auto isEmpty = [](const QImage& picture) {
        // Without the rounded corners.
        const QImage inside = picture.copy(picture.rect().adjusted(24, 0, -24, 0));
        QImage ground = inside;
        ground.fill(light);
        return inside == ground;
    };
    const QImage headerBefore = header();
    const QImage screenBefore = screen();
    panel.view->setShowingSettings(opens);
    QApplication::processEvents();
    QCOMPARE(header(), headerBefore);
    QCOMPARE(screen(), screenBefore);
    // In the middle nothing is seen, so neither title through the other.
    Ticker::shared().advance(0.09);
    QVERIFY(isEmpty(header()));
    QVERIFY(isEmpty(screen()));
    Ticker::shared().advance(0.05);
    const QImage headerOnTheWay = header();
    const QImage screenOnTheWay = screen();
    panel.settle();
    QVERIFY(header() != headerBefore);
    QVERIFY(screen() != screenBefore);
    QVERIFY(headerOnTheWay != header());
    // The settings of this panel are an empty screen.
    QCOMPARE(isEmpty(screen()), opens);
    QCOMPARE(screenOnTheWay != screen(), !opens);
    QVERIFY(!Ticker::shared().hasMotion());
}

void PanelViewTest::textLeavesRoomInsideItsControl()
{
    PanelFixture panel;
    const QUuid brand = panel.state.createCollection(QStringLiteral("Brand")).id;
    panel.state.addColor(panel.capture(0x3B82F6).id, brand);
    const auto check = [&panel] {
        panel.settle();
        for (const auto* control : panel.view->findChildren<Clickable*>()) {
            for (const auto* text : control->findChildren<Label*>()) {
                if (text->isVisible()) {
                    const QRect place(text->mapTo(control, QPoint(0, 0)), text->size());
                    QVERIFY2(control->rect().adjusted(4, 3, -4, -3).contains(place),
                             qPrintable(text->text()));
                }
            }
        }
    };
    check();
    panel.view->setSelectedCollectionId(PanelView::historySelectionId);
    check();
    panel.view->setSelectedCollectionId(brand);
    check();
}

void PanelViewTest::titleOfADeletedCollectionIsPalette()
{
    PanelFixture panel;
    const ColorCollection sea = panel.state.createCollection(QStringLiteral("Sea"));
    panel.view->setSelectedCollectionId(sea.id);
    QVERIFY(button(panel, QStringLiteral("Back from Sea")));
    panel.state.deleteCollection(sea.id);
    QVERIFY(button(panel, QStringLiteral("Back from Palette")));
}

void PanelViewTest::nameOfSeveralLinesBecomesATitleOfOne()
{
    PanelFixture panel;
    const ColorCollection collection = panel.state.createCollection(QStringLiteral("Sea\nand\tsand"));
    panel.view->setSelectedCollectionId(collection.id);
    const QAbstractButton* back = button(panel, QStringLiteral("Back from Sea and sand"));
    QVERIFY(back);
    QVERIFY(back->height() < 30);
    QCOMPARE(tintwick::test::visibleTexts(panel.view->currentScreen()).first(),
             QStringLiteral("Sea and sand"));
}

void PanelViewTest::everyControlHasANameAndARole_data()
{
    QTest::addColumn<int>("colors");
    QTest::addColumn<int>("collections");
    QTest::addColumn<QString>("screen");
    QTest::addColumn<int>("controls");
    // Every screen has the pin, the appearance and the settings buttons; all but the dashboard have the back button. After a change there is
    // a button to undo it.
    QTest::newRow("an empty dashboard") << 0 << 0 << QStringLiteral("dashboard") << 3 + 2;
    QTest::newRow("a dashboard") << 3 << 2 << QStringLiteral("dashboard") << 3 + 2 + 3 + 2 + 1 + 1;
    QTest::newRow("an empty history") << 0 << 0 << QStringLiteral("history") << 4 + 1;
    QTest::newRow("a history") << 3 << 0 << QStringLiteral("history") << 4 + 2 + 3;
    QTest::newRow("an empty palette") << 0 << 1 << QStringLiteral("palette") << 4 + 2 + 1;
    QTest::newRow("a palette") << 3 << 1 << QStringLiteral("palette") << 4 + 3 + 3 * 3 + 1;
    QTest::newRow("the overlay of a new palette") << 1 << 0 << QStringLiteral("overlay") << 2;
}

void PanelViewTest::everyControlHasANameAndARole()
{
    QFETCH(const int, colors);
    QFETCH(const int, collections);
    QFETCH(const QString, screen);
    QFETCH(const int, controls);
    PanelFixture panel;
    for (int i = 0; i < collections; ++i) {
        panel.state.createCollection(QStringLiteral("Palette %1").arg(i));
    }
    for (int i = 0; i < colors; ++i) {
        const CapturedColor color = panel.capture(0x3B82F6U + static_cast<unsigned>(i));
        if (collections > 0) {
            panel.state.addColor(color.id, panel.state.collections().first().id);
        }
    }
    if (screen == u"history") {
        panel.view->setSelectedCollectionId(PanelView::historySelectionId);
    } else if (screen == u"palette") {
        panel.view->setSelectedCollectionId(panel.state.collections().first().id);
    } else if (screen == u"overlay") {
        panel.dashboard().openNewPaletteOverlay();
    }
    panel.settle();

    const QList<QWidget*> reached = tintwick::test::reachedByTab(*panel.view);
    QCOMPARE(reached.size(), controls);
    int lowest = 0;
    for (QWidget* control : reached) {
        auto* known = QAccessible::queryAccessibleInterface(control);
        QVERIFY(!known->text(QAccessible::Name).isEmpty());
        const QList<QAccessible::Role> roles{QAccessible::Button, QAccessible::ButtonMenu,
                                             QAccessible::CheckBox, QAccessible::EditableText};
        QVERIFY2(roles.contains(known->role()), qPrintable(known->text(QAccessible::Name)));
        if (screen == u"overlay") {
            continue;
        }
        // In reading order: each control is below the previous one or right of it.
        const QRect place = tintwick::test::placeIn(*panel.view, *control);
        QVERIFY2(place.bottom() > lowest, qPrintable(known->text(QAccessible::Name)));
        lowest = place.top();
    }
}

void PanelViewTest::keyboardFocusFollowsTheScreenAndReturns_data()
{
    QTest::addColumn<QString>("opener");
    QTest::addColumn<QString>("there");
    QTest::newRow("the history") << QStringLiteral("Recent History, See all")
                                 << QStringLiteral("Back from All History");
    QTest::newRow("a palette") << QStringLiteral("Sea, 0 Colors") << QStringLiteral("Back from Sea");
    QTest::newRow("the settings") << QStringLiteral("Settings") << QString();
}

void PanelViewTest::keyboardFocusFollowsTheScreenAndReturns()
{
    QFETCH(const QString, opener);
    QFETCH(const QString, there);
    PanelFixture panel;
    panel.capture(0x3B82F6);
    panel.state.createCollection(QStringLiteral("Sea"));
    auto* control = button(panel, opener);
    control->setFocus(Qt::TabFocusReason);
    QTest::keyClick(control, Qt::Key_Return);
    panel.settle();
    QVERIFY(!panel.dashboard().isVisible());
    if (!there.isEmpty()) {
        QCOMPARE(panel.view->focusWidget(), button(panel, there));
        QVERIFY(Clickable::showsFocusRing(panel.view->focusWidget()));
    }
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Left, Qt::AltModifier);
    panel.settle();
    QVERIFY(panel.dashboard().isVisible());
    QCOMPARE(panel.view->focusWidget(), control);
    QVERIFY(Clickable::showsFocusRing(control));
}

void PanelViewTest::noFocusRingAfterAClick()
{
    PanelFixture panel;
    panel.capture(0x3B82F6);
    const auto hasRing = [&panel] {
        panel.settle();
        return Clickable::showsFocusRing(panel.view->focusWidget());
    };
    QTest::mouseClick(button(panel, QStringLiteral("Settings")), Qt::LeftButton);
    QVERIFY(!hasRing());
    // The real settings screen takes the focus.
    panel.view->currentScreen().setFocus();
    QTest::mouseClick(button(panel, QStringLiteral("Done")), Qt::LeftButton);
    QVERIFY(!hasRing());
    QTest::mouseClick(button(panel, QStringLiteral("Recent History, See all")), Qt::LeftButton);
    QVERIFY(!hasRing());
    QTest::mouseClick(button(panel, QStringLiteral("Settings")), Qt::LeftButton);
    panel.view->currentScreen().setFocus();
    QTest::mouseClick(button(panel, QStringLiteral("Done")), Qt::LeftButton);
    QVERIFY(!hasRing());
    QTest::mouseClick(button(panel, QStringLiteral("Back from All History")), Qt::LeftButton);
    QVERIFY(!hasRing());
    // The keyboard works.
    panel.view->setSelectedCollectionId(PanelView::historySelectionId);
    QVERIFY(panel.view->focusWidget());
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Left, Qt::AltModifier);
    QVERIFY(panel.dashboard().isVisible());
}

void PanelViewTest::noControlHasFocusBeforeTab()
{
    const PanelFixture panel;
    QCOMPARE(panel.view->focusWidget(), panel.view.get());
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Space);
    QVERIFY(!QSettings().contains(key));
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Tab);
    QCOMPARE(panel.view->focusWidget(), button(panel, u"Keep Open"_s));
}

void PanelViewTest::pinShowsWhetherThePanelIsKeptOpen()
{
    const PanelFixture panel;
    auto* pin = button(panel, u"Keep Open"_s);
    QVERIFY(pin);
    QCOMPARE(pin->toolTip(), u"Keep Open"_s);
    const QSignalSpy changed(panel.view.get(), &PanelView::keepOpenChanged);
    const auto isCheckedForScreenReaders = [&] {
        const QAccessible::State state = QAccessible::queryAccessibleInterface(pin)->state();
        return state.checkable && state.checked;
    };
    QVERIFY(!panel.view->keepsOpen());
    QVERIFY(!isCheckedForScreenReaders());
    const QImage off = pin->grab().toImage();

    QTest::mouseClick(pin, Qt::LeftButton);
    QVERIFY(panel.view->keepsOpen());
    QVERIFY(isCheckedForScreenReaders());
    panel.settle();
    const QImage on = pin->grab().toImage();
    // 16 % of the accent on the ground.
    QCOMPARE(off.pixel(15, 2), qRgb(0xE9, 0xE9, 0xEE));
    QVERIFY(tintwick::test::isNear(on.pixel(15, 2), qRgb(0xDD, 0xDE, 0xF2)));
    // The head is an outline when it is off.
    QVERIFY(tintwick::test::isNear(off.pixel(15, 11), qRgb(0xE9, 0xE9, 0xEE)));
    QVERIFY(tintwick::test::isNear(on.pixel(15, 11), qRgb(0x4B, 0x50, 0xDC)));

    pin->setFocus(Qt::TabFocusReason);
    QTest::keyClick(pin, Qt::Key_Space);
    QVERIFY(!panel.view->keepsOpen());
    QTest::keyClick(pin, Qt::Key_Return);
    QVERIFY(panel.view->keepsOpen());
    QCOMPARE(changed.size(), 3);

    // Closing the panel does not change it, nor does another screen.
    panel.view->hide();
    panel.view->show();
    panel.view->setShowingSettings(true);
    panel.settle();
    QVERIFY(!pin->isVisible());
    panel.view->setShowingSettings(false);
    panel.settle();
    QVERIFY(pin->isVisible());
    QVERIFY(panel.view->keepsOpen());
}

void PanelViewTest::noticeIsShownBelowTheHeader()
{
    const PanelFixture panel;
    auto* notice = panel.view->findChild<NoticeView*>();
    QVERIFY(!notice->isVisible());
    const auto dashboardTop = [&panel] {
        return tintwick::test::placeIn(*panel.view, panel.dashboard()).top();
    };
    const int before = dashboardTop();

    const QString sentence = QStringLiteral("Another program is using the pointer or the keyboard. "
                                            "Close its menu or dialog and pick again.");
    panel.view->showNotice(sentence);
    panel.settle();
    QVERIFY(notice->isVisible());
    QCOMPARE(tintwick::test::placeIn(*panel.view, *notice).top(), 51);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(notice);
    QCOMPARE(spoken->role(), QAccessible::StaticText);
    QCOMPARE(spoken->text(QAccessible::Name), sentence);
    // Room for two lines.
    const QFontMetrics metrics(notice->font());
    QVERIFY(notice->contentsRect().height() >= 2 * metrics.height());
    QCOMPARE(dashboardTop(), before + notice->height());

    panel.view->showNotice({});
    panel.settle();
    QVERIFY(!notice->isVisible());
    QCOMPARE(dashboardTop(), before);
}

void PanelViewTest::everyTextHasEnoughContrast_data()
{
    QTest::addColumn<Scheme>("scheme");
    QTest::addColumn<bool>("isFilled");
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        const char* name = scheme == Scheme::Light ? "light" : "dark";
        QTest::addRow("%s, empty", name) << scheme << false;
        QTest::addRow("%s, with colors", name) << scheme << true;
    }
}

void PanelViewTest::everyTextHasEnoughContrast()
{
    QFETCH(const Scheme, scheme);
    QFETCH(const bool, isFilled);
    PanelFixture panel;
    panel.view->setSystemScheme(scheme);
    const QUuid brand = panel.state.createCollection(QStringLiteral("Brand")).id;
    if (isFilled) {
        panel.state.addColor(panel.capture(0x3B82F6).id, brand);
        panel.letFeedbackEnd();
    } else {
        panel.state.deleteCollection(brand);
    }
    const auto check = [&](const QWidget& root) {
        const QImage picture = panel.picture();
        for (const auto* text : root.findChildren<Label*>()) {
            // Disabled controls need no contrast.
            if (!text->isVisible() || !text->isEnabled()) {
                continue;
            }
            const QColor ground = picture.pixelColor(tintwick::test::placeIn(*panel.view, *text).topLeft());
            const double contrast = tintwick::test::contrast(text->color().in(scheme), ground);
            QVERIFY2(contrast >= 4.5, qPrintable(QStringLiteral("%1: %2").arg(text->text()).arg(contrast)));
        }
    };
    check(*panel.view);
    panel.view->setSelectedCollectionId(PanelView::historySelectionId);
    check(*panel.view);
    panel.view->setSelectedCollectionId(brand);
    check(*panel.view);
    panel.view->setSelectedCollectionId({});
    panel.dashboard().openNewPaletteOverlay();
    check(*panel.view->findChild<Overlay*>());
}

void PanelViewTest::aFailedSaveIsToldUntilOneSucceeds()
{
    PanelFixture panel;
    auto* notice = panel.view->findChild<NoticeView*>();
    panel.state.flush();
    const QString file = panel.state.dataFolder() + u"/data.json"_s;
    QVERIFY(QFile::remove(file) && QDir().mkdir(file));
    panel.capture(0x1E90FF);
    QTRY_VERIFY(notice->isVisible());
    QCOMPARE(notice->text(), u"Not saved: data.json is not a file"_s);

    // What the user has just tried is told first.
    panel.view->showNotice(u"No pick now"_s);
    QCOMPARE(notice->text(), u"No pick now"_s);
    QVERIFY(!button(panel, u"Show Folder"_s));
    panel.view->showNotice({});
    QCOMPARE(notice->text(), u"Not saved: data.json is not a file"_s);
    panel.view->hide();
    panel.view->show();
    QVERIFY(notice->isVisible());
    // The button does not touch the text.
    auto* const folder = button(panel, u"Show Folder"_s);
    QVERIFY(folder);
    QVERIFY(folder->x() >= notice->contentsRect().right() + 10);
    QVERIFY(notice->contentsRect().height() >= QFontMetrics(notice->font()).height());

    QVERIFY(QDir().rmdir(file));
    panel.capture(0x00FF00);
    QTRY_VERIFY(!notice->isVisible());
}

void PanelViewTest::anUnreadableFileIsToldUntilThePanelIsHidden()
{
    const PanelFixture writer;
    const QString path = writer.state.dataFolder() + u"/data.json"_s;
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("odd") == 3);
    file.close();
    Preferences preferences;
    AppState state;
    PanelView view(state, preferences, [](QWidget&) { return new QWidget; });
    auto* notice = view.findChild<NoticeView*>();
    // A pick before the panel was shown removes passing notices.
    view.showNotice({});
    view.show();
    QVERIFY(notice->isVisible());
    QCOMPARE(notice->text(), u"Your saved colors could not be read. Their file is kept."_s);
    view.hide();
    view.show();
    QVERIFY(!notice->isVisible());
}

void PanelViewTest::aSavedFileIsNamedAndItsFolderIsOneClickAway()
{
    const FileManager manager;
    PanelFixture panel;
    Q_EMIT OpenSaveRequests::shared().saved(u"/home/ada/Site/palette.css"_s);
    panel.settle();
    QAbstractButton* show = button(panel, u"Show"_s);
    QVERIFY(show);
    QCOMPARE(test::visibleTexts(*panel.view->findChild<ActionPill*>()).join(u' '),
             u"Saved palette.css – Show"_s);
    QTest::mouseClick(show, Qt::LeftButton);
    QCOMPARE(manager.shown, QList{QUrl(u"file:///home/ada/Site"_s)});
}

void PanelViewTest::droppedFilesBecomePalettes()
{
    const QTemporaryDir folder;
    const auto drop = [&](PanelFixture& panel, const QString& name, const QByteArray& content) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        QMimeData dragged;
        dragged.setUrls({QUrl::fromLocalFile(file.fileName())});
        QDragEnterEvent enter(QPoint(190, 300), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(panel.view.get(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent dropped(QPointF(190, 300), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(panel.view.get(), &dropped);
        panel.settle();
    };
    PanelFixture panel;
    drop(panel, u"sea.gpl"_s, "GIMP Palette\nName: Sea\n59 130 246 Wave\n0 0 0\n");
    QCOMPARE(panel.state.collections().size(), 1);
    const ColorCollection sea = panel.state.collections().first();
    QCOMPARE(sea.name, u"Sea"_s);
    QCOMPARE(panel.state.colorsOf(sea).at(0).customName, u"Wave"_s);
    QCOMPARE(panel.state.colorsOf(sea).at(1).customName, u"Black"_s);
    QVERIFY(panel.state.history().isEmpty());
    QCOMPARE(test::visibleTexts(*panel.view->findChild<ActionPill*>()).join(u' '), u"Imported Sea – Undo"_s);

    drop(panel, u"sky.gpl"_s, "GIMP Palette\n59 130\n");
    QCOMPARE(panel.state.collections().size(), 1);
    QCOMPARE(panel.view->findChild<NoticeView*>()->accessibleName(),
             u"sky.gpl cannot be imported: line 2: '59 130' is not a color"_s);
    panel.state.undo();
    QVERIFY(panel.state.collections().isEmpty());
}

void PanelViewTest::filesDroppedOnACardAreImported()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"sea.gpl"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("GIMP Palette\nName: Sea\n59 130 246 Wave\n");
    file.close();
    PanelFixture panel;
    const QUuid brand = panel.state.createCollection(u"Brand"_s).id;
    panel.settle();
    CollectionRowCard* const card = panel.dashboard().cards().first();
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(file.fileName())});
    // File managers add the path as a text, or even an id.
    dragged.setText(QUuid::createUuid().toString(QUuid::WithoutBraces));
    QDragEnterEvent enter(QPoint(100, 30), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(card, &enter);
    QVERIFY(enter.isAccepted());
    QVERIFY(!card->isDropTarget());
    QDropEvent dropped(QPointF(100, 30), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(card, &dropped);
    QCOMPARE(panel.state.collections().size(), 2);
    QCOMPARE(panel.state.collections().last().name, u"Sea"_s);
    QVERIFY(panel.state.collection(brand)->colorIds.isEmpty());
}

void PanelViewTest::ctrlOAsksForFilesToImport()
{
    const QTemporaryDir folder;
    QStringList paths;
    for (const QString& name : {u"sea"_s, u"sky"_s}) {
        QFile file(folder.filePath(name + u".gpl"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("GIMP Palette\n59 130 246 Wave\n");
        paths.append(u'"' + file.fileName() + u'"');
    }
    PanelFixture panel;
    const auto dialog = [] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<QFileDialog*>(window); found && found->isVisible()) {
                return found;
            }
        }
        return static_cast<QFileDialog*>(nullptr);
    };
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_O, Qt::ControlModifier);
    QTRY_VERIFY(dialog());
    QCOMPARE(dialog()->fileMode(), QFileDialog::ExistingFiles);
    QVERIFY(dialog()->nameFilters().first().contains(u"*.gpl *.ase *.aco"_s));
    QCOMPARE(dialog()->nameFilters().last(), u"All Files (*)"_s);
    dialog()->setDirectory(folder.path());
    dialog()->findChild<QLineEdit*>()->setText(paths.join(u' '));
    static_cast<QDialog*>(dialog())->accept();
    QTRY_COMPARE(panel.state.collections().size(), 2);
    QCOMPARE(panel.state.collections().first().name, u"sea"_s);

    QTRY_VERIFY(!dialog());
    panel.view->activateWindow();
    panel.view->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(panel.view.get()));
    QTest::keyClick(panel.view.get(), Qt::Key_O, Qt::ControlModifier);
    QTRY_VERIFY(dialog());
    static_cast<QDialog*>(dialog())->reject();
    QTRY_VERIFY(!dialog());
    QCOMPARE(panel.state.collections().size(), 2);
}

void PanelViewTest::theButtonOfANoticeShowsTheFolder()
{
    PanelFixture panel;
    panel.state.flush();
    const QString file = panel.state.dataFolder() + u"/data.json"_s;
    QVERIFY(QFile::remove(file) && QDir().mkdir(file));
    panel.capture(0x1E90FF);
    QTRY_VERIFY(button(panel, u"Show Folder"_s));
    const FileManager manager;
    button(panel, u"Show Folder"_s)->click();
    QCOMPARE(manager.shown, QList<QUrl>{QUrl::fromLocalFile(panel.state.dataFolder())});
    QVERIFY(QDir().rmdir(file));
}

void PanelViewTest::aShortNoticeHasRoomForItsButton()
{
    const std::unique_ptr<Stack> page(column(new NoticeView));
    auto* notice = page->findChild<NoticeView*>();
    notice->showNotice({.sentence = u"Not saved"_s, .buttonTitle = u"Show Folder"_s, .action = {}});
    page->resize(380, 200);
    page->show();
    QApplication::processEvents();
    const QRect shows = notice->findChild<TextButton*>()->geometry();
    // The row is 14 below the header, the button 9 from its top and bottom and 12 from its end.
    QCOMPARE(shows.top(), 14 + 9);
    QCOMPARE(notice->height() - shows.bottom() - 1, 9);
    QCOMPARE(380 - 16 - shows.right() - 1, 12);
}

int main(int argc, char** argv)
{
    return tintwick::test::runWithOwnHome<PanelViewTest>(argc, argv);
}
#include "PanelViewTest.moc"

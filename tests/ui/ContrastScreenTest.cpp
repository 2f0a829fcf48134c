#include "ContrastScreen.h"

#include "ColorStrip.h"
#include "ColorWell.h"
#include "ContrastSample.h"
#include "LevelChip.h"
#include "PanelNavigation.h"
#include "StripSwatch.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"
#include "ui/Probes.h"

#include <QAccessible>
#include <QClipboard>
#include <QSet>

using namespace tintwick;
using namespace tintwick::test;
using namespace Qt::StringLiterals;

namespace {

CapturedColor color(unsigned rgb, double alpha = 1)
{
    CapturedColor result = CapturedColor::capture(rgb);
    result.alpha = alpha;
    return result;
}

/// The panel with the contrast of two colours open.
class ContrastFixture final : public PanelFixture
{
public:
    void open(const CapturedColor& text, const std::optional<CapturedColor>& ground = {})
    {
        PanelNavigation::of(&dashboard())->openContrast(text, ground);
        settle();
    }

    [[nodiscard]] ContrastScreen& screen() const { return *view->findChild<ContrastScreen*>(); }
    [[nodiscard]] QList<ColorWell*> wells() const { return screen().findChildren<ColorWell*>(); }
    [[nodiscard]] QList<ContrastSample*> samples() const { return screen().findChildren<ContrastSample*>(); }
    [[nodiscard]] QList<StripSwatch*> strip() const { return screen().findChild<ColorStrip*>()->swatches(); }
    /// "#3B82F6 on #FFFFFF"
    [[nodiscard]] QString shown() const
    {
        return wells().first()->color().hex6() + u" on "_s + wells().last()->color().hex6();
    }
    [[nodiscard]] bool hasText(const QString& text) const { return visibleTexts(screen()).contains(text); }
    void click(const QString& name) const
    {
        QAbstractButton* clicked = button(*view, name);
        QVERIFY2(clicked, qUtf8Printable(name));
        QTest::mouseClick(clicked, Qt::LeftButton);
        settle();
    }
    /// The codes in the strip, and the marked one in brackets.
    [[nodiscard]] QString codes() const
    {
        QStringList result;
        for (const StripSwatch* swatch : strip()) {
            const QString code = swatch->color().hex6();
            result.append(swatch->isMarked() ? u'[' + code + u']' : code);
        }
        return result.join(u' ');
    }
};

QSet<QRgb> colorsIn(const QImage& picture, const QRect& area)
{
    QSet<QRgb> colors;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            colors.insert(picture.pixel(x, y));
        }
    }
    return colors;
}

} // namespace

class ContrastScreenTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void groundIsTheStrongerOfWhiteAndBlack_data();
    void groundIsTheStrongerOfWhiteAndBlack();
    void samplesShowBothDirections();
    void samplesPaintTranslucentColorsFirst();
    void ratioAndLevelsAreShown_data();
    void ratioAndLevelsAreShown();
    void addedColorBecomesTheText();
    void nothingIsOfferedWhereTheTextPassesOrNoneDoes_data();
    void nothingIsOfferedWhereTheTextPassesOrNoneDoes();
    void stripReplacesTheChosenColor();
    void swapKeepsTheChosenColor();
    void stripShowsEachColorOnce();
    void stripFollowsHistoryAndPalettes();
    void clickOnTheRatioCopies();
    void tabVisitsTheScreenFromTopToBottom();
    void keysMoveInTheStrip();
    void screenReadersGetTheResult();
    void everythingFitsAboveTheStrip();
};

void ContrastScreenTest::groundIsTheStrongerOfWhiteAndBlack_data()
{
    QTest::addColumn<unsigned>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("dark") << 0x112233U << u"#112233 on #FFFFFF"_s;
    QTest::newRow("light") << 0xFFE9A8U << u"#FFE9A8 on #000000"_s;
}

void ContrastScreenTest::groundIsTheStrongerOfWhiteAndBlack()
{
    QFETCH(const unsigned, text);
    ContrastFixture panel;
    panel.open(color(text));
    QTEST(panel.shown(), "shown");
}

void ContrastScreenTest::samplesShowBothDirections()
{
    ContrastFixture panel;
    panel.open(color(0x3B82F6), color(0x112233));
    const QImage picture = panel.picture();
    const QList<ContrastSample*> samples = panel.samples();
    QCOMPARE(samples.size(), 2);
    const QRgb blue = qRgb(0x3B, 0x82, 0xF6);
    const QRgb dark = qRgb(0x11, 0x22, 0x33);
    for (const ContrastSample* sample : samples) {
        const QRect place = placeIn(*panel.view, *sample);
        const QRgb ground = picture.pixel(place.topLeft() + QPoint(6, 30));
        QCOMPARE(ground, sample == samples.first() ? dark : blue);
        // The strokes of the large text are wide enough for pixels of its whole colour.
        const QRect largeText(place.topLeft() + QPoint(14, 10), QSize(140, 30));
        QVERIFY(colorsIn(picture, largeText).contains(sample == samples.first() ? blue : dark));
    }
    QCOMPARE(samples.first()->accessibleName(),
             u"#3B82F6 on #112233: Lc −35.5. Enough for placeholders and large icons."_s);
}

void ContrastScreenTest::samplesPaintTranslucentColorsFirst()
{
    ContrastFixture panel;
    panel.open(color(0x000000, 0.5), color(0xFFFFFF));
    QVERIFY(panel.samples().first()->accessibleName().startsWith(u"#808080 on #FFFFFF: "_s));
    // The grey is not the text of the other direction: black at one half on white is its ground.
    QVERIFY(panel.samples().last()->accessibleName().startsWith(u"#FFFFFF on #808080: "_s));
    QVERIFY(panel.hasText(u"3.95 : 1"_s));
    QVERIFY(panel.wells().last()->accessibleName().startsWith(u"Ground: "_s));
    panel.click(u"Swap text and ground"_s);
    QVERIFY(panel.wells().last()->accessibleName().startsWith(u"Ground on white: "_s));
}

void ContrastScreenTest::ratioAndLevelsAreShown_data()
{
    QTest::addColumn<unsigned>("text");
    QTest::addColumn<QString>("ratio");
    QTest::addColumn<QString>("passed");
    // On white.
    QTest::newRow("none") << 0x959595U << u"2.99 : 1"_s << QString();
    QTest::newRow("some") << 0x3B82F6U << u"3.68 : 1"_s << u"Large text passes AA, Graphics passes AA"_s;
    QTest::newRow("all") << 0x112233U << u"16.15 : 1"_s
                         << u"Normal text passes AA, Normal text passes AAA, Large text passes AA, "
                            "Large text passes AAA, Graphics passes AA"_s;
}

void ContrastScreenTest::ratioAndLevelsAreShown()
{
    QFETCH(const unsigned, text);
    QFETCH(const QString, ratio);
    ContrastFixture panel;
    panel.open(color(text), color(0xFFFFFF));
    QVERIFY2(panel.hasText(ratio), qUtf8Printable(visibleTexts(panel.screen()).join(u'|')));
    QStringList passed;
    const QList<LevelChip*> chips = panel.screen().findChildren<LevelChip*>();
    QCOMPARE(chips.size(), 5);
    for (const LevelChip* chip : chips) {
        if (chip->accessibleName().contains(u" passes "_s)) {
            passed.append(chip->accessibleName());
        } else {
            QVERIFY(chip->accessibleName().contains(u" fails "_s));
        }
    }
    QTEST(passed.join(u", "_s), "passed");
}

void ContrastScreenTest::addedColorBecomesTheText()
{
    ContrastFixture panel;
    panel.capture(0x1E90FF);
    panel.open(color(0x3B82F6), color(0xFFFFFF));
    QVERIFY(panel.hasText(u"#2C72E5"_s));
    panel.click(u"Add #2C72E5, passes AA with 4.52 to 1"_s);
    QCOMPARE(panel.state.history().size(), 2);
    QCOMPARE(panel.state.history().first().hex6(), u"#2C72E5"_s);
    QCOMPARE(panel.shown(), u"#2C72E5 on #FFFFFF"_s);
    QVERIFY(panel.hasText(u"4.52 : 1"_s));
    QVERIFY(panel.hasText(u"The text passes"_s));
    QVERIFY(!button(panel.screen(), u"Add #2C72E5, passes AA with 4.52 to 1"_s));

    panel.state.undo();
    QCOMPARE(panel.state.history().size(), 1);
    QCOMPARE(panel.shown(), u"#2C72E5 on #FFFFFF"_s);
}

void ContrastScreenTest::nothingIsOfferedWhereTheTextPassesOrNoneDoes_data()
{
    QTest::addColumn<unsigned>("text");
    QTest::addColumn<unsigned>("ground");
    QTest::addColumn<QStringList>("notes");
    QTest::newRow("both pass") << 0x112233U << 0xFFFFFFU
                               << QStringList{u"The text passes"_s, u"The text passes"_s};
    QTest::newRow("one passes, none for the other")
        << 0x000000U << 0x777777U << QStringList{u"The text passes"_s, u"No lightness reaches 7 : 1 here"_s};
}

void ContrastScreenTest::nothingIsOfferedWhereTheTextPassesOrNoneDoes()
{
    QFETCH(const unsigned, text);
    QFETCH(const unsigned, ground);
    QFETCH(const QStringList, notes);
    ContrastFixture panel;
    panel.open(color(text), color(ground));
    const QStringList texts = visibleTexts(panel.screen());
    const qsizetype title = texts.indexOf(u"Nearest lightness that passes"_s);
    QCOMPARE((QStringList{texts.value(title + 2), texts.value(title + 4)}), notes);
    for (const auto* each : panel.screen().findChildren<QAbstractButton*>()) {
        QVERIFY(!each->isVisible() || !each->accessibleName().startsWith(u"Add "_s));
    }
}

void ContrastScreenTest::stripReplacesTheChosenColor()
{
    ContrastFixture panel;
    panel.capture(0x1E90FF);
    panel.open(color(0x112233));
    QVERIFY(panel.hasText(u"Choose the ground"_s));
    panel.click(u"Dodger Blue, #1E90FF"_s);
    QCOMPARE(panel.shown(), u"#112233 on #1E90FF"_s);

    panel.click(u"Text: #112233"_s);
    QVERIFY(panel.hasText(u"Choose the text color"_s));
    QVERIFY(panel.wells().first()->isChosen());
    QVERIFY(!panel.wells().last()->isChosen());
    panel.click(u"White, #FFFFFF"_s);
    QCOMPARE(panel.shown(), u"#FFFFFF on #1E90FF"_s);
    panel.click(u"Ground: Dodger Blue, #1E90FF"_s);
    panel.click(u"Black, #000000"_s);
    QCOMPARE(panel.shown(), u"#FFFFFF on #000000"_s);
}

void ContrastScreenTest::swapKeepsTheChosenColor()
{
    ContrastFixture panel;
    panel.open(color(0x112233));
    panel.click(u"Swap text and ground"_s);
    QCOMPARE(panel.shown(), u"#FFFFFF on #112233"_s);
    QVERIFY(panel.samples().first()->accessibleName().startsWith(u"#FFFFFF on #112233"_s));
    QCOMPARE(panel.codes(), u"[#FFFFFF] #000000"_s);
    panel.click(u"Black, #000000"_s);
    QCOMPARE(panel.shown(), u"#000000 on #112233"_s);
}

void ContrastScreenTest::stripShowsEachColorOnce()
{
    ContrastFixture panel;
    const QUuid brand = panel.state.createCollection(u"Brand"_s).id;
    panel.state.addColor(panel.capture(0x333333).id, brand);
    panel.capture(0xFFFFFF);
    panel.capture(0x111111);
    panel.capture(0x222222);
    panel.capture(0x111111);
    panel.state.importCollection(u"Site"_s, {color(0x444444), color(0x222222)});
    panel.open(color(0x222222));
    QCOMPARE(panel.codes(), u"[#FFFFFF] #000000 #111111 #222222 #333333 #444444"_s);
    panel.click(u"Text: #222222"_s);
    QCOMPARE(panel.codes(), u"#FFFFFF #000000 #111111 [#222222] #333333 #444444"_s);
}

void ContrastScreenTest::stripFollowsHistoryAndPalettes()
{
    ContrastFixture panel;
    panel.open(color(0x222222), color(0x777777));
    panel.capture(0x777777);
    panel.settle();
    QCOMPARE(panel.codes(), u"#FFFFFF #000000 [#777777]"_s);
    panel.state.deleteColor(panel.state.history().first().id);
    panel.settle();
    QCOMPARE(panel.codes(), u"#FFFFFF #000000"_s);
    QCOMPARE(panel.shown(), u"#222222 on #777777"_s);
}

void ContrastScreenTest::clickOnTheRatioCopies()
{
    ContrastFixture panel;
    panel.open(color(0x3B82F6, 0.5), color(0x112233));
    panel.click(u"Contrast 2.09 to 1, fails AA and AAA"_s);
    QCOMPARE(QApplication::clipboard()->text(), u"2.09 : 1, #3B82F680 on #112233"_s);
    QVERIFY(panel.state.showCopiedFeedback());
    QCOMPARE(panel.state.lastCopiedString(), u"2.09 : 1, #3B82F680 on #112233"_s);
}

void ContrastScreenTest::tabVisitsTheScreenFromTopToBottom()
{
    ContrastFixture panel;
    panel.capture(0x1E90FF);
    panel.open(color(0x777777), color(0x777777));
    panel.capture(0x111111);
    panel.settle();
    panel.letOfferEnd();
    QStringList names;
    for (const QWidget* widget : reachedByTab(*panel.view)) {
        if (panel.screen().isAncestorOf(widget)) {
            names.append(widget->accessibleName());
        }
    }
    QCOMPARE(names, (QStringList{u"Text: #777777"_s, u"Swap text and ground"_s, u"Ground: #777777"_s,
                                 u"Contrast 1.00 to 1, fails AA and AAA"_s,
                                 u"Add #060606, passes AA with 4.52 to 1"_s, u"White, #FFFFFF"_s}));
}

void ContrastScreenTest::keysMoveInTheStrip()
{
    ContrastFixture panel;
    panel.capture(0x1E90FF);
    panel.open(color(0x112233));
    const QList<StripSwatch*> strip = panel.strip();
    strip.first()->setFocus(Qt::TabFocusReason);
    const auto focusAfter = [&](Qt::Key key) {
        QTest::keyClick(panel.view->focusWidget(), key);
        return strip.indexOf(static_cast<StripSwatch*>(panel.view->focusWidget()));
    };
    QCOMPARE(focusAfter(Qt::Key_Left), 0);
    QCOMPARE(focusAfter(Qt::Key_Right), 1);
    QCOMPARE(focusAfter(Qt::Key_End), 2);
    QCOMPARE(focusAfter(Qt::Key_Right), 2);
    QCOMPARE(panel.shown(), u"#112233 on #FFFFFF"_s);
    QCOMPARE(focusAfter(Qt::Key_Return), 2);
    QCOMPARE(panel.shown(), u"#112233 on #1E90FF"_s);
    QCOMPARE(focusAfter(Qt::Key_Home), 0);
    QVERIFY(strip.first()->showsFocusRing());
}

void ContrastScreenTest::screenReadersGetTheResult()
{
    ContrastFixture panel;
    CapturedColor named = color(0x1E90FF);
    named.customName = u"Dodger Blue"_s;
    panel.open(named, color(0x000000));
    const auto* ratio = QAccessible::queryAccessibleInterface(
        button(panel.screen(), u"Contrast 6.49 to 1, passes AA, fails AAA"_s));
    QVERIFY(ratio);
    QCOMPARE(ratio->role(), QAccessible::Button);
    QCOMPARE(ratio->text(QAccessible::Description), u"Copy the ratio and both codes"_s);
    const auto* screen = QAccessible::queryAccessibleInterface(&panel.screen());
    QCOMPARE(screen->text(QAccessible::Description), u"Contrast 6.49 to 1, passes AA, fails AAA"_s);
    const auto* well = QAccessible::queryAccessibleInterface(panel.wells().first());
    QCOMPARE(well->text(QAccessible::Name), u"Text: Dodger Blue, #1E90FF"_s);
    QCOMPARE(well->text(QAccessible::Description), u"Lets the colors at the bottom replace it"_s);
    const auto* strip = QAccessible::queryAccessibleInterface(panel.screen().findChild<ColorStrip*>());
    QCOMPARE(strip->role(), QAccessible::List);
    QCOMPARE(strip->text(QAccessible::Name), u"Choose the ground"_s);
    const auto* chip = QAccessible::queryAccessibleInterface(panel.screen().findChild<LevelChip*>());
    QCOMPARE(chip->role(), QAccessible::StaticText);
    QCOMPARE(chip->text(QAccessible::Name), u"Normal text passes AA"_s);
}

void ContrastScreenTest::everythingFitsAboveTheStrip()
{
    ContrastFixture panel;
    panel.open(color(0x3B82F6), color(0xFFFFFF));
    const QRect last =
        placeIn(panel.screen(), *button(panel.screen(), u"Add #0452C2, passes AAA with 7.02 to 1"_s));
    const QRect strip = placeIn(panel.screen(), *panel.screen().findChild<ColorStrip*>());
    QVERIFY(last.bottom() < strip.top());
    QVERIFY(strip.bottom() < panel.screen().height());
}

int main(int argc, char** argv)
{
    return runWithOwnHome<ContrastScreenTest>(argc, argv);
}
#include "ContrastScreenTest.moc"

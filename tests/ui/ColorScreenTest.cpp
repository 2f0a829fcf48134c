#include "ColorScreen.h"

#include "ContrastScreen.h"
#include "PanelNavigation.h"
#include "Slider.h"
#include "Theme.h"
#include "ValueField.h"
#include "ui/OwnHomeMain.h"
#include "ui/PanelFixture.h"
#include "ui/Probes.h"

#include <QAccessible>
#include <QClipboard>
#include <QMenu>

using namespace tintwick;
using namespace tintwick::test;
using namespace Qt::StringLiterals;

namespace {

/// From the end of a slider's track to its lowest value.
constexpr double trackInset = 14;

/// The panel with one colour opened from the history.
class ColorFixture final : public PanelFixture
{
public:
    explicit ColorFixture(unsigned rgb = 0x3B82F6, double alpha = 1)
    {
        preferences.setEditorModel(EditorModel::Oklch);
        original = capture(rgb, alpha);
        letFeedbackEnd();
        QApplication::clipboard()->clear();
        view->setSelectedCollectionId(PanelView::historySelectionId);
        settle();
        PanelNavigation::of(view.get())->openColor(original);
        settle();
    }

    [[nodiscard]] QWidget& screen() const { return view->currentScreen(); }
    /// The visible view of a type with an accessible name.
    template <typename View>
    [[nodiscard]] View& named(const QString& name) const
    {
        for (auto* candidate : screen().findChildren<View*>()) {
            if (candidate->accessibleName() == name && candidate->isVisible()) {
                return *candidate;
            }
        }
        qFatal("no %s", qUtf8Printable(name));
    }
    [[nodiscard]] Slider& slider(const QString& name) const { return named<Slider>(name); }
    [[nodiscard]] ValueField& number(const QString& name) const { return named<ValueField>(name); }
    [[nodiscard]] ValueField& field() const { return number(u"Color code"_s); }
    [[nodiscard]] QString code() const { return field().text(); }
    [[nodiscard]] QAbstractButton& press(const QString& name) const { return named<QAbstractButton>(name); }
    [[nodiscard]] bool shows(const QString& text) const { return visibleTexts(screen()).contains(text); }

    /// Presses the track of a slider at a fraction of its range.
    void pressTrack(const QString& name, double fraction) const
    {
        Slider& pressed = slider(name);
        const double x = trackInset + fraction * (pressed.width() - 2 * trackInset);
        QTest::mouseClick(&pressed, Qt::LeftButton, {}, QPoint(qRound(x), pressed.height() / 2));
        settle();
    }
    void type(const QString& name, const QString& text) const
    {
        QTest::mouseDClick(&number(name), Qt::LeftButton);
        QTest::keyClicks(&number(name), text);
        QTest::keyClick(&number(name), Qt::Key_Return);
        settle();
    }
    void typeCode(const QString& text) const
    {
        field().setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&field(), text);
        QTest::keyClick(&field(), Qt::Key_Return);
        settle();
    }

    CapturedColor original;
};

QString copied()
{
    return QApplication::clipboard()->text();
}

/// The colour in the middle of a part of the screen.
QRgb colorAt(const ColorFixture& panel, const QWidget& part)
{
    return panel.picture().pixel(placeIn(*panel.view, part).center());
}

} // namespace

class ColorScreenTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theColorIsShownWithItsNameCodeAndNumbers();
    void aSliderChangesTheNewColorBesideTheOld();
    void aDragDoesNotMoveAnyPart();
    void thePillMovesNoSlider();
    void everythingFitsBesideANotice();
    void aNumberCanBeTyped_data();
    void aNumberCanBeTyped();
    void digitsOnASliderBeginTyping();
    void theFieldTakesAnyColorText_data();
    void theFieldTakesAnyColorText();
    void colorsOutsideTheGamutSaySo();
    void thePartsOutsideTheGamutAreInTheTrack();
    void theOldHalfReturnsToTheOriginal();
    void revertReturnsToTheOriginal();
    void theNewHalfAndTheButtonCopy();
    void theMenusCopyAsAnyFormat();
    void theContrastOfTheNewColorOpensAndReturns();
    void theCodeHasTheDefaultFormat();
    void saveAsNewKeepsTheOriginal();
    void onlyAChangeThatIsNotSavedCanBeSaved();
    void tintsAndShadesBecomeTheNewColor();
    void theArrowKeysMoveAlongTheTints();
    void tintsKeepTheOpacity();
    void theChoiceOfTheModelIsRemembered();
    void changingTheModelChangesNoColor();
    void aGreyKeepsItsHue();
    void aDeletedColorStaysOnTheScreen();
    void aNewNameIsShown();
    void anUnnamedColorHasTheNameOfTheTable();
    void tabWalksThroughTheScreen();
    void screenReadersHearWhatTheColorIs();
};

void ColorScreenTest::theColorIsShownWithItsNameCodeAndNumbers()
{
    const ColorFixture panel;
    QVERIFY(panel.shows(u"Royal Blue"_s));
    QCOMPARE(panel.code(), u"#3B82F6"_s);
    QCOMPARE(panel.number(u"Lightness"_s).text(), u"62.3%"_s);
    QCOMPARE(panel.number(u"Chroma"_s).text(), u"0.188"_s);
    QCOMPARE(panel.number(u"Hue"_s).text(), u"259.8°"_s);
    QCOMPARE(panel.number(u"Opacity"_s).text(), u"100%"_s);
    QVERIFY(!panel.press(u"Revert"_s).isEnabled());
    QVERIFY(!panel.press(u"Save as New"_s).isEnabled());
}

void ColorScreenTest::aSliderChangesTheNewColorBesideTheOld()
{
    const ColorFixture panel;
    panel.pressTrack(u"Hue"_s, 300.0 / 360);
    const QAbstractButton& old = panel.press(u"Return to the original, Royal Blue, #3B82F6"_s);
    QVERIFY(isNear(colorAt(panel, old), 0x3B82F6));
    const QString code = panel.code();
    QVERIFY(code != u"#3B82F6"_s);
    QVERIFY(panel.shows(u"Medium Purple"_s));
    const QAbstractButton& changed = panel.press(u"Copy the new color, Medium Purple, %1"_s.arg(code));
    QVERIFY(isNear(colorAt(panel, changed), QColor(code).rgb()));
    // One point of the track is more than a degree.
    QVERIFY(isNear(QColor(code).rgb(), 0x9A65E5, 4));
}

void ColorScreenTest::aDragDoesNotMoveAnyPart()
{
    const ColorFixture panel;
    const auto places = [&] {
        QList<QRect> result;
        for (const auto* part : panel.screen().findChildren<QWidget*>()) {
            if (part->isVisible() && qobject_cast<const Label*>(part) == nullptr) {
                result.append(placeIn(*panel.view, *part));
            }
        }
        return result;
    };
    const QList<QRect> before = places();
    for (const double fraction : {0.0, 0.1, 0.5, 0.99, 1.0}) {
        panel.pressTrack(u"Chroma"_s, fraction);
        panel.pressTrack(u"Hue"_s, fraction);
        panel.pressTrack(u"Lightness"_s, fraction);
        QCOMPARE(places(), before);
    }
}

void ColorScreenTest::thePillMovesNoSlider()
{
    const ColorFixture panel;
    panel.letOfferEnd();
    const QRect before = placeIn(*panel.view, panel.slider(u"Hue"_s));
    panel.type(u"Hue"_s, u"300"_s);
    panel.press(u"Save as New"_s).click();
    panel.settle();
    QVERIFY(visibleTexts(*panel.view).contains(u"Added Medium Purple"_s));
    QCOMPARE(placeIn(*panel.view, panel.slider(u"Hue"_s)), before);
}

void ColorScreenTest::everythingFitsBesideANotice()
{
    const ColorFixture panel;
    panel.view->showNotice(
        u"The picture of the screen could not be taken, because the desktop refused it."_s);
    panel.type(u"Hue"_s, u"300"_s);
    panel.press(u"Save as New"_s).click();
    panel.settle();
    const QRect tint = placeIn(*panel.view, panel.press(u"Base, #9A65E5"_s));
    const QRect save = placeIn(*panel.view, panel.press(u"Save as New"_s));
    QVERIFY(tint.top() > placeIn(*panel.view, panel.slider(u"Opacity"_s)).bottom());
    QVERIFY(save.top() > tint.bottom());
    QCOMPARE(panel.view->size(), theme::panelSize);
    QVERIFY(save.bottom() < panel.view->height());
    QVERIFY(panel.press(u"Copy the new color, Medium Purple, #9A65E5"_s).height() >= 36);
}

void ColorScreenTest::aNumberCanBeTyped_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* text, const QString& name, const char* code, const QString& shown) {
        QTest::newRow(text) << name << QString::fromUtf8(text) << QString::fromLatin1(code) << shown;
    };
    row("300", u"Hue"_s, "#9A65E5", u"300.0°"_s);
    row("300°", u"Hue"_s, "#9A65E5", u"300.0°"_s);
    row("50%", u"Lightness"_s, "#115BCC", u"50.0%"_s);
    row(" 50 ", u"Lightness"_s, "#115BCC", u"50.0%"_s);
    row("0,1", u"Chroma"_s, "#6388C3", u"0.100"_s);
    row("200", u"Lightness"_s, "#FFFFFF", u"100.0%"_s);
    row("-3", u"Lightness"_s, "#000000", u"0.0%"_s);
    row("blue", u"Hue"_s, "#3B82F6", u"blue"_s);
    row("nan", u"Hue"_s, "#3B82F6", u"nan"_s);
}

void ColorScreenTest::aNumberCanBeTyped()
{
    QFETCH(const QString, name);
    QFETCH(const QString, text);
    const ColorFixture panel;
    panel.type(name, text);
    QTEST(panel.code(), "code");
    QTEST(panel.number(name).text(), "shown");
    QCOMPARE(panel.slider(name).hasFocus(), !panel.number(name).hasFocus());
}

void ColorScreenTest::digitsOnASliderBeginTyping()
{
    const ColorFixture panel;
    Slider& hue = panel.slider(u"Hue"_s);
    hue.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&hue, '3');
    QTest::keyClicks(panel.view->focusWidget(), u"00"_s);
    QTest::keyClick(panel.view->focusWidget(), Qt::Key_Return);
    QCOMPARE(panel.code(), u"#9A65E5"_s);
    QVERIFY(hue.hasFocus());
}

void ColorScreenTest::theFieldTakesAnyColorText_data()
{
    QTest::addColumn<QString>("code");
    const auto row = [](const char* text, const char* code) {
        QTest::newRow(text) << QString::fromLatin1(code);
    };
    row("#0a5", "#00AA55");
    row("hsl(120 100% 25%)", "#008000");
    row("oklch(0.40101 0.12332 21.555)", "#7D2329");
    row("rebeccapurple", "#663399");
    row("Blue-500", "#3B82F6");
    row("no color", "no color");
    row("", "");
}

void ColorScreenTest::theFieldTakesAnyColorText()
{
    const ColorFixture panel(0x102030);
    panel.field().setFocus(Qt::TabFocusReason);
    panel.field().clear();
    panel.typeCode(QString::fromLatin1(QTest::currentDataTag()));
    QTEST(panel.code(), "code");
}

void ColorScreenTest::colorsOutsideTheGamutSaySo()
{
    const ColorFixture panel;
    const QString note = u"Outside sRGB, nearest color shown"_s;
    QVERIFY(!panel.shows(note));
    panel.type(u"Chroma"_s, u"0.3"_s);
    QVERIFY(panel.shows(note));
    QCOMPARE(panel.code(), u"#217DFF"_s);
    QCOMPARE(panel.number(u"Chroma"_s).text(), u"0.300"_s);
    panel.type(u"Chroma"_s, u"0.1"_s);
    QVERIFY(!panel.shows(note));
    panel.typeCode(u"color(display-p3 0 1 0)"_s);
    QVERIFY(panel.shows(note));
    QCOMPARE(panel.code(), u"#00FB29"_s);
    panel.type(u"Chroma"_s, u"0.1"_s);
    QVERIFY(!panel.shows(note));
}

void ColorScreenTest::thePartsOutsideTheGamutAreInTheTrack()
{
    const ColorFixture panel;
    const auto parts = [&](const QString& name) {
        QStringList result;
        for (const SliderTrack::Part& part : panel.slider(name).track().outside) {
            result.append(u"%1-%2"_s.arg(part.from, 0, 'f', 2).arg(part.to, 0, 'f', 2));
        }
        return result.join(u' ');
    };
    QCOMPARE(parts(u"Chroma"_s), u"0.62-1.00"_s);
    QCOMPARE(parts(u"Hue"_s), u"0.12-0.38 0.41-0.70"_s);
    QCOMPARE(parts(u"Lightness"_s), u"0.00-0.47 0.65-1.00"_s);
    panel.type(u"Chroma"_s, u"0"_s);
    QCOMPARE(parts(u"Hue"_s), QString());
    QCOMPARE(parts(u"Chroma"_s), u"0.62-1.00"_s);
}

void ColorScreenTest::theOldHalfReturnsToTheOriginal()
{
    const ColorFixture panel;
    panel.type(u"Hue"_s, u"20"_s);
    QVERIFY(panel.code() != u"#3B82F6"_s);
    QTest::mouseClick(&panel.press(u"Return to the original, Royal Blue, #3B82F6"_s), Qt::LeftButton);
    QCOMPARE(panel.code(), u"#3B82F6"_s);
    QCOMPARE(panel.number(u"Hue"_s).text(), u"259.8°"_s);
}

void ColorScreenTest::revertReturnsToTheOriginal()
{
    const ColorFixture panel(0x3B82F6, 0.5);
    panel.type(u"Opacity"_s, u"10"_s);
    QTest::mouseClick(&panel.press(u"Revert"_s), Qt::LeftButton);
    QCOMPARE(panel.number(u"Opacity"_s).text(), u"50%"_s);
    QVERIFY(!panel.press(u"Revert"_s).isEnabled());
}

void ColorScreenTest::theNewHalfAndTheButtonCopy()
{
    const ColorFixture panel;
    panel.type(u"Hue"_s, u"300"_s);
    QTest::mouseClick(&panel.press(u"Copy the new color, Medium Purple, #9A65E5"_s), Qt::LeftButton);
    QCOMPARE(copied(), u"#9A65E5"_s);
    QVERIFY(panel.state.showCopiedFeedback());
    panel.type(u"Hue"_s, u"20"_s);
    QTest::mouseClick(&panel.press(u"Copy"_s), Qt::LeftButton);
    QCOMPARE(copied(), panel.code());
}

void ColorScreenTest::theMenusCopyAsAnyFormat()
{
    const ColorFixture panel;
    panel.type(u"Hue"_s, u"300"_s);
    choose(*contextMenu(panel.press(u"Copy the new color, Medium Purple, #9A65E5"_s)), u"CSS Var"_s);
    QCOMPARE(copied(), u"--medium-purple: #9A65E5;"_s);
    choose(*contextMenu(panel.press(u"Return to the original, Royal Blue, #3B82F6"_s)), u"HEX"_s);
    QCOMPARE(copied(), u"#3B82F6"_s);
    choose(*contextMenu(panel.press(u"Tint 5, #EDE6FD"_s)), u"HEX bare"_s);
    QCOMPARE(copied(), u"EDE6FD"_s);
}

void ColorScreenTest::theContrastOfTheNewColorOpensAndReturns()
{
    const ColorFixture panel;
    panel.type(u"Hue"_s, u"300"_s);
    choose(*contextMenu(panel.press(u"Copy the new color, Medium Purple, #9A65E5"_s)), u"Contrast With…"_s);
    QVERIFY(qobject_cast<ContrastScreen*>(&panel.screen()));
    QTest::keyClick(panel.view.get(), Qt::Key_Left, Qt::AltModifier);
    panel.settle();
    QCOMPARE(panel.code(), u"#9A65E5"_s);
}

void ColorScreenTest::theCodeHasTheDefaultFormat()
{
    ColorFixture panel;
    panel.state.setDefaultFormat(ColorFormat::Rgb);
    QCOMPARE(panel.code(), u"rgb(59, 130, 246)"_s);
    panel.type(u"Hue"_s, u"300"_s);
    QCOMPARE(panel.code(), u"rgb(154, 101, 229)"_s);
}

void ColorScreenTest::saveAsNewKeepsTheOriginal()
{
    ColorFixture panel;
    const QUuid brand = panel.state.createCollection(u"Brand"_s, {panel.original.id}).id;
    panel.type(u"Hue"_s, u"300"_s);
    QTest::mouseClick(&panel.press(u"Save as New"_s), Qt::LeftButton);
    panel.settle();
    QCOMPARE(panel.state.history().size(), 2);
    const CapturedColor saved = panel.state.history().first();
    QCOMPARE(saved.hex8(), u"#9A65E5FF"_s);
    QCOMPARE(saved.customName, u"Medium Purple"_s);
    QVERIFY(saved.id != panel.original.id);
    QCOMPARE(panel.state.history().last(), panel.original);
    QCOMPARE(panel.state.collection(brand)->colorIds, QList<QUuid>{panel.original.id});
    panel.state.undo();
    QCOMPARE(panel.state.history(), QList<CapturedColor>{panel.original});
}

void ColorScreenTest::onlyAChangeThatIsNotSavedCanBeSaved()
{
    ColorFixture panel;
    QAbstractButton& save = panel.press(u"Save as New"_s);
    panel.type(u"Hue"_s, u"300"_s);
    QVERIFY(save.isEnabled());
    save.click();
    QVERIFY(!save.isEnabled());
    panel.state.undo();
    QVERIFY(save.isEnabled());
    panel.state.redo();
    QVERIFY(!save.isEnabled());
    panel.type(u"Hue"_s, u"20"_s);
    QVERIFY(save.isEnabled());
    save.click();
    QCOMPARE(panel.state.history().size(), 3);
    panel.typeCode(u"#3B82F6"_s);
    QVERIFY(!save.isEnabled());
}

void ColorScreenTest::tintsAndShadesBecomeTheNewColor()
{
    const ColorFixture panel;
    QTest::mouseClick(&panel.press(u"Tint 1, #5D99FA"_s), Qt::LeftButton);
    QCOMPARE(panel.code(), u"#5D99FA"_s);
    // The row still begins at the original.
    QTest::mouseClick(&panel.press(u"Shade 2, #1E498F"_s), Qt::LeftButton);
    QCOMPARE(panel.code(), u"#1E498F"_s);
    QTest::mouseClick(&panel.press(u"Base, #3B82F6"_s), Qt::LeftButton);
    QCOMPARE(panel.code(), u"#3B82F6"_s);
    panel.typeCode(u"#D94A4A"_s);
    QTest::mouseClick(&panel.press(u"Tint 1, #E36C68"_s), Qt::LeftButton);
    QCOMPARE(panel.code(), u"#E36C68"_s);
}

void ColorScreenTest::theArrowKeysMoveAlongTheTints()
{
    const ColorFixture panel;
    panel.press(u"Base, #3B82F6"_s).setFocus(Qt::TabFocusReason);
    const auto go = [&](int key) { QTest::keyClick(panel.view->focusWidget(), Qt::Key(key)); };
    const auto focused = [&] { return panel.view->focusWidget()->accessibleName(); };
    go(Qt::Key_Right);
    QCOMPARE(focused(), u"Tint 1, #5D99FA"_s);
    go(Qt::Key_Home);
    QCOMPARE(focused(), u"Shade 5, #01030E"_s);
    go(Qt::Key_Left);
    QCOMPARE(focused(), u"Shade 5, #01030E"_s);
    go(Qt::Key_End);
    QCOMPARE(focused(), u"Tint 5, #DEEBFF"_s);
    go(Qt::Key_Tab);
    go(Qt::Key_Backtab);
    QCOMPARE(focused(), u"Tint 5, #DEEBFF"_s);
    go(Qt::Key_Return);
    QCOMPARE(panel.code(), u"#DEEBFF"_s);
    QCOMPARE(focused(), u"Tint 5, #DEEBFF"_s);
}

void ColorScreenTest::tintsKeepTheOpacity()
{
    const ColorFixture panel(0x3B82F6, 0.5);
    QTest::mouseClick(&panel.press(u"Tint 1, #5D99FA"_s), Qt::LeftButton);
    QCOMPARE(panel.number(u"Opacity"_s).text(), u"50%"_s);
}

void ColorScreenTest::theChoiceOfTheModelIsRemembered()
{
    ColorFixture panel;
    QTest::mouseClick(&panel.press(u"HSL"_s), Qt::LeftButton);
    panel.settle();
    QCOMPARE(panel.number(u"Hue"_s).text(), u"217.2°"_s);
    QCOMPARE(panel.number(u"Saturation"_s).text(), u"91.2%"_s);
    QCOMPARE(panel.number(u"Lightness"_s).text(), u"59.8%"_s);
    QTest::keyClick(panel.view.get(), Qt::Key_Left, Qt::AltModifier);
    PanelNavigation::of(panel.view.get())->openColor(panel.original);
    panel.settle();
    QCOMPARE(panel.number(u"Saturation"_s).text(), u"91.2%"_s);
    QCOMPARE(Preferences().editorModel(), EditorModel::Hsl);
}

void ColorScreenTest::changingTheModelChangesNoColor()
{
    const ColorFixture panel;
    panel.type(u"Chroma"_s, u"0.3"_s);
    QTest::mouseClick(&panel.press(u"HSL"_s), Qt::LeftButton);
    QCOMPARE(panel.code(), u"#217DFF"_s);
    QTest::mouseClick(&panel.press(u"OKLCH"_s), Qt::LeftButton);
    panel.settle();
    QCOMPARE(panel.code(), u"#217DFF"_s);
    QCOMPARE(panel.number(u"Chroma"_s).text(), u"0.300"_s);
}

void ColorScreenTest::aGreyKeepsItsHue()
{
    const ColorFixture panel;
    Slider& chroma = panel.slider(u"Chroma"_s);
    const double before = chroma.value();
    QTest::keyClick(&chroma, Qt::Key_Home);
    QCOMPARE(panel.code(), u"#878787"_s);
    QCOMPARE(panel.number(u"Hue"_s).text(), u"259.8°"_s);
    chroma.changeValue(before);
    QCOMPARE(panel.code(), u"#3B82F6"_s);
}

void ColorScreenTest::aDeletedColorStaysOnTheScreen()
{
    ColorFixture panel;
    panel.type(u"Hue"_s, u"300"_s);
    panel.state.deleteColor(panel.original.id);
    panel.settle();
    QCOMPARE(panel.code(), u"#9A65E5"_s);
    QTest::mouseClick(&panel.press(u"Save as New"_s), Qt::LeftButton);
    QCOMPARE(panel.state.history().size(), 1);
    QCOMPARE(panel.state.history().first().hex6(), u"#9A65E5"_s);
}

void ColorScreenTest::aNewNameIsShown()
{
    ColorFixture panel;
    panel.state.renameColor(panel.original.id, u"Harbour"_s);
    panel.settle();
    QVERIFY(panel.shows(u"Harbour"_s));
    QCOMPARE(panel.press(u"Return to the original, Harbour, #3B82F6"_s).toolTip(),
             u"Return to Harbour, #3B82F6"_s);
}

void ColorScreenTest::anUnnamedColorHasTheNameOfTheTable()
{
    ColorFixture panel;
    panel.state.renameColor(panel.original.id, {});
    panel.settle();
    QVERIFY(panel.shows(u"Royal Blue"_s));
    panel.typeCode(u"#00FF80"_s);
    QVERIFY(panel.shows(u"Spring Green"_s));
    panel.typeCode(u"#5000A0"_s);
    QVERIFY(panel.shows(u"Indigo"_s));
    panel.typeCode(u"#5000FF"_s);
    QVERIFY(panel.shows(u"near Blue Violet"_s));
}

void ColorScreenTest::tabWalksThroughTheScreen()
{
    const ColorFixture panel;
    panel.type(u"Hue"_s, u"300"_s);
    QStringList names;
    for (const QWidget* widget : reachedByTab(*panel.view)) {
        if (panel.screen().isAncestorOf(widget)) {
            names.append(widget->accessibleName());
        }
    }
    const QStringList expected{u"Copy the new color, Medium Purple, #9A65E5"_s,
                               u"Color code"_s,
                               u"OKLCH"_s,
                               u"Lightness"_s,
                               u"Chroma"_s,
                               u"Hue"_s,
                               u"Opacity"_s,
                               u"Base, #9A65E5"_s,
                               u"Revert"_s,
                               u"Copy"_s,
                               u"Save as New"_s};
    // The walk begins at the slider that had the focus.
    const qsizetype first = names.indexOf(expected.first());
    QVERIFY(first >= 0);
    QCOMPARE(names.mid(first) + names.first(first), expected);
}

void ColorScreenTest::screenReadersHearWhatTheColorIs()
{
    const ColorFixture panel;
    const auto valueOf = [&](const QString& name) {
        return QAccessible::queryAccessibleInterface(&panel.slider(name))->text(QAccessible::Value);
    };
    QCOMPARE(valueOf(u"Lightness"_s), u"62.3 percent"_s);
    QCOMPARE(valueOf(u"Hue"_s), u"259.8 degrees"_s);
    QCOMPARE(valueOf(u"Chroma"_s), u"0.188"_s);
    panel.type(u"Chroma"_s, u"0.3"_s);
    QCOMPARE(valueOf(u"Chroma"_s), u"0.300, outside sRGB"_s);
    QCOMPARE(valueOf(u"Opacity"_s), u"100 percent"_s);
    auto* value = QAccessible::queryAccessibleInterface(&panel.slider(u"Lightness"_s))->valueInterface();
    QCOMPARE(value->currentValue().toDouble(), 62.3);
    value->setCurrentValue(0);
    QCOMPARE(panel.code(), u"#000000"_s);
}

int main(int argc, char** argv)
{
    return tintwick::test::runWithOwnHome<ColorScreenTest>(argc, argv);
}
#include "ColorScreenTest.moc"

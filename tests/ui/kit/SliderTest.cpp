#include "Slider.h"

#include "Appearance.h"
#include "Stack.h"
#include "Theme.h"
#include "Ticker.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace tintwick;
using namespace Qt::StringLiterals;

namespace {

/// From the left end of the track to the lowest value.
constexpr int inset = 14;

/// A slider from 0 to 100 with one point for each value, in an active window, and the values that it reported.
struct Percentage
{
    Percentage()
        : slider(new Slider(u"Lightness"_s, {.greatest = 100, .step = 1, .largeStep = 10, .decimals = 1}))
        , window(column(fixedSize(100 + 2 * inset, 60), slider))
    {
        Ticker::shared().setMode(Ticker::Mode::ByHand);
        slider->setTrack({.colors = {Qt::black, Qt::white}, .outside = {}});
        slider->setThumbColor(Qt::red);
        slider->setValue(50);
        slider->onChange([this](double value) { reported.append(value); });
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    [[nodiscard]] QPoint place(int value) const { return {inset + value, slider->height() / 2}; }
    [[nodiscard]] QImage picture() const
    {
        Ticker::shared().advance(60);
        return slider->grab().toImage();
    }
    void turnWheel(const QPoint& angle, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QPointF middle = slider->rect().center();
        QWheelEvent event(middle, slider->mapToGlobal(middle), {}, angle, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(slider, &event);
    }

    Slider* slider;
    std::unique_ptr<Stack> window;
    QList<double> reported;
};

} // namespace

class SliderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void aPressMovesTheThumbThere();
    void theThumbKeepsItsGripWhileItIsDragged();
    void aDragBeyondTheEndsStopsThere();
    void otherButtonsDoNothing();
    void keysChangeTheValue_data();
    void keysChangeTheValue();
    void otherKeysAreLeftToThePanel();
    void theWheelChangesTheValue_data();
    void theWheelChangesTheValue();
    void aValueFromCodeIsNotReported();
    void someKeysAskToType_data();
    void someKeysAskToType();
    void theTrackShowsTheColors();
    void partsOutsideTheLimitAreFadedWithACrispEdge();
    void theThumbHasARingAndItsColor();
    void onlyKeyboardFocusShowsTheRing();
    void theHeldThumbHasAThinnerRing();
    void reducedMotionEndsAtOnce();
    void screenReadersGetAndSetTheValue();
};

void SliderTest::cleanup()
{
    Ticker::shared().setMotionReduced(false);
}

void SliderTest::aPressMovesTheThumbThere()
{
    Percentage percentage;
    QTest::mouseClick(percentage.slider, Qt::LeftButton, {}, percentage.place(80));
    QCOMPARE(percentage.reported, QList<double>{80});
    QCOMPARE(percentage.slider->thumbPlace(), QPointF(inset + 80, 14));
}

void SliderTest::theThumbKeepsItsGripWhileItIsDragged()
{
    Percentage percentage;
    Slider* slider = percentage.slider;
    QTest::mousePress(slider, Qt::LeftButton, {}, percentage.place(56));
    QCOMPARE(percentage.reported, QList<double>{});
    QTest::mouseMove(slider, percentage.place(66));
    QTest::mouseMove(slider, percentage.place(36));
    QTest::mouseRelease(slider, Qt::LeftButton, {}, percentage.place(36));
    QTest::mouseMove(slider, percentage.place(10));
    QCOMPARE(percentage.reported, (QList<double>{60, 30}));
}

void SliderTest::aDragBeyondTheEndsStopsThere()
{
    Percentage percentage;
    QTest::mousePress(percentage.slider, Qt::LeftButton, {}, percentage.place(50));
    QTest::mouseMove(percentage.slider, percentage.place(400));
    QTest::mouseMove(percentage.slider, percentage.place(500));
    QTest::mouseMove(percentage.slider, percentage.place(-300));
    QCOMPARE(percentage.reported, (QList<double>{100, 0}));
}

void SliderTest::otherButtonsDoNothing()
{
    Percentage percentage;
    QTest::mouseClick(percentage.slider, Qt::RightButton, {}, percentage.place(80));
    QCOMPARE(percentage.reported, QList<double>{});
}

void SliderTest::keysChangeTheValue_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<double>("value");
    const auto row = [](const char* name, int key, Qt::KeyboardModifiers modifiers, double value) {
        QTest::newRow(name) << key << modifiers << value;
    };
    row("Left", Qt::Key_Left, {}, 49);
    row("Down", Qt::Key_Down, {}, 49);
    row("Right", Qt::Key_Right, {}, 51);
    row("Up", Qt::Key_Up, {}, 51);
    row("Right on the keypad", Qt::Key_Right, Qt::KeypadModifier, 51);
    row("Shift+Left", Qt::Key_Left, Qt::ShiftModifier, 40);
    row("Shift+Up", Qt::Key_Up, Qt::ShiftModifier, 60);
    row("Page Down", Qt::Key_PageDown, {}, 40);
    row("Page Up", Qt::Key_PageUp, {}, 60);
    row("Home", Qt::Key_Home, {}, 0);
    row("End", Qt::Key_End, {}, 100);
}

void SliderTest::keysChangeTheValue()
{
    QFETCH(const int, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    Percentage percentage;
    QTest::keyClick(percentage.slider, Qt::Key(key), modifiers);
    QTEST(percentage.slider->value(), "value");
    QCOMPARE(percentage.reported, QList<double>{percentage.slider->value()});
}

void SliderTest::otherKeysAreLeftToThePanel()
{
    Percentage percentage;
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_Left, Qt::AltModifier), std::pair(Qt::Key_Right, Qt::ControlModifier),
          std::pair(Qt::Key_A, Qt::NoModifier), std::pair(Qt::Key_Escape, Qt::NoModifier)}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, key == Qt::Key_A ? u"a"_s : QString());
        event.accept();
        QApplication::sendEvent(percentage.slider, &event);
        QVERIFY(!event.isAccepted());
    }
    QCOMPARE(percentage.reported, QList<double>{});
}

void SliderTest::theWheelChangesTheValue_data()
{
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<double>("value");
    const Qt::KeyboardModifiers none;
    QTest::newRow("a notch up") << QPoint(0, 120) << none << 51.0;
    QTest::newRow("a notch down") << QPoint(0, -120) << none << 49.0;
    QTest::newRow("a quarter of a notch") << QPoint(0, 30) << none << 50.25;
    QTest::newRow("to the right") << QPoint(-120, 0) << none << 51.0;
    QTest::newRow("with Shift") << QPoint(0, 120) << Qt::KeyboardModifiers(Qt::ShiftModifier) << 60.0;
}

void SliderTest::theWheelChangesTheValue()
{
    QFETCH(const QPoint, angle);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    Percentage percentage;
    percentage.turnWheel(angle, modifiers);
    QTEST(percentage.slider->value(), "value");
}

void SliderTest::aValueFromCodeIsNotReported()
{
    Percentage percentage;
    percentage.slider->setValue(20);
    percentage.slider->setValue(200);
    QCOMPARE(percentage.slider->value(), 100.0);
    QCOMPARE(percentage.reported, QList<double>{});
}

void SliderTest::someKeysAskToType_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("Return") << int(Qt::Key_Return) << QString();
    QTest::newRow("F2") << int(Qt::Key_F2) << QString();
    QTest::newRow("a digit") << int(Qt::Key_7) << u"7"_s;
    QTest::newRow("a point") << int(Qt::Key_Period) << u"."_s;
}

void SliderTest::someKeysAskToType()
{
    QFETCH(const int, key);
    QFETCH(const QString, text);
    Percentage percentage;
    const QSignalSpy requests(percentage.slider, &Slider::typingRequested);
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(percentage.slider, &event);
    QCOMPARE(requests.count(), 1);
    QCOMPARE(requests.first().first().toString(), text);
}

void SliderTest::theTrackShowsTheColors()
{
    const Percentage percentage;
    const QImage picture = percentage.picture();
    for (const int value : {0, 25, 75, 100}) {
        const QRgb expected = qRgb(value * 255 / 100, value * 255 / 100, value * 255 / 100);
        const QRgb seen = picture.pixel(percentage.place(value));
        QVERIFY2(std::abs(qRed(seen) - qRed(expected)) < 6, qPrintable(QColor(seen).name()));
    }
}

void SliderTest::partsOutsideTheLimitAreFadedWithACrispEdge()
{
    const Percentage percentage;
    const QColor blue(0, 0, 255);
    percentage.slider->setTrack({.colors = {blue, blue}, .outside = {{0, 0.2}, {0.8, 1}}});
    const QImage picture = percentage.picture();
    const auto pixel = [&](int value) { return picture.pixelColor(percentage.place(value)); };
    for (const int inside : {20, 30, 70, 79}) {
        QCOMPARE(pixel(inside), blue);
    }
    for (const int limit : {19, 80}) {
        QCOMPARE(pixel(limit), theme::textSecond.in(Scheme::Light));
    }
    for (const int outside : {5, 12, 17, 82, 90, 95}) {
        QVERIFY2(pixel(outside).red() > 60, qPrintable(pixel(outside).name()));
    }
}

void SliderTest::theThumbHasARingAndItsColor()
{
    const Percentage percentage;
    const QImage picture = percentage.picture();
    const QPoint middle = percentage.place(50);
    QCOMPARE(picture.pixelColor(middle), QColor(Qt::red));
    for (const QPoint ring : {QPoint(-9, 0), QPoint(8, 0), QPoint(0, -9), QPoint(0, 8)}) {
        QVERIFY(picture.pixelColor(middle + ring).red() > 250);
    }
}

void SliderTest::onlyKeyboardFocusShowsTheRing()
{
    const Percentage percentage;
    const auto hasRing = [&] {
        return percentage.picture().pixelColor(percentage.place(50) - QPoint(0, 13)) ==
               theme::focusRing.in(Scheme::Light);
    };
    QTest::mouseClick(percentage.slider, Qt::LeftButton, {}, percentage.place(50));
    QVERIFY(percentage.slider->hasFocus());
    QVERIFY(!hasRing());
    percentage.slider->clearFocus();
    percentage.slider->setFocus(Qt::TabFocusReason);
    QVERIFY(hasRing());
}

void SliderTest::theHeldThumbHasAThinnerRing()
{
    const Percentage percentage;
    const QPoint inRing = percentage.place(50) + QPoint(-8, 0);
    QCOMPARE(percentage.picture().pixelColor(inRing), QColor(Qt::white));
    QTest::mousePress(percentage.slider, Qt::LeftButton, {}, percentage.place(50));
    QVERIFY(percentage.picture().pixelColor(inRing) != QColor(Qt::white));
    QTest::mouseRelease(percentage.slider, Qt::LeftButton, {}, percentage.place(50));
    QCOMPARE(percentage.picture().pixelColor(inRing), QColor(Qt::white));
}

void SliderTest::reducedMotionEndsAtOnce()
{
    const Percentage percentage;
    Ticker::shared().setMotionReduced(true);
    QTest::mousePress(percentage.slider, Qt::LeftButton, {}, percentage.place(50));
    QVERIFY(!Ticker::shared().hasMotion());
}

void SliderTest::screenReadersGetAndSetTheValue()
{
    Percentage percentage;
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(percentage.slider);
    QCOMPARE(seen->role(), QAccessible::Slider);
    QCOMPARE(seen->text(QAccessible::Name), u"Lightness"_s);
    QVERIFY(seen->state().focusable);
    percentage.slider->setValueText(u"50.0 percent"_s);
    QCOMPARE(seen->text(QAccessible::Value), u"50.0 percent"_s);

    QAccessibleValueInterface* value = seen->valueInterface();
    QVERIFY(value != nullptr);
    QCOMPARE(value->currentValue().toDouble(), 50.0);
    QCOMPARE(value->minimumValue().toDouble(), 0.0);
    QCOMPARE(value->maximumValue().toDouble(), 100.0);
    QCOMPARE(value->minimumStepSize().toDouble(), 1.0);
    value->setCurrentValue(62.35);
    QCOMPARE(percentage.reported, QList<double>{62.35});
    QCOMPARE(value->currentValue().toDouble(), 62.4);
}

QTEST_MAIN(SliderTest)
#include "SliderTest.moc"

#include "ColorPickerService.h"
#include "KeyCode.h"
#include "Preferences.h"
#include "ScreenCaptureService.h"
#include "support/ScriptedPlatform.h"
#include "support/TestPictures.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace tintwick;
using namespace tintwick::test;

namespace {

const Screen fullHd{{0, 0, 1920, 1080}, 1};

/// A desktop with a numbered picture on it, the pointer at (500, 400), and a service that picks there.
struct Desk
{
    ScriptedPlatform platform;
    ScreenCaptureService capture{platform.grabber};
    Preferences preferences;
    std::unique_ptr<ColorPickerService> service =
        std::make_unique<ColorPickerService>(platform, capture, preferences);
    std::vector<SampledColor> captured;

    Desk()
    {
        platform.grabber.answer = [](const DesktopRect& rect) { return worldImage(rect); };
        platform.input.position = {500, 400};
        service->setOnColorCaptured([this](const SampledColor& color) {
            platform.journal << QStringLiteral("captured");
            captured.push_back(color);
        });
    }

    [[nodiscard]] int grabs() const { return static_cast<int>(platform.grabber.grabs.size()); }
    [[nodiscard]] int shown() const { return static_cast<int>(platform.frames.size()); }
    /// The side of the grid that was sampled last; 1 after a colour was taken.
    [[nodiscard]] int side() const { return static_cast<int>(platform.grabber.grabs.back().rect.width); }
    /// Nothing is hidden, taken or shown any more.
    [[nodiscard]] bool isAsBefore() const
    {
        return !service->isPicking() && !platform.input.isOn() && capture.referenceWindowID() == 0 &&
               platform.journal.count(QStringLiteral("begin session")) ==
                   platform.journal.count(QStringLiteral("end session")) &&
               platform.journal.filter(QStringLiteral("create loupe")).size() ==
                   platform.journal.filter(QStringLiteral("remove loupe")).size();
    }
};

} // namespace

class ColorPickerServiceTest final : public QObject
{
    Q_OBJECT

    QTemporaryDir m_config;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_config.isValid());
        qputenv("XDG_CONFIG_HOME", m_config.path().toUtf8());
    }

    void init()
    {
        Preferences preferences;
        preferences.setLoupeRadius(7);
        preferences.setLoupeSize(LoupeSize::Medium);
    }

    void a_pick_takes_the_desktop_and_gives_it_back_in_mirrored_order()
    {
        Desk desk;
        desk.service->showPicker();
        QVERIFY(desk.service->isPicking());
        QCOMPARE(desk.capture.referenceWindowID(), 1u);
        QCOMPARE(desk.platform.journal,
                 (QStringList{QStringLiteral("begin session"), QStringLiteral("begin input"),
                              QStringLiteral("create loupe 1"), QStringLiteral("grab below 1"),
                              QStringLiteral("show loupe")}));

        desk.platform.journal.clear();
        desk.platform.input.press(PointerButton::Primary, {500, 400});
        QCOMPARE(desk.platform.journal,
                 (QStringList{QStringLiteral("grab below 1"), QStringLiteral("remove loupe 1"),
                              QStringLiteral("end input"), QStringLiteral("end session"),
                              QStringLiteral("captured")}));
        QCOMPARE(desk.capture.referenceWindowID(), 0u);
        QVERIFY(!desk.service->isPicking());
        QVERIFY(desk.captured == std::vector{worldColor(500, 400)});
    }

    void cancelling_leaves_no_colour_and_nothing_behind()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.input.key(keycode::escape);
        QVERIFY(desk.isAsBefore());
        QVERIFY(desk.captured.empty());
    }

    void a_second_request_while_picking_is_ignored()
    {
        Desk desk;
        desk.service->showPicker();
        const QStringList journal = desk.platform.journal;
        desk.service->showPicker();
        QCOMPARE(desk.platform.journal, journal);
    }

    void hiding_without_a_pick_does_nothing()
    {
        Desk desk;
        desk.service->hidePicker();
        QVERIFY(desk.platform.journal.isEmpty());
    }

    void a_click_takes_the_pixel_it_was_made_on()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.input.press(PointerButton::Primary, {12.75, 34.5});
        QVERIFY(desk.captured == std::vector{worldColor(12, 34)});
    }

    void only_the_primary_button_takes_a_colour_data()
    {
        QTest::addColumn<PointerButton>("button");
        QTest::addColumn<bool>("takes");
        QTest::newRow("primary") << PointerButton::Primary << true;
        QTest::newRow("secondary") << PointerButton::Secondary << false;
        QTest::newRow("middle") << PointerButton::Middle << false;
        QTest::newRow("other") << PointerButton::Other << false;
    }

    void only_the_primary_button_takes_a_colour()
    {
        QFETCH(const PointerButton, button);
        QFETCH(const bool, takes);
        Desk desk;
        desk.service->showPicker();
        desk.platform.input.press(button, {500, 400});
        QCOMPARE(desk.captured.size(), takes ? 1u : 0u);
        QCOMPARE(desk.service->isPicking(), !takes);
    }

    void keys_zoom_move_take_and_cancel_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("isRepeat");
        QTest::addColumn<int>("side");
        QTest::addColumn<DesktopPoint>("pointer");
        QTest::addColumn<bool>("takes");
        QTest::addColumn<bool>("keepsPicking");

        using namespace keycode;
        constexpr int none = 0;
        constexpr int super = modifier::super;
        constexpr int control = modifier::control;
        constexpr int shift = modifier::shift;
        constexpr int alt = modifier::alt;
        constexpr DesktopPoint here{500, 400};
        const auto row = [](const char* name, int key, int modifiers, bool isRepeat, int side,
                            DesktopPoint pointer, bool takes, bool keepsPicking) {
            QTest::newRow(name) << key << modifiers << isRepeat << side << pointer << takes << keepsPicking;
        };
        row("escape", escape, none, false, 15, here, false, false);
        row("escape with a modifier", escape, shift, false, 15, here, false, false);
        row("escape held down", escape, none, true, 15, here, false, true);
        row("super = ", equal, super, false, 13, here, false, true);
        row("super - ", minus, super, false, 17, here, false, true);
        row("control = ", equal, control, false, 13, here, false, true);
        row("control - ", minus, control, false, 17, here, false, true);
        row("super shift = ", equal, super | shift, false, 13, here, false, true);
        row("super = held down", equal, super, true, 13, here, false, true);
        row("super keypad +", keypadPlus, super, false, 13, here, false, true);
        row("control keypad -", keypadMinus, control, false, 17, here, false, true);
        row("= alone", equal, none, false, 15, here, false, true);
        row("- with alt", minus, alt, false, 15, here, false, true);
        row("keypad + alone", keypadPlus, none, false, 15, here, false, true);
        row("left", leftArrow, none, false, 15, {499, 400}, false, true);
        row("right", rightArrow, none, false, 15, {501, 400}, false, true);
        row("up", upArrow, none, false, 15, {500, 399}, false, true);
        row("down", downArrow, none, false, 15, {500, 401}, false, true);
        row("right held down", rightArrow, none, true, 15, {501, 400}, false, true);
        row("shift left", leftArrow, shift, false, 15, {490, 400}, false, true);
        row("shift right", rightArrow, shift, false, 15, {510, 400}, false, true);
        row("shift up", upArrow, shift, false, 15, {500, 390}, false, true);
        row("shift down", downArrow, shift, false, 15, {500, 410}, false, true);
        row("return", returnKey, none, false, 1, here, true, false);
        row("keypad enter", keypadEnter, none, false, 1, here, true, false);
        row("space", space, none, false, 1, here, true, false);
        row("return held down", returnKey, none, true, 15, here, false, true);
        row("space held down", space, none, true, 15, here, false, true);
        row("a letter", c, none, false, 15, here, false, true);
        row("a letter with super", c, super, false, 15, here, false, true);
        row("a key without a number", -1, super, false, 15, here, false, true);
    }

    void keys_zoom_move_take_and_cancel()
    {
        QFETCH(const int, key);
        QFETCH(const int, modifiers);
        QFETCH(const bool, isRepeat);
        QFETCH(const bool, takes);
        QFETCH(const bool, keepsPicking);

        Desk desk;
        desk.service->showPicker();
        if (isRepeat) {
            desk.platform.input.repeatKey(key, modifiers);
        } else {
            desk.platform.input.key(key, modifiers);
        }
        QTEST(desk.side(), "side");
        QTEST(desk.platform.input.position, "pointer");
        QCOMPARE(desk.captured, takes ? std::vector{worldColor(500, 400)} : std::vector<SampledColor>());
        QCOMPARE(desk.service->isPicking(), keepsPicking);
        QVERIFY(keepsPicking || desk.isAsBefore());
    }

    void a_key_takes_the_pixel_that_the_arrows_went_to()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.input.key(keycode::rightArrow);
        desk.platform.input.key(keycode::downArrow, modifier::shift);
        desk.platform.input.key(keycode::space);
        QVERIFY(desk.captured == std::vector{worldColor(501, 410)});
    }

    void a_key_takes_the_pixel_of_a_step_that_is_not_reported_yet()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.input.position = {501, 400};
        desk.platform.input.key(keycode::space);
        QVERIFY(desk.captured == std::vector{worldColor(501, 400)});
    }

    void scrolling_zooms_and_keeps_what_is_not_a_step()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.input.scroll({2.0, true});
        desk.platform.input.scroll({2.0, true});
        QCOMPARE(desk.shown(), 1);
        desk.platform.input.scroll({2.0, true});
        QCOMPARE(desk.side(), 13);
        QCOMPARE(desk.shown(), 2);
        desk.platform.input.scroll({4.0, true});
        QCOMPARE(desk.side(), 11);
        desk.platform.input.scroll({-1.0, false});
        desk.platform.input.scroll({-1.0, false});
        QCOMPARE(desk.side(), 13);
    }

    void at_a_bound_zooming_on_draws_nothing_data()
    {
        QTest::addColumn<int>("radius");
        QTest::addColumn<int>("key");
        QTest::addColumn<double>("scroll");
        QTest::newRow("nearest") << 3 << keycode::equal << 5.0;
        QTest::newRow("farthest") << 15 << keycode::minus << -5.0;
    }

    void at_a_bound_zooming_on_draws_nothing()
    {
        QFETCH(const int, radius);
        QFETCH(const int, key);
        QFETCH(const double, scroll);
        Desk desk;
        desk.preferences.setLoupeRadius(radius);
        desk.service->showPicker();
        desk.platform.input.key(key, modifier::super);
        desk.platform.input.scroll({scroll, true});
        QCOMPARE(desk.grabs(), 1);
        QCOMPARE(desk.shown(), 1);
        QVERIFY(desk.service->isPicking());
    }

    void a_scroll_past_the_bound_leaves_only_its_rest()
    {
        Desk desk;
        desk.preferences.setLoupeRadius(3);
        desk.service->showPicker();
        desk.platform.input.scroll({54.0, true});
        desk.platform.input.scroll({-9.0, true});
        QCOMPARE(desk.side(), 9);
    }

    void a_pick_begins_with_the_stored_zoom_and_the_first_step_brings_it_into_bounds_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("sideAtStart");
        QTest::addColumn<int>("sideZoomedIn");
        QTest::addColumn<int>("sideZoomedOut");
        QTest::newRow("close") << 4 << 9 << 7 << 11;
        QTest::newRow("below the bounds") << 1 << 3 << 7 << 7;
        QTest::newRow("above the bounds") << 40 << 81 << 31 << 31;
    }

    void a_pick_begins_with_the_stored_zoom_and_the_first_step_brings_it_into_bounds()
    {
        QFETCH(const int, stored);
        Desk desk;
        desk.preferences.setLoupeRadius(stored);
        desk.service->showPicker();
        QTEST(desk.side(), "sideAtStart");
        desk.platform.input.key(keycode::equal, modifier::super);
        QTEST(desk.side(), "sideZoomedIn");
        desk.platform.input.key(keycode::escape);

        desk.service->showPicker();
        QTEST(desk.side(), "sideAtStart");
        desk.platform.input.scroll({-5.0, true});
        QTEST(desk.side(), "sideZoomedOut");
    }

    void the_loupe_follows_the_pointer_within_its_screen_data()
    {
        QTest::addColumn<std::vector<Screen>>("screens");
        QTest::addColumn<LoupeSize>("size");
        QTest::addColumn<DesktopPoint>("pointer");
        QTest::addColumn<QSize>("picture");
        QTest::addColumn<DesktopPoint>("topLeft");

        const QSize medium(130, 186);
        const LoupeSize m = LoupeSize::Medium;
        const std::vector<Screen> one{fullHd};
        const std::vector<Screen> leftOf{{{1280, 0, 1920, 1080}, 1}, {{0, 0, 1280, 1024}, 1}};
        const std::vector<Screen> above{{{0, 1080, 1920, 1080}, 1}, {{0, 0, 1600, 900}, 1}};
        const std::vector<Screen> negative{fullHd, {{-1280, -200, 1280, 1024}, 1}};
        const std::vector<Screen> dense{{{0, 0, 3840, 2160}, 2}};
        const std::vector<Screen> mixed{fullHd, {{1920, 0, 3840, 2160}, 2}};
        const std::vector<Screen> tiny{{{0, 0, 100, 100}, 1}};

        QTest::newRow("middle") << one << m << DesktopPoint{960, 540} << medium << DesktopPoint{895, 475};
        QTest::newRow("small") << one << LoupeSize::Small << DesktopPoint{960, 540} << QSize(100, 156)
                               << DesktopPoint{910, 490};
        QTest::newRow("large") << one << LoupeSize::Large << DesktopPoint{960, 540} << QSize(160, 216)
                               << DesktopPoint{880, 460};
        QTest::newRow("bottom left") << one << m << DesktopPoint{0, 1079} << medium << DesktopPoint{4, 890};
        QTest::newRow("bottom right")
            << one << m << DesktopPoint{1919, 1079} << medium << DesktopPoint{1786, 890};
        QTest::newRow("top left") << one << m << DesktopPoint{0, 0} << medium << DesktopPoint{4, 4};
        QTest::newRow("top right") << one << m << DesktopPoint{1919, 0} << medium << DesktopPoint{1786, 4};
        QTest::newRow("left screen, its first pixel")
            << leftOf << m << DesktopPoint{0, 0} << medium << DesktopPoint{4, 4};
        QTest::newRow("left screen, its last pixel")
            << leftOf << m << DesktopPoint{1279, 1023} << medium << DesktopPoint{1146, 834};
        QTest::newRow("left screen, half a pixel from the next")
            << leftOf << m << DesktopPoint{1279.5, 100} << medium << DesktopPoint{1146, 35};
        QTest::newRow("primary at the right, its first pixel")
            << leftOf << m << DesktopPoint{1280, 0} << medium << DesktopPoint{1284, 4};
        QTest::newRow("upper screen, its last row")
            << above << m << DesktopPoint{100, 899} << medium << DesktopPoint{35, 710};
        QTest::newRow("primary below, its first row")
            << above << m << DesktopPoint{100, 1080} << medium << DesktopPoint{35, 1084};
        QTest::newRow("between the screens")
            << above << m << DesktopPoint{100, 950} << medium << DesktopPoint{35, 1084};
        QTest::newRow("left of and above the origin")
            << negative << m << DesktopPoint{-1280, -200} << medium << DesktopPoint{-1276, -196};
        QTest::newRow("dense screen")
            << dense << m << DesktopPoint{1920, 1080} << QSize(260, 372) << DesktopPoint{1790, 950};
        QTest::newRow("dense screen, top left")
            << dense << m << DesktopPoint{0, 0} << QSize(260, 372) << DesktopPoint{8, 8};
        QTest::newRow("plain screen beside a dense one")
            << mixed << m << DesktopPoint{1919, 500} << medium << DesktopPoint{1786, 435};
        QTest::newRow("dense screen beside a plain one")
            << mixed << m << DesktopPoint{1920, 500} << QSize(260, 372) << DesktopPoint{1928, 370};
        QTest::newRow("no room, left and bottom margins win")
            << tiny << m << DesktopPoint{50, 50} << medium << DesktopPoint{4, -90};
    }

    void the_loupe_follows_the_pointer_within_its_screen()
    {
        QFETCH(const std::vector<Screen>, screens);
        QFETCH(const LoupeSize, size);
        QFETCH(const DesktopPoint, pointer);

        Desk desk;
        desk.preferences.setLoupeSize(size);
        desk.platform.grabber.monitors = screens;
        desk.service->showPicker();
        desk.platform.input.move(pointer);
        QCOMPARE(desk.shown(), 2);
        QTEST(desk.platform.frames.back().picture.size(), "picture");
        QTEST(desk.platform.frames.back().topLeft, "topLeft");
        QCOMPARE(desk.platform.grabber.grabs.back().rect,
                 (DesktopRect{pointer.x - 7, pointer.y - 7, 15, 15}));
        QCOMPARE(desk.platform.grabber.grabs.back().below, 1u);
    }

    void a_failed_capture_keeps_picking_and_takes_nothing()
    {
        Desk desk;
        const auto world = std::exchange(desk.platform.grabber.answer, nullptr);
        desk.service->showPicker();
        QCOMPARE(desk.platform.frames.back().picture.pixelColor(30, 30), QColor(0x55, 0x55, 0x55));
        desk.platform.input.press(PointerButton::Primary, {500, 400});
        desk.platform.input.key(keycode::returnKey);
        QVERIFY(desk.service->isPicking());
        QVERIFY(desk.captured.empty());

        desk.platform.grabber.answer = world;
        desk.platform.input.press(PointerButton::Primary, {500, 400});
        QVERIFY(desk.captured == std::vector{worldColor(500, 400)});
        QVERIFY(desk.isAsBefore());
    }

    void refused_input_ends_the_pick_before_anything_is_shown()
    {
        Desk desk;
        desk.platform.input.outcome = PickingInput::Outcome::Refused;
        desk.service->showPicker();
        QCOMPARE(desk.platform.journal,
                 (QStringList{QStringLiteral("begin session"), QStringLiteral("input refused"),
                              QStringLiteral("end session")}));
        QVERIFY(desk.isAsBefore());

        desk.platform.input.outcome = PickingInput::Outcome::Started;
        desk.service->showPicker();
        QVERIFY(desk.service->isPicking());
    }

    void lost_input_ends_the_pick()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.input.lose();
        QVERIFY(desk.isAsBefore());
        QVERIFY(desk.captured.empty());
    }

    void a_new_pick_may_begin_from_the_callback_of_the_last()
    {
        Desk desk;
        desk.service->setOnColorCaptured([&](const SampledColor& color) {
            desk.captured.push_back(color);
            if (desk.captured.size() == 1) {
                desk.service->showPicker();
            }
        });
        desk.service->showPicker();
        desk.platform.input.press(PointerButton::Primary, {500, 400});
        QVERIFY(desk.service->isPicking());
        QCOMPARE(desk.capture.referenceWindowID(), 2u);
        desk.platform.input.press(PointerButton::Primary, {7, 9});
        QVERIFY((desk.captured == std::vector{worldColor(500, 400), worldColor(7, 9)}));
        QVERIFY(desk.isAsBefore());
    }

    void the_callback_may_hide_the_picker_and_replace_itself()
    {
        Desk desk;
        int calls = 0;
        desk.service->setOnColorCaptured([&](const SampledColor&) {
            ++calls;
            desk.service->hidePicker();
            desk.service->setOnColorCaptured(nullptr);
        });
        desk.service->showPicker();
        desk.platform.input.press(PointerButton::Primary, {500, 400});
        desk.service->showPicker();
        desk.platform.input.press(PointerButton::Primary, {500, 400});
        QCOMPARE(calls, 1);
        QVERIFY(desk.isAsBefore());
    }

    void the_service_may_be_destroyed_from_its_callback()
    {
        Desk desk;
        const std::shared_ptr<int> life = std::make_shared<int>(0);
        desk.service->setOnColorCaptured([&desk, life](const SampledColor& color) {
            desk.service.reset();
            desk.captured.push_back(color);
            ++*life;
        });
        desk.service->showPicker();
        desk.platform.input.press(PointerButton::Primary, {500, 400});
        QCOMPARE(*life, 1);
        QVERIFY(desk.captured == std::vector{worldColor(500, 400)});
        QVERIFY(!desk.platform.input.isOn());
    }

    void a_service_destroyed_while_picking_gives_everything_back()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.grabber.reportChange({490, 390, 20, 20});
        desk.platform.journal.clear();
        desk.service.reset();
        QCOMPARE(desk.platform.journal,
                 (QStringList{QStringLiteral("remove loupe 1"), QStringLiteral("end input"),
                              QStringLiteral("end session")}));
        QCOMPARE(desk.capture.referenceWindowID(), 0u);
        QCoreApplication::processEvents();
        QVERIFY(desk.captured.empty());
        QCOMPARE(desk.grabs(), 1);
    }

    void changed_content_below_the_loupe_is_followed_once_a_turn_data()
    {
        QTest::addColumn<std::vector<DesktopRect>>("changes");
        QTest::addColumn<int>("redraws");
        using Rects = std::vector<DesktopRect>;

        QTest::newRow("around all") << Rects{{0, 0, 1920, 1080}} << 1;
        QTest::newRow("the first pixel") << Rects{{400, 300, 94, 94}} << 1;
        QTest::newRow("the last pixel") << Rects{{507, 407, 50, 50}} << 1;
        QTest::newRow("just left of it") << Rects{{400, 300, 93, 300}} << 0;
        QTest::newRow("just below it") << Rects{{400, 408, 300, 300}} << 0;
        QTest::newRow("far away") << Rects{{0, 0, 10, 10}} << 0;
        QTest::newRow("many at once")
            << Rects{{490, 390, 5, 5}, {0, 0, 5, 5}, {500, 400, 5, 5}, {0, 0, 0, 0}} << 1;
        QTest::newRow("the layout of the screens") << Rects{{0, 0, 0, 0}} << 1;
    }

    void changed_content_below_the_loupe_is_followed_once_a_turn()
    {
        QFETCH(const std::vector<DesktopRect>, changes);
        QFETCH(const int, redraws);
        Desk desk;
        desk.service->showPicker();
        for (const DesktopRect& rect : changes) {
            desk.platform.grabber.reportChange(rect);
        }
        QCOMPARE(desk.shown(), 1);
        QCoreApplication::processEvents();
        QCOMPARE(desk.shown(), 1 + redraws);
        QCOMPARE(desk.platform.grabber.grabs.back().rect, (DesktopRect{493, 393, 15, 15}));
        QCoreApplication::processEvents();
        QCOMPARE(desk.shown(), 1 + redraws);
    }

    void every_turn_with_a_change_is_followed()
    {
        Desk desk;
        desk.service->showPicker();
        for (int turn = 1; turn <= 3; ++turn) {
            desk.platform.grabber.reportChange({500, 400, 1, 1});
            QCoreApplication::processEvents();
            QCOMPARE(desk.shown(), 1 + turn);
        }
    }

    void a_move_sees_a_waiting_change_too()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.grabber.reportChange({500, 400, 1, 1});
        desk.platform.input.move({501, 400});
        QCOMPARE(desk.shown(), 2);
        QCoreApplication::processEvents();
        QCOMPARE(desk.shown(), 2);
    }

    void the_sampled_rectangle_follows_pointer_and_zoom()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.input.move({100, 100});
        desk.platform.input.key(keycode::minus, modifier::super);
        QCOMPARE(desk.shown(), 3);
        desk.platform.grabber.reportChange({500, 400, 1, 1});
        QCoreApplication::processEvents();
        QCOMPARE(desk.shown(), 3);
        desk.platform.grabber.reportChange({92, 92, 1, 1});
        QCoreApplication::processEvents();
        QCOMPARE(desk.shown(), 4);
    }

    void the_loupe_stays_at_the_fraction_of_the_last_move()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.input.move({100.75, 50.5});
        // Some systems tell only whole pixels when asked.
        desk.platform.input.position = {100, 50};
        desk.platform.grabber.reportChange({100, 50, 1, 1});
        QCoreApplication::processEvents();
        QCOMPARE(desk.platform.grabber.grabs.back().rect, (DesktopRect{93.75, 43.5, 15, 15}));
        desk.platform.input.key(keycode::equal, modifier::super);
        QCOMPARE(desk.platform.grabber.grabs.back().rect, (DesktopRect{94.75, 44.5, 13, 13}));
    }

    void the_shown_colour_is_the_changed_one()
    {
        Desk desk;
        const auto filledWith = [](std::uint8_t level) {
            return [level](const DesktopRect& rect) {
                ScreenImage image = worldImage(rect);
                for (std::size_t byte = 0; byte < image.bytes.size(); ++byte) {
                    image.bytes[byte] = byte % 4 == 3 ? 255 : level;
                }
                return image;
            };
        };
        desk.platform.grabber.answer = filledWith(0x20);
        desk.service->showPicker();
        QCOMPARE(desk.platform.frames.back().picture.pixelColor(30, 30), QColor(0x20, 0x20, 0x20));
        desk.platform.grabber.answer = filledWith(0xC0);
        desk.platform.grabber.reportChange({500, 400, 1, 1});
        QCoreApplication::processEvents();
        QCOMPARE(desk.platform.frames.back().picture.pixelColor(30, 30), QColor(0xC0, 0xC0, 0xC0));
    }

    void a_screen_that_disappears_places_the_loupe_anew()
    {
        Desk desk;
        desk.platform.grabber.monitors = {fullHd, {{1920, 0, 1280, 1024}, 1}};
        desk.service->showPicker();
        desk.platform.input.move({2500, 500});
        QCOMPARE(desk.platform.frames.back().topLeft, (DesktopPoint{2435, 435}));

        desk.platform.grabber.monitors = {fullHd};
        desk.platform.grabber.reportChange({});
        QCoreApplication::processEvents();
        QVERIFY(desk.service->isPicking());
        QCOMPARE(desk.platform.frames.back().topLeft, (DesktopPoint{1786, 435}));

        // The desktop brings the pointer back to a screen that is left.
        desk.platform.input.position = {1919, 300};
        desk.platform.grabber.reportChange({});
        QCoreApplication::processEvents();
        QCOMPARE(desk.platform.frames.back().topLeft, (DesktopPoint{1786, 235}));
    }

    void the_primary_screen_may_disappear_too()
    {
        Desk desk;
        desk.platform.grabber.monitors = {{{1280, 0, 1920, 1080}, 1}, {{0, 0, 1280, 1024}, 1}};
        desk.service->showPicker();
        desk.platform.grabber.monitors = {{{0, 0, 1280, 1024}, 1}};
        desk.platform.grabber.reportChange({});
        QCoreApplication::processEvents();
        QCOMPARE(desk.platform.grabber.grabs.back().rect, (DesktopRect{493, 393, 15, 15}));
        QCOMPARE(desk.platform.frames.back().topLeft, (DesktopPoint{435, 335}));
    }

    void the_pick_ends_when_no_screen_is_left()
    {
        Desk desk;
        desk.service->showPicker();
        desk.platform.grabber.monitors.clear();
        desk.platform.grabber.reportChange({});
        QCoreApplication::processEvents();
        QVERIFY(desk.isAsBefore());
        QVERIFY(desk.captured.empty());
    }

    void without_any_screen_picking_shows_no_loupe_and_can_be_left()
    {
        Desk desk;
        desk.platform.grabber.monitors.clear();
        desk.service->showPicker();
        QVERIFY(desk.service->isPicking());
        QCOMPARE(desk.shown(), 0);
        desk.platform.input.key(keycode::escape);
        QVERIFY(desk.isAsBefore());
    }
};

QTEST_MAIN(ColorPickerServiceTest)
#include "ColorPickerServiceTest.moc"

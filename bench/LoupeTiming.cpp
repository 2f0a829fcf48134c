#include "LoupeTiming.h"

#include "Measuring.h"

#include "support/KeyboardInput.h"
#include "support/Pattern.h"
#include "support/WaitUntil.h"

#include <X11/keysym.h>

namespace tintwick {

std::vector<std::unique_ptr<TestWindow>> openWindows(DesktopConnection& connection, const QRect& screen,
                                                     int count)
{
    constexpr QSize size(400, 300);
    // Steps that share no factor with the free lengths, so that no two windows are at the same place.
    constexpr int stepX = 73;
    constexpr int stepY = 31;
    std::vector<std::unique_ptr<TestWindow>> windows;
    for (int i = 0; i < count; ++i) {
        const QPoint corner(60 + stepX * i % (screen.width() - size.width() - 120),
                            80 + stepY * i % (screen.height() - size.height() - 160));
        const QRect place(corner, size);
        windows.push_back(std::make_unique<TestWindow>(
            connection,
            TestWindow::Options{.geometry = place, .management = TestWindow::Management::Managed}));
        windows.back()->setPicture(patternImage(place));
        windows.back()->show();
    }
    return windows;
}

double timeToLoupe(PrivateDesktop& desktop, TintwickProcess& program, const std::function<void()>& begin,
                   double scale)
{
    const QPoint watched = onRing(loupePlace(desktop.pointer(), desktop.screen(), scale));
    // A compositor may still show the loupe of the last pick.
    require(waitUntil([&] { return desktop.pixel(watched) != ringColor; }), "the last loupe stays");
    const auto start = Clock::now();
    begin();
    while (desktop.pixel(watched) != ringColor) {
        require(Clock::now() - start < std::chrono::seconds(5), "no loupe");
    }
    const double time = millisecondsSince(start);
    require(program.waitForLoupe(), "no loupe");
    desktop.typeKey(XK_Escape);
    require(program.waitForPickToEnd(), "the pick does not end");
    return time;
}

double shortcutTime(PrivateDesktop& desktop, TintwickProcess& program, double scale)
{
    constexpr int count = 25;
    KeyboardInput keyboard(desktop.display());
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        require(waitUntil([&] { return desktop.connection().inputIsFree(); }), "the pick keeps the input");
        desktop.movePointer({300 + 50 * i, desktop.screen().height() / 2});
        keyboard.press(KEY_LEFTALT);
        keyboard.press(KEY_LEFTSHIFT);
        keyboard.press(KEY_C);
        times.push_back(timeToLoupe(
            desktop, program, [&] { keyboard.release(KEY_C); }, scale));
        keyboard.release(KEY_LEFTSHIFT);
        keyboard.release(KEY_LEFTALT);
    }
    return median(times);
}

} // namespace tintwick

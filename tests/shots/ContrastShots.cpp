#include "shots/ContrastShots.h"

#include "AppState.h"
#include "ContrastScreen.h"
#include "shots/Scene.h"
#include "shots/Shooting.h"

#include <QAbstractButton>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

class DemoContrast final : public ScreenGround
{
public:
    DemoContrast(const CapturedColor& text, const std::optional<CapturedColor>& ground)
        : m_appState([](std::chrono::milliseconds, const std::function<void()>&) {})
    {
        fill(m_appState, manyColors(24));
        setScreen(new ContrastScreen(m_appState, text, ground));
    }

private:
    AppState m_appState;
};

CapturedColor color(std::uint32_t rgb, double alpha = 1)
{
    CapturedColor result = CapturedColor::capture(rgb);
    result.alpha = alpha;
    return result;
}

} // namespace

void shootContrast(const QDir& folder)
{
    const auto shootState = [&](const QString& name, const CapturedColor& text,
                                const std::optional<CapturedColor>& ground = {},
                                const std::function<void(QWidget&)>& arrange = {}) {
        shoot(
            folder, u"contrast-"_s + name, [&] { return std::make_unique<DemoContrast>(text, ground); },
            arrange);
    };

    shootState(u"chosen-ground"_s, color(0x3B82F6));
    shootState(u"fails"_s, color(0x3B82F6), color(0xFFFFFF));
    shootState(u"passes-aa"_s, color(0xFFE9A8), color(0x6B4FA0));
    shootState(u"passes-all"_s, color(0x112233), color(0xDDEEFF));
    shootState(u"equal"_s, color(0x777777), color(0x777777));
    shootState(u"none-passes"_s, color(0x9B4040), color(0x777777));
    shootState(u"translucent"_s, color(0x3B82F6, 0.5), color(0x112233, 0.7));
    shootState(u"hover"_s, color(0x3B82F6), color(0xFFFFFF),
               [](QWidget& screen) { hover(button(screen, u"Black, #000000"_s)); });
    shootState(u"drop"_s, color(0x3B82F6), color(0xFFFFFF),
               [](QWidget& screen) { dragOver(button(screen, u"Text: #3B82F6"_s), u"#B45309"_s); });
    shootState(u"focus"_s, color(0x3B82F6), color(0xFFFFFF), [](QWidget& screen) {
        screen.activateWindow();
        button(screen, u"White, #FFFFFF"_s).setFocus(Qt::TabFocusReason);
    });
    shootState(u"focus-ratio"_s, color(0x3B82F6), color(0xFFFFFF), [](QWidget& screen) {
        screen.activateWindow();
        button(screen, u"Contrast 3.68 to 1, fails AA and AAA"_s).setFocus(Qt::TabFocusReason);
    });
}

} // namespace tintwick

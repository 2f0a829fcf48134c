#include "Picking.h"

#include "AppState.h"
#include "CapturedColor.h"

#include <limits>

namespace tintwick {

namespace {

constexpr int endless = std::numeric_limits<int>::max();

} // namespace

Picking::Picking(Platform& platform, const Preferences& preferences, AppState& state, PickBadge& badge,
                 QObject* parent)
    : QObject(parent)
    , m_state(state)
    , m_badge(badge)
    , m_picker(platform, preferences,
               [&state](QRgb color) { return state.copiedText(CapturedColor::capture(color)); })
{
    m_second.setTimerType(Qt::PreciseTimer);
    connect(&m_second, &QTimer::timeout, this, &Picking::countDown);
    m_badge.follow(m_picker);
    connect(&m_picker, &Picker::picked, this, &Picking::take);
    connect(&m_picker, &Picker::ended, this,
            [this](const PickOutcome& outcome) { Q_EMIT ended(outcome, m_isCopied); });
}

void Picking::start(const WantedPick& wanted)
{
    if (isPicking()) {
        return;
    }
    m_second.stop();
    m_wanted = wanted;
    m_secondsLeft = static_cast<int>(wanted.delay.count());
    if (m_secondsLeft == 0) {
        begin(false);
        return;
    }
    m_badge.showCountdown(m_secondsLeft, m_secondsLeft);
    m_second.start(std::chrono::seconds(1));
}

void Picking::cancel()
{
    if (m_second.isActive()) {
        m_second.stop();
        m_badge.hide();
    }
    m_picker.cancel();
}

void Picking::countDown()
{
    --m_secondsLeft;
    if (m_secondsLeft > 0) {
        m_badge.showCountdown(m_secondsLeft, static_cast<int>(m_wanted.delay.count()));
    } else {
        m_second.stop();
        begin(true);
    }
}

void Picking::begin(bool isFrozen)
{
    m_badge.hide();
    m_isCopied = false;
    m_picker.start(
        {.count = m_wanted.palette ? std::optional(endless) : std::nullopt, .startsFrozen = isFrozen});
}

void Picking::take(QRgb color, bool isCopied)
{
    m_isCopied = isCopied;
    m_state.addToHistory(CapturedColor::capture(color));
    const CapturedColor taken = m_state.history().first();
    if (m_wanted.palette) {
        m_state.addColor(taken.id, *m_wanted.palette);
    }
    if (isCopied) {
        m_state.showCopyFeedback(m_state.defaultFormat(), taken);
    }
}

} // namespace tintwick

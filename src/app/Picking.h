#pragma once

#include "PickBadge.h"
#include "Picker.h"
#include "WantedPick.h"

#include <QObject>
#include <QTimer>

namespace tintwick {

class AppState;
class Platform;
class Preferences;

/// The user's own picks: begins them, at once or after a countdown, and takes in their colours.
class Picking final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this object.
    Picking(Platform& platform, const Preferences& preferences, AppState& state, PickBadge& badge,
            QObject* parent = nullptr);

    [[nodiscard]] Picker& picker() { return m_picker; }
    [[nodiscard]] bool isPicking() const { return m_picker.isPicking(); }

    /// Does nothing during a pick. Ends a countdown.
    void start(const WantedPick& wanted);
    /// Ends the pick with the colours taken so far, and a countdown.
    void cancel();

Q_SIGNALS:
    /// When no pick runs any more. `isCopied`: the clipboard holds what was picked.
    void ended(const tintwick::PickOutcome& outcome, bool isCopied);

private:
    void countDown();
    void begin(bool isFrozen);
    void take(QRgb color, bool isCopied);

    AppState& m_state;
    PickBadge& m_badge;
    Picker m_picker;
    WantedPick m_wanted;
    bool m_isCopied = false;
    int m_secondsLeft = 0;
    QTimer m_second;
};

} // namespace tintwick

#pragma once

#include "LoupeRenderer.h"
#include "PickSession.h"

#include <QObject>

namespace tintwick {

class Platform;
class Preferences;

/// Starts picks, one at a time, and reports their colours and their end.
class Picker final : public QObject
{
    Q_OBJECT

public:
    /// Platform and preferences must outlive the picker. The application object must exist.
    Picker(Platform& platform, const Preferences& preferences, CopiedText copiedText,
           QObject* parent = nullptr);

    /// Draws the loupe once for each scale of the screens, so that the first frame of a pick does not have to load its
    /// fonts and to blur its shadows. Repeated when the preferences for the loupe change.
    void prepare();

    /// Whether the next loupes have high contrast.
    void setHighContrast(bool hasHighContrast);

    /// Does nothing during a pick. The current preferences determine the look and the zoom of the loupe.
    void start(const PickMode& mode = {});
    /// Ends the pick without a further colour. Does nothing when no pick runs.
    void cancel();
    [[nodiscard]] bool isPicking() const { return m_session != nullptr; }

Q_SIGNALS:
    // As PickSession reports them.
    void begun();
    void isWaiting(const QString& sentence);
    void picked(QRgb color, bool isCopied);
    /// Emitted once for each pick, when none runs any more.
    void ended(const tintwick::PickOutcome& outcome);

private:
    [[nodiscard]] LoupeLook look() const;
    void finish(const PickOutcome& outcome);

    Platform& m_platform;
    const Preferences& m_preferences;
    CopiedText m_copiedText;
    bool m_hasHighContrast = false;
    LoupeRenderer m_loupe;
    // A child of this object; null when no pick runs.
    PickSession* m_session = nullptr;
};

} // namespace tintwick

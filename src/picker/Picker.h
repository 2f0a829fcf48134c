#pragma once

#include "PickSession.h"

#include <QObject>

#include <functional>

namespace tintwick {

class Platform;
class Preferences;

/// Starts picks, one at a time, and reports how each ends. A picked colour's text is on the clipboard when `picked()` is
/// emitted, and the desktop has its input back.
class Picker final : public QObject
{
    Q_OBJECT

public:
    /// `copiedText` returns the text that a picked colour puts on the clipboard. Platform and preferences must outlive the
    /// picker; the application object must exist.
    Picker(Platform& platform, const Preferences& preferences, std::function<QString(QRgb color)> copiedText,
           QObject* parent = nullptr);

    /// Loads the loupe's fonts, which would delay the first pick.
    void prepare() const;

    /// Does nothing while a pick is under way. Looks and zoom are those of the preferences now.
    void start();
    /// Ends the pick without a colour; does nothing when there is none.
    void cancel();
    [[nodiscard]] bool isPicking() const { return m_session != nullptr; }

Q_SIGNALS:
    /// `color` is opaque.
    void picked(QRgb color);
    void cancelled();
    /// The pick could not begin; `reason` is one sentence for the user.
    void failed(const QString& reason);

private:
    void finish(const PickOutcome& outcome);

    Platform& m_platform;
    const Preferences& m_preferences;
    std::function<QString(QRgb color)> m_copiedText;
    // A child of this object; null while no pick is under way.
    PickSession* m_session = nullptr;
};

} // namespace tintwick

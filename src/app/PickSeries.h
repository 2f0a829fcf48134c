#pragma once

#include "ColorFormat.h"
#include "PickRequest.h"
#include "Picker.h"

#include <QObject>

namespace tintwick {

class AppState;
class Platform;
class Preferences;

/// A pick of one or more colours for a program that asked for them.
class PickSeries final : public QObject
{
    Q_OBJECT

public:
    /// Platform, preferences and state must outlive the series.
    PickSeries(const PickRequest& request, Platform& platform, const Preferences& preferences,
               AppState& state, QObject* parent = nullptr);

    [[nodiscard]] const Picker& picker() const { return m_picker; }
    void start() { m_picker.start({.count = m_request.count}); }
    /// Ends the pick with the colours picked so far.
    void cancel() { m_picker.cancel(); }
    /// Whether the clipboard holds what was picked.
    [[nodiscard]] bool isCopied() const { return m_isCopied; }

Q_SIGNALS:
    /// Emitted once.
    void finished(const tintwick::PickAnswer& answer);

private:
    [[nodiscard]] QString textOf(QRgb color) const;
    void add(QRgb color, bool isCopied);
    void finish(const PickOutcome& outcome);

    PickRequest m_request;
    AppState& m_state;
    ColorFormat m_format;
    PickAnswer m_answer;
    bool m_isCopied = false;
    Picker m_picker;
};

} // namespace tintwick

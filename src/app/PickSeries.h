#pragma once

#include "ColorFormat.h"
#include "PickRequest.h"
#include "Picker.h"

#include <QObject>

namespace tintwick {

class AppState;
class Platform;
class Preferences;

/// Several picks, one after another, for a program that asked for them. With several colours the clipboard gets all
/// texts, one per line. A cancelled pick ends the series.
class PickSeries final : public QObject
{
    Q_OBJECT

public:
    /// Platform, preferences and state must outlive the series.
    PickSeries(const PickRequest& request, Platform& platform, const Preferences& preferences,
               AppState& state, QObject* parent = nullptr);

    void start() { m_picker.start(); }
    /// Ends the series as a cancelled pick does.
    void cancel() { m_picker.cancel(); }

Q_SIGNALS:
    /// Emitted once.
    void finished(const tintwick::PickAnswer& answer);

private:
    [[nodiscard]] std::optional<QString> copiedText(QRgb color) const;
    [[nodiscard]] QString textOf(QRgb color) const;
    void add(QRgb color);
    void finish(PickAnswer::Outcome outcome);

    PickRequest m_request;
    AppState& m_state;
    ColorFormat m_format;
    PickAnswer m_answer;
    Picker m_picker;
};

} // namespace tintwick

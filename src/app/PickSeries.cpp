#include "PickSeries.h"

#include "AppState.h"

namespace tintwick {

PickSeries::PickSeries(const PickRequest& request, Platform& platform, const Preferences& preferences,
                       AppState& state, QObject* parent)
    : QObject(parent)
    , m_request(request)
    , m_state(state)
    , m_format(colorFormatFromRawValue(request.format).value_or(state.defaultFormat()))
    , m_picker(platform, preferences, [this](QRgb color) { return copiedText(color); })
{
    connect(&m_picker, &Picker::picked, this, &PickSeries::add);
    connect(&m_picker, &Picker::cancelled, this, [this] {
        finish(m_answer.colors.isEmpty() ? PickAnswer::Outcome::Cancelled : PickAnswer::Outcome::Picked);
    });
    connect(&m_picker, &Picker::failed, this, [this](const QString& reason) {
        m_answer.reason = reason;
        finish(PickAnswer::Outcome::Failed);
    });
}

std::optional<QString> PickSeries::copiedText(QRgb color) const
{
    if (!m_request.copies) {
        return std::nullopt;
    }
    return (m_answer.texts + QStringList(textOf(color))).join(u'\n');
}

QString PickSeries::textOf(QRgb color) const
{
    return m_state.copiedText(CapturedColor::capture(color), m_format);
}

void PickSeries::add(QRgb color)
{
    m_answer.colors.append(color);
    m_answer.texts.append(textOf(color));
    if (m_request.saves) {
        m_state.addToHistory(CapturedColor::capture(color));
    }
    if (m_answer.colors.size() < m_request.count) {
        m_picker.start();
    } else {
        finish(PickAnswer::Outcome::Picked);
    }
}

void PickSeries::finish(PickAnswer::Outcome outcome)
{
    m_answer.outcome = outcome;
    Q_EMIT finished(m_answer);
}

} // namespace tintwick

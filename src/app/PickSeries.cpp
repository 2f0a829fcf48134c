#include "PickSeries.h"

#include "AppState.h"

#include <optional>

namespace tintwick {

namespace {

PickAnswer::Outcome answerTo(PickOutcome::Kind kind)
{
    switch (kind) {
    case PickOutcome::Kind::Picked:
        return PickAnswer::Outcome::Picked;
    case PickOutcome::Kind::Cancelled:
        return PickAnswer::Outcome::Cancelled;
    case PickOutcome::Kind::Failed:
        break;
    }
    return PickAnswer::Outcome::Failed;
}

} // namespace

PickSeries::PickSeries(const PickRequest& request, Platform& platform, const Preferences& preferences,
                       AppState& state, QObject* parent)
    : QObject(parent)
    , m_request(request)
    , m_state(state)
    , m_format(colorFormatFromRawValue(request.format).value_or(state.defaultFormat()))
    , m_picker(platform, preferences,
               [this](QRgb color) { return m_request.copies ? std::optional(textOf(color)) : std::nullopt; })
{
    connect(&m_picker, &Picker::picked, this, &PickSeries::add);
    connect(&m_picker, &Picker::ended, this, &PickSeries::finish);
}

QString PickSeries::textOf(QRgb color) const
{
    return m_state.copiedText(CapturedColor::capture(color), m_format);
}

void PickSeries::add(QRgb color, bool isCopied)
{
    m_isCopied = isCopied;
    m_answer.colors.append(color);
    m_answer.texts.append(textOf(color));
    if (m_request.saves) {
        m_state.addToHistory(CapturedColor::capture(color));
    }
}

void PickSeries::finish(const PickOutcome& outcome)
{
    m_answer.outcome = answerTo(outcome.kind);
    m_answer.reason = outcome.reason;
    Q_EMIT finished(m_answer);
}

} // namespace tintwick

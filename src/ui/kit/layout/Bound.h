#pragma once

#include <QObject>

#include <functional>
#include <utility>
#include <vector>

namespace tintwick {

/// A value computed from state, together with the signals that say when to compute it again.
template <typename Value>
class Bound final
{
public:
    explicit Bound(std::function<Value()> value)
        : m_value(std::move(value))
    {
    }

    /// Computes anew whenever `sender` emits `signal`. Further calls add further signals.
    template <typename Sender, typename Signal>
    [[nodiscard]] Bound changedBy(const Sender& sender, Signal signal) &&
    {
        m_sources.push_back([&sender, signal](QObject& receiver, const std::function<void()>& changed) {
            QObject::connect(&sender, signal, &receiver, changed);
        });
        return std::move(*this);
    }

    /// Calls `apply` with the value, now and after every change, as long as `receiver` lives.
    void follow(QObject& receiver, const std::function<void(const Value&)>& apply) const
    {
        apply(m_value());
        for (const Source& source : m_sources) {
            source(receiver, [value = m_value, apply] { apply(value()); });
        }
    }

private:
    using Source = std::function<void(QObject& receiver, const std::function<void()>& changed)>;

    std::function<Value()> m_value;
    std::vector<Source> m_sources;
};

/// `bound([this] { return m_state.history().isEmpty(); }).changedBy(m_state, &AppState::historyChanged)`
template <typename Function>
[[nodiscard]] auto bound(Function value)
{
    return Bound<std::decay_t<decltype(value())>>(std::move(value));
}

} // namespace tintwick

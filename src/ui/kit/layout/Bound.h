#pragma once

#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

namespace tintwick {

/// A value computed from state, and the signals after which it is computed again.
template <typename Value>
class Bound final
{
public:
    explicit Bound(std::function<Value()> value)
        : m_value(std::move(value))
    {
    }

    /// Adds a signal after which the value is computed again. `sender` must outlive the receivers.
    template <typename Sender, typename Signal>
    [[nodiscard]] Bound changedBy(const Sender& sender, Signal signal) &&
    {
        m_sources.push_back([&sender, signal](QObject& receiver, const std::function<void()>& changed) {
            QObject::connect(&sender, signal, &receiver, changed);
        });
        return std::move(*this);
    }

    /// Calls `apply` with the value now and after every signal, while `receiver` lives.
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

/// Hides `widget`, which also takes it out of its layout, while the condition is false. Returns `widget`.
template <typename Widget>
[[nodiscard]] Widget* shownWhen(const Bound<bool>& condition, Widget* widget)
{
    condition.follow(*widget, [widget](bool shown) {
        // A widget without a parent would become a window.
        if (!shown) {
            widget->hide();
        } else if (widget->parentWidget() != nullptr) {
            widget->show();
        }
    });
    return widget;
}

} // namespace tintwick

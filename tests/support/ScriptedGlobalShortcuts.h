#pragma once

#include "GlobalShortcuts.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace tintwick::test {

/// Global shortcuts of a desktop that exists only in the test. Refuses the combinations that the test names, records
/// the requests in order, and presses keys.
class ScriptedGlobalShortcuts final : public GlobalShortcuts
{
public:
    /// "bind <id> <key code>+<modifiers>" and "unbind <id>", one line each; only ids that are bound are unbound.
    QStringList journal;
    /// Combinations of other programs.
    std::vector<Shortcut> taken;
    KeyChoice choice = KeyChoice::Program;
    /// The windows for which the desktop's dialog was opened.
    QStringList dialogs;
    /// What the user adds to the desktop's configuration; none where there is nothing to add.
    std::function<ConfigurationLine(const QStringList& command, const Shortcut& keys)> line;

    void setChoice(KeyChoice newChoice)
    {
        choice = newChoice;
        Q_EMIT keyChoiceChanged();
    }

    void bind(const QString& id, const QString& /*description*/,
              const std::optional<Shortcut>& preferred) override
    {
        journal << QStringLiteral("bind ") + id +
                       (preferred ? QStringLiteral(" %1+%2").arg(preferred->keyCode).arg(preferred->modifiers)
                                  : QString());
        remove(id);
        if (choice != KeyChoice::Program) {
            return;
        }
        if (preferred) {
            tryToBind(id, *preferred);
        }
    }
    void unbind(const QString& id) override
    {
        if (remove(id)) {
            journal << QStringLiteral("unbind ") + id;
        }
    }
    [[nodiscard]] KeyChoice keyChoice() const override { return choice; }
    [[nodiscard]] bool isTaken(const Shortcut& shortcut) const override
    {
        return std::ranges::find(taken, shortcut) != taken.end();
    }
    void configure(const QString& parentWindow) override { dialogs << parentWindow; }
    [[nodiscard]] std::optional<ConfigurationLine> configurationLine(const QStringList& command,
                                                                     const Shortcut& keys) const override
    {
        return line && choice == KeyChoice::None ? std::optional(line(command, keys)) : std::nullopt;
    }
    /// Binds what is no longer taken.
    void retry() override
    {
        const auto refusedKeys = std::exchange(m_refused, {});
        for (const auto& [id, keys] : refusedKeys) {
            tryToBind(id, keys);
        }
    }

    /// The desktop withdraws a shortcut, or refuses it late.
    void refuse(const QString& id)
    {
        remove(id);
        Q_EMIT refused(id, {ShortcutRefusal::Reason::Taken, QStringLiteral("-9878")});
    }

    void press(const Shortcut& shortcut)
    {
        const auto bound = m_bound;
        for (const auto& [id, keys] : bound) {
            if (keys == shortcut) {
                Q_EMIT activated(id);
            }
        }
    }
    void release(const Shortcut& shortcut)
    {
        const auto bound = m_bound;
        for (const auto& [id, keys] : bound) {
            if (keys == shortcut) {
                Q_EMIT deactivated(id);
            }
        }
    }
    void pressAndRelease(const Shortcut& shortcut)
    {
        press(shortcut);
        release(shortcut);
    }

private:
    void tryToBind(const QString& id, const Shortcut& keys)
    {
        if (isTaken(keys)) {
            refuse(id);
            m_refused.emplace_back(id, keys);
        } else {
            m_bound.emplace_back(id, keys);
            Q_EMIT bound(id);
        }
    }
    bool remove(const QString& id)
    {
        std::erase_if(m_refused, [&](const auto& refusedKeys) { return refusedKeys.first == id; });
        return std::erase_if(m_bound, [&](const auto& bound) { return bound.first == id; }) > 0;
    }

    std::vector<std::pair<QString, Shortcut>> m_bound;
    std::vector<std::pair<QString, Shortcut>> m_refused;
};

} // namespace tintwick::test

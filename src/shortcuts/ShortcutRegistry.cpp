#include "ShortcutRegistry.h"

#include "KeyboardLayout.h"
#include "Preferences.h"
#include "ProgramInShell.h"
#include "ShortcutCoding.h"
#include "ShortcutDescription.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace tintwick {

namespace {

/// Settings files store the boolean false as this word.
QString storedRemoval()
{
    return QStringLiteral("false");
}

std::optional<ShortcutAction> actionOf(const QString& id)
{
    const auto* const found = std::ranges::find(allShortcutActions, id, idOf);
    return found != allShortcutActions.end() ? std::optional(*found) : std::nullopt;
}

} // namespace

ShortcutRegistry::ShortcutRegistry(GlobalShortcuts& desktop, const KeyboardLayout& layout,
                                   Preferences& preferences, FontCheck fontsHave)
    : m_desktop(desktop)
    , m_layout(layout)
    , m_preferences(preferences)
    , m_fontsHave(std::move(fontsHave))
{
    for (const ShortcutAction action : allShortcutActions) {
        bindingOf(action).shortcut = storedShortcut(action);
    }
    connect(&m_layout, &KeyboardLayout::changed, this, &ShortcutRegistry::textsChanged);
    connect(&m_preferences, &Preferences::keyNamesChanged, this, &ShortcutRegistry::textsChanged);
    connect(&m_preferences, &Preferences::shortcutChanged, this, &ShortcutRegistry::followPreferences);
    connect(&m_desktop, &GlobalShortcuts::changed, this, &ShortcutRegistry::followDesktop);
    connect(&m_desktop, &GlobalShortcuts::bound, this, &ShortcutRegistry::followBound);
    connect(&m_desktop, &GlobalShortcuts::refused, this, &ShortcutRegistry::followRefusal);
    connect(&m_desktop, &GlobalShortcuts::keyChoiceChanged, this, &ShortcutRegistry::keyChoiceChanged);
    connect(&m_desktop, &GlobalShortcuts::activated, this, [this](const QString& id) {
        if (const auto action = actionOf(id); action && !m_isPaused) {
            Q_EMIT activated(*action);
        }
    });
    connect(&m_desktop, &GlobalShortcuts::deactivated, this, [this](const QString& id) {
        if (const auto action = actionOf(id); action && !m_isPaused) {
            Q_EMIT deactivated(*action);
        }
    });
}

void ShortcutRegistry::start()
{
    for (const ShortcutAction action : allShortcutActions) {
        const auto byDefault = defaultShortcutOf(action);
        if (byDefault && !m_preferences.shortcutText(idOf(action))) {
            setShortcut(action, byDefault);
        } else {
            bind(action);
        }
    }
}

std::optional<Shortcut> ShortcutRegistry::shortcut(ShortcutAction action) const
{
    return bindingOf(action).shortcut;
}

std::optional<ShortcutRefusal::Reason> ShortcutRegistry::refusal(ShortcutAction action) const
{
    return bindingOf(action).refusal;
}

std::optional<ConfigurationLine> ShortcutRegistry::configurationLine(ShortcutAction action) const
{
    return m_desktop.configurationLine({programInShell(), commandOf(action)},
                                       shortcut(action).value_or(suggestedShortcutOf(action)));
}

QString ShortcutRegistry::text(ShortcutAction action) const
{
    const Binding& binding = bindingOf(action);
    if (keyChoice() != GlobalShortcuts::KeyChoice::Program) {
        return binding.textOfDesktop;
    }
    return binding.shortcut ? text(*binding.shortcut) : QString();
}

QString ShortcutRegistry::words(ShortcutAction action) const
{
    const Binding& binding = bindingOf(action);
    if (keyChoice() != GlobalShortcuts::KeyChoice::Program) {
        return binding.textOfDesktop;
    }
    return binding.shortcut ? describe(*binding.shortcut, m_layout, KeyNames::Words) : QString();
}

QString ShortcutRegistry::text(const Shortcut& shortcut) const
{
    const QString text = describe(shortcut, m_layout, m_preferences.keyNames());
    return !m_fontsHave || m_fontsHave(text) ? text : describe(shortcut, m_layout, KeyNames::Words);
}

void ShortcutRegistry::setShortcut(ShortcutAction action, const std::optional<Shortcut>& shortcut)
{
    Binding& binding = bindingOf(action);
    if (!shortcut && !binding.shortcut) {
        return;
    }
    std::optional<QString> text;
    if (shortcut) {
        text = toJson(*shortcut);
    } else if (defaultShortcutOf(action)) {
        text = storedRemoval();
    }
    {
        const QScopedValueRollback storing(m_isStoring, true);
        m_preferences.setShortcutText(idOf(action), text);
        if (!shortcut && storedShortcut(action)) {
            // A system-wide file has one.
            m_preferences.setShortcutText(idOf(action), storedRemoval());
        }
    }
    binding.shortcut = storedShortcut(action);
    bind(action);
    Q_EMIT shortcutChanged(action);
}

ShortcutRegistry::Binding& ShortcutRegistry::bindingOf(ShortcutAction action)
{
    return m_bindings.at(static_cast<std::size_t>(action));
}

const ShortcutRegistry::Binding& ShortcutRegistry::bindingOf(ShortcutAction action) const
{
    return m_bindings.at(static_cast<std::size_t>(action));
}

std::optional<Shortcut> ShortcutRegistry::storedShortcut(ShortcutAction action) const
{
    const auto text = m_preferences.shortcutText(idOf(action));
    return text ? shortcutFromJson(*text) : std::nullopt;
}

void ShortcutRegistry::bind(ShortcutAction action)
{
    const Binding& binding = bindingOf(action);
    setRefusal(action, std::nullopt);
    if (!binding.shortcut && keyChoice() == GlobalShortcuts::KeyChoice::Program) {
        m_desktop.unbind(idOf(action));
        return;
    }
    m_desktop.bind(idOf(action), titleOf(action), binding.shortcut);
}

void ShortcutRegistry::followPreferences(const QString& id)
{
    const auto action = actionOf(id);
    if (!action || m_isStoring || storedShortcut(*action) == shortcut(*action)) {
        return;
    }
    bindingOf(*action).shortcut = storedShortcut(*action);
    bind(*action);
    Q_EMIT shortcutChanged(*action);
}

void ShortcutRegistry::followDesktop(const QString& id, const QString& text)
{
    const auto action = actionOf(id);
    if (!action || bindingOf(*action).textOfDesktop == text) {
        return;
    }
    bindingOf(*action).textOfDesktop = text;
    Q_EMIT shortcutChanged(*action);
}

void ShortcutRegistry::followBound(const QString& id)
{
    if (const auto action = actionOf(id)) {
        setRefusal(*action, std::nullopt);
    }
}

void ShortcutRegistry::followRefusal(const QString& id, const ShortcutRefusal& refusal)
{
    const auto action = actionOf(id);
    if (!action || !shortcut(*action)) {
        return;
    }
    const Shortcut refused = *shortcut(*action);
    // One combination that two actions share is reported once.
    const bool isReported = std::ranges::any_of(
        m_bindings, [&](const Binding& binding) { return binding.refusal && binding.shortcut == refused; });
    if (!isReported) {
        printRefusal(refused, refusal.code);
    }
    setRefusal(*action, refusal.reason);
}

void ShortcutRegistry::setRefusal(ShortcutAction action, std::optional<ShortcutRefusal::Reason> refusal)
{
    if (std::exchange(bindingOf(action).refusal, refusal) != refusal) {
        Q_EMIT refusalChanged(action);
    }
}

void ShortcutRegistry::printRefusal(const Shortcut& refused, const QString& code)
{
    std::printf("Error registering hotkey %s: %s\n", qUtf8Printable(describe(refused, m_layout)),
                qUtf8Printable(code));
    std::fflush(stdout);
}

} // namespace tintwick

#pragma once

#include "ConfigurationFormat.h"
#include "GlobalShortcuts.h"
#include "ShortcutSession.h"

#include <memory>
#include <vector>

namespace tintwick {

class WaylandKeyboardLayout;

/// A Wayland compositor lets no client grab keys. Shortcuts come from the desktop's portal for them, whose keys the user
/// chooses in a dialog of the desktop. Where there is no portal, or where it has no keys until a file names them, the user
/// adds a line to the configuration of the compositor.
class WaylandGlobalShortcuts final : public GlobalShortcuts
{
    Q_OBJECT

public:
    /// The layout must outlive this object. `format` is that of the desktop's configuration.
    explicit WaylandGlobalShortcuts(
        const WaylandKeyboardLayout& layout,
        ConfigurationFormat format = configurationFormat(QProcessEnvironment::systemEnvironment()));
    ~WaylandGlobalShortcuts() override;

    /// The preferred keys are a suggestion to the desktop.
    void bind(const QString& id, const QString& description,
              const std::optional<Shortcut>& preferred) override;
    void unbind(const QString& id) override;
    [[nodiscard]] KeyChoice keyChoice() const override { return m_keyChoice; }
    /// A Wayland client cannot know.
    [[nodiscard]] bool isTaken(const Shortcut&) const override { return false; }
    void configure(const QString& parentWindow) override;
    [[nodiscard]] std::optional<ConfigurationLine> configurationLine(const QStringList& command,
                                                                     const Shortcut& keys) const override;

private:
    struct Entry
    {
        QString id;
        QString description;
        std::optional<Shortcut> preferred;
        /// How the desktop describes the keys; empty for none.
        QString text;
    };

    void watchPortal();
    void startSessionLater();
    void startSession(ShortcutSession::Purpose purpose, const QString& parentWindow);
    void startConfiguration(const QString& parentWindow);
    void dropSession();
    void setTriggers(const ShortcutSession::Triggers& triggers);
    void updateKeyChoice();
    [[nodiscard]] LineKeys lineKeys(const Shortcut& keys) const;

    const WaylandKeyboardLayout& m_layout;
    ConfigurationFormat m_format;
    KeyChoice m_keyChoice = KeyChoice::None;
    std::vector<Entry> m_entries;
    std::unique_ptr<ShortcutSession> m_session;
    /// Whether the last session was made, or none has been asked for since.
    bool m_hasPortal = false;
    bool m_startsLater = false;
};

} // namespace tintwick

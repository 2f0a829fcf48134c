#include "WaylandGlobalShortcuts.h"

#include "Portal.h"
#include "WaylandKeyboardLayout.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <algorithm>
#include <utility>

namespace tintwick {

WaylandGlobalShortcuts::WaylandGlobalShortcuts(const WaylandKeyboardLayout& layout,
                                               ConfigurationFormat format)
    : m_layout(layout)
    , m_format(format)
{
    if (QDBusConnection::sessionBus().isConnected()) {
        watchPortal();
    }
}

WaylandGlobalShortcuts::~WaylandGlobalShortcuts() = default;

void WaylandGlobalShortcuts::bind(const QString& id, const QString& description,
                                  const std::optional<Shortcut>& preferred)
{
    const auto entry = std::ranges::find(m_entries, id, &Entry::id);
    if (entry != m_entries.end()) {
        // A session in which the user has chosen other keys stays.
        entry->description = description;
        entry->preferred = preferred;
        return;
    }
    m_entries.push_back({id, description, preferred, {}});
    startSessionLater();
}

void WaylandGlobalShortcuts::unbind(const QString& id)
{
    if (std::erase_if(m_entries, [&](const Entry& entry) { return entry.id == id; }) > 0) {
        startSessionLater();
    }
}

void WaylandGlobalShortcuts::configure(const QString& parentWindow)
{
    if (m_keyChoice != KeyChoice::DesktopDialog) {
        return;
    }
    if (m_session) {
        m_session->configure(parentWindow);
    } else {
        startConfiguration(parentWindow);
    }
}

std::optional<ConfigurationLine> WaylandGlobalShortcuts::configurationLine(const QStringList& command,
                                                                           const Shortcut& keys) const
{
    return m_keyChoice == KeyChoice::None
               ? std::optional(tintwick::configurationLine(m_format, command, lineKeys(keys)))
               : std::nullopt;
}

void WaylandGlobalShortcuts::watchPortal()
{
    auto* watcher = new QDBusServiceWatcher(portal::service, QDBusConnection::sessionBus(),
                                            QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        dropSession();
        setTriggers({});
    });
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        // The service may have started because a session asks for it.
        if (!m_session) {
            startSessionLater();
        }
    });
}

// A session binds all shortcuts at once, and the program binds one after the other.
void WaylandGlobalShortcuts::startSessionLater()
{
    if (std::exchange(m_startsLater, true)) {
        return;
    }
    const auto start = [this] {
        if (m_startsLater) {
            startSession(ShortcutSession::Purpose::Use, {});
        }
    };
    QMetaObject::invokeMethod(this, start, Qt::QueuedConnection);
}

void WaylandGlobalShortcuts::startSession(ShortcutSession::Purpose purpose, const QString& parentWindow)
{
    m_startsLater = false;
    dropSession();
    // Portals refuse a session without shortcuts.
    if (m_entries.empty()) {
        return;
    }
    QList<ShortcutSession::Request> requests;
    for (const Entry& entry : m_entries) {
        requests.append({entry.id, entry.description,
                         entry.preferred ? triggerOf(lineKeys(*entry.preferred)) : QString()});
    }
    m_session = std::make_unique<ShortcutSession>(requests, purpose, parentWindow);
    connect(m_session.get(), &ShortcutSession::started, this, [this] {
        m_hasPortal = true;
        updateKeyChoice();
    });
    connect(m_session.get(), &ShortcutSession::refused, this, [this] {
        m_hasPortal = false;
        dropSession();
        setTriggers({});
    });
    connect(m_session.get(), &ShortcutSession::closed, this, [this] {
        dropSession();
        setTriggers({});
    });
    connect(m_session.get(), &ShortcutSession::notConfigurable, this,
            &WaylandGlobalShortcuts::startConfiguration);
    connect(m_session.get(), &ShortcutSession::triggersChanged, this, &WaylandGlobalShortcuts::setTriggers);
    connect(m_session.get(), &ShortcutSession::activated, this, &GlobalShortcuts::activated);
    connect(m_session.get(), &ShortcutSession::deactivated, this, &GlobalShortcuts::deactivated);
}

void WaylandGlobalShortcuts::startConfiguration(const QString& parentWindow)
{
    startSession(ShortcutSession::Purpose::Configure, parentWindow);
}

void WaylandGlobalShortcuts::dropSession()
{
    if (m_session) {
        m_session->disconnect(this);
        m_session->close();
        // It may be emitting a signal.
        m_session.release()->deleteLater();
    }
}

void WaylandGlobalShortcuts::setTriggers(const ShortcutSession::Triggers& triggers)
{
    for (Entry& entry : m_entries) {
        entry.text = triggers.value(entry.id);
    }
    updateKeyChoice();
    for (const Entry& entry : m_entries) {
        Q_EMIT changed(entry.id, entry.text);
    }
}

void WaylandGlobalShortcuts::updateKeyChoice()
{
    const bool hasKeys =
        std::ranges::any_of(m_entries, [](const Entry& entry) { return !entry.text.isEmpty(); });
    const bool isDialog = m_hasPortal && (hasKeys || !isFile(m_format));
    const KeyChoice choice = isDialog ? KeyChoice::DesktopDialog : KeyChoice::None;
    if (std::exchange(m_keyChoice, choice) != choice) {
        Q_EMIT keyChoiceChanged();
    }
}

LineKeys WaylandGlobalShortcuts::lineKeys(const Shortcut& keys) const
{
    return {m_layout.symbolNameForKey(keys.keyCode).value_or(QString()), keys.modifiers};
}

} // namespace tintwick

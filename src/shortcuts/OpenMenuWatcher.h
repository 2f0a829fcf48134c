#pragma once

#include <QObject>
#include <QSet>

namespace tintwick::KeyboardShortcuts {

class Registry;

/// Tells the registry while any menu of ours is open, the menus of text fields included: what opens as a popup holds
/// the keyboard.
class OpenMenuWatcher final : public QObject
{
public:
    /// The registry must outlive the watcher; the application object must exist.
    explicit OpenMenuWatcher(Registry& registry);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Registry& m_registry;
    /// Only compared, never followed.
    QSet<const QObject*> m_openMenus;
};

} // namespace tintwick::KeyboardShortcuts

#pragma once

#include <QObject>
#include <QSet>

namespace tintwick {

/// Watches whether a popup window of this process is open: menus, also those of text fields, and pop-up lists. The X
/// server sends all keys to an open popup, because it holds a keyboard grab.
class PopupWatcher final : public QObject
{
    Q_OBJECT

public:
    /// The application object must exist.
    PopupWatcher();

    [[nodiscard]] bool isAnyOpen() const { return !m_open.isEmpty(); }

Q_SIGNALS:
    /// Before the first popup is mapped.
    void firstOpened();
    void lastClosed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Only compared, never dereferenced.
    QSet<const QObject*> m_open;
};

} // namespace tintwick

#pragma once

#include "Clickable.h"
#include "ContextMenu.h"

#include <QPointer>

#include <functional>

namespace tintwick {

/// A button that looks like its content and opens a menu below itself on press, Space, Return and Down. It looks pressed until
/// the menu closes; a click on it closes the menu. The content draws the disabled state.
class MenuButton : public Clickable
{
    Q_OBJECT

public:
    /// `name` is for screen readers. `entries` is called each time the menu opens. `cornerRadius` is that of the tint and the
    /// focus ring.
    MenuButton(const QString& name, std::function<QList<MenuEntry>()> entries, QWidget* content,
               double cornerRadius);

    /// The menu, or null while it is closed.
    [[nodiscard]] QMenu* menu() const;

protected:
    [[nodiscard]] double cornerRadius() const override { return m_cornerRadius; }
    /// Opens the menu at its place and returns it.
    virtual QMenu* openMenu(const QList<MenuEntry>& entries);
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void open();

    std::function<QList<MenuEntry>()> m_entries;
    double m_cornerRadius;
    QPointer<QMenu> m_menu;
};

} // namespace tintwick

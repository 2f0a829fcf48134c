#pragma once

#include "Clickable.h"
#include "ContextMenu.h"

#include <QPointer>

#include <functional>

namespace tintwick {

/// A button that looks like its content and drops a menu below itself. Pressing it opens the menu, as Space, Return and
/// Down do; it looks pressed until the menu closes, and a click on it then closes the menu. How it looks while it is
/// disabled is left to the content.
class MenuButton : public Clickable
{
    Q_OBJECT

public:
    /// `name` is for screen readers. `entries` is asked for anew each time the menu opens. The tint of the pressed button
    /// and its focus ring follow `cornerRadius`.
    MenuButton(const QString& name, std::function<QList<MenuEntry>()> entries, QWidget* content,
               double cornerRadius);

    /// The menu, or null while it is closed.
    [[nodiscard]] QMenu* menu() const;

protected:
    [[nodiscard]] double cornerRadius() const override { return m_cornerRadius; }
    /// Opens the menu where it belongs.
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

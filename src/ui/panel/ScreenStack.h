#pragma once

#include "PanelScreen.h"

#include <QList>
#include <QPointer>
#include <QWidget>

#include <functional>

namespace tintwick {

class Stack;

/// The screens of the panel in the order in which they were opened. The last one is visible; those before it keep their
/// scroll position and what the user has entered.
class ScreenStack final
{
public:
    using Make = std::function<QWidget*(const PanelScreen&)>;

    /// Adds the screens to `container`. `first` is always the first screen.
    ScreenStack(Stack& container, QWidget& first, Make make);

    /// Shows the last screen of `path`, which begins with the first screen. Keeps the screens at the beginning of the path that
    /// are open already, and deletes the others. `opener` is the control that gets the focus when the user returns to the
    /// present screen, or null.
    void show(const QList<PanelScreen>& path, QWidget* opener);

    /// The number of screens.
    [[nodiscard]] qsizetype depth() const { return m_levels.size(); }
    [[nodiscard]] const PanelScreen& current() const { return m_levels.last().screen; }
    [[nodiscard]] QWidget& currentView() const { return *m_levels.last().view; }
    /// The control from which the user left the current screen when it was covered last, or null.
    [[nodiscard]] QWidget* opener() const { return m_levels.last().opener; }

private:
    struct Level
    {
        PanelScreen screen;
        QWidget* view = nullptr;
        QPointer<QWidget> opener = {};
    };

    Stack& m_container;
    Make m_make;
    QList<Level> m_levels;
};

} // namespace tintwick

#include "ScreenStack.h"

#include "Stack.h"

#include <utility>

namespace tintwick {

ScreenStack::ScreenStack(Stack& container, QWidget& first, Make make)
    : m_container(container)
    , m_make(std::move(make))
    , m_levels{{.screen = {}, .view = &first}}
{
}

void ScreenStack::show(const QList<PanelScreen>& path, QWidget* opener)
{
    qsizetype kept = 1;
    while (kept < path.size() && kept < m_levels.size() && path[kept] == m_levels[kept].screen) {
        ++kept;
    }
    if (kept == path.size() && kept == m_levels.size()) {
        return;
    }
    if (kept == m_levels.size()) {
        m_levels.last().opener = opener;
    }
    const QList<Level> left = m_levels.mid(kept);
    m_levels.resize(kept);
    for (const PanelScreen& screen : path.mid(kept)) {
        QWidget* view = m_make(screen);
        view->hide();
        m_container.add(view);
        m_levels.append({.screen = screen, .view = view});
    }
    for (const Level& level : left) {
        m_container.remove(level.view);
        // One of its own events may be on the call stack.
        level.view->deleteLater();
    }
    for (const Level& level : std::as_const(m_levels)) {
        level.view->setVisible(level.view == &currentView());
    }
}

} // namespace tintwick

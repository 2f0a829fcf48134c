#include "ColorSelector.h"

#include "AppState.h"
#include "CollectionActions.h"
#include "Overlay.h"

#include <QShortcut>
#include <QWidget>

#include <utility>

namespace tintwick {

ColorSelector::ColorSelector(AppState& appState, QWidget& screen, QWidget& panel,
                             std::function<void(const QList<QUuid>&)> remove)
    : QObject(&screen)
    , m_appState(appState)
    , m_screen(screen)
    , m_panel(panel)
    , m_remove(std::move(remove))
{
    addShortcut(QKeySequence::SelectAll, false, [this] { selectAll(); });
    addShortcut(QKeySequence::Copy, true, [this] { copy(); });
    addShortcut(Qt::Key_Delete, true, [this] { this->remove(); });
    auto* escape = new QShortcut(Qt::Key_Escape, &screen);
    connect(escape, &QShortcut::activated, this, [this] {
        // The shortcut is taken before the overlay gets the key.
        if (Overlay* overlay = Overlay::of(m_panel)) {
            overlay->dismiss();
        } else {
            clear();
        }
    });
    m_shortcuts.append(escape);
    announce();
}

void ColorSelector::addShortcut(const QKeySequence& keys, bool needsSelection,
                                const std::function<void()>& action)
{
    // A text field with the focus takes these keys itself.
    auto* shortcut = new QShortcut(keys, &m_screen);
    connect(shortcut, &QShortcut::activated, this, [this, action] {
        if (Overlay::of(m_panel) == nullptr) {
            action();
        }
    });
    if (needsSelection) {
        m_shortcuts.append(shortcut);
    }
}

void ColorSelector::announce()
{
    for (QShortcut* shortcut : std::as_const(m_shortcuts)) {
        shortcut->setEnabled(!m_selection.isEmpty());
    }
    Q_EMIT changed();
}

void ColorSelector::setColors(const QList<CapturedColor>& colors)
{
    m_colors = colors;
    QList<QUuid> ids;
    for (const CapturedColor& color : colors) {
        ids.append(color.id);
    }
    m_selection.setColors(ids);
    announce();
}

QList<CapturedColor> ColorSelector::colors() const
{
    ColorCollection selected;
    selected.colorIds = m_selection.ids();
    return selected.colors(m_colors);
}

QList<QUuid> ColorSelector::idsWith(const QUuid& id) const
{
    return isSelected(id) ? m_selection.ids() : QList{id};
}

bool ColorSelector::takeClick(const QUuid& id, Qt::KeyboardModifiers modifiers)
{
    const bool adds = modifiers.testFlag(Qt::ControlModifier);
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        if (adds) {
            m_selection.addRangeTo(id);
        } else {
            m_selection.extendTo(id);
        }
    } else if (adds) {
        m_selection.toggle(id);
    } else {
        m_selection.restartAt(id);
    }
    announce();
    return adds || modifiers.testFlag(Qt::ShiftModifier);
}

void ColorSelector::extend(const QUuid& from, const QUuid& to)
{
    if (m_selection.isEmpty()) {
        m_selection.restartAt(from);
    }
    m_selection.extendTo(to);
    announce();
}

void ColorSelector::selectAll()
{
    m_selection.selectAll();
    announce();
}

void ColorSelector::clear()
{
    m_selection.clear();
    announce();
}

void ColorSelector::copy()
{
    const QList<CapturedColor> selected = colors();
    QStringList lines;
    for (const CapturedColor& color : selected) {
        lines.append(m_appState.text(color, m_appState.defaultFormat()));
    }
    m_appState.clipboard().copy(lines.join(u'\n'));
    m_appState.showCopyFeedback(m_appState.defaultFormat(), selected.first());
}

void ColorSelector::remove()
{
    m_remove(m_selection.ids());
}

QList<MenuEntry> ColorSelector::addMenu()
{
    const QList<QUuid> ids = m_selection.ids();
    QList<MenuEntry> entries;
    for (const ColorCollection& collection : m_appState.collections()) {
        entries.append(menuAction(
            collection.name, [&state = m_appState, ids, id = collection.id] { state.addColors(ids, id); }));
    }
    if (!entries.isEmpty()) {
        entries.append(menuSeparator());
    }
    return entries << menuAction(tr("New Palette…"), [&panel = m_panel, &state = m_appState, ids] {
               openNewCollectionOverlay(panel, state, ids);
           });
}

} // namespace tintwick

#include "ColorSelection.h"

#include <algorithm>

namespace tintwick {

void ColorSelection::setColors(const QList<QUuid>& ids)
{
    m_ids = ids;
    const QSet<QUuid> present(ids.begin(), ids.end());
    m_selected &= present;
    if (!present.contains(m_anchor)) {
        m_anchor = {};
    }
}

QList<QUuid> ColorSelection::ids() const
{
    QList<QUuid> inOrder;
    inOrder.reserve(m_selected.size());
    for (const QUuid& id : m_ids) {
        // A data file may contain an id twice.
        if (m_selected.contains(id) && !inOrder.contains(id)) {
            inOrder.append(id);
        }
    }
    return inOrder;
}

void ColorSelection::toggle(const QUuid& id)
{
    if (!m_ids.contains(id)) {
        return;
    }
    if (!m_selected.remove(id)) {
        m_selected.insert(id);
    }
    m_anchor = id;
}

void ColorSelection::extendTo(const QUuid& id)
{
    if (m_ids.contains(id)) {
        m_selected = rangeTo(id);
    }
}

void ColorSelection::addRangeTo(const QUuid& id)
{
    if (m_ids.contains(id)) {
        m_selected |= rangeTo(id);
    }
}

void ColorSelection::selectAll()
{
    m_selected = QSet<QUuid>(m_ids.begin(), m_ids.end());
}

void ColorSelection::restartAt(const QUuid& id)
{
    m_selected.clear();
    m_anchor = m_ids.contains(id) ? id : QUuid();
}

QSet<QUuid> ColorSelection::rangeTo(const QUuid& id)
{
    if (m_anchor.isNull()) {
        const QList<QUuid> selected = ids();
        m_anchor = selected.isEmpty() ? id : selected.first();
    }
    const auto [first, last] = std::minmax({m_ids.indexOf(m_anchor), m_ids.indexOf(id)});
    return {m_ids.begin() + first, m_ids.begin() + last + 1};
}

} // namespace tintwick

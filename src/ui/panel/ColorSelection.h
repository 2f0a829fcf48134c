#pragma once

#include <QList>
#include <QSet>
#include <QUuid>

namespace tintwick {

/// Which colours of a list the user has selected, and the anchor at which a range starts. Knows the list by its ids.
class ColorSelection final
{
public:
    /// Sets the list in the order in which it is shown. What is no longer in it is no longer selected.
    void setColors(const QList<QUuid>& ids);

    [[nodiscard]] bool contains(const QUuid& id) const { return m_selected.contains(id); }
    [[nodiscard]] bool isEmpty() const { return m_selected.isEmpty(); }
    /// The selected ids in the order of the list, each once.
    [[nodiscard]] QList<QUuid> ids() const;

    /// The functions below ignore ids that are not in the list.
    ///
    /// Selects a colour, or no longer; the next range starts at it.
    void toggle(const QUuid& id);
    /// Selects the range from the anchor to a colour, and nothing else. Without an anchor it starts at the first selected
    /// colour, or at the given one.
    void extendTo(const QUuid& id);
    /// Adds that range to what is selected.
    void addRangeTo(const QUuid& id);
    void selectAll();
    void clear() { m_selected.clear(); }
    /// Selects nothing; the next range starts at a colour.
    void restartAt(const QUuid& id);

private:
    /// The ids from the anchor to one in the list. Sets the anchor where there is none.
    [[nodiscard]] QSet<QUuid> rangeTo(const QUuid& id);

    QList<QUuid> m_ids;
    QSet<QUuid> m_selected;
    /// Null for none.
    QUuid m_anchor;
};

} // namespace tintwick

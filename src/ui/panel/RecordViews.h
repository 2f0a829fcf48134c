#pragma once

#include <QHash>
#include <QList>
#include <QUuid>

#include <functional>
#include <utility>

namespace tintwick {

/// The first children of a stack, grid or list: one view per record of a list, in its order. A view lives as long as its
/// record is in the list, so that it keeps hover, focus and animations.
template <typename View, typename Record, typename Container>
class RecordViews final
{
public:
    /// Creates a view; `set` assigns its record afterwards.
    using Make = std::function<View*()>;
    using Set = std::function<void(View& view, const Record& record, qsizetype position)>;

    RecordViews(Container& container, Make make, Set set)
        : m_container(container)
        , m_make(std::move(make))
        , m_set(std::move(set))
    {
    }

    [[nodiscard]] const QList<View*>& views() const { return m_views; }

    void show(const QList<Record>& records)
    {
        QMultiHash<QUuid, View*> old = std::exchange(m_byId, {});
        m_views.clear();
        QList<View*> present;
        for (const Record& record : records) {
            present.append(old.take(record.id));
        }
        // Before the others move, so that the container knows the place that becomes free.
        for (View* view : std::as_const(old)) {
            m_container.remove(view);
            // Its own menu or drop may have changed the list and be on the call stack.
            view->deleteLater();
        }
        for (const Record& record : records) {
            const qsizetype position = m_views.size();
            View* view = present[position] != nullptr ? present[position] : m_make();
            m_set(*view, record, position);
            m_container.insert(static_cast<int>(position), view);
            view->show();
            m_views.append(view);
            m_byId.insert(record.id, view);
        }
    }

    /// Moves the focus by a number of views; does nothing beyond the ends.
    void moveFocus(const View& from, qsizetype step) const
    {
        const qsizetype target = m_views.indexOf(&from) + step;
        if (target >= 0 && target < m_views.size()) {
            m_views[target]->setFocus(step < 0 ? Qt::BacktabFocusReason : Qt::TabFocusReason);
        }
    }

private:
    Container& m_container;
    Make m_make;
    Set m_set;
    QList<View*> m_views;
    // A data file may contain an id twice.
    QMultiHash<QUuid, View*> m_byId;
};

} // namespace tintwick

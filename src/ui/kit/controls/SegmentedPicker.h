#pragma once

#include "Animator.h"
#include "Spring.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <optional>

namespace tintwick {

/// A row of equal segments of which at most one is selected. Tab focuses the selected segment. Left, Right, Home and End move the
/// selection. Space selects the focused segment when none is selected. Screen readers see a group of radio buttons.
class SegmentedPicker final : public QWidget
{
    Q_OBJECT

public:
    /// `name` is for screen readers. `selected` is an index of `titles`.
    SegmentedPicker(const QString& name, const QStringList& titles, std::optional<qsizetype> selected);
    ~SegmentedPicker() override;

    [[nodiscard]] std::optional<qsizetype> selected() const { return m_selected; }
    /// Does not run the action of `onSelect()`.
    void setSelected(std::optional<qsizetype> position);
    /// Runs `action` with the index when the user selects another segment.
    void onSelect(std::function<void(qsizetype position)> action);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Segment;

    void choose(qsizetype position);
    /// Updates which segment is checked and which one Tab reaches.
    void showSelection();
    /// The rectangle of a segment. A fractional position lies between two segments.
    [[nodiscard]] QRectF place(double position) const;

    QList<Segment*> m_segments;
    std::optional<qsizetype> m_selected;
    std::function<void(qsizetype)> m_onSelect;
    Spring m_thumb;
    Animator m_animator;
};

} // namespace tintwick

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

/// A row of equal segments of which one, or none, is selected. Tab goes to the selected one; Left, Right, Home and End
/// move the selection, and Space selects the segment that has the focus where none is selected yet. To a screen reader
/// it is a group of radio buttons.
class SegmentedPicker final : public QWidget
{
    Q_OBJECT

public:
    /// `name` is what a screen reader calls the group. `selected` is a position in `titles`.
    SegmentedPicker(const QString& name, const QStringList& titles, std::optional<qsizetype> selected);
    ~SegmentedPicker() override;

    [[nodiscard]] std::optional<qsizetype> selected() const { return m_selected; }
    /// Does not call what `onSelect()` was given.
    void setSelected(std::optional<qsizetype> position);
    /// `action` is called with the position that the user has selected, when it was not selected before.
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
    /// The selection as the segments show it: which is checked, and to which Tab goes.
    void showSelection();
    /// Where a segment stands; a fraction is on the way between two.
    [[nodiscard]] QRectF place(double position) const;

    QList<Segment*> m_segments;
    std::optional<qsizetype> m_selected;
    std::function<void(qsizetype)> m_onSelect;
    Spring m_thumb;
    Animator m_animator;
};

} // namespace tintwick

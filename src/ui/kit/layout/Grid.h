#pragma once

#include <QList>
#include <QWidget>

namespace tintwick {

/// Lengths in points.
struct GridShape
{
    int columns;
    int columnGap;
    int rowGap;
    int padding;
};

/// Lays children out from left to right and from top to bottom, in columns of equal width and rows as high as the highest
/// child. A child keeps its size, centred in its column at the top of its row. Overhangs extend into gaps and padding.
///
/// Not QGridLayout: it has no overhang, gives columns different widths when the division leaves a remainder, and cannot move a
/// child to another position.
class Grid final : public QWidget
{
    Q_OBJECT

public:
    explicit Grid(const GridShape& shape);

    /// Inserts before the child at `position`, or moves there what is a child already.
    void insert(int position, QWidget* child);
    /// Takes a child out of the layout and hides it. It stays a child widget.
    void remove(QWidget* child);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();
    void changed();
    [[nodiscard]] int rowHeight() const;

    GridShape m_shape;
    QList<QWidget*> m_children;
};

} // namespace tintwick

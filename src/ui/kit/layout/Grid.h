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

/// Children from left to right and from top to bottom, in columns that share the width equally and rows as high as the
/// highest child. A child keeps its own size, in the middle of its column and at the top of its row; what overhangs its
/// place finds room in the gaps and the padding.
class Grid final : public QWidget
{
    Q_OBJECT

public:
    explicit Grid(const GridShape& shape);

    /// Before the child at a position; one that is a child already is moved there.
    void insert(int position, QWidget* child);
    /// Takes a child out; it stays its child and is hidden.
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

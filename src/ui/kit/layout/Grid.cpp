#include "Grid.h"

#include "Overhang.h"

#include <QCoreApplication>
#include <QEvent>
#include <QStyle>

#include <algorithm>

namespace tintwick {

namespace {

QSize placeSizeOf(const QWidget& child)
{
    return child.sizeHint().shrunkBy(overhangOf(child));
}

} // namespace

Grid::Grid(const GridShape& shape)
    : m_shape(shape)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Grid::insert(int position, QWidget* child)
{
    m_children.removeOne(child);
    m_children.insert(position, child);
    if (child->parentWidget() != this) {
        child->setParent(this);
    }
    changed();
}

void Grid::remove(QWidget* child)
{
    child->hide();
    m_children.removeOne(child);
    changed();
}

QSize Grid::sizeHint() const
{
    int columnWidth = 0;
    for (const QWidget* child : m_children) {
        columnWidth = std::max(columnWidth, placeSizeOf(*child).width());
    }
    const int rows = (static_cast<int>(m_children.size()) + m_shape.columns - 1) / m_shape.columns;
    return {2 * m_shape.padding + m_shape.columns * (columnWidth + m_shape.columnGap) - m_shape.columnGap,
            2 * m_shape.padding + std::max(0, rows * (rowHeight() + m_shape.rowGap) - m_shape.rowGap)};
}

bool Grid::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) {
        place();
    }
    return QWidget::event(event);
}

void Grid::resizeEvent(QResizeEvent*)
{
    place();
}

void Grid::changed()
{
    updateGeometry();
    // Posted, so that several changes cause one layout.
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

void Grid::place()
{
    const int height = rowHeight();
    const double columnWidth =
        (width() - 2.0 * m_shape.padding + m_shape.columnGap) / m_shape.columns - m_shape.columnGap;
    for (int i = 0; i < m_children.size(); ++i) {
        QWidget* child = m_children[i];
        const int column = i % m_shape.columns;
        const int row = i / m_shape.columns;
        const QRect cell(qRound(m_shape.padding + column * (columnWidth + m_shape.columnGap)),
                         m_shape.padding + row * (height + m_shape.rowGap), qRound(columnWidth), height);
        child->setGeometry(
            QStyle::alignedRect(layoutDirection(), Qt::AlignHCenter | Qt::AlignTop, placeSizeOf(*child), cell)
                .marginsAdded(overhangOf(*child)));
    }
}

int Grid::rowHeight() const
{
    int height = 0;
    for (const QWidget* child : m_children) {
        height = std::max(height, placeSizeOf(*child).height());
    }
    return height;
}

} // namespace tintwick

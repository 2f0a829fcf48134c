#include "StackLayout.h"

#include "Overhang.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace tintwick {

StackItem::StackItem(QWidget* widget, Qt::Orientation direction, Qt::Alignment across)
    : QWidgetItem(widget)
    , m_direction(direction)
    , m_across(across)
{
}

void StackItem::setGeometry(const QRect& room)
{
    if (isEmpty()) {
        return;
    }
    const QSizePolicy policy = widget()->sizePolicy();
    const bool across = m_direction == Qt::Vertical;
    const QSize hint = sizeHint();
    QSize size = room.size().boundedTo(QWidgetItem::maximumSize().shrunkBy(overhangOf(*widget())));
    if (across && !canGrow(policy.horizontalPolicy())) {
        size.setWidth(std::min(size.width(), hint.width()));
    } else if (!across && !canGrow(policy.verticalPolicy())) {
        size.setHeight(std::min(size.height(), hint.height()));
    }
    const Qt::Alignment alignment = across ? m_across | Qt::AlignVCenter : m_across | Qt::AlignHCenter;
    widget()->setGeometry(QStyle::alignedRect(widget()->layoutDirection(), alignment, size, room)
                              .marginsAdded(overhangOf(*widget())));
}

QSize StackItem::sizeHint() const
{
    return isEmpty() ? QSize(0, 0) : QWidgetItem::sizeHint().shrunkBy(overhangOf(*widget()));
}

QSize StackItem::minimumSize() const
{
    return isEmpty() ? QSize(0, 0) : QWidgetItem::minimumSize().shrunkBy(overhangOf(*widget()));
}

QSize StackItem::maximumSize() const
{
    if (isEmpty()) {
        return {0, 0};
    }
    // A box layout limits all items to the smallest maximum.
    QSize size = QWidgetItem::maximumSize().shrunkBy(overhangOf(*widget()));
    if (m_direction == Qt::Vertical) {
        size.setWidth(QWIDGETSIZE_MAX);
    } else {
        size.setHeight(QWIDGETSIZE_MAX);
    }
    return size;
}

SpacerItem::SpacerItem(Qt::Orientation direction)
    : QSpacerItem(0, 0, direction == Qt::Horizontal ? QSizePolicy::Expanding : QSizePolicy::Minimum,
                  direction == Qt::Vertical ? QSizePolicy::Expanding : QSizePolicy::Minimum)
{
}

bool canGrow(QSizePolicy::Policy policy)
{
    return (static_cast<unsigned>(policy) & static_cast<unsigned>(QSizePolicy::GrowFlag)) != 0;
}

void fillWith(QWidget& host, QWidget* content)
{
    QLayout* layout = host.layout();
    if (layout == nullptr) {
        layout = new QVBoxLayout(&host);
        layout->setContentsMargins(0, 0, 0, 0);
    }
    layout->addWidget(content);
    host.setSizePolicy(content->sizePolicy());
}

} // namespace tintwick

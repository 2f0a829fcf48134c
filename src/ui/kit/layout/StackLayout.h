#pragma once

#include <QBoxLayout>
#include <QWidgetItem>

namespace tintwick {

/// The place of a widget in a row or column, without its overhang. A widget that can grow across the direction fills the room;
/// any other keeps its extent and is aligned by `across`.
class StackItem final : public QWidgetItem
{
public:
    StackItem(QWidget* widget, Qt::Orientation direction, Qt::Alignment across);

    void setGeometry(const QRect& room) override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    [[nodiscard]] QSize maximumSize() const override;

private:
    Qt::Orientation m_direction;
    Qt::Alignment m_across;
};

/// Room that grows, with the gap of the stack on both sides.
class SpacerItem final : public QSpacerItem
{
public:
    explicit SpacerItem(Qt::Orientation direction);

    /// Not empty, because a box layout leaves no gap beside an empty item.
    [[nodiscard]] bool isEmpty() const override { return false; }
};

[[nodiscard]] bool canGrow(QSizePolicy::Policy policy);

/// Lays `content` out so that it fills `host` and determines its size.
void fillWith(QWidget& host, QWidget* content);

} // namespace tintwick

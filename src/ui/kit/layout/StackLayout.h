#pragma once

#include <QBoxLayout>
#include <QWidgetItem>

namespace tintwick {

/// The place of a widget in a row or column, without its overhang. One that can grow across it fills the room, any other
/// keeps its own extent and stands where `across` says.
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

/// Room that grows, with the gaps of the stack on both of its sides.
class SpacerItem final : public QSpacerItem
{
public:
    explicit SpacerItem(Qt::Orientation direction);

    /// A box layout leaves no gap beside what is empty.
    [[nodiscard]] bool isEmpty() const override { return false; }
};

[[nodiscard]] bool canGrow(QSizePolicy::Policy policy);

/// Lays `content` out as the whole of `host`, which takes its size from it.
void fillWith(QWidget& host, QWidget* content);

} // namespace tintwick

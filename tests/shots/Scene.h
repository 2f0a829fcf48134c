#pragma once

#include <QColor>
#include <QList>
#include <QWidget>

class QMenu;

namespace tintwick {

class AppState;

// What the shots of several screens are made of.

[[nodiscard]] QList<QColor> manyColors(int count);
/// From one that cannot be seen to one that is nearly opaque.
[[nodiscard]] QList<QColor> translucentColors(int count);
/// Leaves nothing in the state but these colours, the first one as the newest.
void fill(AppState& state, const QList<QColor>& colors);

/// Puts the pointer over a widget.
void hover(QWidget& widget);
/// Shows an open menu, which is a window of its own, in the picture of a screen: at a place in it, pulled inside.
void showMenu(QWidget& screen, QMenu& menu, QPoint place);

/// The ground that the panel leaves to a screen below its header and the rule.
class ScreenGround : public QWidget
{
public:
    ScreenGround();

protected:
    /// Makes `screen` the whole of it.
    void setScreen(QWidget* screen);

    void paintEvent(QPaintEvent* event) override;
};

} // namespace tintwick

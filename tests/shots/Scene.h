#pragma once

#include <QColor>
#include <QList>
#include <QString>
#include <QWidget>

class QAbstractButton;
class QMenu;

namespace tintwick {

class AppState;

// Helpers for the shots of several screens.

[[nodiscard]] QList<QColor> manyColors(int count);
/// From a transparent colour to a nearly opaque one.
[[nodiscard]] QList<QColor> translucentColors(int count);
/// Replaces all colours in the state; the first one is the newest.
void fill(AppState& state, const QList<QColor>& colors);

/// The button with an accessible name; ends the program if there is none.
[[nodiscard]] QAbstractButton& button(const QWidget& view, const QString& name);
/// Hovers a widget.
void hover(QWidget& widget);
/// Drags a text over a widget.
void dragOver(QWidget& widget, const QString& text);
/// Draws an open menu, which is a separate window, into the picture of a screen, moved inside it if needed.
void showMenu(QWidget& screen, QMenu& menu, QPoint place);

/// The area of the panel below its header and the rule.
class ScreenGround : public QWidget
{
public:
    ScreenGround();

protected:
    /// Fills the area with `screen`.
    void setScreen(QWidget* screen);

    void paintEvent(QPaintEvent* event) override;
};

} // namespace tintwick

#pragma once

#include "ui/kit/Clickable.h"

#include <QStringList>

#include <functional>

class QMenu;

namespace tintwick {

/// A button that shows the chosen one of several titles. Pressed, or with Up or Down, it opens the menu of all of them,
/// the chosen one in its own place. To a screen reader it is a combo box whose value is the title.
class PopUpPicker final : public Clickable
{
    Q_OBJECT

public:
    /// `name` is what a screen reader calls it. `selected` is a position in `titles`.
    PopUpPicker(const QString& name, QStringList titles, qsizetype selected);

    [[nodiscard]] qsizetype selected() const { return m_selected; }
    [[nodiscard]] QString selectedTitle() const { return m_titles.at(m_selected); }
    /// Does not call what `onSelect()` was given.
    void setSelected(qsizetype position);
    /// `action` is called with the position that the user has chosen, when it was not chosen before.
    void onSelect(std::function<void(qsizetype position)> action);

    /// Returns at once; the menu deletes itself.
    QMenu* openMenu();

    /// Wide enough for each of the titles.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    [[nodiscard]] double cornerRadius() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void choose(qsizetype position);

    QStringList m_titles;
    qsizetype m_selected;
    std::function<void(qsizetype)> m_onSelect;
};

} // namespace tintwick

#pragma once

#include "MenuButton.h"

#include <QStringList>

#include <functional>

namespace tintwick {

class Label;

/// A button that shows the chosen one of several titles and opens the menu of all of them, the chosen one over its own
/// place. To a screen reader it is a combo box whose value is the title.
class PopUpPicker final : public MenuButton
{
    Q_OBJECT

public:
    /// `name` is what a screen reader calls it. `selected` is a position in `titles`.
    PopUpPicker(const QString& name, const QStringList& titles, qsizetype selected);

    [[nodiscard]] qsizetype selected() const { return m_selected; }
    [[nodiscard]] QString selectedTitle() const { return m_titles.at(m_selected); }
    /// Does not call what `onSelect()` was given.
    void setSelected(qsizetype position);
    /// `action` is called with the position that the user has chosen, when it was not chosen before.
    void onSelect(std::function<void(qsizetype position)> action);

protected:
    QMenu* openMenu(const QList<MenuEntry>& entries) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    PopUpPicker(const QString& name, QStringList titles, qsizetype selected, Label* title);

    [[nodiscard]] QList<MenuEntry> choices();
    void choose(qsizetype position);

    QStringList m_titles;
    qsizetype m_selected;
    Label* m_title;
    std::function<void(qsizetype)> m_onSelect;
};

} // namespace tintwick

#pragma once

#include "MenuButton.h"

#include <QStringList>

#include <functional>

namespace tintwick {

class Label;

/// A button that shows the chosen title and opens a menu of all titles, with the chosen line over the button. Screen readers
/// see a combo box whose value is the title.
class PopUpPicker final : public MenuButton
{
    Q_OBJECT

public:
    /// `name` is for screen readers. `selected` is an index of `titles`.
    PopUpPicker(const QString& name, const QStringList& titles, qsizetype selected);

    [[nodiscard]] qsizetype selected() const { return m_selected; }
    [[nodiscard]] QString selectedTitle() const { return m_titles.at(m_selected); }
    /// Does not run the action of `onSelect()`.
    void setSelected(qsizetype position);
    /// Runs `action` with the index when the user chooses another title.
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

#include "SettingsLayout.h"

#include "Label.h"
#include "Rule.h"
#include "StackLayout.h"
#include "Theme.h"

namespace tintwick {

namespace {

constexpr double cardRadius = 14;
constexpr int labelColumn = 150;
constexpr int rowHeight = 28;
constexpr int ruleGap = 4;

} // namespace

Stack* settingsSection(const QString& title, QWidget* content)
{
    return column(gap(6), fillWidth(), Across::Leading, label(title, theme::headline()),
                  column(padding(14, 8), fillWidth(), ground(theme::surface, cardRadius),
                         outline(theme::border, 1), content));
}

Stack* settingsRows(const QList<QWidget*>& rows)
{
    Stack* content = column(gap(ruleGap), fillWidth());
    for (QWidget* row : rows) {
        if (row != rows.first()) {
            content->add(rule());
        }
        content->add(row);
    }
    return content;
}

Stack* settingsRow(const QString& text, QWidget* control)
{
    Stack* line = row(fillWidth(), fixedHeight(rowHeight),
                      row(fixedWidth(labelColumn), label(text, theme::font(13)), spacer()), control);
    if (!canGrow(control->sizePolicy().horizontalPolicy())) {
        line->add(spacer());
    }
    return line;
}

} // namespace tintwick

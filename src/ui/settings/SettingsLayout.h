#pragma once

#include "Stack.h"

#include <QList>
#include <QString>

namespace tintwick {

// What all settings are laid out by.

/// A group: its title above its content, which lies on a card.
[[nodiscard]] Stack* settingsSection(const QString& title, QWidget* content);
/// The content of a section that has several rows: a rule parts each from the next.
[[nodiscard]] Stack* settingsRows(const QList<QWidget*>& rows);
/// One row: the text in a column of 150 points, then the control.
[[nodiscard]] Stack* settingsRow(const QString& text, QWidget* control);

} // namespace tintwick

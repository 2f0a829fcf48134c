#pragma once

#include "Stack.h"

#include <QList>
#include <QString>

namespace tintwick {

// The layout of both settings tabs.

/// The width of the content of a section in the panel, in points.
inline constexpr int settingsWidth = 320;

/// A title above its content, which is on a card.
[[nodiscard]] Stack* settingsSection(const QString& title, QWidget* content);
/// Several rows as the content of a section, separated by rules.
[[nodiscard]] Stack* settingsRows(const QList<QWidget*>& rows);
/// A row: the text in a column of 150 points, then the control.
[[nodiscard]] Stack* settingsRow(const QString& text, QWidget* control);

} // namespace tintwick

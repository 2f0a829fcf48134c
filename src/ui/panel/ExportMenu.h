#pragma once

#include "CapturedColor.h"
#include "ContextMenu.h"
#include "View.h"

#include <QList>
#include <QString>

#include <functional>

namespace tintwick {

class Label;
class Stack;
class SymbolView;

/// The three main formats, each title after `prefix`, and a submenu with the others. The functions are called when the user
/// chooses one.
[[nodiscard]] QList<MenuEntry> exportEntries(const QString& prefix,
                                             const std::function<QList<CapturedColor>()>& colors,
                                             const std::function<QString()>& paletteName);

/// The button that exports a list of colours to a file.
class ExportMenu final : public View
{
    Q_OBJECT

public:
    /// Both are called when the user chooses a format.
    ExportMenu(std::function<QList<CapturedColor>()> colors, std::function<QString()> paletteName);

    /// Disable it when there are no colours; it is grey then.
    void setHasColors(bool hasColors);

private:
    SymbolView* m_symbol;
    Label* m_title;
    Stack* m_label;
};

} // namespace tintwick

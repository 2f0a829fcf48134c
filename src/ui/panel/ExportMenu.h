#pragma once

#include "CapturedColor.h"
#include "View.h"

#include <QList>
#include <QString>

#include <functional>

namespace tintwick {

class Label;
class Stack;
class SymbolView;

/// The button of a list of colours that offers to write them to a file.
class ExportMenu final : public View
{
    Q_OBJECT

public:
    /// Both are asked when a format is chosen.
    ExportMenu(std::function<QList<CapturedColor>()> colors, std::function<QString()> paletteName);

    /// Without colours there is nothing to export: the button is disabled and grey.
    void setHasColors(bool hasColors);

private:
    SymbolView* m_symbol;
    Label* m_title;
    Stack* m_label;
};

} // namespace tintwick

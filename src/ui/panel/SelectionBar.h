#pragma once

#include "View.h"

#include <QString>

#include <functional>

namespace tintwick {

class ColorSelector;
class Label;

/// Below a list of colours: how many are selected, and what can be done with them. Hidden while none is.
class SelectionBar final : public View
{
    Q_OBJECT

public:
    /// `paletteName` is called when the colours are exported.
    SelectionBar(ColorSelector& selector, const std::function<QString()>& paletteName);

private:
    void showCount();

    ColorSelector& m_selector;
    Label* m_count;
};

} // namespace tintwick

#pragma once

#include "CapturedColor.h"
#include "View.h"
#include "WcagContrast.h"

#include <functional>
#include <optional>

namespace tintwick {

class ColorContrast;
class Label;
class TextButton;

/// The colour with the nearest lightness at which a text passes a level, and a button that adds it; or why there is none.
class PassingColorRow final : public View
{
    Q_OBJECT

public:
    /// `add` is called with the colour when the button is clicked.
    PassingColorRow(ContrastLevel level, std::function<void(const CapturedColor&)> add);

    void setContrast(const ColorContrast& contrast, const CapturedColor& ground);

    [[nodiscard]] TextButton& addButton() const { return *m_add; }

private:
    class Patch;

    void showProposal(const CapturedColor& ground);

    ContrastLevel m_level;
    std::optional<CapturedColor> m_proposed;
    Patch* m_patch;
    Label* m_code;
    Label* m_note;
    TextButton* m_add;
};

} // namespace tintwick

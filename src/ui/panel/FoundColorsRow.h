#pragma once

#include "Clickable.h"
#include "ColorsInText.h"

namespace tintwick {

class AppState;
class Label;

/// The colours that the user's text describes: swatches, code, name, and how to add them. A click asks for that, too.
class FoundColorsRow final : public Clickable
{
    Q_OBJECT

public:
    explicit FoundColorsRow(const AppState& appState);

    void setColors(const TextColors& found);

protected:
    [[nodiscard]] double cornerRadius() const override;

private:
    class Patches;

    const AppState& m_appState;
    Patches* m_patches;
    Label* m_title;
    Label* m_detail;
    Label* m_remark;
    Label* m_hint;
};

} // namespace tintwick

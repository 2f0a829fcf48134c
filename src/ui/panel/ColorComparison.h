#pragma once

#include "CapturedColor.h"

#include <QWidget>

#include <functional>

namespace tintwick {

class AppState;

/// A colour before and after an edit, large and side by side. A click on the old one runs an action; a click on the new one
/// copies it.
class ColorComparison final : public QWidget
{
    Q_OBJECT

public:
    ColorComparison(AppState& appState, const CapturedColor& original, std::function<void()> onReturn);

    [[nodiscard]] QSize sizeHint() const override;
    /// Lower than the hint, where the panel has little room.
    [[nodiscard]] QSize minimumSizeHint() const override;

    void setOriginal(const CapturedColor& color);
    void setNew(const CapturedColor& color);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Half;

    Half* m_original;
    Half* m_new;
};

} // namespace tintwick

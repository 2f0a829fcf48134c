#pragma once

#include "CapturedColor.h"

#include <QList>
#include <QWidget>

#include <functional>

namespace tintwick {

class AppState;

/// The shades of a colour, the colour and its tints, from dark to light, as small swatches. The arrow keys move between them. The
/// context menu of each copies it.
class TintRow final : public QWidget
{
    Q_OBJECT

public:
    explicit TintRow(AppState& appState);

    /// The colour in the middle. Its opacity does not count.
    void setBase(const CapturedColor& color);
    /// Marks a swatch that has the code of this colour.
    void setCurrent(const CapturedColor& color);
    /// Runs `action` with the colour of a clicked swatch.
    void onChoose(std::function<void(const CapturedColor& color)> action);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Swatch;

    void makeReachable(const Swatch& swatch);

    QList<Swatch*> m_swatches;
    std::function<void(const CapturedColor&)> m_onChoose;
};

} // namespace tintwick

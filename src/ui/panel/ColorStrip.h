#pragma once

#include "CapturedColor.h"
#include "RecordViews.h"
#include "Stack.h"
#include "View.h"

#include <QList>
#include <QString>

#include <functional>

namespace tintwick {

class AppState;
class StripSwatch;

/// A row of small swatches to choose a colour from: white, black, the history, and what else the palettes hold. Tab reaches
/// one of them; Left, Right, Home and End move on, and Return chooses.
class ColorStrip final : public View
{
    Q_OBJECT

public:
    /// `choose` is called with the colour of a clicked swatch.
    ColorStrip(AppState& appState, std::function<void(const CapturedColor&)> choose);

    /// Marks the swatch with the same code as a colour.
    void mark(const CapturedColor& color);

    [[nodiscard]] QList<StripSwatch*> swatches() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] StripSwatch* makeSwatch();
    void showColors();
    void updateMarks();
    /// Makes it the one that Tab reaches.
    void setCurrent(StripSwatch& swatch);

    AppState& m_appState;
    std::function<void(const CapturedColor&)> m_choose;
    QList<StripSwatch*> m_extremes;
    Stack* m_others;
    RecordViews<StripSwatch, CapturedColor, Stack> m_swatches;
    QString m_markedCode;
};

} // namespace tintwick

#pragma once

#include "WcagContrast.h"

#include <QWidget>

namespace tintwick {

class ColorContrast;

/// Tells by a sign whether a contrast passes a level, for example "✓ AA".
class LevelChip final : public QWidget
{
    Q_OBJECT

public:
    LevelChip(ContrastUse use, ContrastLevel level);

    void setContrast(const ColorContrast& contrast);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ContrastUse m_use;
    ContrastLevel m_level;
    bool m_passes = false;
};

} // namespace tintwick

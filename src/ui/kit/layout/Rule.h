#pragma once

#include <QWidget>

namespace tintwick {

/// A horizontal line over the full width, half a point thick in a box of one point.
class Rule final : public QWidget
{
    Q_OBJECT

public:
    Rule();

protected:
    void paintEvent(QPaintEvent* event) override;
};

[[nodiscard]] Rule* rule();

} // namespace tintwick

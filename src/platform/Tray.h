#pragma once

#include <QColor>
#include <QObject>

#include <optional>

namespace tintwick {

/// What the desktop's tray reports about itself.
class Tray : public QObject
{
    Q_OBJECT

public:
    /// The colour of symbols on the tray's ground; none without a tray, or when the tray does not report it.
    [[nodiscard]] virtual std::optional<QColor> symbolColor() const = 0;

Q_SIGNALS:
    void symbolColorChanged();
};

} // namespace tintwick

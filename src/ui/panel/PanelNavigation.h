#pragma once

#include "CapturedColor.h"

#include <QObject>

#include <optional>

class QWidget;

namespace tintwick {

/// Opens screens of the panel on request of the views in it. A child of the panel.
class PanelNavigation final : public QObject
{
    Q_OBJECT

public:
    explicit PanelNavigation(QWidget& panel);

    /// Of the panel that contains a view; null outside a panel.
    [[nodiscard]] static PanelNavigation* of(const QWidget* view);

    void openColor(const CapturedColor& color) { Q_EMIT colorRequested(color); }
    /// Without a ground the screen chooses one.
    void openContrast(const CapturedColor& text, const std::optional<CapturedColor>& ground = {})
    {
        Q_EMIT contrastRequested(text, ground);
    }
    /// Shows all colours in the order of their likeness to one.
    void openSimilar(const CapturedColor& color) { Q_EMIT similarRequested(color); }
    /// Asks the user for files with colours.
    void importPalettes() { Q_EMIT importRequested(); }

Q_SIGNALS:
    void importRequested();
    void colorRequested(const tintwick::CapturedColor& color);
    void contrastRequested(const tintwick::CapturedColor& text,
                           const std::optional<tintwick::CapturedColor>& ground);
    void similarRequested(const tintwick::CapturedColor& color);
};

} // namespace tintwick

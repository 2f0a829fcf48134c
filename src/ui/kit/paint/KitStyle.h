#pragma once

#include <QProxyStyle>

class QStyleOptionMenuItem;

namespace tintwick {

/// The style of our menus, tool tips and text fields, independent of the style of the desktop.
class KitStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    [[nodiscard]] static KitStyle* shared();

    /// A property of a QAction that cannot be undone.
    static constexpr const char* destructiveProperty = "tintwickDestructive";
    static constexpr double menuRadius = 10;
    static constexpr double toolTipRadius = 6;
    /// Points from the left edge of a menu with check marks or symbols to its titles.
    static constexpr int checkedTitleInset = 39;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* result) const override;

private:
    KitStyle();

    void drawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter, const QWidget* widget) const;
};

} // namespace tintwick

#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QStringView>

class QPainter;

namespace tintwick {

/// Stroke weights of a symbol, beside text of the same weight.
enum class SymbolWeight { Regular, Medium, Semibold };

/// The side in points of the square that a symbol fills beside text of `size`.
[[nodiscard]] double symbolSide(double size);

/// Draws a symbol for text of `size` in the centre of `rect`. Draws nothing for an unknown name.
void drawSymbol(QPainter& painter, QStringView name, double size, SymbolWeight weight, const QColor& color,
                const QRectF& rect);

/// Draws the blurred shadow of a symbol that will be drawn in `rect`. The blur has a standard deviation of one point.
void drawSymbolShadow(QPainter& painter, QStringView name, double size, SymbolWeight weight,
                      const QColor& color, const QRectF& rect);

/// A symbol as a picture of `symbolSide(size)` points. Null for an unknown name.
[[nodiscard]] QPixmap symbolPixmap(QStringView name, double size, SymbolWeight weight, const QColor& color,
                                   double devicePixelRatio);

/// A symbol of regular weight as a square picture with a side of `pixels`, for a place without text.
[[nodiscard]] QPixmap symbolPixmapOfSide(QStringView name, int pixels, const QColor& color);

/// A symbol as an icon. Its `name()` is the name of the symbol.
[[nodiscard]] QIcon symbolIcon(const QString& name);

} // namespace tintwick

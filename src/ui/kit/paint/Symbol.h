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

/// Draws a symbol of text size `size` in the middle of `rect`. An unknown name draws nothing.
void drawSymbol(QPainter& painter, QStringView name, double size, SymbolWeight weight, const QColor& color,
                const QRectF& rect);

/// Draws the blurred shadow of a symbol that is to be drawn in `rect`: the blur has a standard deviation of one point.
void drawSymbolShadow(QPainter& painter, QStringView name, double size, SymbolWeight weight,
                      const QColor& color, const QRectF& rect);

/// A symbol as a picture of `symbolSide(size)` points; a null pixmap for an unknown name.
[[nodiscard]] QPixmap symbolPixmap(QStringView name, double size, SymbolWeight weight, const QColor& color,
                                   double devicePixelRatio);

/// A symbol of regular weight as a square picture of `pixels` a side, for whoever has no text beside it.
[[nodiscard]] QPixmap symbolPixmapOfSide(QStringView name, int pixels, const QColor& color);

/// A symbol as an icon; its `name()` is the symbol's, for whoever tints it himself.
[[nodiscard]] QIcon symbolIcon(const QString& name);

} // namespace tintwick

#pragma once

#include <QColor>
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

/// A symbol as a picture of `symbolSide(size)` points; a null pixmap for an unknown name.
[[nodiscard]] QPixmap symbolPixmap(QStringView name, double size, SymbolWeight weight, const QColor& color,
                                   double devicePixelRatio);

} // namespace tintwick

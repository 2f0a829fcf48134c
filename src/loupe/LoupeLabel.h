#pragma once

#include "LoupeLook.h"
#include "PillContent.h"

#include <QFont>
#include <QGlyphRun>
#include <QString>

#include <array>

class QPainter;
class QRect;

namespace tintwick {

/// The lines of text in the loupe's pill: the colour's hexadecimal code; below it its name, what is copied, and the signs
/// of the pick, those that are not empty.
class LoupeLabel final
{
public:
    LoupeLabel(const LoupeLook& look, double scale);

    /// Draws the lines, centred, onto an image at physical pixels. A line that is wider than the pill is drawn smaller, or
    /// cut short.
    void draw(QPainter& painter, const QRect& pill, const PillContent& content);

    /// The font of either line, for painting at the given physical pixels per point on an image of 72 dots
    /// per inch.
    [[nodiscard]] static QFont hexFont(double scale);
    [[nodiscard]] static QFont nameFont(double scale);

private:
    struct Line
    {
        QString text;
        QList<QGlyphRun> glyphs;
        double width = 0;
    };

    struct PlacedLine
    {
        const Line* line;
        double height;
    };

    /// From the bottom of the pill.
    [[nodiscard]] std::array<PlacedLine, 3> linesBelowHex() const;
    [[nodiscard]] static Line makeLine(const QString& text, const QFont& font);
    [[nodiscard]] static Line makeFittingLine(const QString& text, const QFont& font, double width);

    bool m_isOpaque;
    double m_gap;
    double m_margin;
    QFont m_hexFont;
    QFont m_nameFont;
    QFont m_signsFont;
    double m_hexHeight;
    double m_nameHeight;
    double m_signsHeight;
    double m_signsDescent;
    Line m_hex;
    Line m_name;
    Line m_text;
    Line m_signs;
};

} // namespace tintwick

#pragma once

#include "LoupeLook.h"
#include "PillContent.h"

#include <QFont>
#include <QGlyphRun>
#include <QString>

class QPainter;
class QRect;

namespace tintwick {

/// The two lines of text in the loupe's pill: the colour's hexadecimal code above its name.
class LoupeLabel final
{
public:
    LoupeLabel(const LoupeLook& look, double scale);

    /// Draws both lines, centred, onto an image at physical pixels.
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

    [[nodiscard]] static Line makeLine(const QString& text, const QFont& font);

    bool m_isOpaque;
    double m_gap;
    QFont m_hexFont;
    QFont m_nameFont;
    double m_hexHeight;
    double m_nameHeight;
    Line m_hex;
    Line m_name;
};

} // namespace tintwick

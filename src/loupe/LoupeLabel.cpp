#include "LoupeLabel.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

// Lengths in points.
constexpr double hexSize = 13;
constexpr double nameSize = 10;
constexpr double signsSize = 8;
constexpr double lineGap = 3;
constexpr double sideMargin = 4;

/// A line that is too wide is drawn at this share of its size at least.
constexpr double smallestShare = 0.75;

/// In pixels; wider than any text.
constexpr double unlimitedWidth = 100'000;

QFont labelFont(const QStringList& families, QFont::StyleHint hint, double pixelSize)
{
    // At 72 dots per inch a point is a pixel. Unlike pixel sizes, point sizes may be fractional.
    static const QImage device = [] {
        QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
        image.setDotsPerMeterX(2835);
        image.setDotsPerMeterY(2835);
        return image;
    }();
    QFont font;
    font.setFamilies(families);
    // The text is independent of the desktop's font settings. Subpixel antialiasing would add colour fringes next to
    // the sampled colour.
    font.setStyleHint(hint,
                      static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPointSizeF(pixelSize);
    return {font, &device};
}

QColor textColor(PillTone tone, double onLight, double onDark)
{
    QColor color =
        tone == PillTone::LightBackground ? QColor::fromRgbF(0.08F, 0.08F, 0.08F) : QColor(Qt::white);
    color.setAlphaF(static_cast<float>(tone == PillTone::LightBackground ? onLight : onDark));
    return color;
}

} // namespace

QFont LoupeLabel::hexFont(double scale)
{
    return labelFont({u"SF Mono"_s, u"JetBrains Mono"_s, u"DejaVu Sans Mono"_s, u"monospace"_s},
                     QFont::Monospace, hexSize * scale);
}

QFont LoupeLabel::nameFont(double scale)
{
    return labelFont({u"SFProText-Regular"_s, u"SF Pro Text"_s, u"Inter"_s, u"sans-serif"_s},
                     QFont::SansSerif, nameSize * scale);
}

LoupeLabel::LoupeLabel(const LoupeLook& look, double scale)
    : m_isOpaque(look.hasHighContrast)
    , m_gap(lineGap * scale)
    , m_margin(sideMargin * scale)
    , m_hexFont(hexFont(scale))
    , m_nameFont(nameFont(scale))
    , m_signsFont(nameFont(scale * signsSize / nameSize))
    // The maximum height of the ink of all texts, so that a descender does not move the lines.
    , m_hexHeight(QFontMetricsF(m_hexFont).tightBoundingRect(u"0123456789ABCDEF"_s).height())
    , m_nameHeight(QFontMetricsF(m_nameFont).tightBoundingRect(u"Bg"_s).height())
    , m_signsHeight(QFontMetricsF(m_signsFont).tightBoundingRect(u"Bp"_s).height())
    , m_signsDescent(QFontMetricsF(m_signsFont).tightBoundingRect(u"Bp"_s).bottom())
{
}

void LoupeLabel::draw(QPainter& painter, const QRect& pill, const PillContent& content)
{
    const double width = pill.width() - 2 * m_margin;
    if (m_hex.text != content.hex) {
        m_hex = makeLine(content.hex, m_hexFont);
    }
    const auto update = [width](Line& line, const QString& text, const QFont& font) {
        if (line.text != text) {
            line = makeFittingLine(text, font, width);
        }
    };
    update(m_name, content.name, m_nameFont);
    update(m_text, content.text, m_nameFont);
    update(m_signs, content.signs, m_signsFont);

    double height = m_hexHeight;
    for (const auto& [line, lineHeight] : linesBelowHex()) {
        height += line->text.isEmpty() ? 0 : lineHeight + m_gap;
    }
    const QColor strongest = content.tone == PillTone::LightBackground ? Qt::black : Qt::white;
    const double middle = pill.x() + pill.width() / 2.0;
    double baseline = pill.y() + pill.height() - (pill.height() - height) / 2;
    const auto drawLine = [&](const Line& line, double raised, const QColor& color) {
        // Baselines on whole pixels keep the glyphs sharp.
        const QPointF start(middle - line.width / 2, std::round(baseline - raised));
        painter.setPen(m_isOpaque ? strongest : color);
        for (const QGlyphRun& run : line.glyphs) {
            painter.drawGlyphRun(start, run);
        }
    };
    const QColor quiet = textColor(content.tone, 0.5, 0.55);
    for (const auto& [line, lineHeight] : linesBelowHex()) {
        if (!line->text.isEmpty()) {
            drawLine(*line, line == &m_signs ? m_signsDescent / 2 : 0, quiet);
            baseline -= lineHeight + m_gap;
        }
    }
    drawLine(m_hex, 0, textColor(content.tone, 0.95, 0.97));
}

std::array<LoupeLabel::PlacedLine, 3> LoupeLabel::linesBelowHex() const
{
    return {{{&m_signs, m_signsHeight}, {&m_text, m_nameHeight}, {&m_name, m_nameHeight}}};
}

LoupeLabel::Line LoupeLabel::makeFittingLine(const QString& text, const QFont& font, double width)
{
    Line line = makeLine(text, font);
    if (line.width <= width) {
        return line;
    }
    QFont smaller = font;
    smaller.setPointSizeF(font.pointSizeF() * std::max(smallestShare, width / line.width));
    line = makeLine(text, smaller);
    if (line.width > width) {
        line = makeLine(QFontMetricsF(smaller).elidedText(text, Qt::ElideRight, width), smaller);
    }
    line.text = text;
    return line;
}

LoupeLabel::Line LoupeLabel::makeLine(const QString& text, const QFont& font)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(unlimitedWidth);
    line.setPosition({0, -line.ascent()});
    layout.endLayout();
    return {text, layout.glyphRuns(), line.naturalTextWidth()};
}

} // namespace tintwick

#include "SwatchPictures.h"

#include "ColorFormat.h"
#include "SingleLine.h"
#include "SwatchSheet.h"
#include "Theme.h"

#include <QColorSpace>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr QRgb swatchGround = qRgb(38, 38, 38);
/// One pixel is one point.
constexpr int dotsPerMeter = 2835;
constexpr int codeSize = 10;
/// From the bottom of a swatch to the middle of its code, in points.
constexpr int codeHeight = 12;

/// A colour blended over an opaque ground. Blended before it is drawn, because the painter rounds more coarsely.
QColor mixedOver(QRgb ground, const CapturedColor& color)
{
    // A data file may hold any finite numbers.
    const double alpha = std::clamp(color.alpha, 0.0, 1.0);
    const auto mixed = [alpha](double component, int behind) {
        return static_cast<int>(
            std::round(std::clamp(component, 0.0, 1.0) * 255 * alpha + behind * (1 - alpha)));
    };
    return {mixed(color.red, qRed(ground)), mixed(color.green, qGreen(ground)),
            mixed(color.blue, qBlue(ground))};
}

/// The relative luminance of WCAG 2.
double luminance(const QColor& color)
{
    const auto linear = [](double component) {
        return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor inkOn(const QColor& ground)
{
    // Black and white have the same contrast here.
    constexpr double middle = 0.1791;
    return luminance(ground) > middle ? Qt::black : Qt::white;
}

QFont codeFont()
{
    QFont font = theme::monospacedFont(codeSize, QFont::Medium);
    // The colours at the edges of such letters are those of one display.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

QString escaped(const QString& text)
{
    QString valid;
    // XML has no code for these, as for control characters.
    for (const char32_t character : inSingleLine(text).toUcs4()) {
        valid += QChar::isNonCharacter(character) ? QString() : QString::fromUcs4(&character, 1);
    }
    return valid.toHtmlEscaped();
}

QString svgRectangle(const QRect& place, const QString& attributes, const QString& content)
{
    const QString start = u"<rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" "_s.arg(place.x())
                              .arg(place.y())
                              .arg(place.width())
                              .arg(place.height());
    return u"  "_s + start + attributes + (content.isEmpty() ? u"/>\n"_s : u'>' + content + u"</rect>\n"_s);
}

QString svgSwatch(const QRect& place, const CapturedColor& color)
{
    QString attributes = u"rx=\"%1\" fill=\"%2\""_s.arg(SwatchSheet::swatchRadius).arg(color.hex6());
    if (color.alpha < 1) {
        attributes += u" fill-opacity=\"%1\""_s.arg(color.alpha, 0, 'g', 4);
    }
    return svgRectangle(place, attributes,
                        u"<title>%1</title>"_s.arg(escaped(color.customName.value_or(color.hex6()))));
}

} // namespace

QImage swatchPicture(const QList<CapturedColor>& colors, SwatchLabels labels)
{
    if (colors.isEmpty()) {
        return {};
    }
    const SwatchSheet sheet(colors.size());
    const int scale = labels == SwatchLabels::Codes ? swatchCodesScale : 1;
    QImage image(sheet.size() * scale, QImage::Format_RGB32);
    image.setColorSpace(QColorSpace::SRgb);
    image.setDotsPerMeterX(dotsPerMeter * scale);
    image.setDotsPerMeterY(dotsPerMeter * scale);
    image.fill(swatchGround);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    if (labels == SwatchLabels::Codes) {
        painter.setFont(codeFont());
    }
    for (qsizetype i = 0; i < colors.size(); ++i) {
        const QRect swatch = sheet.swatch(i);
        const QColor fill = mixedOver(swatchGround, colors[i]);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawRoundedRect(swatch, SwatchSheet::swatchRadius, SwatchSheet::swatchRadius);
        if (labels == SwatchLabels::Codes) {
            painter.setPen(inkOn(fill));
            painter.drawText(swatch.adjusted(0, swatch.height() - 2 * codeHeight, 0, 0), Qt::AlignCenter,
                             string(ColorFormat::Hex8, colors[i]));
        }
    }
    return image;
}

QByteArray buildSvg(const QList<CapturedColor>& colors)
{
    const SwatchSheet sheet(colors.size());
    const QSize size = sheet.size();
    QString text = u"<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" height=\"%2\" "
                   "viewBox=\"0 0 %1 %2\">\n"_s.arg(size.width())
                       .arg(size.height());
    text += svgRectangle({{}, size}, u"fill=\"%1\""_s.arg(QColor(swatchGround).name()), {});
    for (qsizetype i = 0; i < colors.size(); ++i) {
        text += svgSwatch(sheet.swatch(i), colors[i]);
    }
    return (text + u"</svg>\n"_s).toUtf8();
}

} // namespace tintwick

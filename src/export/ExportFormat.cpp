#include "ExportFormat.h"

#include "Slug.h"
#include "SuggestedName.h"

#include <QStringList>

#include <algorithm>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr std::array formats{
    ExportFormatInfo{ExportFormat::Css, u"css", u"CSS Variables", u"document", u"CSS", u"css"},
    ExportFormatInfo{ExportFormat::Json, u"json", u"JSON", u"braces", u"JSON", u"json"},
    ExportFormatInfo{ExportFormat::Png, u"png", u"PNG Swatch", u"image", u"PNG", u"png"},
    ExportFormatInfo{ExportFormat::UniqueCss, u"css-unique", u"CSS (unique names)", u"document", u"CSS",
                     u"css"},
    ExportFormatInfo{ExportFormat::Scss, u"scss", u"SCSS", u"document", u"SCSS", u"scss"},
    ExportFormatInfo{ExportFormat::TailwindTheme, u"tailwind", u"Tailwind v4 @theme", u"document", u"CSS",
                     u"css"},
    ExportFormatInfo{ExportFormat::DesignTokens, u"tokens", u"Design Tokens", u"braces", u"Design Tokens",
                     u"tokens.json"},
    ExportFormatInfo{ExportFormat::GimpPalette, u"gpl", u"GIMP Palette", u"palette", u"GIMP Palette", u"gpl"},
    ExportFormatInfo{ExportFormat::AdobeSwatches, u"ase", u"Adobe Swatch Exchange", u"palette",
                     u"Adobe Swatch Exchange", u"ase"},
    ExportFormatInfo{ExportFormat::Svg, u"svg", u"SVG", u"image", u"SVG", u"svg"},
    ExportFormatInfo{ExportFormat::PngWithCodes, u"png-codes", u"PNG with Codes", u"image", u"PNG", u"png"},
};

} // namespace

const ExportFormatInfo& infoOf(ExportFormat format)
{
    return *std::ranges::find(formats, format, &ExportFormatInfo::format);
}

std::optional<ExportFormat> exportFormatFromWord(QStringView word)
{
    const auto* const found = std::ranges::find(formats, word, &ExportFormatInfo::word);
    return found == formats.end() ? std::nullopt : std::optional(found->format);
}

QString exportFormatWords(const QString& separator)
{
    QStringList words;
    for (const ExportFormatInfo& info : formats) {
        words.append(info.word.toString());
    }
    return words.join(separator);
}

QString suggestedFileName(ExportFormat format, const QString& paletteName)
{
    switch (format) {
    case ExportFormat::Json:
    case ExportFormat::Png:
        return u"palette."_s + infoOf(format).suffix.toString();
    case ExportFormat::PngWithCodes:
        return u"palette@2x.png"_s;
    default:
        return suggestedName(slugify(paletteName), u"-palette."_s + infoOf(format).suffix.toString());
    }
}

} // namespace tintwick

#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <cstdint>
#include <optional>

namespace tintwick {

/// The kinds of files that colours are exported to.
enum class ExportFormat : std::uint8_t {
    Css,
    Json,
    Png,
    UniqueCss,
    Scss,
    TailwindTheme,
    DesignTokens,
    GimpPalette,
    AdobeSwatches,
    Svg,
    PngWithCodes
};

/// In the order of the menus.
inline constexpr std::array mainExportFormats{ExportFormat::Css, ExportFormat::Json, ExportFormat::Png};
/// The others, which a submenu offers.
inline constexpr std::array moreExportFormats{ExportFormat::UniqueCss,     ExportFormat::Scss,
                                              ExportFormat::TailwindTheme, ExportFormat::DesignTokens,
                                              ExportFormat::GimpPalette,   ExportFormat::AdobeSwatches,
                                              ExportFormat::Svg,           ExportFormat::PngWithCodes};

/// How a format is presented to the user.
struct ExportFormatInfo
{
    ExportFormat format = ExportFormat::Css;
    /// The word on the command line.
    QStringView word;
    /// The line of a menu.
    QStringView title;
    /// The name of the symbol beside the title.
    QStringView symbol;
    /// The kind of file as a save dialog names it, and its suffix without the dot.
    QStringView kind;
    QStringView suffix;
};

[[nodiscard]] const ExportFormatInfo& infoOf(ExportFormat format);
/// None for any other word.
[[nodiscard]] std::optional<ExportFormat> exportFormatFromWord(QStringView word);
/// All words, separated by a text.
[[nodiscard]] QString exportFormatWords(const QString& separator);
/// The name that the save dialog suggests.
[[nodiscard]] QString suggestedFileName(ExportFormat format, const QString& paletteName);

} // namespace tintwick

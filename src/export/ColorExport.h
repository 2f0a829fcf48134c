#pragma once

#include "CapturedColor.h"

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

#include <optional>

namespace tintwick {

struct ContentType;

/// Writes colours to a file that the user chooses in a save panel. The operations return at once: the panel opens later,
/// by itself, and stays open beside everything else. Colours are written in the order given. Failures are silent: without
/// a file to write to, or when it cannot be written, nothing happens.
class ColorExport final
{
public:
    /// CSS custom properties. The palette's name stands in the file and, as a slug, in the suggested file name.
    void exportCSS(const QList<CapturedColor>& colors, const QString& paletteName) const;
    void exportJSON(const QList<CapturedColor>& colors) const;
    /// A picture of swatches; nothing for an empty list.
    void exportPNG(const QList<CapturedColor>& colors) const;

    // What the files hold.

    /// A rule that declares one variable per colour, named by the slug of the colour's name or by its position. Names are
    /// not made unique, and opacity is left out.
    [[nodiscard]] static QString buildCSS(const QList<CapturedColor>& colors, const QString& paletteName);
    /// An array with one object of strings per colour, UTF-8.
    [[nodiscard]] static QByteArray buildJSON(const QList<CapturedColor>& colors);
    /// Swatches of 60 pixels in rows of ten on a dark ground, through which translucent ones let see. The picture is
    /// opaque and tagged as sRGB; a null one for an empty list.
    [[nodiscard]] static QImage buildSwatchImage(const QList<CapturedColor>& colors);
    /// That picture as a file, or nothing where there is none.
    [[nodiscard]] static std::optional<QByteArray> buildPNG(const QList<CapturedColor>& colors);

private:
    static void save(const QByteArray& data, const QString& suggestedName, const ContentType& contentType);
};

} // namespace tintwick

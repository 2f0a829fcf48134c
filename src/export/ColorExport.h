#pragma once

#include "CapturedColor.h"
#include "ExportFormat.h"

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

class QWidget;

namespace tintwick {

/// Writes colours to a file that the user chooses in a save dialog. The operations return at once; the dialog opens from
/// the event loop and does not block the program. Colours are written in the order given. When the file cannot be
/// written, the user sees the reason and may choose another one.
class ColorExport final
{
public:
    /// Gives the name that desktop portals use for a window of ours ("x11:1a0"); empty where it has none.
    using PortalHandle = std::function<QString(const QWidget& window)>;
    /// Without this, a dialog of the desktop does not know the window it belongs to. Must stay valid while dialogs open.
    static void setPortalHandle(PortalHandle portalHandle);
    [[nodiscard]] static const PortalHandle& portalHandle();

    /// Asks for a file and writes the colours to it. Does nothing for a picture of no colours.
    void exportColors(ExportFormat format, const QList<CapturedColor>& colors,
                      const QString& paletteName) const;

    /// The content of the file; none for a picture of no colours. Components are clamped to 0 to 1 in all formats but CSS and
    /// JSON.
    [[nodiscard]] static std::optional<QByteArray>
    build(ExportFormat format, const QList<CapturedColor>& colors, const QString& paletteName);

    /// A rule that declares one variable per colour, named by the slug of the colour's name or by its position. Two
    /// variables may have one name; opacity is left out.
    [[nodiscard]] static QString buildCSS(const QList<CapturedColor>& colors, const QString& paletteName);
    /// An array with one object of strings per colour, UTF-8.
    [[nodiscard]] static QByteArray buildJSON(const QList<CapturedColor>& colors);
    /// Swatches of 60 pixels in rows of ten, blended over a dark ground. The picture is opaque and tagged as sRGB; it is
    /// null for an empty list.
    [[nodiscard]] static QImage buildSwatchImage(const QList<CapturedColor>& colors);
    /// That picture as a PNG file; none for an empty list.
    [[nodiscard]] static std::optional<QByteArray> buildPNG(const QList<CapturedColor>& colors);
};

} // namespace tintwick

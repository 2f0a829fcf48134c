#pragma once

#include "support/RunningProgram.h"
#include "support/wayland/WaylandDesktop.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QPoint>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace tintwick {

/// The real program on a private Wayland desktop, used from outside only. Functions that wait return false when the
/// program does not react within some seconds.
class WaylandTintwick final
{
public:
    using Pixel = WaylandDesktop::Pixel;

    /// Starts the program; `environment` is added to that of the desktop. By default the panel does not open by itself.
    explicit WaylandTintwick(WaylandDesktop& desktop,
                             const QStringList& arguments = {QStringLiteral("--background")},
                             const QProcessEnvironment& environment = {});

    [[nodiscard]] RunningProgram& process() { return *m_process; }
    /// Waits until a started program takes the commands of others. Needs a session bus.
    [[nodiscard]] bool waitForStart();

    /// Starts a pick in a started program. Needs a session bus.
    void askForPick();

    /// Waits until the loupe is around a pixel of the test picture and shows it in its centre cell.
    [[nodiscard]] bool waitForLoupe(const Pixel& pixel)
    {
        return waitForLoupe(pixel, m_desktop.patternPixel(pixel));
    }
    /// The same with another colour in the centre cell.
    [[nodiscard]] bool waitForLoupe(const Pixel& pixel, QRgb color);
    /// Whether the loupe is on the screen for a pointer on the pixel.
    [[nodiscard]] bool showsLoupe(const Pixel& pixel);
    /// The colour in the middle of a cell; see middleOfCell().
    [[nodiscard]] QRgb cell(const Pixel& pixel, int column, int row, int radius);
    /// Waits until each output shows nothing but the test picture.
    [[nodiscard]] bool waitForPickToEnd();

    [[nodiscard]] QString dataFile() const;
    /// The content of the data file; empty while there is none.
    [[nodiscard]] QJsonObject data() const;
    [[nodiscard]] QJsonArray history() const;
    [[nodiscard]] bool waitForClipboard(const QByteArray& text);

private:
    WaylandDesktop& m_desktop;
    std::unique_ptr<RunningProgram> m_process;
};

/// Where the middle of a cell is, counted from the centre cell, in physical pixels of the output, while the loupe is
/// around the pixel and samples with this radius.
[[nodiscard]] QPoint middleOfCell(WaylandDesktop& desktop, const WaylandDesktop::Pixel& pixel, int column,
                                  int row, int radius);
/// Where the middle of the loupe's grid is, in physical pixels of the output, for a pointer on the pixel.
[[nodiscard]] QPoint middleOfGrid(WaylandDesktop& desktop, const WaylandDesktop::Pixel& pixel);

} // namespace tintwick

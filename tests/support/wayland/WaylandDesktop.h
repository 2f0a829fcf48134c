#pragma once

#include "support/PrivateSession.h"
#include "support/wayland/WaylandClient.h"

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRgb>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

namespace tintwick {

/// A headless Wayland desktop with a home folder of its own. What differs between compositors is in the derived
/// classes. Positions are physical pixels of an output as the user sees it; outputs count from the left and the top.
class WaylandDesktop
{
public:
    struct Output
    {
        /// In physical pixels, before the transform.
        QSize size{1280, 800};
        double scale = 1;
        /// In logical units.
        QPoint position{0, 0};
        wl_output_transform transform = WL_OUTPUT_TRANSFORM_NORMAL;
    };

    struct Options
    {
        std::vector<Output> outputs{Output{}};
        bool sessionBus = false;
        /// Otherwise the pointer is transparent: a headless compositor draws it into each picture of an output.
        bool showsPointer = false;
    };

    struct Pixel
    {
        std::size_t output = 0;
        QPoint point;
    };

    virtual ~WaylandDesktop();
    WaylandDesktop(const WaylandDesktop&) = delete;
    WaylandDesktop& operator=(const WaylandDesktop&) = delete;

    [[nodiscard]] PrivateSession& session() { return m_session; }
    /// The absolute path of the compositor's socket.
    [[nodiscard]] QByteArray socket() const { return m_socket; }
    [[nodiscard]] std::unique_ptr<RunningProgram> start(const QString& program,
                                                        const QStringList& arguments = {},
                                                        const QProcessEnvironment& additions = {});

    [[nodiscard]] std::size_t outputCount();
    /// The size of an output in physical pixels, as the user sees it.
    [[nodiscard]] QSize outputSize(std::size_t index);
    /// The place of an output in logical units.
    [[nodiscard]] QRect outputPlace(std::size_t index);
    /// Physical pixels per logical unit of a client.
    [[nodiscard]] virtual double outputScale(std::size_t index);
    /// All its pixels.
    [[nodiscard]] QRect screen(std::size_t index) { return {QPoint(0, 0), outputSize(index)}; }

    /// Puts the pointer onto the middle of the pixel.
    void movePointer(const Pixel& pixel);
    /// Buttons and keys are codes of the kernel (BTN_LEFT, KEY_A, ...).
    virtual void setButton(std::uint32_t button, bool isDown) = 0;
    virtual void setKey(std::uint32_t key, bool isDown) = 0;
    /// Turns the wheel by notches; positive is up.
    virtual void scroll(int notches) = 0;
    void click();
    void click(std::uint32_t button);
    /// Presses and releases the key while the others are down.
    void typeKey(std::uint32_t key, std::initializer_list<std::uint32_t> held = {});

    /// What the output shows, right way up, in physical pixels; null when the compositor delivers no picture.
    [[nodiscard]] virtual QImage screenshot(std::size_t index) = 0;
    /// Waits until the output does not change any more.
    [[nodiscard]] bool waitForRest(std::size_t index);
    [[nodiscard]] QRgb pixel(const Pixel& pixel) { return screenshot(pixel.output).pixel(pixel.point); }

    /// Covers each output, also those that come later, with the test picture, below everything else. The picture is
    /// there when the function returns.
    [[nodiscard]] std::unique_ptr<RunningProgram> showPicture();
    /// Starts to cover each output with a colour, above the test picture.
    [[nodiscard]] std::unique_ptr<RunningProgram> showColor(const QColor& color);
    /// The test picture on an output.
    [[nodiscard]] QImage picture(std::size_t index);
    /// Whether the output shows nothing but the test picture.
    [[nodiscard]] bool showsPictureOnly(std::size_t index);
    /// The colour of the test picture. It differs between all pixels of an output, and between outputs.
    [[nodiscard]] QRgb patternPixel(const Pixel& pixel);

    /// The clipboard text that another program reads; empty when there is none.
    [[nodiscard]] QByteArray clipboard();
    /// Lets another program own the clipboard with this text, and waits until it does.
    void takeClipboard(const QByteArray& text);

    /// Kills the compositor.
    virtual void endCompositor() = 0;
    [[nodiscard]] virtual qint64 compositorId() const = 0;

protected:
    explicit WaylandDesktop(bool hasBus);

    /// Call when the compositor answers at the socket.
    void connectTo(const QByteArray& socket);
    [[nodiscard]] WaylandClient& client() { return *m_client; }
    [[nodiscard]] const WaylandClient::Output& output(std::size_t index);
    /// In logical units, around all outputs.
    [[nodiscard]] QRect desktop();
    /// `position` is in logical units.
    virtual void movePointerTo(QPointF position) = 0;

private:
    PrivateSession m_session;
    QByteArray m_socket;
    std::unique_ptr<WaylandClient> m_client;
    std::unique_ptr<RunningProgram> m_clipboardOwner;
};

} // namespace tintwick

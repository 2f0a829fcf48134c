#pragma once

#include "support/DesktopConnection.h"

#include <QColor>
#include <QImage>
#include <QRect>

#include <cstdint>
#include <vector>

namespace tintwick {

/// A window of another program. Its content is a window background, so the server repaints
/// it.
class TestWindow final
{
public:
    enum class Visual : std::uint8_t { Opaque, Translucent };
    enum class Management : std::uint8_t {
        /// Override-redirect: without a frame, not managed by the window manager.
        Unmanaged,
        Managed
    };
    enum class Input : std::uint8_t { Ignored, Recorded };

    struct Options
    {
        QRect geometry{0, 0, 100, 100};
        Visual visual = Visual::Opaque;
        Management management = Management::Unmanaged;
        Input input = Input::Ignored;
    };

    /// One key, button or pointer event that reached the window; `type` is the X11 event code.
    struct InputEvent
    {
        std::uint8_t type = 0;
        std::uint8_t detail = 0;

        friend bool operator==(const InputEvent&, const InputEvent&) = default;
    };

    /// The connection must outlive the window. The window is not mapped before show().
    TestWindow(DesktopConnection& connection, const Options& options);
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    [[nodiscard]] xcb_window_t id() const { return m_window; }

    /// Fills the window; alpha below 255 has an effect in a translucent window only.
    void setColor(const QColor& color);
    /// Tiles the window with the picture.
    void setPicture(const QImage& picture);
    /// Shapes the window to these rectangles, in its own coordinates.
    void setShape(const std::vector<QRect>& parts);
    void show();
    void hide();
    void move(QPoint topLeft);
    void resize(QSize size);
    void raise();
    void lower();
    /// Gives this window the keyboard focus.
    void focus();

    /// All input events since the last forgetEvents().
    [[nodiscard]] std::vector<InputEvent> events();
    void forgetEvents();

private:
    void configure(std::uint16_t mask, const std::vector<std::uint32_t>& values);

    DesktopConnection& m_connection;
    std::uint8_t m_depth;
    xcb_window_t m_window;
    xcb_colormap_t m_colormap = XCB_NONE;
    std::vector<InputEvent> m_events;
};

} // namespace tintwick

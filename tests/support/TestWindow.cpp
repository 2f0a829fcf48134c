#include "support/TestWindow.h"

#include "support/WaitUntil.h"

#include <xcb/shape.h>

#include <algorithm>
#include <stdexcept>

namespace tintwick {

namespace {

constexpr std::uint32_t inputMask = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                    XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                    XCB_EVENT_MASK_POINTER_MOTION;

std::uint32_t unsignedValue(int value)
{
    return static_cast<std::uint32_t>(value);
}

} // namespace

TestWindow::TestWindow(DesktopConnection& connection, const Options& options)
    : m_connection(connection)
    , m_depth(options.visual == Visual::Translucent ? std::uint8_t{32} : connection.screen().root_depth)
    , m_window(connection.newId())
{
    xcb_visualid_t visual = connection.screen().root_visual;
    if (options.visual == Visual::Translucent) {
        const auto translucent = connection.translucentVisual();
        if (!translucent) {
            throw std::runtime_error("the X server has no visual with alpha");
        }
        visual = *translucent;
    }
    m_colormap = connection.newId();
    xcb_create_colormap(connection.get(), XCB_COLORMAP_ALLOC_NONE, m_colormap, connection.root(), visual);

    const std::uint32_t values[] = {0, 0, options.management == Management::Unmanaged ? 1U : 0U,
                                    options.input == Input::Recorded ? inputMask : 0U, m_colormap};
    const QRect& place = options.geometry;
    xcb_create_window(connection.get(), m_depth, m_window, connection.root(),
                      static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()),
                      static_cast<std::uint16_t>(place.width()), static_cast<std::uint16_t>(place.height()),
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK |
                          XCB_CW_COLORMAP,
                      values);
    connection.setEventHandler(m_window, [this](const xcb_generic_event_t& event) {
        m_events.push_back({static_cast<std::uint8_t>(event.response_type & ~0x80),
                            reinterpret_cast<const xcb_button_press_event_t&>(event).detail});
    });
}

TestWindow::~TestWindow()
{
    m_connection.removeEventHandler(m_window);
    xcb_destroy_window(m_connection.get(), m_window);
    xcb_free_colormap(m_connection.get(), m_colormap);
    m_connection.sync();
}

void TestWindow::setColor(const QColor& color)
{
    const QRgb pixel = m_depth == 32 ? qPremultiply(color.rgba()) : (color.rgb() & 0xffffffU);
    xcb_change_window_attributes(m_connection.get(), m_window, XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(m_connection.get(), 0, m_window, 0, 0, 0, 0);
    m_connection.sync();
}

void TestWindow::setPicture(const QImage& picture)
{
    const QImage pixels =
        picture.convertToFormat(m_depth == 32 ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    xcb_connection_t* server = m_connection.get();
    const auto width = static_cast<std::uint16_t>(pixels.width());
    const xcb_pixmap_t pixmap = m_connection.newId();
    xcb_create_pixmap(server, m_depth, pixmap, m_window, width, static_cast<std::uint16_t>(pixels.height()));
    const xcb_gcontext_t context = m_connection.newId();
    xcb_create_gc(server, context, pixmap, 0, nullptr);
    // The size of a request is limited, so send a large picture in bands.
    constexpr int bandHeight = 64;
    for (int y = 0; y < pixels.height(); y += bandHeight) {
        const int rows = std::min(bandHeight, pixels.height() - y);
        xcb_put_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width,
                      static_cast<std::uint16_t>(rows), 0, static_cast<std::int16_t>(y), 0, m_depth,
                      static_cast<std::uint32_t>(pixels.bytesPerLine() * rows), pixels.constScanLine(y));
    }
    xcb_free_gc(server, context);
    xcb_change_window_attributes(server, m_window, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_free_pixmap(server, pixmap);
    xcb_clear_area(server, 0, m_window, 0, 0, 0, 0);
    m_connection.sync();
}

void TestWindow::setShape(const std::vector<QRect>& parts)
{
    std::vector<xcb_rectangle_t> rectangles;
    rectangles.reserve(parts.size());
    for (const QRect& part : parts) {
        rectangles.push_back({static_cast<std::int16_t>(part.x()), static_cast<std::int16_t>(part.y()),
                              static_cast<std::uint16_t>(part.width()),
                              static_cast<std::uint16_t>(part.height())});
    }
    xcb_shape_rectangles(m_connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                         XCB_CLIP_ORDERING_UNSORTED, m_window, 0, 0,
                         static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    m_connection.sync();
}

void TestWindow::show()
{
    xcb_map_window(m_connection.get(), m_window);
    if (!waitUntil([this] { return m_connection.isViewable(m_window); })) {
        throw std::runtime_error("a test window did not come up");
    }
}

void TestWindow::hide()
{
    xcb_unmap_window(m_connection.get(), m_window);
    m_connection.sync();
}

void TestWindow::move(QPoint topLeft)
{
    configure(XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
              {unsignedValue(topLeft.x()), unsignedValue(topLeft.y())});
}

void TestWindow::resize(QSize size)
{
    configure(XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
              {unsignedValue(size.width()), unsignedValue(size.height())});
}

void TestWindow::raise()
{
    configure(XCB_CONFIG_WINDOW_STACK_MODE, {XCB_STACK_MODE_ABOVE});
}

void TestWindow::lower()
{
    configure(XCB_CONFIG_WINDOW_STACK_MODE, {XCB_STACK_MODE_BELOW});
}

void TestWindow::focus()
{
    xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_POINTER_ROOT, m_window, XCB_CURRENT_TIME);
    m_connection.sync();
}

void TestWindow::configure(std::uint16_t mask, const std::vector<std::uint32_t>& values)
{
    xcb_configure_window(m_connection.get(), m_window, mask, values.data());
    m_connection.sync();
}

std::vector<TestWindow::InputEvent> TestWindow::events()
{
    m_connection.dispatchEvents();
    return m_events;
}

void TestWindow::forgetEvents()
{
    m_connection.dispatchEvents();
    m_events.clear();
}

} // namespace tintwick

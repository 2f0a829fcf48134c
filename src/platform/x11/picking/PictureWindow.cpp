#include "PictureWindow.h"

#include "OverlayWindow.h"
#include "PutPicture.h"
#include "TranslucentVisual.h"

#include <xcb/shape.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace tintwick {

namespace {

constexpr int opaqueFrom = 128;

} // namespace

PictureWindow::PictureWindow(XcbConnection& connection, std::string_view title)
    : m_connection(connection)
{
    create(title);
}

void PictureWindow::show(const QImage& picture, QPoint topLeft)
{
    if (m_isMapped) {
        upload(picture);
        move(topLeft);
    } else {
        move(topLeft);
        xcb_map_window(m_connection.get(), m_window.id());
        upload(picture);
        m_isMapped = true;
    }
}

void PictureWindow::move(QPoint topLeft)
{
    m_place = topLeft;
    const std::array<std::uint32_t, 2> place{static_cast<std::uint32_t>(m_place.x()),
                                             static_cast<std::uint32_t>(m_place.y())};
    xcb_configure_window(m_connection.get(), m_window.id(), XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                         place.data());
}

void PictureWindow::raise()
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection.get(), m_window.id(), XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

void PictureWindow::fit(const QImage& picture, bool isComposited)
{
    m_isComposited = isComposited;
    m_size = picture.size();
    const std::array<std::uint32_t, 2> values{static_cast<std::uint32_t>(m_size.width()),
                                              static_cast<std::uint32_t>(m_size.height())};
    xcb_configure_window(m_connection.get(), m_window.id(),
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values.data());
    cutToOutline(picture);
}

void PictureWindow::create(std::string_view title)
{
    xcb_connection_t* c = m_connection.get();
    const xcb_visualid_t visual = translucentVisual(m_connection.screen());
    const bool isTranslucent = visual != m_connection.screen().root_visual;
    m_colormap = XcbColormap::withNewId(c);
    xcb_create_colormap(c, XCB_COLORMAP_ALLOC_NONE, m_colormap.id(), m_connection.root(), visual);
    m_window = XcbWindow::withNewId(c);
    const std::array<std::uint32_t, 4> values{0 /* border pixel */, 1 /* override redirect */,
                                              XCB_EVENT_MASK_NO_EVENT, m_colormap.id()};
    m_depth = isTranslucent ? 32 : m_connection.screen().root_depth;
    xcb_create_window(
        c, m_depth, m_window.id(), m_connection.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
        XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP, values.data());
    m_gc = XcbGraphicsContext::withNewId(c);
    xcb_create_gc(c, m_gc.id(), m_window.id(), 0, nullptr);

    makeOverlay(m_connection, m_window.id(), title);
}

void PictureWindow::cutToOutline(const QImage& picture)
{
    if (m_isComposited) {
        xcb_shape_mask(m_connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, m_window.id(), 0, 0,
                       XCB_NONE);
        return;
    }
    m_edgePixels.clear();
    m_hardEdged = QImage(picture.size(), QImage::Format_ARGB32_Premultiplied);
    std::vector<xcb_rectangle_t> runs;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width();) {
            const int start = x;
            while (x < picture.width() && qAlpha(row[x]) >= opaqueFrom) {
                if (qAlpha(row[x]) < 255) {
                    m_edgePixels.push_back(static_cast<qsizetype>(y) * picture.width() + x);
                }
                ++x;
            }
            if (x > start) {
                runs.push_back({static_cast<std::int16_t>(start), static_cast<std::int16_t>(y),
                                static_cast<std::uint16_t>(x - start), 1});
            } else {
                ++x;
            }
        }
    }
    xcb_shape_rectangles(m_connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                         XCB_CLIP_ORDERING_YX_BANDED, m_window.id(), 0, 0,
                         static_cast<std::uint32_t>(runs.size()), runs.data());
}

void PictureWindow::upload(const QImage& picture)
{
    putPicture(m_connection.get(), m_window.id(), m_gc.id(), m_depth,
               m_isComposited ? picture : withHardEdges(picture));
}

// Translucent pixels would be mixed with black.
const QImage& PictureWindow::withHardEdges(const QImage& picture)
{
    std::copy_n(picture.constBits(), picture.sizeInBytes(), m_hardEdged.bits());
    auto* pixels = reinterpret_cast<QRgb*>(m_hardEdged.bits());
    for (const qsizetype index : m_edgePixels) {
        pixels[index] = qUnpremultiply(pixels[index]) | 0xff000000;
    }
    return m_hardEdged;
}

} // namespace tintwick

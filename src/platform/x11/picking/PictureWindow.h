#pragma once

#include "XcbConnection.h"
#include "XcbHandle.h"

#include <QImage>
#include <QPoint>
#include <QSize>

#include <cstdint>
#include <string_view>
#include <vector>

namespace tintwick {

/// A window that shows a picture above all others: not managed by a window manager, transparent to clicks. With a
/// compositor its translucent pixels blend. Without one it is shaped to the outline of its picture. The destructor
/// removes it.
class PictureWindow final
{
public:
    /// The connection must outlive the window. The window is mapped with its first picture.
    PictureWindow(XcbConnection& connection, std::string_view title);

    /// Picture (premultiplied ARGB32) and position change together; `topLeft` is in root coordinates. Call fit() before for
    /// a picture of another size or outline.
    void show(const QImage& picture, QPoint topLeft);
    void move(QPoint topLeft);
    void raise();
    /// Takes the size and the outline of the picture.
    void fit(const QImage& picture, bool isComposited);

    [[nodiscard]] xcb_window_t id() const { return m_window.id(); }
    [[nodiscard]] bool isMapped() const { return m_isMapped; }
    [[nodiscard]] QRect frame() const { return {m_place, m_size}; }

private:
    void create(std::string_view title);
    void cutToOutline(const QImage& picture);
    void upload(const QImage& picture);
    [[nodiscard]] const QImage& withHardEdges(const QImage& picture);

    XcbConnection& m_connection;
    bool m_isComposited = false;
    XcbColormap m_colormap;
    XcbWindow m_window;
    XcbGraphicsContext m_gc;
    QSize m_size{1, 1};
    QPoint m_place;
    std::uint8_t m_depth = 0;
    bool m_isMapped = false;
    /// Indices of the pixels on the outline, which must be opaque without a compositor.
    std::vector<qsizetype> m_edgePixels;
    QImage m_hardEdged;
};

} // namespace tintwick

#pragma once

#include "PixelFormat.h"
#include "ShmBuffer.h"

#include <QImage>
#include <QRect>
#include <QSize>

#include <memory>

namespace tintwick {

/// The picture of one monitor in its own pixels, in memory that a surface can show.
class OutputPicture final
{
public:
    /// `transform` is the wl_output_transform of the buffer's content. The format of the buffer must be one that
    /// pixelFormatOf() knows.
    OutputPicture(std::unique_ptr<ShmBuffer> buffer, int transform);

    /// The size of the upright picture in physical pixels.
    [[nodiscard]] QSize size() const { return m_size; }
    /// The bits of each channel in the buffer.
    [[nodiscard]] int bitsPerChannel() const { return m_format.greenBits; }
    /// The colours of a rectangle of the upright picture (Format_RGB32); dark grey outside the picture.
    [[nodiscard]] QImage read(const QRect& pixels) const;

    [[nodiscard]] ShmBuffer& buffer() { return *m_buffer; }
    [[nodiscard]] int transform() const { return m_transform; }

private:
    std::unique_ptr<ShmBuffer> m_buffer;
    PixelFormat m_format;
    int m_transform;
    QSize m_size;
};

} // namespace tintwick

#include "OutputPicture.h"

#include "BufferTransform.h"

#include <utility>

namespace tintwick {

namespace {

constexpr QRgb outside = qRgb(0x55, 0x55, 0x55);

} // namespace

OutputPicture::OutputPicture(std::unique_ptr<ShmBuffer> buffer, int transform)
    : m_buffer(std::move(buffer))
    , m_format(pixelFormatOf(m_buffer->layout().format).value_or(PixelFormat{}))
    , m_transform(transform)
    , m_size(transformedSize(transform, m_buffer->layout().size))
{
}

QImage OutputPicture::read(const QRect& pixels) const
{
    QImage image(pixels.size(), QImage::Format_RGB32);
    const QRect picture(QPoint(), m_size);
    for (int row = 0; row < image.height(); ++row) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(row));
        for (int column = 0; column < image.width(); ++column) {
            const QPoint pixel = pixels.topLeft() + QPoint(column, row);
            if (!picture.contains(pixel)) {
                line[column] = outside;
                continue;
            }
            const QPoint stored = bufferPixel(m_transform, m_size, pixel);
            const std::ptrdiff_t offset = std::ptrdiff_t{stored.y()} * m_buffer->layout().stride +
                                          std::ptrdiff_t{stored.x()} * m_format.bytesPerPixel;
            line[column] = m_format.read(std::as_const(*m_buffer).data() + offset);
        }
    }
    return image;
}

} // namespace tintwick

#include "LoupeRenderer.h"

#include "PillContent.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

constexpr QRgb emptyLensColor = qRgb(240, 240, 240);
constexpr QRgb noCenterColor = qRgb(242, 242, 242);

QRgb* pixelsFrom(QImage& image, QPoint start)
{
    return reinterpret_cast<QRgb*>(image.scanLine(start.y())) + start.x();
}

} // namespace

LoupeRenderer::Prepared::Prepared(const LoupeLook& look, double scale)
    : geometry(look.side, scale)
    , artwork(look, geometry)
    , below(artwork.below())
    , opening(artwork.opening())
    , lightPill(below, opening, artwork.abovePill(PillTone::LightBackground), geometry.pill())
    , darkPill(below, opening, artwork.abovePill(PillTone::DarkBackground), geometry.pill())
    , label(scale)
    , liveRow(static_cast<std::size_t>(geometry.body().width()))
    // Only lens and pill are drawn for each frame.
    , image(below)
{
}

void LoupeRenderer::setPixels(const QImage& pixels)
{
    Q_ASSERT(pixels.isNull() ||
             (pixels.format() == QImage::Format_RGB32 && pixels.width() == pixels.height()));
    m_pixels = pixels;
}

void LoupeRenderer::setCenterColor(std::optional<QRgb> color)
{
    m_centerColor = color;
}

const QImage& LoupeRenderer::render(const LoupeLook& look, double scale)
{
    Prepared& prepared = prepare(look, scale);
    drawLens(prepared);
    drawInfoPill(prepared);
    return prepared.image;
}

LoupeRenderer::Prepared& LoupeRenderer::prepare(const LoupeLook& look, double scale)
{
    if (look != m_look) {
        m_prepared.clear();
        m_look = look;
    }
    auto found = m_prepared.find(scale);
    if (found == m_prepared.end()) {
        found = m_prepared.try_emplace(scale, look, scale).first;
    }
    Prepared& prepared = found->second;
    const int cellCount = m_pixels.isNull() ? loupe::emptyGridSide : m_pixels.width();
    if (prepared.cellCount != cellCount) {
        prepared.cellCount = cellCount;
        prepared.cellEdges = prepared.geometry.cellEdges(cellCount);
        prepared.lens.emplace(prepared.below, prepared.opening, prepared.artwork.aboveLens(cellCount),
                              prepared.geometry.lens());
    }
    return prepared;
}

void LoupeRenderer::drawLens(Prepared& prepared) const
{
    const LoupeStencil& stencil = *prepared.lens;
    const QRect lens = prepared.geometry.lens();
    const std::vector<int>& edges = prepared.cellEdges;
    QRgb* const live = prepared.liveRow.data();
    const auto composeRows = [&](int from, int to) {
        for (int y = from; y < to; ++y) {
            stencil.composeRow(y, live, pixelsFrom(prepared.image, lens.topLeft() + QPoint(0, y)));
        }
    };
    if (m_pixels.isNull()) {
        std::fill_n(live, stencil.width(), emptyLensColor);
        composeRows(0, edges.back());
    }
    for (int row = 0; row < m_pixels.height(); ++row) {
        const auto* pixels = reinterpret_cast<const QRgb*>(m_pixels.constScanLine(row));
        const auto edge = edges.begin() + row;
        for (std::size_t column = 0; column + 1 < edges.size(); ++column) {
            std::fill(live + edges[column], live + edges[column + 1], pixels[column]);
        }
        composeRows(edge[0], edge[1]);
    }
}

void LoupeRenderer::drawInfoPill(Prepared& prepared) const
{
    const QRgb color = m_centerColor.value_or(noCenterColor);
    const PillContent content = PillContent::of(color);
    const LoupeStencil& stencil =
        content.tone == PillTone::LightBackground ? prepared.lightPill : prepared.darkPill;
    const QRect pill = prepared.geometry.pill();

    std::ranges::fill(prepared.liveRow, color);
    for (int y = 0; y < pill.height(); ++y) {
        stencil.composeRow(y, prepared.liveRow.data(),
                           pixelsFrom(prepared.image, pill.topLeft() + QPoint(0, y)));
    }
    QPainter painter(&prepared.image);
    painter.setClipRect(pill);
    prepared.label.draw(painter, pill, content);
}

} // namespace tintwick

#include "LoupeRenderer.h"

#include "PillContent.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

constexpr QRgb emptyLensColor = qRgb(240, 240, 240);
constexpr QRgb noCenterColor = qRgb(242, 242, 242);

QRgb* pixelRow(QImage& image, int y)
{
    return reinterpret_cast<QRgb*>(image.scanLine(y));
}

} // namespace

LoupeRenderer::Prepared::Prepared(const LoupeLook& ofLook, double scale)
    : look(ofLook)
    , geometry(ofLook.side, scale)
    , artwork(ofLook, geometry)
    , below(artwork.below())
    , opening(artwork.opening())
    , lightPill(below, opening, artwork.abovePill(PillTone::LightBackground), geometry.pill())
    , darkPill(below, opening, artwork.abovePill(PillTone::DarkBackground), geometry.pill())
    , label(scale)
    , liveRow(static_cast<std::size_t>(geometry.size().width()))
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
    prepare(look, scale);
    drawLens();
    drawInfoPill();
    return m_image;
}

void LoupeRenderer::prepare(const LoupeLook& look, double scale)
{
    if (!m_prepared || m_prepared->look != look || m_prepared->geometry.scale() != scale) {
        m_prepared.emplace(look, scale);
        m_image = QImage(m_prepared->geometry.size(), QImage::Format_ARGB32_Premultiplied);
    }
    Prepared& prepared = *m_prepared;
    const int cellCount = m_pixels.isNull() ? loupe::emptyGridSide : m_pixels.width();
    if (prepared.cellCount != cellCount) {
        const QRect aboveThePill(0, 0, m_image.width(), prepared.geometry.pill().top());
        prepared.cellCount = cellCount;
        prepared.cellEdges = prepared.geometry.cellEdges(cellCount);
        prepared.lens.emplace(prepared.below, prepared.opening, prepared.artwork.aboveLens(cellCount),
                              aboveThePill);
    }
}

void LoupeRenderer::drawLens()
{
    Prepared& prepared = *m_prepared;
    const LoupeStencil& stencil = *prepared.lens;
    const std::vector<int>& edges = prepared.cellEdges;
    QRgb* const live = prepared.liveRow.data();
    const auto composeRows = [&](int from, int to) {
        for (int y = from; y < to; ++y) {
            stencil.composeRow(y, live, pixelRow(m_image, y));
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
    // No live colour is visible in the gap above the pill.
    composeRows(edges.back(), prepared.geometry.pill().top());
}

void LoupeRenderer::drawInfoPill()
{
    Prepared& prepared = *m_prepared;
    const QRgb color = m_centerColor.value_or(noCenterColor);
    const PillContent content = PillContent::of(color);
    const LoupeStencil& stencil =
        content.tone == PillTone::LightBackground ? prepared.lightPill : prepared.darkPill;
    const QRect pill = prepared.geometry.pill();

    std::ranges::fill(prepared.liveRow, color);
    for (int y = 0; y < pill.height(); ++y) {
        stencil.composeRow(y, prepared.liveRow.data(), pixelRow(m_image, pill.top() + y));
    }
    QPainter painter(&m_image);
    prepared.label.draw(painter, pill, content);
}

} // namespace tintwick

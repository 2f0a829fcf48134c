#include "LoupeRenderer.h"

#include "PillContent.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

constexpr SampledColor emptyGridColor{0.94, 0.94, 0.94, 1};
constexpr SampledColor noCenterColor{0.95, 0.95, 0.95, 1};

/// Rounded, so that a byte that was read from the screen is the byte that is shown.
QRgb toPixel(const SampledColor& color)
{
    const auto byte = [](double component) {
        return static_cast<int>(std::clamp(component, 0.0, 1.0) * 255 + 0.5);
    };
    return qRgb(byte(color.red), byte(color.green), byte(color.blue));
}

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

void LoupeRenderer::setPixels(PixelGrid pixels)
{
    m_pixels = std::move(pixels);
}

void LoupeRenderer::setCenterColor(std::optional<SampledColor> color)
{
    m_centerColor = color;
}

const QImage& LoupeRenderer::render(const LoupeLook& look, double scale)
{
    prepare(look, scale);
    drawScope();
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
    const int cellCount = m_pixels.empty() ? loupe::emptyGridSide : static_cast<int>(m_pixels.size());
    if (prepared.cellCount != cellCount) {
        const QRect aboveThePill(0, 0, m_image.width(), prepared.geometry.pill().top());
        prepared.cellCount = cellCount;
        prepared.cellEdges = prepared.geometry.cellEdges(cellCount);
        prepared.scope.emplace(prepared.below, prepared.opening, prepared.artwork.aboveScope(cellCount),
                               aboveThePill);
    }
}

void LoupeRenderer::drawScope()
{
    Prepared& prepared = *m_prepared;
    const LoupeStencil& stencil = *prepared.scope;
    const std::vector<int>& edges = prepared.cellEdges;
    QRgb* const live = prepared.liveRow.data();
    const std::ptrdiff_t width = stencil.width();

    const auto composeRows = [&](int from, int to) {
        for (int y = from; y < to; ++y) {
            stencil.composeRow(y, live, pixelRow(m_image, y));
        }
    };
    if (m_pixels.empty()) {
        std::fill_n(live, width, toPixel(emptyGridColor));
        composeRows(0, edges.back());
    }
    for (std::size_t r = 0; r < m_pixels.size(); ++r) {
        const std::vector<SampledColor>& row = m_pixels[r];
        const std::size_t cells = std::min(row.size(), m_pixels.size());
        for (std::size_t c = 0; c < cells; ++c) {
            std::fill(live + edges[c], live + edges[c + 1], toPixel(row[c]));
        }
        for (int y = edges[r]; y < edges[r + 1]; ++y) {
            std::copy(stencil.rowBelow(y) + edges[cells], stencil.rowBelow(y) + width, live + edges[cells]);
            composeRows(y, y + 1);
        }
    }
    // Nothing live shows in the gap above the pill.
    composeRows(edges.back(), prepared.geometry.pill().top());
}

void LoupeRenderer::drawInfoPill()
{
    Prepared& prepared = *m_prepared;
    const SampledColor color = m_centerColor.value_or(noCenterColor);
    const PillContent content = PillContent::of(color);
    const LoupeStencil& stencil =
        content.tone == PillTone::LightBackground ? prepared.lightPill : prepared.darkPill;
    const QRect pill = prepared.geometry.pill();

    std::ranges::fill(prepared.liveRow, toPixel(color));
    for (int y = 0; y < pill.height(); ++y) {
        stencil.composeRow(y, prepared.liveRow.data(), pixelRow(m_image, pill.top() + y));
    }
    QPainter painter(&m_image);
    prepared.label.draw(painter, pill, content);
}

} // namespace tintwick

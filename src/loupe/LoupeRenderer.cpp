#include "LoupeRenderer.h"

#include "PillContent.h"
#include "StrongestContrast.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

constexpr QRgb emptyLensColor = qRgb(240, 240, 240);
constexpr QRgb noCenterColor = qRgb(242, 242, 242);

/// Narrower cells would consist of little else than opaque lines.
constexpr double narrowestCellWithLines = 3; // points

QImage emptyLens()
{
    QImage pixels(loupe::emptyGridSide, loupe::emptyGridSide, QImage::Format_RGB32);
    pixels.fill(emptyLensColor);
    return pixels;
}

/// For each pixel along a side of the lens, whether an opaque grid line is there.
std::vector<bool> opaqueLines(const LoupeLook& look, const LoupeGeometry& geometry, int count)
{
    std::vector<bool> isOnLine(static_cast<std::size_t>(geometry.lens().width()));
    if (look.hasHighContrast && geometry.cellSide(count) >= narrowestCellWithLines * geometry.scale()) {
        for (const int start : geometry.gridLines(count)) {
            std::fill_n(isOnLine.begin() + start, geometry.gridLineWidth(), true);
        }
    }
    return isOnLine;
}

QRgb* pixelsFrom(QImage& image, QPoint start)
{
    return reinterpret_cast<QRgb*>(image.scanLine(start.y())) + start.x();
}

} // namespace

LoupeRenderer::Prepared::Prepared(const LoupeLook& ofLook, double scale)
    : look(ofLook)
    , geometry(look, scale)
    , artwork(look, geometry)
    , below(artwork.below())
    , opening(artwork.opening())
    , lightPill(below, opening, artwork.abovePill(PillTone::LightBackground), geometry.pill())
    , darkPill(below, opening, artwork.abovePill(PillTone::DarkBackground), geometry.pill())
    , label(look, scale)
    , liveRow(static_cast<std::size_t>(geometry.body().width()))
    , lineRow(liveRow.size())
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

void LoupeRenderer::setSigns(const PickSigns& signs)
{
    if (signs != m_signs) {
        m_signs = signs;
        m_signsText = signs.text();
    }
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
        prepared.isOnLine = opaqueLines(look, prepared.geometry, cellCount);
        prepared.lens.emplace(prepared.below, prepared.opening, prepared.artwork.aboveLens(cellCount),
                              prepared.geometry.lens());
    }
    return prepared;
}

void LoupeRenderer::drawLens(Prepared& prepared) const
{
    const QImage pixels = m_pixels.isNull() ? emptyLens() : m_pixels;
    const QPoint corner = prepared.geometry.lens().topLeft();
    for (int row = 0; row < pixels.height(); ++row) {
        fillRows(prepared, reinterpret_cast<const QRgb*>(pixels.constScanLine(row)));
        const auto edge = prepared.cellEdges.begin() + row;
        for (int y = edge[0]; y < edge[1]; ++y) {
            const bool isOnLine = prepared.isOnLine[static_cast<std::size_t>(y)];
            prepared.lens->composeRow(y, isOnLine ? prepared.lineRow.data() : prepared.liveRow.data(),
                                      pixelsFrom(prepared.image, corner + QPoint(0, y)));
        }
    }
}

/// Sets the two kinds of rows of pixels that these cells consist of.
void LoupeRenderer::fillRows(Prepared& prepared, const QRgb* pixels)
{
    const std::vector<int>& edges = prepared.cellEdges;
    const bool hasLines = prepared.look.hasHighContrast;
    for (std::size_t column = 0; column + 1 < edges.size(); ++column) {
        std::fill(prepared.liveRow.data() + edges[column], prepared.liveRow.data() + edges[column + 1],
                  pixels[column]);
        if (hasLines) {
            std::fill(prepared.lineRow.data() + edges[column], prepared.lineRow.data() + edges[column + 1],
                      strongestContrast(pixels[column]));
        }
    }
    for (std::size_t x = 0; hasLines && x < prepared.liveRow.size(); ++x) {
        if (prepared.isOnLine[x]) {
            prepared.liveRow[x] = prepared.lineRow[x];
        }
    }
}

void LoupeRenderer::drawInfoPill(Prepared& prepared) const
{
    const QRgb color = m_centerColor.value_or(noCenterColor);
    PillContent content = PillContent::of(color);
    content.signs = m_signsText;
    if (prepared.look.showsText && m_centerColor) {
        content.text = m_text;
    }
    if (!prepared.look.showsName && !content.text.isEmpty()) {
        content.name.clear();
    }
    if (prepared.look.hasHighContrast) {
        content.tone = blackContrastsMore(color) ? PillTone::LightBackground : PillTone::DarkBackground;
    }
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

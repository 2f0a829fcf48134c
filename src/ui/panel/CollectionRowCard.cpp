#include "CollectionRowCard.h"

#include "AppState.h"
#include "Appearance.h"
#include "CollectionActions.h"
#include "CollectionIcon.h"
#include "ColorActions.h"
#include "ContextMenu.h"
#include "ExportMenu.h"
#include "InOneLine.h"
#include "Paint.h"
#include "PickMenu.h"
#include "Shadow.h"
#include "Symbol.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

#include <cmath>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr double cardRadius = 14;
constexpr double hoverScale = 1.01;
// Margin around the card at rest for the larger hovered one.
constexpr int growth = 2;
constexpr QMargins shadowExtents(20, 20, 20, 20);

constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 10;
constexpr int gapBetweenParts = 12;
constexpr int tileSide = 44;
constexpr double tileRadius = 10;
constexpr double lineGap = 2;
constexpr int previewCount = 4;
constexpr double previewSide = 30;
constexpr double previewRadius = 7;
constexpr double previewGap = 4;
constexpr int chevronSize = 11;

constexpr Shadow shadowAtRest{theme::black.opacity(0.03), 3, QPointF(0, 2)};
constexpr Shadow hoverShadow{theme::black.opacity(0.07), 8, QPointF(0, 2)};
constexpr theme::Color iconShadow = theme::black.opacity(0.25);

QFont nameFont()
{
    return theme::font(14, QFont::Bold);
}

} // namespace

CollectionRowCard::CollectionRowCard(AppState& appState, QWidget& panel,
                                     std::function<void(const QUuid& id)> onTap,
                                     std::function<void(const WantedPick& pick)> onPick)
    : Clickable({})
    , m_appState(appState)
    , m_panel(panel)
    , m_onTap(std::move(onTap))
    , m_onPick(std::move(onPick))
    , m_hover(0.18, 0.8)
    , m_drop(0.18, 0.8)
    , m_animator([this](double seconds) {
        const bool isMoving = m_hover.advance(seconds) | m_drop.advance(seconds);
        update();
        updateShadow(*this, shadowExtents);
        return isMoving;
    })
    , m_dropTarget(
          *this, [this](bool hovered) { setDropTarget(hovered); },
          [this](const QList<QUuid>& ids) { m_appState.addColors(ids, m_collection.id); })
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    onClick([this] { m_onTap(m_collection.id); });
    // Also when a colour leaves the history or is renamed there.
    connect(&m_appState, &AppState::historyChanged, this, &CollectionRowCard::showCollection);
}

void CollectionRowCard::setCollection(const ColorCollection& collection)
{
    if (m_collection == collection) {
        return;
    }
    m_collection = collection;
    showCollection();
}

void CollectionRowCard::showCollection()
{
    m_colors = m_appState.colorsOf(m_collection);
    setAccessibleName(tr("%1, %2").arg(m_collection.name, countText()));
    updateHelp();
    update();
}

void CollectionRowCard::setAccent(const theme::Gradient& accent)
{
    m_accent = accent;
    update();
}

QString CollectionRowCard::countText() const
{
    const qsizetype count = m_colors.size();
    return count == 1 ? tr("1 Color") : tr("%1 Colors").arg(count);
}

QList<CapturedColor> CollectionRowCard::previewColors() const
{
    ColorCollection head = m_collection;
    head.colorIds = head.colorIds.mid(0, previewCount);
    return head.colors(m_colors);
}

QSize CollectionRowCard::sizeHint() const
{
    return {2 * (growth + horizontalPadding) + tileSide, tileSide + 2 * (growth + verticalPadding)};
}

QMargins CollectionRowCard::overhang() const
{
    return {growth, growth, growth, growth};
}

void CollectionRowCard::hoverChanged()
{
    m_hover.setTarget(isHovered() ? 1 : 0);
    m_animator.start();
}

QRectF CollectionRowCard::stateLayerRect() const
{
    return QRectF(rect()).adjusted(growth, growth, -growth, -growth);
}

double CollectionRowCard::cornerRadius() const
{
    return cardRadius;
}

void CollectionRowCard::setDropTarget(bool isDropTarget)
{
    m_isDropTarget = isDropTarget;
    m_drop.setTarget(isDropTarget ? 1 : 0);
    m_animator.start();
}

QList<MenuEntry> CollectionRowCard::contextMenu() const
{
    // The menu may outlive the card.
    QList<MenuEntry> entries{
        menuAction(tr("Open Palette"), u"open"_s, [onTap = m_onTap, id = m_collection.id] { onTap(id); }),
        submenu(tr("Pick into"), pickIntoMenu(m_onPick, m_collection.id)), menuSeparator()};
    QList<MenuEntry> exports = exportEntries(
        tr("Export "), [colors = m_colors] { return colors; }, [name = m_collection.name] { return name; });
    // The submenu is with the other one, so that the usual formats keep their place at the end.
    entries << collectionMenu(m_panel, m_appState, m_collection) << exports.takeLast() << menuSeparator()
            << exports;
    entries += {menuSeparator(), menuDestructive(tr("Delete"), [&state = m_appState, id = m_collection.id] {
                    state.deleteCollection(id);
                })};
    return entries;
}

void CollectionRowCard::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F2 && event->modifiers() == Qt::NoModifier) {
        openRenameCollectionOverlay(m_panel, m_appState, m_collection);
    } else {
        Clickable::keyPressEvent(event);
    }
}

void CollectionRowCard::paintShadow(QPainter& painter) const
{
    scaleAboutMiddle(painter, stateLayerRect(), scale());
    drawShadowBetween(painter, stateLayerRect(), cardRadius, shadowAtRest, hoverShadow, m_hover.fraction(),
                      Appearance::of(this));
}

void CollectionRowCard::paintEvent(QPaintEvent*)
{
    const Scheme scheme = Appearance::of(this);
    const QRectF card = stateLayerRect();
    QPainter painter(this);
    scaleAboutMiddle(painter, card, scale());

    fillRounded(painter, card, cardRadius, theme::surface.in(scheme));

    const QList<CapturedColor> preview = previewColors();
    const Parts parts = partsWith(preview.size());
    fillRounded(painter, parts.tile, tileRadius, gradientBrush(parts.tile, m_accent, scheme));
    const QString icon = collectionSymbol(m_collection.icon);
    drawSymbolShadow(painter, icon, 20, SymbolWeight::Semibold, iconShadow.in(scheme),
                     parts.tile.translated(0, 1));
    drawSymbol(painter, icon, 20, SymbolWeight::Semibold, theme::white.in(scheme), parts.tile);

    const QFont countFont = theme::font(11);
    const QFontMetricsF nameMetrics(nameFont());
    const QFontMetricsF countMetrics(countFont);
    QRectF line = parts.text;
    line.setHeight(nameMetrics.height());
    line.moveTop(card.center().y() - (nameMetrics.height() + lineGap + countMetrics.height()) / 2);
    painter.setFont(nameFont());
    painter.setPen(theme::textPrimary.in(scheme));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     nameMetrics.elidedText(inOneLine(m_collection.name), Qt::ElideRight, line.width()));
    line.moveTop(line.bottom() + lineGap);
    line.setHeight(countMetrics.height());
    painter.setFont(countFont);
    painter.setPen(theme::textSecond.in(scheme));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, countText());

    paintPreview(painter, preview, parts.square);
    drawSymbol(painter, u"chevron-right", chevronSize, SymbolWeight::Medium, theme::textThird.in(scheme),
               parts.chevron);

    const QColor hovered =
        mixed(theme::border.in(scheme), theme::accent.opacity(0.22).in(scheme), m_hover.fraction());
    strokeInside(painter, card, cardRadius,
                 mixed(hovered, theme::accent.opacity(0.6).in(scheme), m_drop.fraction()),
                 std::lerp(1, 1.5, m_drop.fraction()));
    paintStateLayer(painter);
}

CollectionRowCard::Parts CollectionRowCard::partsWith(qsizetype squares) const
{
    const QRectF inside =
        stateLayerRect().adjusted(horizontalPadding, verticalPadding, -horizontalPadding, -verticalPadding);
    const double chevronSide = std::round(symbolSide(chevronSize));
    Parts parts;
    parts.tile = QRectF(inside.topLeft(), QSizeF(tileSide, tileSide));
    parts.chevron = QRectF(inside.right() - chevronSide, inside.top(), chevronSide, inside.height());
    double right = parts.chevron.left() - gapBetweenParts;
    if (squares > 0) {
        const double width = static_cast<double>(squares) * (previewSide + previewGap) - previewGap;
        parts.square = QRectF(right - width, inside.center().y() - previewSide / 2, previewSide, previewSide);
        right = parts.square.left() - gapBetweenParts;
    }
    parts.text =
        QRectF(QPointF(parts.tile.right() + gapBetweenParts, inside.top()), QPointF(right, inside.bottom()));
    return parts;
}

void CollectionRowCard::updateHelp()
{
    const QString name = inOneLine(m_collection.name);
    const bool isCut =
        QFontMetricsF(nameFont()).horizontalAdvance(name) > partsWith(previewColors().size()).text.width();
    setToolTip(isCut ? name : QString());
}

void CollectionRowCard::resizeEvent(QResizeEvent* event)
{
    Clickable::resizeEvent(event);
    updateHelp();
}

void CollectionRowCard::paintPreview(QPainter& painter, const QList<CapturedColor>& colors,
                                     QRectF square) const
{
    const Scheme scheme = Appearance::of(this);
    for (const CapturedColor& color : colors) {
        const QColor fill = paintColor(color);
        drawShadow(painter, square, previewRadius, {theme::Color(fill).opacity(0.28), 3, QPointF(0, 1)},
                   scheme);
        fillRounded(painter, square, previewRadius, fill);
        strokeInside(painter, square, previewRadius, theme::colorEdge.in(scheme), theme::colorEdgeWidth);
        square.translate(previewSide + previewGap, 0);
    }
}

double CollectionRowCard::scale() const
{
    return 1 + (hoverScale - 1) * m_hover.position();
}

} // namespace tintwick

#include "ColorDetailRow.h"

#include "AppState.h"
#include "Appearance.h"
#include "Button.h"
#include "ColorActions.h"
#include "ColorPatch.h"
#include "InOneLine.h"
#include "Label.h"
#include "MenuButton.h"
#include "Paint.h"
#include "ReorderList.h"
#include "Shadow.h"
#include "ShadowCaster.h"
#include "Stack.h"
#include "StackLayout.h"
#include "SwatchDropTarget.h"
#include "Symbol.h"
#include "Theme.h"

#include <QPainter>

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr double hoverSeconds = 0.12;
// Margins of the row in the list and of the parts in the row.
constexpr int listInset = 4;
constexpr int verticalPadding = 2;
constexpr int lineGap = 2;

constexpr int squareSide = 42;
constexpr double squareRadius = 10;
constexpr double shadowOpacity = 0.35;
constexpr double shadowRadius = 4;
constexpr QPointF shadowOffset(0, 2);

constexpr double buttonRadius = 7;
constexpr double selectedTint = 0.1;

} // namespace

class ColorDetailRow::Square final : public QWidget, public ShadowCaster
{
public:
    Square(const ColorDetailRow& row, const AppState& appState)
        : m_row(row)
        , m_dropTarget(*this, appState,
                       [this](const CapturedColor& dropped) { openContrast(*this, dropped, m_color); })
    {
        setFixedSize(squareSide, squareSide);
    }

    void setColor(const CapturedColor& color)
    {
        m_color = color;
        update();
        updateShadow(*this, shadow().extents());
    }

    void paintShadow(QPainter& painter) const override
    {
        drawShadow(painter, rect(), squareRadius, shadow(), Appearance::of(this));
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        fillRounded(painter, rect(), squareRadius, paintColor(m_color));
        strokeInside(painter, rect(), squareRadius, theme::colorEdge.in(Appearance::of(this)),
                     theme::colorEdgeWidth);
        if (m_dropTarget.dragged()) {
            drawTextPreview(painter, rect(), squareRadius, paintColor(*m_dropTarget.dragged()),
                            Appearance::of(this));
        }
        if (m_row.isSelected()) {
            drawSelected(painter, rect(), squareRadius, Appearance::of(this));
        }
    }

private:
    [[nodiscard]] Shadow shadow() const
    {
        return {theme::Color(paintColor(m_color)).opacity(shadowOpacity), shadowRadius, shadowOffset};
    }

    const ColorDetailRow& m_row;
    CapturedColor m_color;
    SwatchDropTarget m_dropTarget;
};

/// A centred symbol that fades between two looks.
class ColorDetailRow::HoverSymbol final : public QWidget
{
public:
    struct Look
    {
        theme::Color symbol;
        theme::Color ground = theme::clear;
    };

    HoverSymbol(QString name, int size, SymbolWeight weight, int side, const Look& atRest,
                const Look& hovered)
        : m_name(std::move(name))
        , m_size(size)
        , m_weight(weight)
        , m_atRest(atRest)
        , m_hovered(hovered)
    {
        setFixedSize(side, side);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    void setHover(double hover)
    {
        m_hover = hover;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        paint(painter, m_atRest, 1 - m_hover);
        paint(painter, m_hovered, m_hover);
    }

private:
    void paint(QPainter& painter, const Look& look, double opacity) const
    {
        if (opacity <= 0) {
            return;
        }
        const Scheme scheme = Appearance::of(this);
        painter.setOpacity(opacity);
        fillRounded(painter, rect(), buttonRadius, look.ground.in(scheme));
        drawSymbol(painter, m_name, m_size, m_weight, look.symbol.in(scheme), rect());
    }

    QString m_name;
    int m_size;
    SymbolWeight m_weight;
    Look m_atRest;
    Look m_hovered;
    double m_hover = 0;
};

ColorDetailRow::ColorDetailRow(AppState& appState, const QUuid& collectionId)
    : SelectableColor(appState)
    , m_collectionId(collectionId)
    , m_square(new Square(*this, appState))
    , m_hex(label({}, theme::monospacedFont(13, QFont::DemiBold)))
    , m_name(label({}, theme::font(11), theme::textSecond))
    , m_hover(hoverSeconds)
    , m_animator([this](double seconds) {
        const bool isMoving = m_hover.advance(seconds);
        for (HoverSymbol* symbol : m_symbols) {
            symbol->setHover(m_hover.position());
        }
        return isMoving;
    })
{
    // clang-format off
    fillWith(*this, row(gap(12), padding(inset, listInset + verticalPadding),
        m_square,
        column(gap(lineGap), Across::Leading, m_hex, m_name),
        spacer(),
        m_copy = copyMenu(),
        m_remove = removal()));
    // clang-format on
    setAccessibleDescription(tr("Alt+Up and Alt+Down move it"));
}

MenuButton* ColorDetailRow::copyMenu()
{
    auto* symbol = new HoverSymbol(u"copy"_s, 13, SymbolWeight::Regular, 30, {theme::textThird},
                                   {theme::accentText, theme::accent.opacity(0.1)});
    m_symbols.append(symbol);
    auto* button = new MenuButton(
        tr("Copy as…"), [this] { return copyAsMenu(appState(), m_color).children; }, symbol, buttonRadius);
    button->setToolTip(tr("Copy as…"));
    return button;
}

PlainButton* ColorDetailRow::removal()
{
    auto* symbol = new HoverSymbol(u"close"_s, 11, SymbolWeight::Semibold, 24, {theme::textThird},
                                   {theme::red.opacity(0.7)});
    m_symbols.append(symbol);
    auto* button = plainButton(
        tr("Remove"), [this] { removeColor(); }, symbol, buttonRadius);
    button->setToolTip(tr("Remove"));
    return button;
}

void ColorDetailRow::removeColor() const
{
    appState().removeColor(m_color.id, m_collectionId);
}

QList<MenuEntry> ColorDetailRow::contextMenu() const
{
    QList<MenuEntry> entries{copyAsMenu(appState(), m_color)};
    entries << screenEntries(*this, m_color);
    return entries << menuSeparator() << menuDestructive(tr("Remove"), [this] { removeColor(); });
}

void ColorDetailRow::keyPressEvent(QKeyEvent* event)
{
    if (!openColorByKey(*event, *this, m_color)) {
        Clickable::keyPressEvent(event);
    }
}

void ColorDetailRow::setColor(const CapturedColor& color)
{
    if (m_color == color) {
        return;
    }
    m_color = color;
    setAccessibleName(spokenName(color));
    m_square->setColor(color);
    m_hex->setText(color.hex6());
    m_name->setText(inOneLine(color.customName.value_or(QString())));
    m_name->setVisible(color.customName.has_value());
    followSelector();
}

void ColorDetailRow::hoverChanged()
{
    m_hover.setTarget(isHovered() ? 1 : 0);
    m_animator.start();
}

void ColorDetailRow::selectedChanged()
{
    update();
    m_square->update();
}

double ColorDetailRow::cornerRadius() const
{
    return ReorderList::plateRadius;
}

QRectF ColorDetailRow::stateLayerRect() const
{
    return rect().marginsRemoved(ReorderList::plateMargins);
}

void ColorDetailRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isSelected()) {
        fillRounded(painter, stateLayerRect(), cornerRadius(),
                    theme::accent.opacity(selectedTint).in(Appearance::of(this)));
    }
    paintStateLayer(painter);
}

} // namespace tintwick

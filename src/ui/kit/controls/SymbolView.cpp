#include "SymbolView.h"

#include "Accessibility.h"
#include "Appearance.h"

#include <QPainter>

#include <utility>

namespace tintwick {

SymbolView::SymbolView(QString name, int size, SymbolWeight weight, const theme::Color& color)
    : m_name(std::move(name))
    , m_size(size)
    , m_weight(weight)
    , m_color(color)
{
    describeToScreenReaders<SymbolView>(QAccessible::Graphic);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setName(const QString& name)
{
    if (m_name != name) {
        m_name = name;
        update();
    }
}

void SymbolView::setColor(const theme::Color& color)
{
    m_color = color;
    update();
}

QSize SymbolView::sizeHint() const
{
    const int side = qRound(symbolSide(m_size));
    return {side, side};
}

void SymbolView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawSymbol(painter, m_name, m_size, m_weight, m_color.in(Appearance::of(this)), rect());
}

SymbolView* symbol(const QString& name, int size, SymbolWeight weight, const theme::Color& color)
{
    return new SymbolView(name, size, weight, color);
}

} // namespace tintwick

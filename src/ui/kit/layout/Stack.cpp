#include "Stack.h"

#include "Appearance.h"
#include "Paint.h"
#include "StackLayout.h"

#include <QBoxLayout>
#include <QPainter>

namespace tintwick {

namespace {

QBrush brushOf(const Ground& ground, const QRectF& rect, Scheme scheme)
{
    if (const auto* gradient = std::get_if<theme::Gradient>(&ground.fill)) {
        return gradientBrush(rect, *gradient, scheme);
    }
    return std::get<theme::Color>(ground.fill).in(scheme);
}

} // namespace

Stack::Stack(Qt::Orientation direction)
    : m_layout(
          new QBoxLayout(direction == Qt::Vertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
}

void Stack::add(QWidget* child)
{
    insert(m_layout->count(), child);
}

void Stack::insert(int position, QWidget* child)
{
    if (child->parentWidget() == this) {
        m_layout->removeWidget(child);
    } else {
        child->setParent(this);
    }
    const bool vertical = m_layout->direction() == QBoxLayout::TopToBottom;
    const Qt::Alignment across = m_across == Across::Center ? (vertical ? Qt::AlignHCenter : Qt::AlignVCenter)
                                 : vertical                 ? Qt::AlignLeft
                                                            : Qt::AlignTop;
    m_layout->insertItem(position, new StackItem(child, vertical ? Qt::Vertical : Qt::Horizontal, across));
    const QSizePolicy policy = child->sizePolicy();
    if (canGrow(policy.horizontalPolicy())) {
        growTo(Qt::Horizontal);
    }
    if (canGrow(policy.verticalPolicy())) {
        growTo(Qt::Vertical);
    }
    updateOverhang();
}

void Stack::remove(QWidget* child)
{
    child->hide();
    m_layout->removeWidget(child);
    updateOverhang();
}

void Stack::add(Gap gap)
{
    m_layout->setSpacing(gap.points);
}

void Stack::add(Padding padding)
{
    m_padding = padding.margins;
    updateOverhang();
}

void Stack::add(Spacer)
{
    const bool vertical = m_layout->direction() == QBoxLayout::TopToBottom;
    const Qt::Orientation direction = vertical ? Qt::Vertical : Qt::Horizontal;
    m_layout->addItem(new SpacerItem(direction));
    growTo(direction);
}

void Stack::add(FillWidth)
{
    growTo(Qt::Horizontal);
}

void Stack::add(FixedSize size)
{
    if (size.width >= 0) {
        m_fixedSize.width = size.width;
        setSizePolicy(QSizePolicy::Fixed, sizePolicy().verticalPolicy());
    }
    if (size.height >= 0) {
        m_fixedSize.height = size.height;
        setSizePolicy(sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    }
    updateOverhang();
}

void Stack::add(Across across)
{
    m_across = across;
}

void Stack::add(Centered)
{
    m_layout->setAlignment(Qt::AlignCenter);
}

void Stack::add(const Ground& ground)
{
    m_ground = ground;
    update();
}

void Stack::add(const Outline& outline)
{
    m_outline = outline;
    update();
}

void Stack::add(const Shadow& shadow)
{
    m_shadow = shadow;
}

void Stack::growTo(Qt::Orientation direction)
{
    QSizePolicy policy = sizePolicy();
    if (direction == Qt::Horizontal && policy.horizontalPolicy() != QSizePolicy::Fixed) {
        policy.setHorizontalPolicy(QSizePolicy::Expanding);
    } else if (direction == Qt::Vertical && policy.verticalPolicy() != QSizePolicy::Fixed) {
        policy.setVerticalPolicy(QSizePolicy::Expanding);
    }
    setSizePolicy(policy);
}

void Stack::updateOverhang()
{
    QMargins overhang;
    for (int i = 0; i < m_layout->count(); ++i) {
        if (const QWidget* child = m_layout->itemAt(i)->widget()) {
            overhang = overhang | (overhangOf(*child) - m_padding);
        }
    }
    m_overhang = overhang;
    m_layout->setContentsMargins(m_padding + m_overhang);
    if (m_fixedSize.width >= 0) {
        setFixedWidth(m_fixedSize.width + m_overhang.left() + m_overhang.right());
    }
    if (m_fixedSize.height >= 0) {
        setFixedHeight(m_fixedSize.height + m_overhang.top() + m_overhang.bottom());
    }
    if (auto* parent = qobject_cast<Stack*>(parentWidget())) {
        parent->updateOverhang();
    }
}

void Stack::paintShadow(QPainter& painter) const
{
    if (m_shadow) {
        drawShadow(painter, place(), m_ground ? m_ground->cornerRadius : 0, *m_shadow, Appearance::of(this));
    }
}

void Stack::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Scheme scheme = Appearance::of(this);
    const double radius = m_ground ? m_ground->cornerRadius : 0;
    if (m_ground) {
        fillRounded(painter, place(), radius, brushOf(*m_ground, place(), scheme));
    }
    if (m_outline) {
        const QColor color = m_outline->color.in(scheme);
        if (m_outline->dash > 0) {
            strokeInsideDashed(painter, place(), radius, color, m_outline->width, m_outline->dash,
                               m_outline->dash);
        } else {
            strokeInside(painter, place(), radius, color, m_outline->width);
        }
    }
    if (isShadowGround(*this)) {
        paintShadowsOn(*this, painter);
    }
}

} // namespace tintwick

#include "ColorComparison.h"

#include "AppState.h"
#include "Appearance.h"
#include "Clickable.h"
#include "ColorActions.h"
#include "Paint.h"
#include "TextOnColor.h"
#include "Theme.h"

#include <QPainter>

#include <utility>

namespace tintwick {

namespace {

constexpr int usualHeight = 108;
constexpr int leastHeight = 36;
constexpr double radius = 14;
constexpr double captionInset = 12;
constexpr double captionOpacity = 0.8;

} // namespace

class ColorComparison::Half final : public Clickable
{
public:
    enum class Side { Left, Right };

    Half(Side side, const QString& caption)
        : Clickable(caption)
        , m_side(side)
        , m_caption(caption)
    {
    }

    void setColor(const CapturedColor& color)
    {
        m_color = color;
        update();
    }
    [[nodiscard]] const CapturedColor& color() const { return m_color; }
    void setMenu(std::function<QList<MenuEntry>()> entries) { m_entries = std::move(entries); }

protected:
    [[nodiscard]] double cornerRadius() const override { return radius; }
    [[nodiscard]] QList<MenuEntry> contextMenu() const override
    {
        return m_entries ? m_entries() : QList<MenuEntry>();
    }

    void paintEvent(QPaintEvent*) override
    {
        const Scheme scheme = Appearance::of(this);
        QPainter painter(this);
        // The rounded shape reaches beyond the edge where the halves meet.
        const QRectF shape = m_side == Side::Left ? QRectF(rect()).adjusted(0, 0, 2 * radius, 0)
                                                  : QRectF(rect()).adjusted(-2 * radius, 0, 0, 0);
        if (m_color.alpha < 1) {
            drawCheckerboard(painter, shape, radius);
        }
        fillRounded(painter, shape, radius, paintColor(m_color));
        if (isHovered() || isDown()) {
            constexpr double hovered = 0.06;
            constexpr double pressed = 0.14;
            fillRounded(painter, shape, radius,
                        textOn(m_color).opacity(isDown() ? pressed : hovered).in(scheme));
        }
        strokeInside(painter, shape, radius, theme::colorEdge.in(scheme), theme::colorEdgeWidth);
        painter.setFont(theme::font(11, QFont::Medium));
        painter.setPen(textOn(m_color).opacity(captionOpacity).in(scheme));
        const QRectF text = QRectF(rect()).adjusted(captionInset, captionInset, -captionInset, -captionInset);
        painter.drawText(text, (m_side == Side::Left ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignBottom,
                         m_caption);
        if (showsFocusRing()) {
            drawFocusRing(painter, rect(), radius, scheme);
        }
    }

private:
    Side m_side;
    QString m_caption;
    CapturedColor m_color;
    std::function<QList<MenuEntry>()> m_entries;
};

ColorComparison::ColorComparison(AppState& appState, const CapturedColor& original,
                                 std::function<void()> onReturn)
    : m_original(new Half(Half::Side::Left, tr("Original")))
    , m_new(new Half(Half::Side::Right, tr("New")))
{
    setMaximumHeight(usualHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_original->setParent(this);
    // The button "Revert" does the same by keyboard.
    m_original->setFocusPolicy(Qt::NoFocus);
    m_original->onClick(std::move(onReturn));
    m_original->setMenu([this, &appState] { return QList{copyAsMenu(appState, m_original->color())}; });
    m_new->setParent(this);
    m_new->onClick(
        [this, &appState] { copyWithFeedback(appState, appState.defaultFormat(), m_new->color()); });
    m_new->setMenu([this, &appState] {
        return QList{copyAsMenu(appState, m_new->color())} + screenEntries(*this, m_new->color());
    });
    setOriginal(original);
    setNew(original);
}

QSize ColorComparison::sizeHint() const
{
    return {QWidget::sizeHint().width(), usualHeight};
}

QSize ColorComparison::minimumSizeHint() const
{
    return {0, leastHeight};
}

void ColorComparison::setOriginal(const CapturedColor& color)
{
    m_original->setColor(color);
    m_original->setAccessibleName(tr("Return to the original, %1").arg(spokenName(color)));
    m_original->setToolTip(tr("Return to %1").arg(spokenName(color)));
}

void ColorComparison::setNew(const CapturedColor& color)
{
    m_new->setColor(color);
    m_new->setAccessibleName(tr("Copy the new color, %1").arg(spokenName(color)));
    m_new->setToolTip(tr("Copy"));
}

void ColorComparison::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int middle = width() / 2;
    m_original->setGeometry(0, 0, middle, height());
    m_new->setGeometry(middle, 0, width() - middle, height());
}

} // namespace tintwick

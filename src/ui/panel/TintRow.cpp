#include "TintRow.h"

#include "Accessibility.h"
#include "AppState.h"
#include "Appearance.h"
#include "Clickable.h"
#include "ColorActions.h"
#include "KeyInRow.h"
#include "Paint.h"
#include "TextOnColor.h"
#include "Theme.h"
#include "TintsAndShades.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tintwick {

namespace {

constexpr int swatchCount = 2 * tintCount + 1;
constexpr int swatchSide = 26;
constexpr double swatchRadius = 7;
constexpr double markSide = 6;

CapturedColor colorOf(const Components& srgb)
{
    return CapturedColor::capture(srgb[0], srgb[1], srgb[2], 1);
}

} // namespace

class TintRow::Swatch final : public Clickable
{
public:
    explicit Swatch(AppState& appState)
        : Clickable({})
        , m_appState(appState)
    {
        setFocusPolicy(Qt::NoFocus);
    }

    void setColor(const QString& what, const CapturedColor& color)
    {
        m_color = color;
        setAccessibleName(QStringLiteral("%1, %2").arg(what, color.hex6()));
        setToolTip(accessibleName());
        update();
    }
    [[nodiscard]] const CapturedColor& color() const { return m_color; }
    void setCurrent(bool isCurrent)
    {
        if (m_isCurrent != isCurrent) {
            m_isCurrent = isCurrent;
            update();
        }
    }

protected:
    [[nodiscard]] double cornerRadius() const override { return swatchRadius; }
    [[nodiscard]] QList<MenuEntry> contextMenu() const override
    {
        return QList{copyAsMenu(m_appState, m_color)} + screenEntries(*this, m_color);
    }

    void paintEvent(QPaintEvent*) override
    {
        const Scheme scheme = Appearance::of(this);
        QPainter painter(this);
        fillRounded(painter, rect(), swatchRadius, paintColor(m_color));
        strokeInside(painter, rect(), swatchRadius, theme::colorEdge.in(scheme), theme::colorEdgeWidth);
        if (m_isCurrent) {
            const QPointF middle = QRectF(rect()).center();
            fillRounded(painter,
                        QRectF(middle.x() - markSide / 2, middle.y() - markSide / 2, markSide, markSide),
                        markSide / 2, textOn(m_color).in(scheme));
        }
        paintStateLayer(painter);
    }

private:
    AppState& m_appState;
    CapturedColor m_color;
    bool m_isCurrent = false;
};

TintRow::TintRow(AppState& appState)
{
    describeToScreenReaders<TintRow>(QAccessible::Grouping);
    setAccessibleName(tr("Shades and Tints"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (int i = 0; i < swatchCount; ++i) {
        auto* swatch = new Swatch(appState);
        swatch->setParent(this);
        swatch->installEventFilter(this);
        swatch->onClick([this, swatch] {
            makeReachable(*swatch);
            if (m_onChoose) {
                m_onChoose(swatch->color());
            }
        });
        m_swatches.append(swatch);
    }
    makeReachable(*m_swatches.at(tintCount));
}

void TintRow::setBase(const CapturedColor& color)
{
    const auto inUnit = [](double component) { return std::clamp(component, 0.0, 1.0); };
    const Components srgb{inUnit(color.red), inUnit(color.green), inUnit(color.blue)};
    const auto shades = shadesOf(srgb);
    const auto tints = tintsOf(srgb);
    m_swatches.at(tintCount)->setColor(tr("Base"), colorOf(srgb));
    for (int i = 0; i < tintCount; ++i) {
        const auto step = static_cast<std::size_t>(i);
        m_swatches.at(tintCount - 1 - i)->setColor(tr("Shade %1").arg(i + 1), colorOf(shades.at(step)));
        m_swatches.at(tintCount + 1 + i)->setColor(tr("Tint %1").arg(i + 1), colorOf(tints.at(step)));
    }
}

void TintRow::setCurrent(const CapturedColor& color)
{
    const auto isIt = [&](const Swatch* swatch) { return swatch->color().hex6() == color.hex6(); };
    // All tints of white are white; only the base is marked then.
    const auto found = isIt(m_swatches.at(tintCount)) ? m_swatches.begin() + tintCount
                                                      : std::ranges::find_if(m_swatches, isIt);
    for (Swatch* swatch : m_swatches) {
        swatch->setCurrent(found != m_swatches.end() && swatch == *found);
    }
}

void TintRow::onChoose(std::function<void(const CapturedColor&)> action)
{
    m_onChoose = std::move(action);
}

QSize TintRow::sizeHint() const
{
    return {swatchCount * swatchSide, swatchSide};
}

void TintRow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const double step = static_cast<double>(width() - swatchSide) / (swatchCount - 1);
    for (qsizetype i = 0; i < m_swatches.size(); ++i) {
        m_swatches[i]->setGeometry(static_cast<int>(std::lround(static_cast<double>(i) * step)), 0,
                                   swatchSide, swatchSide);
    }
}

bool TintRow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(watched, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() != Qt::NoModifier) {
        return QWidget::eventFilter(watched, event);
    }
    const qsizetype from = m_swatches.indexOf(static_cast<Swatch*>(watched));
    const auto to = positionAfterKey(key->key(), from, m_swatches.size());
    if (!to) {
        return QWidget::eventFilter(watched, event);
    }
    makeReachable(*m_swatches[*to]);
    m_swatches[*to]->setFocus(Qt::TabFocusReason);
    return true;
}

void TintRow::makeReachable(const Swatch& swatch)
{
    for (Swatch* each : m_swatches) {
        each->setFocusPolicy(each == &swatch ? Qt::TabFocus : Qt::NoFocus);
    }
}

} // namespace tintwick

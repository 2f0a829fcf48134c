#include "SegmentedPicker.h"

#include "Accessibility.h"
#include "Appearance.h"
#include "Clickable.h"
#include "KeyInRow.h"
#include "Paint.h"
#include "Shadow.h"
#include "Theme.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tintwick {

namespace {

constexpr int pickerHeight = 28;
constexpr double trackRadius = 8;
/// Points between the edge of the track and the thumb.
constexpr double inset = 2;
constexpr double thumbRadius = trackRadius - inset;
constexpr int titlePadding = 8;
constexpr double linePadding = 5;
constexpr double thumbResponse = 0.28;
constexpr double thumbDamping = 0.9;
constexpr Shadow thumbShadow{theme::black.opacity(0.16), 3, QPointF(0, 1)};

// One weight for all titles, so that only the thumb moves when the selection changes.
QFont titleFont()
{
    return theme::font(12, QFont::Medium);
}

} // namespace

class SegmentedPicker::Segment final : public Clickable
{
public:
    explicit Segment(const QString& title)
        : Clickable(title)
        , m_title(title)
    {
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    [[nodiscard]] double cornerRadius() const override { return thumbRadius; }
    [[nodiscard]] bool tintsHover() const override { return !isChecked(); }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const Scheme scheme = Appearance::of(this);
        painter.setFont(titleFont());
        painter.setPen((isChecked() ? theme::textPrimary : theme::textSecond).in(scheme));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, m_title);
        paintStateLayer(painter);
    }

private:
    QString m_title;
};

SegmentedPicker::SegmentedPicker(const QString& name, const QStringList& titles,
                                 std::optional<qsizetype> selected)
    : m_selected(selected)
    , m_thumb(thumbResponse, thumbDamping, static_cast<double>(selected.value_or(0)))
    , m_animator([this](double seconds) {
        const bool isMoving = m_thumb.advance(seconds);
        update();
        return isMoving;
    })
{
    describeToScreenReaders<SegmentedPicker>(QAccessible::Grouping);
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (const QString& title : titles) {
        auto* segment = new Segment(title);
        segment->setParent(this);
        segment->installEventFilter(this);
        segment->onClick([this, position = m_segments.size()] { choose(position); });
        m_segments.append(segment);
    }
    showSelection();
}

SegmentedPicker::~SegmentedPicker() = default;

void SegmentedPicker::setSelected(std::optional<qsizetype> position)
{
    if (m_selected == position) {
        return;
    }
    const bool slides = m_selected && position;
    m_selected = position;
    if (slides) {
        m_thumb.setTarget(static_cast<double>(*position));
        m_animator.start();
    } else if (position) {
        m_thumb.jumpTo(static_cast<double>(*position));
    }
    showSelection();
}

void SegmentedPicker::onSelect(std::function<void(qsizetype)> action)
{
    m_onSelect = std::move(action);
}

void SegmentedPicker::choose(qsizetype position)
{
    if (m_selected == position) {
        return;
    }
    setSelected(position);
    if (m_onSelect) {
        m_onSelect(position);
    }
}

void SegmentedPicker::showSelection()
{
    for (qsizetype i = 0; i < m_segments.size(); ++i) {
        Segment* segment = m_segments[i];
        // The checked button of an exclusive group cannot be unchecked.
        segment->setAutoExclusive(false);
        segment->setChecked(m_selected == i);
        segment->setAutoExclusive(true);
        segment->update();
    }
    for (qsizetype i = 0; i < m_segments.size(); ++i) {
        m_segments[i]->setFocusPolicy(m_selected.value_or(0) == i ? Qt::TabFocus : Qt::NoFocus);
    }
    update();
}

QSize SegmentedPicker::sizeHint() const
{
    const QFontMetricsF metrics(titleFont());
    double widest = 0;
    for (const Segment* segment : m_segments) {
        widest = std::max(widest, metrics.horizontalAdvance(segment->accessibleName()));
    }
    const int segmentWidth = static_cast<int>(std::ceil(widest)) + 2 * titlePadding;
    return {static_cast<int>(m_segments.size()) * segmentWidth + static_cast<int>(2 * inset), pickerHeight};
}

bool SegmentedPicker::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const qsizetype from = m_segments.indexOf(static_cast<Segment*>(watched));
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (const auto to = positionAfterKey(key, from, m_segments.size())) {
            choose(*to);
            m_segments[*to]->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SegmentedPicker::resizeEvent(QResizeEvent* event)
{
    for (qsizetype i = 0; i < m_segments.size(); ++i) {
        m_segments[i]->setGeometry(place(static_cast<double>(i)).toRect());
    }
    QWidget::resizeEvent(event);
}

void SegmentedPicker::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Scheme scheme = Appearance::of(this);
    fillRounded(painter, rect(), trackRadius, theme::surfaceHigh.in(scheme));
    strokeInside(painter, rect(), trackRadius, theme::border.in(scheme), 1);
    for (qsizetype i = 1; i < m_segments.size(); ++i) {
        // A separator fades out where the thumb reaches it.
        const double boundary = static_cast<double>(i) - 0.5;
        const double distance = m_selected ? std::abs(m_thumb.position() - boundary) - 0.5 : 1;
        const QRectF segment = place(static_cast<double>(i)).toRect();
        painter.fillRect(
            QRectF(segment.left(), segment.top() + linePadding, 1, segment.height() - 2 * linePadding),
            theme::border.opacity(std::clamp(distance, 0.0, 1.0)).in(scheme));
    }
    if (m_selected) {
        const QRectF thumb = place(m_thumb.position());
        drawShadow(painter, thumb, thumbRadius, thumbShadow, scheme);
        fillRounded(painter, thumb, thumbRadius, theme::thumb.in(scheme));
    }
}

QRectF SegmentedPicker::place(double position) const
{
    const QRectF inside = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    const double each = inside.width() / static_cast<double>(m_segments.size());
    return {inside.left() + position * each, inside.top(), each, inside.height()};
}

} // namespace tintwick

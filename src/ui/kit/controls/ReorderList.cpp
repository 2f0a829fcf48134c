#include "ReorderList.h"

#include "Accessibility.h"
#include "Appearance.h"
#include "Clickable.h"
#include "Paint.h"
#include "Reordering.h"
#include "Shadow.h"
#include "Theme.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace tintwick {

namespace {

constexpr double moveResponse = 0.28;
constexpr double moveDamping = 0.82;
constexpr double liftResponse = 0.22;
/// Seconds. A longer frame scrolls no further, so that the list does not jump.
constexpr double longestScrollFrame = 0.05;

constexpr Shadow plateShadow{theme::black.opacity(0.22), 10, QPointF(0, 3)};

} // namespace

/// The background of a lifted row, above the other rows.
class ReorderList::Plate final : public QWidget
{
public:
    explicit Plate(ReorderList& list)
        : QWidget(&list)
        , m_list(list)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

    void follow(const QRect& row) { setGeometry(row.marginsAdded(plateShadow.extents())); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Scheme scheme = Appearance::of(this);
        const QRectF plate = QRectF(rect().marginsRemoved(plateShadow.extents() + plateMargins));
        QPainter painter(this);
        painter.setOpacity(m_list.m_lift.fraction());
        drawShadow(painter, plate, plateRadius, plateShadow, scheme);
        fillRounded(painter, plate, plateRadius, theme::surface.in(scheme));
        strokeInside(painter, plate, plateRadius, theme::border.in(scheme), 1);
    }

private:
    ReorderList& m_list;
};

ReorderList::ReorderList(const QString& name, int rowHeight, int separatorInset)
    : m_rowHeight(rowHeight)
    , m_separatorInset(separatorInset)
    , m_drag(rowHeight)
    , m_plate(new Plate(*this))
    , m_lift(liftResponse, 1)
    , m_animator([this](double seconds) { return advance(seconds); })
{
    describeToScreenReaders<ReorderList>(QAccessible::List);
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

ReorderList::~ReorderList() = default;

QSize ReorderList::sizeHint() const
{
    return {0, (static_cast<int>(count()) + (m_emptySlot >= 0 ? 1 : 0)) * m_rowHeight};
}

void ReorderList::insert(int position, Clickable* row)
{
    const qsizetype now = positionOf(row);
    if (now == position) {
        return;
    }
    cancel();
    releaseSlot();
    if (now < 0) {
        row->setParent(this);
        row->installEventFilter(this);
        m_rows.insert(m_rows.begin() + position,
                      {row, Spring(moveResponse, moveDamping, static_cast<double>(position) * m_rowHeight)});
        countChanged();
    } else {
        const Row moving = m_rows[static_cast<std::size_t>(now)];
        m_rows.erase(m_rows.begin() + now);
        m_rows.insert(m_rows.begin() + position, moving);
    }
    sendRowsToTheirSlots();
}

void ReorderList::remove(Clickable* row)
{
    cancel();
    releaseSlot();
    if (row->isHovered()) {
        holdSlot(positionOf(row));
    }
    row->removeEventFilter(this);
    row->hide();
    std::erase_if(m_rows, [row](const Row& candidate) { return candidate.view == row; });
    if (m_lifted == row) {
        m_plate->hide();
        m_lifted = nullptr;
    }
    if (m_held == row) {
        m_held = nullptr;
        m_drag.release();
    }
    countChanged();
    sendRowsToTheirSlots();
}

void ReorderList::holdSlot(qsizetype slot)
{
    m_emptySlot = slot;
    m_restingPointer = QCursor::pos();
    QCoreApplication::instance()->installEventFilter(this);
}

void ReorderList::releaseSlot()
{
    if (m_emptySlot < 0) {
        return;
    }
    m_emptySlot = -1;
    QCoreApplication::instance()->removeEventFilter(this);
    countChanged();
    sendRowsToTheirSlots();
}

void ReorderList::followPointer(const QMouseEvent& move)
{
    if ((move.globalPosition() - m_restingPointer).manhattanLength() >= QApplication::startDragDistance()) {
        releaseSlot();
    }
}

void ReorderList::countChanged()
{
    setFixedHeight(sizeHint().height());
    updateGeometry();
}

qsizetype ReorderList::positionOf(const QObject* row) const
{
    const auto found =
        std::ranges::find(m_rows, row, [](const Row& candidate) -> const QObject* { return candidate.view; });
    return found == m_rows.end() ? -1 : found - m_rows.begin();
}

QScrollArea* ReorderList::scrollArea() const
{
    const QWidget* viewport = parentWidget();
    return viewport != nullptr ? qobject_cast<QScrollArea*>(viewport->parentWidget()) : nullptr;
}

void ReorderList::reveal(const Clickable& row) const
{
    const qsizetype position = positionOf(&row);
    QScrollArea* area = scrollArea();
    if (position >= 0 && area != nullptr) {
        // Its slot, because the row itself may still be moving.
        const double top = m_rows[static_cast<std::size_t>(position)].top.target();
        area->ensureVisible(0, static_cast<int>(top) + m_rowHeight / 2, 0, m_rowHeight / 2);
    }
}

bool ReorderList::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Hide) {
        cancel();
        releaseSlot();
    }
    return QWidget::event(event);
}

// The filter of each row; of the application while a row is carried, so that Escape cancels the drag wherever the focus is, and
// while a slot is held, because widgets do not report each move of the pointer.
bool ReorderList::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::ShortcutOverride) {
        if (!isCarrying() || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape) {
            return false;
        }
        if (type == QEvent::KeyPress) {
            cancel();
        }
        event->accept();
        return true;
    }
    if (m_emptySlot >= 0 && type == QEvent::MouseMove) {
        followPointer(static_cast<QMouseEvent&>(*event));
    }
    const qsizetype position = positionOf(watched);
    if (position < 0) {
        return false;
    }
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto& mouse = static_cast<QMouseEvent&>(*event);
        if (mouse.button() == Qt::LeftButton) {
            press(*m_rows[static_cast<std::size_t>(position)].view, mouse.globalPosition());
        }
        return false;
    }
    case QEvent::MouseMove: {
        const auto& mouse = static_cast<QMouseEvent&>(*event);
        if (watched != m_held || m_drag.stage() == RowDrag::Stage::Idle) {
            return false;
        }
        if (!mouse.buttons().testFlag(Qt::LeftButton)) {
            // Another widget received the release.
            cancel();
            m_drag.release();
            return false;
        }
        if (m_drag.movePointer(mouse.globalPosition(), QApplication::startDragDistance())) {
            lift();
        }
        if (isCarrying()) {
            carry();
        }
        // A drag is no click, also when the pointer returns to the row.
        return m_drag.stage() != RowDrag::Stage::Pressed;
    }
    case QEvent::MouseButtonRelease:
        if (watched == m_held && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            if (isCarrying()) {
                drop();
            }
            m_drag.release();
        }
        return false;
    case QEvent::UngrabMouse:
        if (watched == m_held) {
            cancel();
        }
        return false;
    default:
        return false;
    }
}

void ReorderList::press(Clickable& row, QPointF globalPosition)
{
    cancel();
    m_held = &row;
    m_drag.press(positionOf(&row), globalPosition, row.mapFromGlobal(globalPosition).y());
}

void ReorderList::lift()
{
    releaseSlot();
    m_lifted = m_held;
    m_held->setDown(false);
    m_held->setCursor(Qt::ClosedHandCursor);
    m_plate->show();
    m_plate->raise();
    m_held->raise();
    m_lift.setTarget(1);
    update();
    QCoreApplication::instance()->installEventFilter(this);
}

void ReorderList::carry()
{
    const qsizetype gapBefore = m_drag.gap();
    const double top = m_drag.carry(mapFromGlobal(m_drag.pointer()).y(), count());
    const double inWindow = window()->mapFromGlobal(m_drag.pointer()).x();
    if (inWindow < 0 || inWindow >= window()->width()) {
        m_drag.leaveList();
    }
    m_rows[static_cast<std::size_t>(positionOf(m_held))].top.jumpTo(top);
    if (m_drag.gap() != gapBefore) {
        update();
    }
    sendRowsToTheirSlots();
}

void ReorderList::drop()
{
    const std::optional<RowDrag::Move> move = m_drag.drop();
    putDown();
    if (move) {
        Q_EMIT moveRequested(movedWith(move->from), move->to);
    }
}

void ReorderList::cancel()
{
    if (m_drag.cancel()) {
        putDown();
    }
}

void ReorderList::putDown()
{
    QCoreApplication::instance()->removeEventFilter(this);
    m_held->unsetCursor();
    m_lift.setTarget(0);
    update();
    sendRowsToTheirSlots();
}

void ReorderList::sendRowsToTheirSlots()
{
    const qsizetype carried = isCarrying() ? positionOf(m_held) : -1;
    for (qsizetype position = 0; position < count(); ++position) {
        if (position == carried) {
            continue;
        }
        Spring& top = m_rows[static_cast<std::size_t>(position)].top;
        const qsizetype slot =
            m_drag.slotOf(position) + (m_emptySlot >= 0 && position >= m_emptySlot ? 1 : 0);
        const double target = static_cast<double>(slot) * m_rowHeight;
        if (isVisible()) {
            top.setTarget(target);
        } else {
            top.jumpTo(target);
        }
    }
    placeRows();
    // While the animator scrolls the list, it is running already.
    if (!m_isScrolling) {
        m_animator.start();
    }
}

bool ReorderList::advance(double seconds)
{
    bool isMoving = m_lift.advance(seconds);
    if (isCarrying()) {
        isMoving |= scrollAtEdge(std::min(seconds, longestScrollFrame));
    }
    for (Row& row : m_rows) {
        isMoving |= row.top.advance(seconds);
    }
    placeRows();
    return isMoving;
}

bool ReorderList::scrollAtEdge(double seconds)
{
    QScrollArea* area = scrollArea();
    if (area == nullptr) {
        return false;
    }
    const QWidget& viewport = *area->viewport();
    const double speed = edgeScrollSpeed(viewport.mapFromGlobal(m_drag.pointer()).y(), 0, viewport.height());
    QScrollBar& bar = *area->verticalScrollBar();
    if (speed == 0 || bar.value() == (speed < 0 ? bar.minimum() : bar.maximum())) {
        m_drag.resetScroll();
        return false;
    }
    const QScopedValueRollback scrolling(m_isScrolling, true);
    bar.setValue(bar.value() + m_drag.scrollStep(speed, seconds));
    return true;
}

void ReorderList::placeRows()
{
    for (const Row& row : m_rows) {
        row.view->setGeometry(0, qRound(row.top.position()), width(), m_rowHeight);
    }
    if (m_lifted) {
        m_plate->follow(m_lifted->geometry());
        if (m_lift.isMoving()) {
            m_plate->update();
        }
        if (!isCarrying() && !m_lift.isMoving()) {
            m_plate->hide();
            m_lifted = nullptr;
            update();
        }
    }
}

void ReorderList::keyPressEvent(QKeyEvent* event)
{
    const QWidget* focused = QApplication::focusWidget();
    const auto hasFocus = [focused](const Row& row) {
        return row.view == focused || row.view->isAncestorOf(focused);
    };
    const auto found = std::ranges::find_if(m_rows, hasFocus);
    const qsizetype position = found == m_rows.end() ? -1 : found - m_rows.begin();
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isKnown =
        modifiers == Qt::NoModifier || modifiers == Qt::AltModifier || modifiers == Qt::ShiftModifier;
    if (position < 0 || isCarrying() || !isKnown) {
        event->ignore();
        return;
    }
    if (modifiers == Qt::AltModifier) {
        if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
            moveByKey(position, event->key() == Qt::Key_Up);
        } else {
            event->ignore();
        }
        return;
    }
    const bool isExtended = modifiers == Qt::ShiftModifier;
    const auto go = [&](qsizetype to) {
        if (to >= 0 && to < count()) {
            moveFocus(position, to);
            if (isExtended) {
                Q_EMIT focusExtended(position, to);
            }
        }
    };
    switch (event->key()) {
    case Qt::Key_Up:
        go(position - 1);
        break;
    case Qt::Key_Down:
        go(position + 1);
        break;
    case Qt::Key_Home:
        go(0);
        break;
    case Qt::Key_End:
        go(count() - 1);
        break;
    default:
        event->ignore();
    }
}

void ReorderList::setMovedTogether(std::function<QSet<qsizetype>(qsizetype position)> rows)
{
    m_movedTogether = std::move(rows);
}

QSet<qsizetype> ReorderList::movedWith(qsizetype position) const
{
    return m_movedTogether ? m_movedTogether(position) : QSet{position};
}

void ReorderList::moveByKey(qsizetype position, bool isUp)
{
    const QPointer<Clickable> row = m_rows[static_cast<std::size_t>(position)].view;
    const QSet<qsizetype> moving = movedWith(position);
    const auto [first, last] = std::minmax_element(moving.begin(), moving.end());
    if (isUp ? *first > 0 : *last < count() - 1) {
        Q_EMIT moveRequested(moving, isUp ? *first - 1 : *last + 2);
    }
    if (row) {
        reveal(*row);
    }
}

void ReorderList::moveFocus(qsizetype from, qsizetype to) const
{
    Clickable& row = *m_rows[static_cast<std::size_t>(to)].view;
    row.setFocus(to < from ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    reveal(row);
}

void ReorderList::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    if (isCarrying()) {
        carry();
    }
}

void ReorderList::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeRows();
}

void ReorderList::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (const Row& row : m_rows) {
        // The separator follows the top of its row. A lifted row leaves it where the row will come down. The first slot has none.
        double top = row.view->y();
        if (row.view == m_lifted) {
            top = isCarrying() ? static_cast<double>(m_drag.gap()) * m_rowHeight : row.top.target();
        }
        painter.setOpacity(qBound(0.0, top / m_rowHeight, 1.0));
        drawHairline(painter, QPointF(m_separatorInset, top), width() - 2.0 * m_separatorInset,
                     theme::border.in(Appearance::of(this)));
    }
}

} // namespace tintwick

#include "ActionPill.h"

#include "Accessibility.h"
#include "AppState.h"
#include "Button.h"
#include "Label.h"
#include "Overlay.h"
#include "Stack.h"
#include "Theme.h"

#include <QAccessible>
#include <QLayoutItem>
#include <QShortcut>

#include <algorithm>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

// In points.
constexpr int pillHeight = 32;
constexpr int gapAbove = 6;
constexpr int gapBelow = 12;
constexpr int sideGap = 16;
/// From the button's title to its tint and focus ring.
constexpr QMargins ringMargins(5, 3, 5, 3);
constexpr double ringRadius = 7;
constexpr double duration = 0.18;

Label* pillLabel(const QString& text, const theme::Color& color)
{
    return label(text, theme::font(12, QFont::Medium), color);
}

} // namespace

ActionPill::ActionPill(AppState& appState, QWidget& panel)
    : m_appState(appState)
    , m_panel(panel)
    , m_text(pillLabel({}, theme::textSecond))
    , m_dash(pillLabel(u"–"_s, theme::textSecond))
    , m_title(pillLabel({}, theme::accentText))
    , m_button(new PlainButton({}, m_title, ringRadius, ringMargins))
    , m_pill(row(gap(8), padding(16, ringMargins.top()), fixedHeight(pillHeight),
                 ground(theme::surface, pillHeight / 2.0), outline(theme::border, 1), m_text, m_dash,
                 m_button))
    , m_presence(duration)
    , m_animator([this](double seconds) {
        const bool isMoving = m_presence.advance(seconds);
        setFixedHeight(sizeHint().height());
        setVisible(height() > 0);
        return isMoving;
    })
{
    describeToScreenReaders<ActionPill>(QAccessible::Notification);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_pill->setParent(this);
    // The text shrinks first.
    m_dash->setMinimumSize(m_dash->sizeHint());
    m_button->onClick([this] {
        // The action may replace the offer.
        const std::function<void()> action = m_action;
        action();
    });
    m_button->installEventFilter(this);
    hide();

    m_end.setSingleShot(true);
    connect(&m_end, &QTimer::timeout, this, [this] { setPresent(false); });
    connect(&m_appState, &AppState::changeMade, this, [this](const QString& what) {
        say(what, {tr("Undo"), [this] { m_appState.undo(); }});
    });
    connect(&m_appState, &AppState::changeUndone, this,
            [this](const QString& what) { say(tr("Undone: %1").arg(what)); });
    addShortcut(panel, Qt::CTRL | Qt::Key_Z, [this] { m_appState.undo(); });
    addShortcut(panel, Qt::CTRL | Qt::SHIFT | Qt::Key_Z, [this] { m_appState.redo(); });
}

void ActionPill::addShortcut(QWidget& panel, const QKeySequence& keys, const std::function<void()>& action)
{
    // A text field with the focus takes these keys itself.
    auto* shortcut = new QShortcut(keys, &panel, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, action] {
        if (Overlay::of(m_panel) == nullptr) {
            action();
        }
    });
}

void ActionPill::say(const QString& text, const Offer& offer)
{
    const bool hasOffer = static_cast<bool>(offer.action);
    m_text->setText(text);
    setAccessibleName(text);
    if (!hasOffer && m_button->hasFocus()) {
        m_panel.setFocus();
    }
    m_title->setText(offer.title);
    m_button->setAccessibleName(offer.title);
    m_button->setAccessibleDescription(text);
    m_action = offer.action;
    m_button->setMinimumSize(m_button->sizeHint());
    m_dash->setVisible(hasOffer);
    m_button->setVisible(hasOffer);
    setPresent(true);
    hideLater();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ActionPill::moveToEndOfTabOrder() const
{
    // setTabOrder() ignores widgets that take no focus.
    QWidget* last = window()->previousInFocusChain();
    while (last->focusPolicy() == Qt::NoFocus) {
        last = last->previousInFocusChain();
    }
    setTabOrder(last, m_button);
}

void ActionPill::hideLater()
{
    if (underMouse() || m_button->hasFocus()) {
        m_end.stop();
    } else if (m_presence.target() > 0) {
        m_end.start(shownFor);
    }
}

void ActionPill::setPresent(bool isPresent)
{
    m_presence.setTarget(isPresent ? 1 : 0);
    m_animator.start();
}

QSize ActionPill::sizeHint() const
{
    return {0, qRound(m_presence.position() * (gapAbove + pillHeight + gapBelow))};
}

void ActionPill::place()
{
    const int widest = std::max(0, width() - 2 * sideGap);
    const int pillWidth = std::min(QWidgetItem(m_pill).sizeHint().width(), widest);
    m_pill->setGeometry((width() - pillWidth) / 2, gapAbove, pillWidth, pillHeight);
}

bool ActionPill::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) {
        place();
    }
    return QWidget::event(event);
}

void ActionPill::enterEvent(QEnterEvent* event)
{
    QWidget::enterEvent(event);
    hideLater();
}

void ActionPill::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    hideLater();
}

void ActionPill::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    place();
}

bool ActionPill::eventFilter(QObject* watched, QEvent* event)
{
    const bool handled = QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        // The filter runs before the focus changes.
        QMetaObject::invokeMethod(this, &ActionPill::hideLater, Qt::QueuedConnection);
    }
    return handled;
}

} // namespace tintwick

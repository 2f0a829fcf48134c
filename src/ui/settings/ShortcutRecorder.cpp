#include "ShortcutRecorder.h"

#include "Alert.h"
#include "Appearance.h"
#include "Button.h"
#include "FocusRing.h"
#include "LocalizedString.h"
#include "Overlay.h"
#include "Paint.h"
#include "Presentation.h"
#include "RecordedKey.h"
#include "Registry.h"
#include "ShortcutRecorderAccessibility.h"
#include "ShortcutText.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tintwick::KeyboardShortcuts {

namespace {

using namespace Qt::StringLiterals;

constexpr int fieldHeight = 24;
constexpr double cornerRadius = 7;
constexpr double borderOpacity = 0.6;
constexpr double recordingTint = 0.2;
constexpr double recordingRing = 2;
constexpr int clearButtonSide = 14;
constexpr int clearButtonMargin = (fieldHeight - clearButtonSide) / 2;
/// On both sides of the text, so that it stays in the middle beside the clear button.
constexpr int textMargin = clearButtonSide + 2 * clearButtonMargin;
constexpr int placeholderMargin = 10;
/// How far outside of the field a click is still one on the field.
constexpr int clickTolerance = 3;

QFont fieldFont()
{
    return theme::font(13);
}

int widthOf(const QString& text)
{
    return static_cast<int>(std::ceil(widthOfShortcut(text, fieldFont())));
}

} // namespace

ShortcutRecorder::ShortcutRecorder(RecorderServices services, Name name, const QString& title, QWidget& panel,
                                   OnChange onChange)
    : m_services(std::move(services))
    , m_name(std::move(name))
    , m_panel(panel)
    , m_onChange(std::move(onChange))
{
    describeRecordersToScreenReaders();
    setAccessibleName(tr("%1 shortcut").arg(title));
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_clearButton = plainButton(
        localizedString("clear_shortcut"_L1), [this] { clearButtonPressed(); },
        row(fixedSize(clearButtonSide, clearButtonSide), centered(),
            ground(theme::textThird, clearButtonSide / 2.0),
            symbol(u"close"_s, 7, SymbolWeight::Semibold, theme::field)),
        clearButtonSide / 2.0);
    m_clearButton->setParent(this);
    refreshText();
    resize(sizeHint());

    connect(&m_services.registry, &Registry::shortcutByNameDidChange, this, [this](const Name& changed) {
        if (changed == m_name) {
            refreshText();
        }
    });
    connect(&m_services.registry, &Registry::keyboardLayoutDidChange, this, &ShortcutRecorder::refreshText);
}

ShortcutRecorder::~ShortcutRecorder()
{
    endRecording();
}

QString ShortcutRecorder::placeholder() const
{
    return localizedString(isRecording() ? "press_shortcut"_L1 : "record_shortcut"_L1);
}

QSize ShortcutRecorder::sizeHint() const
{
    const int width = m_text.isEmpty() ? std::max(widthOf(localizedString("record_shortcut"_L1)),
                                                  widthOf(localizedString("press_shortcut"_L1))) +
                                             2 * placeholderMargin
                                       : widthOf(m_text) + 2 * textMargin;
    return {std::max(minimumWidth, width), fieldHeight};
}

void ShortcutRecorder::startRecording()
{
    start(Qt::OtherFocusReason);
}

void ShortcutRecorder::start(Qt::FocusReason reason)
{
    // A screen reader reaches it below a sheet too, where another recorder waits for an answer.
    if (m_state != State::Idle || !isVisible() || Overlay::of(m_panel)) {
        return;
    }
    const bool hadFocus = hasFocus();
    setFocus(reason);
    if (m_services.keys.begin(*this) == KeyRecording::Outcome::Refused) {
        QApplication::beep();
        if (!hadFocus) {
            clearFocus();
        }
        return;
    }
    m_keepsFocus = hadFocus;
    setState(State::Recording);
    m_services.registry.setRecorderActive(true);
    qApp->installEventFilter(this);
}

void ShortcutRecorder::endRecording()
{
    if (m_state == State::Idle) {
        return;
    }
    setState(State::Idle);
    qApp->removeEventFilter(this);
    m_services.keys.end(*this);
    if (m_alert) {
        m_alert->dismiss();
    }
    m_services.registry.setRecorderActive(false);
    if (!m_keepsFocus) {
        clearFocus();
    }
}

void ShortcutRecorder::setState(State state)
{
    m_state = state;
    update();
    QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}

void ShortcutRecorder::keyPressed(const KeyPress& press)
{
    const RecordedKey key = recordedKey(press, m_services);
    switch (key.meaning) {
    case RecordedKey::Meaning::Ignore:
        break;
    case RecordedKey::Meaning::PassOn: {
        const bool isBackwards = (press.modifiers & modifier::shift) != 0;
        m_keepsFocus = true;
        endRecording();
        focusNextPrevChild(!isBackwards);
        break;
    }
    case RecordedKey::Meaning::End:
        endRecording();
        break;
    case RecordedKey::Meaning::Clear:
        clear();
        endRecording();
        break;
    case RecordedKey::Meaning::Refuse:
        QApplication::beep();
        break;
    case RecordedKey::Meaning::UsedByMenuItem:
        ask(localizedString("keyboard_shortcut_used_by_menu_item"_L1).arg(key.menuItemTitle), {},
            {localizedString("ok"_L1)}, {});
        break;
    case RecordedKey::Meaning::UsedBySystem:
        ask(localizedString("keyboard_shortcut_used_by_system"_L1),
            localizedString("keyboard_shortcuts_can_be_changed"_L1),
            {localizedString("ok"_L1), localizedString("force_use_shortcut"_L1)},
            [this, shortcut = key.shortcut] { accept(shortcut); });
        break;
    case RecordedKey::Meaning::Accept:
        accept(key.shortcut);
        break;
    }
}

// The alert is answered by keys too.
void ShortcutRecorder::ask(const QString& message, const QString& informativeText, const QStringList& buttons,
                           const std::function<void()>& onSecondButton)
{
    setState(State::Asking);
    m_services.keys.end(*this);
    m_alert = showAlert(m_panel, {message, informativeText, buttons},
                        [recorder = QPointer(this), onSecondButton](int button) {
                            if (!recorder || recorder->m_state != State::Asking) {
                                return;
                            }
                            if (button == 0) {
                                recorder->goOnRecording();
                            } else {
                                onSecondButton();
                            }
                        });
}

void ShortcutRecorder::goOnRecording()
{
    m_alert = nullptr;
    if (m_services.keys.begin(*this) == KeyRecording::Outcome::Refused) {
        QApplication::beep();
        endRecording();
        return;
    }
    setState(State::Recording);
}

void ShortcutRecorder::accept(const Shortcut& shortcut)
{
    m_services.registry.setShortcut(shortcut, m_name);
    if (m_onChange) {
        m_onChange(shortcut);
    }
    endRecording();
}

void ShortcutRecorder::clear()
{
    m_services.registry.setShortcut(std::nullopt, m_name);
    if (m_onChange) {
        m_onChange(std::nullopt);
    }
}

void ShortcutRecorder::clearButtonPressed()
{
    // The button is about to disappear; who reached it by keys finds himself in the field that it belongs to.
    if (m_clearButton->hasFocus()) {
        setFocus(Qt::TabFocusReason);
    } else {
        m_keepsFocus = false;
        clearFocus();
    }
    clear();
    endRecording();
}

void ShortcutRecorder::refreshText()
{
    const auto shortcut = m_services.registry.getShortcut(m_name);
    const QString text = shortcut ? presentableDescription(*shortcut, m_services.layout) : QString();
    m_clearButton->setVisible(!text.isEmpty());
    if (m_text == text) {
        return;
    }
    m_text = text;
    updateGeometry();
    update();
    QAccessibleValueChangeEvent changed(this, m_text);
    QAccessible::updateAccessibility(&changed);
}

bool ShortcutRecorder::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate) {
        endRecording();
    }
    return QWidget::event(event);
}

bool ShortcutRecorder::eventFilter(QObject* watched, QEvent* event)
{
    if (m_state == State::Recording && event->type() == QEvent::MouseButtonRelease &&
        watched->isWidgetType()) {
        const auto& release = static_cast<const QMouseEvent&>(*event);
        const bool isClick = release.button() == Qt::LeftButton || release.button() == Qt::RightButton;
        if (isClick && !isOnField(*static_cast<QWidget*>(watched), release)) {
            endRecording();
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool ShortcutRecorder::isOnField(const QWidget& clicked, const QMouseEvent& event) const
{
    const QRect field = rect().adjusted(-clickTolerance, -clickTolerance, clickTolerance, clickTolerance);
    // By the place in the window: where the window is on the screen the toolkit may not have heard yet.
    return clicked.window() == window() && field.contains(mapFrom(window(), event.scenePosition().toPoint()));
}

void ShortcutRecorder::focusInEvent(QFocusEvent* event)
{
    m_showsFocusRing = focusRingIsShown(event->reason(), m_showsFocusRing);
    QWidget::focusInEvent(event);
    update();
}

void ShortcutRecorder::focusOutEvent(QFocusEvent* event)
{
    if (m_state == State::Recording) {
        endRecording();
    }
    QWidget::focusOutEvent(event);
    update();
}

void ShortcutRecorder::hideEvent(QHideEvent* event)
{
    endRecording();
    QWidget::hideEvent(event);
}

void ShortcutRecorder::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Select:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat()) {
            start(Qt::TabFocusReason);
        }
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void ShortcutRecorder::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        start(Qt::MouseFocusReason);
    } else {
        QWidget::mousePressEvent(event);
    }
}

void ShortcutRecorder::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_clearButton->setGeometry(width() - clearButtonMargin - clearButtonSide,
                               (height() - clearButtonSide) / 2, clearButtonSide, clearButtonSide);
}

void ShortcutRecorder::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Scheme scheme = Appearance::of(this);
    fillRounded(painter, rect(), cornerRadius, theme::field.in(scheme));
    if (isRecording()) {
        fillRounded(painter, rect(), cornerRadius, theme::accent.opacity(recordingTint).in(scheme));
        strokeInside(painter, rect(), cornerRadius, theme::focusRing.in(scheme), recordingRing);
    } else {
        strokeInside(painter, rect(), cornerRadius, theme::textThird.opacity(borderOpacity).in(scheme), 1);
        if (hasFocus() && m_showsFocusRing) {
            drawFocusRing(painter, rect(), cornerRadius, scheme);
        }
    }
    // While a new one is awaited, the shortcut steps back.
    const bool isCurrent = !m_text.isEmpty() && !isRecording();
    painter.setPen((isCurrent ? theme::textPrimary : theme::textSecond).in(scheme));
    drawShortcut(painter, rect(), m_text.isEmpty() ? placeholder() : m_text, fieldFont());
}

} // namespace tintwick::KeyboardShortcuts

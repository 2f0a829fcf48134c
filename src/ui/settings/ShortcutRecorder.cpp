#include "ShortcutRecorder.h"

#include "Accessibility.h"
#include "AccessibleHotkeyField.h"
#include "Alert.h"
#include "Appearance.h"
#include "Button.h"
#include "Clickable.h"
#include "KeyRecording.h"
#include "Overlay.h"
#include "Paint.h"
#include "RecordedKey.h"
#include "ShortcutRegistry.h"
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

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int fieldHeight = 24;
constexpr double cornerRadius = 7;
constexpr double borderOpacity = 0.6;
constexpr double recordingTint = 0.2;
constexpr double recordingRing = 2;
constexpr int clearButtonSide = 14;
constexpr int clearButtonMargin = (fieldHeight - clearButtonSide) / 2;
/// On both sides, so that the text is centred beside the clear button.
constexpr int textMargin = clearButtonSide + 2 * clearButtonMargin;
constexpr int placeholderMargin = 10;
/// A click this far outside still counts as on the field.
constexpr int clickTolerance = 3;

QString recordShortcut()
{
    return ShortcutRecorder::tr("Record Shortcut");
}

QString pressShortcut()
{
    return ShortcutRecorder::tr("Press Shortcut");
}

QFont fieldFont()
{
    return theme::font(13);
}

int widthOf(const QString& text)
{
    return static_cast<int>(std::ceil(widthOfShortcut(text, fieldFont())));
}

QString describeField(const ShortcutRecorder& recorder)
{
    return recorder.message().isEmpty() ? recorder.placeholder() : recorder.message();
}

QAccessibleInterface* accessibleField(QWidget& widget)
{
    auto& recorder = static_cast<ShortcutRecorder&>(widget);
    return new AccessibleHotkeyField(recorder, {[&recorder] { return recorder.text(); },
                                                [&recorder] { return describeField(recorder); },
                                                [&recorder] { recorder.startRecording(); }});
}

} // namespace

ShortcutRecorder::ShortcutRecorder(const RecorderServices& services, ShortcutAction action, QWidget& panel)
    : m_services(services)
    , m_action(action)
    , m_panel(panel)
{
    describeToScreenReaders<ShortcutRecorder>(accessibleField);
    setAccessibleName(tr("%1 shortcut").arg(titleOf(action)));
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_clearButton = plainButton(
        tr("Clear Shortcut"), [this] { clearButtonPressed(); },
        row(fixedSize(clearButtonSide, clearButtonSide), centered(),
            ground(theme::textThird, clearButtonSide / 2.0),
            symbol(u"close"_s, 7, SymbolWeight::Semibold, theme::field)),
        clearButtonSide / 2.0);
    m_clearButton->setParent(this);
    refreshText();
    resize(sizeHint());

    if (!canRecord()) {
        setToolTip(opensDesktopDialog() ? tr("The desktop's settings choose this shortcut.")
                                        : tr("This desktop does not let Tintwick record shortcuts."));
    }

    connect(&m_services.shortcuts, &ShortcutRegistry::shortcutChanged, this, [this](ShortcutAction changed) {
        if (changed == m_action) {
            refreshText();
        }
    });
    connect(&m_services.shortcuts, &ShortcutRegistry::keyboardLayoutChanged, this,
            &ShortcutRecorder::refreshText);
    connect(&m_services.shortcuts, &ShortcutRegistry::refusalChanged, this, [this](ShortcutAction changed) {
        if (changed == m_action) {
            refreshMessage();
        }
    });
    if (m_services.keys) {
        connectToKeys(*m_services.keys);
    }
}

// All recorders share one recording. A recorder is in the state Recording while it runs for this one.
void ShortcutRecorder::connectToKeys(const KeyRecording& keys)
{
    connect(&keys, &KeyRecording::keyPressed, this, [this](const KeyPress& press) {
        if (m_state == State::Recording) {
            handleKey(press);
        }
    });
    connect(&keys, &KeyRecording::lost, this, [this] {
        if (m_state == State::Recording) {
            endRecording();
        }
    });
}

ShortcutRecorder::~ShortcutRecorder()
{
    endRecording();
}

QString ShortcutRecorder::placeholder() const
{
    if (canRecord()) {
        return isRecording() ? pressShortcut() : recordShortcut();
    }
    return opensDesktopDialog() ? tr("Set in Desktop") : tr("Not Available");
}

QString ShortcutRecorder::message() const
{
    const auto refusal = m_services.shortcuts.refusal(m_action);
    if (refusal == ShortcutRefusal::Reason::Taken) {
        return tr("Taken by another program");
    }
    return refusal == ShortcutRefusal::Reason::NoSuchKey ? tr("Not on this keyboard") : QString();
}

bool ShortcutRecorder::canRecord() const
{
    return m_services.keys && m_services.shortcuts.keyChoice() == GlobalShortcuts::KeyChoice::Program;
}

bool ShortcutRecorder::opensDesktopDialog() const
{
    return m_services.shortcuts.keyChoice() == GlobalShortcuts::KeyChoice::DesktopDialog;
}

QSize ShortcutRecorder::sizeHint() const
{
    if (!m_text.isEmpty()) {
        return {std::max(minimumWidth, widthOf(m_text) + 2 * textMargin), fieldHeight};
    }
    // The field keeps its width when recording begins.
    const int width =
        canRecord() ? std::max(widthOf(recordShortcut()), widthOf(pressShortcut())) : widthOf(placeholder());
    return {std::max(minimumWidth, width + 2 * placeholderMargin), fieldHeight};
}

void ShortcutRecorder::startRecording()
{
    start(Qt::OtherFocusReason);
}

void ShortcutRecorder::start(Qt::FocusReason reason)
{
    // A screen reader can press the field below an alert, which may belong to another recorder.
    if (m_state != State::Idle || !isVisible() || Overlay::of(m_panel)) {
        return;
    }
    if (opensDesktopDialog()) {
        m_services.shortcuts.configure();
        return;
    }
    if (!canRecord()) {
        QApplication::beep();
        return;
    }
    const bool hadFocus = hasFocus();
    setFocus(reason);
    if (m_services.keys->begin() == KeyRecording::Outcome::Refused) {
        QApplication::beep();
        if (!hadFocus) {
            clearFocus();
        }
        return;
    }
    m_keepsFocus = hadFocus;
    setState(State::Recording);
    m_services.shortcuts.setPaused(true);
    qApp->installEventFilter(this);
}

void ShortcutRecorder::endRecording()
{
    if (m_state == State::Idle) {
        return;
    }
    setState(State::Idle);
    qApp->removeEventFilter(this);
    m_services.keys->end();
    if (m_alert) {
        m_alert->dismiss();
    }
    m_services.shortcuts.setPaused(false);
    if (!m_keepsFocus) {
        clearFocus();
    }
}

void ShortcutRecorder::setState(State state)
{
    m_state = state;
    update();
    reportDescription();
}

void ShortcutRecorder::reportDescription()
{
    QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
}

void ShortcutRecorder::handleKey(const KeyPress& press)
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
        ask(tr("This shortcut belongs to the menu item “%1”.").arg(key.menuItemTitle), {}, {tr("OK")}, {});
        break;
    case RecordedKey::Meaning::UsedBySystem:
        ask(tr("The desktop or another program uses this shortcut."),
            tr("Most shortcuts of the desktop can be changed in its keyboard settings."),
            {tr("OK"), tr("Use Anyway")}, [this, shortcut = key.shortcut] { accept(shortcut); });
        break;
    case RecordedKey::Meaning::Accept:
        accept(key.shortcut);
        break;
    }
}

// Recording ends while the alert is shown, because the user can answer it with keys.
void ShortcutRecorder::ask(const QString& message, const QString& informativeText, const QStringList& buttons,
                           const std::function<void()>& onSecondButton)
{
    setState(State::Asking);
    m_services.keys->end();
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
    if (m_services.keys->begin() == KeyRecording::Outcome::Refused) {
        QApplication::beep();
        endRecording();
        return;
    }
    setState(State::Recording);
}

void ShortcutRecorder::accept(const Shortcut& shortcut)
{
    m_services.shortcuts.setShortcut(m_action, shortcut);
    endRecording();
}

void ShortcutRecorder::clear()
{
    m_services.shortcuts.setShortcut(m_action, std::nullopt);
}

void ShortcutRecorder::clearButtonPressed()
{
    // The button disappears. When it has the focus, the focus moves to the field.
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
    const QString text = m_services.shortcuts.text(m_action);
    m_clearButton->setVisible(!text.isEmpty() && canRecord());
    if (m_text == text) {
        return;
    }
    m_text = text;
    updateGeometry();
    update();
    QAccessibleValueChangeEvent changed(this, m_text);
    QAccessible::updateAccessibility(&changed);
}

void ShortcutRecorder::refreshMessage()
{
    update();
    Q_EMIT messageChanged();
    reportDescription();
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
    // Positions in the window, because the toolkit may not know yet where the window manager placed it.
    return clicked.window() == window() && field.contains(mapFrom(window(), event.scenePosition().toPoint()));
}

void ShortcutRecorder::focusInEvent(QFocusEvent* event)
{
    m_showsFocusRing = Clickable::focusRingIsShown(event->reason(), m_showsFocusRing);
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

void ShortcutRecorder::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_services.shortcuts.retryRefused();
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
    // The old shortcut while recording, and a shortcut that does not work, are drawn in the secondary colour.
    const bool isCurrent = !m_text.isEmpty() && !isRecording() && !m_services.shortcuts.refusal(m_action);
    painter.setPen((isCurrent ? theme::textPrimary : theme::textSecond).in(scheme));
    drawShortcut(painter, rect(), m_text.isEmpty() ? placeholder() : m_text, fieldFont());
}

} // namespace tintwick

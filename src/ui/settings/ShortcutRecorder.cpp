#include "ShortcutRecorder.h"

#include "Accessibility.h"
#include "AccessibleHotkeyField.h"
#include "Alert.h"
#include "Appearance.h"
#include "Button.h"
#include "Clickable.h"
#include "KeyRecording.h"
#include "Overlay.h"
#include "RecordedKey.h"
#include "RecorderField.h"
#include "RecorderTexts.h"
#include "ShortcutRegistry.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"
#include "ToolTip.h"

#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <algorithm>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr int clearButtonSide = 14;
constexpr int clearButtonMargin = (RecorderField::height - clearButtonSide) / 2;
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

QString describeField(const ShortcutRecorder& recorder)
{
    return recorder.message().isEmpty() ? recorder.placeholder() : recorder.message();
}

bool showsToolTip(QWidget& recorder, const QEvent& event)
{
    if (event.type() != QEvent::ToolTip) {
        return false;
    }
    showToolTip(recorder, static_cast<const QHelpEvent&>(event).globalPos());
    return true;
}

QAccessibleInterface* accessibleField(QWidget& widget)
{
    auto& recorder = static_cast<ShortcutRecorder&>(widget);
    return new AccessibleHotkeyField(recorder, {[&recorder] { return recorder.words(); },
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

    connect(&m_services.shortcuts, &ShortcutRegistry::shortcutChanged, this, [this](ShortcutAction changed) {
        if (changed == m_action) {
            refreshText();
        }
    });
    connect(&m_services.shortcuts, &ShortcutRegistry::textsChanged, this, &ShortcutRecorder::refreshText);
    connect(&m_services.shortcuts, &ShortcutRegistry::refusalChanged, this, [this](ShortcutAction changed) {
        if (changed == m_action) {
            refreshMessage();
        }
    });
    if (m_services.keys) {
        connectToKeys(*m_services.keys);
    }
    connect(&m_limits, &RecordingLimits::reached, this, &ShortcutRecorder::endRecording);
}

// All recorders share one recording. A recorder is in the state Recording while it runs for this one.
void ShortcutRecorder::connectToKeys(const KeyRecording& keys)
{
    connect(&keys, &KeyRecording::keyPressed, this, [this](const KeyPress& press) {
        if (m_state == State::Recording) {
            m_limits.keyPressed();
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

QString ShortcutRecorder::words() const
{
    return m_services.shortcuts.words(m_action);
}

QString ShortcutRecorder::placeholder() const
{
    if (canRecord()) {
        return isRecording() ? pressShortcut() : recordShortcut();
    }
    return tr("Not Available");
}

QString ShortcutRecorder::message() const
{
    if (!m_hint.isEmpty()) {
        return m_hint;
    }
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

QSize ShortcutRecorder::sizeHint() const
{
    const auto widthFor = [](const QString& text, int margin) {
        return std::max(minimumWidth, RecorderField::widthOf(text) + 2 * margin);
    };
    if (!m_text.isEmpty()) {
        return {widthFor(m_text, textMargin), RecorderField::height};
    }
    // The field keeps its width when recording begins.
    const int width = canRecord() ? std::max(widthFor(recordShortcut(), placeholderMargin),
                                             widthFor(pressShortcut(), placeholderMargin))
                                  : widthFor(placeholder(), placeholderMargin);
    return {width, RecorderField::height};
}

QSize ShortcutRecorder::minimumSizeHint() const
{
    return {minimumWidth, RecorderField::height};
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
    if (!canRecord()) {
        QApplication::beep();
        return;
    }
    const bool hadFocus = hasFocus();
    setFocus(reason);
    if (m_services.keys->begin() == KeyRecording::Outcome::Refused) {
        QApplication::beep();
        setHint(tr("Another program holds the keyboard"));
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
    if (state == State::Recording) {
        m_limits.start();
    } else {
        m_limits.stop();
    }
    setHint({});
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
    const RecordedKey key = recordedKey(press, m_action, m_services);
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
        setHint(refusalText(key.refusal.value_or(RecordedKey::Refusal::UnknownKey)));
        break;
    case RecordedKey::Meaning::UsedByMenuItem:
    case RecordedKey::Meaning::UsedBySystem:
    case RecordedKey::Meaning::UsedByOtherAction:
    case RecordedKey::Meaning::UsedByMostPrograms:
        ask(key);
        break;
    case RecordedKey::Meaning::Accept:
        accept(key.shortcut);
        break;
    }
}

// Recording ends while the alert is shown, because the user can answer it with keys.
void ShortcutRecorder::ask(const RecordedKey& key)
{
    setState(State::Asking);
    m_services.keys->end();
    m_alert = showAlert(m_panel, alertAbout(key, m_services.shortcuts),
                        [recorder = QPointer(this), shortcut = key.shortcut](int button) {
                            if (!recorder || recorder->m_state != State::Asking) {
                                return;
                            }
                            if (button == 0) {
                                recorder->goOnRecording();
                            } else {
                                recorder->accept(shortcut);
                            }
                        });
}

void ShortcutRecorder::goOnRecording()
{
    m_alert = nullptr;
    if (m_services.keys->begin() == KeyRecording::Outcome::Refused) {
        QApplication::beep();
        endRecording();
        setHint(tr("Another program holds the keyboard"));
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
    setToolTip(toolTipText());
    if (m_text == text) {
        return;
    }
    m_text = text;
    updateGeometry();
    update();
    QAccessibleValueChangeEvent changed(this, words());
    QAccessible::updateAccessibility(&changed);
}

QString ShortcutRecorder::toolTipText() const
{
    return canRecord() ? words() : tr("This desktop does not let Tintwick record shortcuts.");
}

void ShortcutRecorder::setHint(const QString& hint)
{
    if (m_hint != hint) {
        m_hint = hint;
        refreshMessage();
    }
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
    return showsToolTip(*this, *event) || QWidget::event(event);
}

bool ShortcutRecorder::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        if (m_state == State::Recording && watched->isWindowType()) {
            return clickedWhileRecording(*watched, static_cast<const QMouseEvent&>(*event));
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// The window gets a click before the toolkit moves the focus and before a widget does. A click that does not end the
// recording must not move the focus, so nothing gets it.
bool ShortcutRecorder::clickedWhileRecording(const QObject& clicked, const QMouseEvent& event)
{
    // Positions in the window, because the toolkit may not know yet where the window manager placed it.
    const QPoint place = mapFrom(window(), event.position().toPoint());
    const bool isInWindow = &clicked == window()->windowHandle();
    if (isInWindow && rect().contains(place)) {
        const bool isOnClearButton = m_clearButton->isVisible() && m_clearButton->geometry().contains(place);
        return event.button() != Qt::LeftButton || !isOnClearButton;
    }
    const bool isClick = event.button() == Qt::LeftButton || event.button() == Qt::RightButton;
    const QRect field = rect().adjusted(-clickTolerance, -clickTolerance, clickTolerance, clickTolerance);
    if (!isClick || (isInWindow && field.contains(place))) {
        return true;
    }
    if (event.type() == QEvent::MouseButtonRelease) {
        endRecording();
    }
    return false;
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
    setHint({});
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
    RecorderField field{m_text.isEmpty() ? placeholder() : m_text};
    field.isCurrent = !m_text.isEmpty() && !isRecording() && !m_services.shortcuts.refusal(m_action);
    field.isRecording = isRecording();
    field.hasFocusRing = hasFocus() && m_showsFocusRing;
    field.endMargin = m_clearButton->isVisible() ? textMargin : 0;
    field.paint(painter, rect(), Appearance::of(this));
}

} // namespace tintwick

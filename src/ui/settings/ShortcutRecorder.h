#pragma once

#include "RecorderServices.h"
#include "RecordingLimits.h"
#include "ShortcutAction.h"

#include <QPointer>
#include <QWidget>

#include <chrono>
#include <cstdint>

namespace tintwick {

class KeyRecording;
class Overlay;
class PlainButton;
struct KeyPress;
struct RecordedKey;

/// The field in which the user sets or removes the shortcut of one action. It shows the shortcut. After a click, or Return
/// or Space, it records the next combination and stores it at once. Where the desktop does not allow that, the field shows
/// the shortcut and cannot be changed.
class ShortcutRecorder final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int minimumWidth = 130;

    /// Alerts are shown over `panel`, which must outlive the recorder.
    ShortcutRecorder(const RecorderServices& services, ShortcutAction action, QWidget& panel);
    ~ShortcutRecorder() override;

    /// What the field shows; empty when the action has no shortcut.
    [[nodiscard]] QString text() const { return m_text; }
    /// The same in words, as screen readers and the tool tip say it.
    [[nodiscard]] QString words() const;
    /// What the field shows when there is no text. Screen readers read it as the description of the field.
    [[nodiscard]] QString placeholder() const;
    /// What is wrong, in words: why a key was refused, or why the shortcut does not work. Empty when nothing is.
    [[nodiscard]] QString message() const;
    [[nodiscard]] bool isRecording() const { return m_state != State::Idle; }

    /// Recording ends after this time without a key; 30 seconds at first.
    void setPatience(std::chrono::milliseconds patience) { m_limits.setPatience(patience); }

    /// Does what a click on the field does. Does nothing while the field is hidden or below an alert; beeps when the
    /// keyboard cannot be taken.
    void startRecording();

    [[nodiscard]] QSize sizeHint() const override;
    /// In less room than sizeHint() the text is drawn smaller or cut.
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void messageChanged();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    enum class State : std::uint8_t {
        Idle,
        Recording,
        /// An alert asks about the recorded key; it has the keyboard.
        Asking,
    };

    void connectToKeys(const KeyRecording& keys);
    void handleKey(const KeyPress& press);

    void start(Qt::FocusReason reason);
    void endRecording();
    void setState(State state);
    void ask(const RecordedKey& key);
    void goOnRecording();
    void accept(const Shortcut& shortcut);
    void clear();
    void clearButtonPressed();
    void refreshText();
    [[nodiscard]] QString toolTipText() const;
    void setHint(const QString& hint);
    void refreshMessage();
    void reportDescription();
    [[nodiscard]] bool canRecord() const;
    /// Ends the recording unless the click is on the field or close to it. Returns whether the click ends here.
    [[nodiscard]] bool clickedWhileRecording(const QObject& clicked, const QMouseEvent& event);

    RecorderServices m_services;
    ShortcutAction m_action;
    QWidget& m_panel;
    QString m_text;
    /// Why the last key, or the recording, was refused; empty when it was not.
    QString m_hint;
    RecordingLimits m_limits;
    State m_state = State::Idle;
    /// True when the field had the focus before recording began; then it keeps the focus afterwards.
    bool m_keepsFocus = false;
    bool m_showsFocusRing = false;
    QPointer<Overlay> m_alert;
    PlainButton* m_clearButton = nullptr;
};

} // namespace tintwick

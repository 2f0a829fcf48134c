#pragma once

#include "KeyRecording.h"
#include "Name.h"
#include "RecorderServices.h"

#include <QPointer>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>

namespace tintwick {
class PlainButton;
class Overlay;
} // namespace tintwick

namespace tintwick::KeyboardShortcuts {

/// The field in which the user sets or clears the shortcut of one name. It shows the shortcut; clicked, or reached by
/// Tab and pressed, it takes the whole keyboard and records the next combination. What it records is stored at once.
class ShortcutRecorder final : public QWidget, private KeyRecording::Listener
{
    Q_OBJECT

public:
    using OnChange = std::function<void(const std::optional<Shortcut>&)>;

    static constexpr int minimumWidth = 130;

    /// `title` is what the shortcut does, for screen readers: "Activate Picker". Alerts come up as sheets over `panel`.
    /// `onChange` is called after the user changed the shortcut; none when it was removed.
    ShortcutRecorder(RecorderServices services, Name name, const QString& title, QWidget& panel,
                     OnChange onChange = {});
    ~ShortcutRecorder() override;

    /// What it shows: the shortcut, or nothing when the name has none.
    [[nodiscard]] QString text() const { return m_text; }
    /// What it shows instead where there is no text, and tells screen readers besides.
    [[nodiscard]] QString placeholder() const;
    [[nodiscard]] bool isRecording() const { return m_state != State::Idle; }

    /// As a click on the field. Does nothing while it is not shown or lies below a sheet, and sounds the alert when the keyboard cannot be had.
    void startRecording();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

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

private:
    enum class State : std::uint8_t {
        Idle,
        Recording,
        /// Recording, but the keyboard is the alert's for the time being.
        Asking,
    };

    void keyPressed(const KeyPress& press) override;
    void recordingLost() override { endRecording(); }

    void start(Qt::FocusReason reason);
    void endRecording();
    void setState(State state);
    void ask(const QString& message, const QString& informativeText, const QStringList& buttons,
             const std::function<void()>& onSecondButton);
    void goOnRecording();
    void accept(const Shortcut& shortcut);
    void clear();
    void clearButtonPressed();
    void refreshText();
    [[nodiscard]] bool isOnField(const QWidget& clicked, const QMouseEvent& event) const;

    RecorderServices m_services;
    Name m_name;
    QWidget& m_panel;
    OnChange m_onChange;
    QString m_text;
    State m_state = State::Idle;
    /// Whether the focus was here before recording began, so that it stays when recording ends.
    bool m_keepsFocus = false;
    bool m_showsFocusRing = false;
    QPointer<Overlay> m_alert;
    PlainButton* m_clearButton = nullptr;
};

} // namespace tintwick::KeyboardShortcuts

#pragma once

#include "PickingInput.h"

#include <QStringList>

namespace tintwick::test {

/// A pointer and a keyboard that the test moves and presses. What it does reaches the listener at once, and nobody when
/// no pick is under way.
class ScriptedPickingInput final : public PickingInput
{
public:
    explicit ScriptedPickingInput(QStringList& journal)
        : m_journal(journal)
    {
    }

    Outcome outcome = Outcome::Started;
    DesktopPoint position;

    [[nodiscard]] bool isOn() const { return m_listener != nullptr; }
    void move(DesktopPoint to);
    void press(PointerButton button, DesktopPoint at);
    void scroll(ScrollDelta delta);
    void key(int keyCode, int modifiers = 0);
    void repeatKey(int keyCode, int modifiers = 0);
    /// The system takes the input away.
    void lose();

    [[nodiscard]] Outcome begin(Listener& listener) override;
    void end() override;
    [[nodiscard]] DesktopPoint pointerPosition() const override { return position; }
    void movePointerBy(double dx, double dy) override;

private:
    QStringList& m_journal;
    Listener* m_listener = nullptr;
};

} // namespace tintwick::test

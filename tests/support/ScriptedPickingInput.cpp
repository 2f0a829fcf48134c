#include "support/ScriptedPickingInput.h"

namespace tintwick::test {

void ScriptedPickingInput::move(DesktopPoint to)
{
    position = to;
    if (m_listener) {
        m_listener->pointerMoved(to);
    }
}

void ScriptedPickingInput::press(PointerButton button, DesktopPoint at)
{
    if (m_listener) {
        m_listener->buttonPressed(button, at);
    }
}

void ScriptedPickingInput::scroll(ScrollDelta delta)
{
    if (m_listener) {
        m_listener->scrolled(delta);
    }
}

void ScriptedPickingInput::key(int keyCode, int modifiers)
{
    if (m_listener) {
        m_listener->keyPressed({keyCode, modifiers, false});
    }
}

void ScriptedPickingInput::repeatKey(int keyCode, int modifiers)
{
    if (m_listener) {
        m_listener->keyPressed({keyCode, modifiers, true});
    }
}

void ScriptedPickingInput::lose()
{
    if (m_listener) {
        m_listener->inputLost();
    }
}

PickingInput::Outcome ScriptedPickingInput::begin(Listener& listener)
{
    if (outcome == Outcome::Refused) {
        m_journal << QStringLiteral("input refused");
        return outcome;
    }
    m_journal << QStringLiteral("begin input");
    m_listener = &listener;
    return outcome;
}

void ScriptedPickingInput::end()
{
    if (m_listener) {
        m_journal << QStringLiteral("end input");
        m_listener = nullptr;
    }
}

void ScriptedPickingInput::movePointerBy(double dx, double dy)
{
    move({position.x + dx, position.y + dy});
}

} // namespace tintwick::test

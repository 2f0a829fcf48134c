#include "support/KeyboardInput.h"

#include <xcb/xtest.h>

// The header names a member "explicit".
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

#include <algorithm>
#include <iterator>

namespace tintwick {

namespace {

constexpr std::uint8_t allModifiers = 0xFF;

} // namespace

KeyboardInput::KeyboardInput(const QByteArray& display)
    : m_connection(display)
{
    auto* const c = m_connection.get();
    const ServerReply<xcb_xkb_use_extension_reply_t> xkb(
        xcb_xkb_use_extension_reply(c, xcb_xkb_use_extension(c, 1, 0), nullptr));
}

KeyboardInput::~KeyboardInput()
{
    const auto down = m_down;
    for (const int key : down) {
        release(key);
    }
    lock(0, 0);
}

void KeyboardInput::press(int key)
{
    m_down.insert(key);
    fake(XCB_KEY_PRESS, key);
}

void KeyboardInput::release(int key)
{
    m_down.erase(key);
    fake(XCB_KEY_RELEASE, key);
}

void KeyboardInput::tap(int key)
{
    press(key);
    release(key);
}

void KeyboardInput::chord(std::initializer_list<int> keys)
{
    for (const int key : keys) {
        press(key);
    }
    std::for_each(std::rbegin(keys), std::rend(keys), [this](int key) { release(key); });
}

std::uint16_t KeyboardInput::modifiers()
{
    auto* const c = m_connection.get();
    const ServerReply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(c, xcb_query_pointer(c, m_connection.root()), nullptr));
    return pointer ? pointer->mask & allModifiers : 0;
}

void KeyboardInput::chooseGroup(std::uint8_t group)
{
    lock(0, group);
}

void KeyboardInput::lock(std::uint8_t modifiers, std::uint8_t group)
{
    xcb_xkb_latch_lock_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, allModifiers, modifiers, 1, group,
                             0, 0, 0);
    m_connection.sync();
}

void KeyboardInput::fake(std::uint8_t type, int key)
{
    constexpr int keycodeOffset = 8;
    xcb_test_fake_input(m_connection.get(), type, static_cast<std::uint8_t>(key + keycodeOffset),
                        XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    m_connection.sync();
}

} // namespace tintwick

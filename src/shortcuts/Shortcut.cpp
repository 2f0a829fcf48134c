#include "Shortcut.h"

#include "EvdevKeys.h"
#include "Modifiers.h"

#include <QKeyEvent>

#include <nlohmann/json.hpp>

#include <utility>

namespace tintwick::KeyboardShortcuts {

namespace {

constexpr auto keyCodeMember = "carbonKeyCode";
constexpr auto modifiersMember = "carbonModifiers";

std::uint32_t eventFlagsOf(Qt::KeyboardModifiers modifiers)
{
    return (modifiers.testFlag(Qt::ShiftModifier) ? eventflag::shift : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? eventflag::control : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? eventflag::alt : 0) |
           (modifiers.testFlag(Qt::MetaModifier) ? eventflag::super : 0);
}

std::optional<int> integerMember(const nlohmann::ordered_json& object, const char* name)
{
    const auto member = object.find(name);
    if (member == object.end() || !member->is_number_integer()) {
        return std::nullopt;
    }
    // Large numbers are kept unsigned and would wrap into the signed range.
    const bool fits = member->is_number_unsigned() ? std::in_range<int>(member->get<std::uint64_t>())
                                                   : std::in_range<int>(member->get<std::int64_t>());
    return fits ? std::optional(member->get<int>()) : std::nullopt;
}

} // namespace

Shortcut Shortcut::fromKey(Key key, std::uint32_t eventFlags)
{
    return {key.rawValue, KeyboardShortcuts::carbonModifiers(eventFlags)};
}

Shortcut Shortcut::fromCarbon(int keyCode, int modifiers)
{
    return {keyCode, normalizedCarbonModifiers(modifiers)};
}

std::optional<Shortcut> Shortcut::fromEvent(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease) {
        return std::nullopt;
    }
    const auto& keyEvent = static_cast<const QKeyEvent&>(event);
    // X11 and Wayland both number keys by the kernel's code + 8.
    constexpr int scanCodeOffset = 8;
    const auto keyCode = keyCodeForEvdev(static_cast<int>(keyEvent.nativeScanCode()) - scanCodeOffset);
    if (!keyCode) {
        return std::nullopt;
    }
    return fromKey({*keyCode}, eventFlagsOf(keyEvent.modifiers()));
}

std::optional<Shortcut> Shortcut::fromJson(const QString& text)
{
    const auto utf8 = text.toUtf8();
    constexpr bool throwing = false;
    const auto json = nlohmann::ordered_json::parse(utf8.begin(), utf8.end(), nullptr, throwing);
    if (!json.is_object()) {
        return std::nullopt;
    }
    const auto keyCode = integerMember(json, keyCodeMember);
    const auto modifiers = integerMember(json, modifiersMember);
    if (!keyCode || !modifiers) {
        return std::nullopt;
    }
    return Shortcut{*keyCode, *modifiers};
}

std::uint32_t Shortcut::modifiers() const
{
    return eventFlags(carbonModifiers);
}

QString Shortcut::toJson() const
{
    const nlohmann::ordered_json json{{keyCodeMember, carbonKeyCode}, {modifiersMember, carbonModifiers}};
    return QString::fromStdString(json.dump());
}

} // namespace tintwick::KeyboardShortcuts

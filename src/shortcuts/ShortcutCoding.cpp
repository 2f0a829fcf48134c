#include "ShortcutCoding.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <utility>

namespace tintwick {

namespace {

constexpr auto keyCodeMember = "carbonKeyCode";
constexpr auto modifiersMember = "carbonModifiers";

std::optional<int> integerMember(const nlohmann::ordered_json& object, const char* name)
{
    const auto member = object.find(name);
    if (member == object.end() || !member->is_number_integer()) {
        return std::nullopt;
    }
    // A large number is stored as unsigned and would wrap in the signed type.
    const bool fits = member->is_number_unsigned() ? std::in_range<int>(member->get<std::uint64_t>())
                                                   : std::in_range<int>(member->get<std::int64_t>());
    return fits ? std::optional(member->get<int>()) : std::nullopt;
}

} // namespace

QString toJson(const Shortcut& shortcut)
{
    const nlohmann::ordered_json json{{keyCodeMember, shortcut.keyCode},
                                      {modifiersMember, shortcut.modifiers}};
    return QString::fromStdString(json.dump());
}

std::optional<Shortcut> shortcutFromJson(const QString& text)
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

} // namespace tintwick

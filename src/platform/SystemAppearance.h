#pragma once

#include <cstdint>
#include <functional>

namespace tintwick {

/// What the user asked of every program on the desktop, as far as the desktop tells.
class SystemAppearance
{
public:
    enum class Scheme : std::uint8_t { Unknown, Light, Dark };

    using Changed = std::function<void()>;

    virtual ~SystemAppearance() = default;

    /// Begins to follow the desktop's choice without waiting for an answer: `changed` is called when one comes, and
    /// each time it is another from then on. Needs the application object.
    virtual void follow(Changed changed) = 0;

    /// Unknown until the desktop has answered, and where it has no such setting.
    [[nodiscard]] virtual Scheme scheme() const = 0;
    /// Whether the user wants windows to stand still.
    [[nodiscard]] virtual bool reducesMotion() const = 0;
};

} // namespace tintwick

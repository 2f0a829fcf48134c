#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace tintwick {

/// What the keys type in the user's current layout. In a layout without Latin letters, what they type in the layout that
/// shortcuts are read in.
class KeyboardLayout : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The text that a key types without modifiers, by its key code (see KeyCode.h); none when the key types nothing
    /// (dead keys, function keys) or does not exist.
    [[nodiscard]] virtual std::optional<QString> characterForKey(int keyCode) const = 0;

Q_SIGNALS:
    /// The user chose another layout or plugged in another keyboard.
    void changed();
};

} // namespace tintwick

#pragma once

#include <QString>

namespace tintwick {

/// What the user adds to the configuration of a desktop so that keys start a command of this program.
struct ConfigurationLine
{
    /// The line; the command alone where the desktop has a dialog for it or is not known.
    QString text;
    /// Where the text belongs, as a sentence for the user.
    QString hint;

    friend bool operator==(const ConfigurationLine&, const ConfigurationLine&) = default;
};

} // namespace tintwick

#pragma once

#include <QString>

#include <functional>

namespace tintwick {

/// A message below the header of the panel. Without a sentence it is none.
struct Notice
{
    QString sentence;
    /// The title and the action of a button; no title means no button.
    QString buttonTitle;
    std::function<void()> action;
};

} // namespace tintwick

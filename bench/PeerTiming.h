#pragma once

#include "support/PrivateDesktop.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tintwick {

/// Whether a window on the screen belongs to the process or has the class.
[[nodiscard]] bool ownsViewableWindow(PrivateDesktop& desktop, qint64 process, const QByteArray& windowClass);

/// The median time in ms from the start of another program to its first window on the screen.
[[nodiscard]] double startTime(PrivateDesktop& desktop, const QString& program, const QStringList& arguments);

} // namespace tintwick

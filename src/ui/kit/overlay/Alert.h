#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace tintwick {

class Overlay;

/// A message with buttons.
struct Alert
{
    QString message;
    /// Smaller text below the message; may be empty.
    QString informativeText;
    /// Titles. The first button is at the right; Return and Escape choose it.
    QStringList buttons;
};

/// Shows the alert as an overlay over `host`. Calls `answered` once, after the overlay has closed, with the index of the
/// pressed button, or with 0 when the overlay was closed in another way.
Overlay* showAlert(QWidget& host, const Alert& alert, std::function<void(int button)> answered);

} // namespace tintwick

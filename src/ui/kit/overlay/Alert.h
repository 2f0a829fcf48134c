#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace tintwick {

class Overlay;

/// A message that waits for an answer.
struct Alert
{
    QString message;
    /// In smaller letters below the message, or empty.
    QString informativeText;
    /// Titles. The first answers Return and Escape and stands at the right.
    QStringList buttons;
};

/// Shows the alert as an overlay over `host`. Calls `answered` once, after the overlay has closed, with the index of the
/// pressed button, or with 0 when the overlay was closed in another way.
Overlay* showAlert(QWidget& host, const Alert& alert, std::function<void(int button)> answered);

} // namespace tintwick

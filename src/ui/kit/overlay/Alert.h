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

/// Shows the alert as a sheet over `host`. `answered` is called once, after the sheet is gone, with the index of the
/// button; closing the sheet in any other way answers 0.
Overlay* showAlert(QWidget& host, const Alert& alert, std::function<void(int button)> answered);

} // namespace tintwick

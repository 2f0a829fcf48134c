#pragma once

#include <QDir>
#include <QString>

#include <functional>
#include <memory>

class QWidget;

namespace tintwick {

/// Draws a view into pictures: light and dark, at scale 1 and 2, as "NAME-light.png", "NAME-light@2x.png" and so on.
/// `make` creates the view; `arrange` is called after it is shown and before it is drawn.
void shoot(const QDir& folder, const QString& name, const std::function<std::unique_ptr<QWidget>()>& make,
           const std::function<void(QWidget&)>& arrange = {});

} // namespace tintwick

#pragma once

#include "Scheme.h"

#include <QObject>

class QPalette;
class QWidget;

namespace tintwick {

/// The scheme of a tree of widgets. The root owns one. Views below it call `of()` when they paint and are repainted when the
/// scheme changes.
class Appearance final : public QObject
{
    Q_OBJECT

public:
    /// Applies to `root` and all its present and future children.
    explicit Appearance(QWidget& root, Scheme scheme = Scheme::Light);

    [[nodiscard]] Scheme scheme() const { return m_scheme; }
    void setScheme(Scheme scheme);

    /// The scheme that applies to a widget; light if none was set.
    [[nodiscard]] static Scheme of(const QWidget* widget);

    /// The palette for a window outside the tree, such as a menu.
    [[nodiscard]] static QPalette palette(Scheme scheme);

Q_SIGNALS:
    void schemeChanged();

private:
    void apply();

    QWidget& m_root;
    Scheme m_scheme;
};

} // namespace tintwick

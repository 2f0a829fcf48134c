#pragma once

#include "Scheme.h"

#include <QObject>

class QPalette;
class QWidget;

namespace tintwick {

/// Which scheme a tree of widgets wears. The panel owns one for itself; every view below asks `of()` when it paints
/// and is repainted when the scheme changes.
class Appearance final : public QObject
{
    Q_OBJECT

public:
    /// `root` and all it will ever contain wear this appearance.
    explicit Appearance(QWidget& root, Scheme scheme = Scheme::Light);

    [[nodiscard]] Scheme scheme() const { return m_scheme; }
    void setScheme(Scheme scheme);

    /// The scheme around a widget; light where no appearance has been given.
    [[nodiscard]] static Scheme of(const QWidget* widget);

    /// For a window outside of the tree, such as a menu.
    [[nodiscard]] static QPalette palette(Scheme scheme);

Q_SIGNALS:
    void schemeChanged();

private:
    void apply();

    QWidget& m_root;
    Scheme m_scheme;
};

} // namespace tintwick

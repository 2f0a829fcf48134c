#include "Appearance.h"

#include "Theme.h"

#include <QPalette>
#include <QWidget>

namespace tintwick {

Appearance::Appearance(QWidget& root, Scheme scheme)
    : m_root(root)
    , m_scheme(scheme)
{
    apply();
}

void Appearance::setScheme(Scheme scheme)
{
    if (m_scheme == scheme) {
        return;
    }
    m_scheme = scheme;
    apply();
    Q_EMIT schemeChanged();
}

Scheme Appearance::of(const QWidget* widget)
{
    // Qt propagates palettes to children and notifies them of changes, so the palette carries the scheme.
    const QColor ground = widget->palette().color(QPalette::Window);
    return ground == theme::bg.in(Scheme::Dark) ? Scheme::Dark : Scheme::Light;
}

QPalette Appearance::palette(Scheme scheme)
{
    QPalette result;
    result.setColor(QPalette::Window, theme::bg.in(scheme));
    result.setColor(QPalette::WindowText, theme::textPrimary.in(scheme));
    result.setColor(QPalette::Base, theme::surface.in(scheme));
    result.setColor(QPalette::AlternateBase, theme::surfaceHigh.in(scheme));
    result.setColor(QPalette::Text, theme::textPrimary.in(scheme));
    result.setColor(QPalette::PlaceholderText, theme::textThird.in(scheme));
    result.setColor(QPalette::Button, theme::surfaceHigh.in(scheme));
    result.setColor(QPalette::ButtonText, theme::textPrimary.in(scheme));
    result.setColor(QPalette::Highlight, theme::accent.in(scheme));
    result.setColor(QPalette::HighlightedText, theme::white.in(scheme));
    result.setColor(QPalette::ToolTipBase, theme::surface.in(scheme));
    result.setColor(QPalette::ToolTipText, theme::textPrimary.in(scheme));
    return result;
}

void Appearance::apply()
{
    m_root.setPalette(palette(m_scheme));
}

} // namespace tintwick

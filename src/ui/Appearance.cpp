#include "ui/Appearance.h"

#include "ui/DS.h"

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
    // Palettes are handed down to every child and announced to it when they change, which is all that is needed.
    const QColor ground = widget->palette().color(QPalette::Window);
    return ground == DS::bg.in(Scheme::Dark) ? Scheme::Dark : Scheme::Light;
}

QPalette Appearance::palette(Scheme scheme)
{
    QPalette result;
    result.setColor(QPalette::Window, DS::bg.in(scheme));
    result.setColor(QPalette::WindowText, DS::textPrimary.in(scheme));
    result.setColor(QPalette::Base, DS::surface.in(scheme));
    result.setColor(QPalette::AlternateBase, DS::surfaceHigh.in(scheme));
    result.setColor(QPalette::Text, DS::textPrimary.in(scheme));
    result.setColor(QPalette::PlaceholderText, DS::textThird.in(scheme));
    result.setColor(QPalette::Button, DS::surfaceHigh.in(scheme));
    result.setColor(QPalette::ButtonText, DS::textPrimary.in(scheme));
    result.setColor(QPalette::Highlight, DS::accent.in(scheme));
    result.setColor(QPalette::HighlightedText, DS::white.in(scheme));
    result.setColor(QPalette::ToolTipBase, DS::surface.in(scheme));
    result.setColor(QPalette::ToolTipText, DS::textPrimary.in(scheme));
    return result;
}

void Appearance::apply()
{
    m_root.setPalette(palette(m_scheme));
}

} // namespace tintwick

#include "ui/Appearance.h"

#include "ui/DS.h"

#include <QPalette>
#include <QWidget>

namespace tintwick {

namespace {

QPalette paletteOf(Scheme scheme)
{
    QPalette palette;
    palette.setColor(QPalette::Window, DS::bg.in(scheme));
    palette.setColor(QPalette::WindowText, DS::textPrimary.in(scheme));
    palette.setColor(QPalette::Base, DS::surface.in(scheme));
    palette.setColor(QPalette::AlternateBase, DS::surfaceHigh.in(scheme));
    palette.setColor(QPalette::Text, DS::textPrimary.in(scheme));
    palette.setColor(QPalette::PlaceholderText, DS::textThird.in(scheme));
    palette.setColor(QPalette::Button, DS::surfaceHigh.in(scheme));
    palette.setColor(QPalette::ButtonText, DS::textPrimary.in(scheme));
    palette.setColor(QPalette::Highlight, DS::accent.in(scheme));
    palette.setColor(QPalette::HighlightedText, DS::white.in(scheme));
    palette.setColor(QPalette::ToolTipBase, DS::surface.in(scheme));
    palette.setColor(QPalette::ToolTipText, DS::textPrimary.in(scheme));
    return palette;
}

} // namespace

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

void Appearance::apply()
{
    m_root.setPalette(paletteOf(m_scheme));
}

} // namespace tintwick

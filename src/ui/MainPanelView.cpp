#include "ui/MainPanelView.h"

#include "state/AppState.h"
#include "state/Preferences.h"
#include "ui/CopiedPill.h"
#include "ui/DS.h"
#include "ui/DashboardView.h"
#include "ui/kit/Button.h"
#include "ui/kit/Label.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Rule.h"
#include "ui/kit/Stack.h"
#include "ui/kit/SymbolView.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

QString symbolOf(ColorSchemePref preference)
{
    switch (preference) {
    case ColorSchemePref::Light:
        return u"sun.max.fill"_s;
    case ColorSchemePref::Dark:
        return u"moon.fill"_s;
    case ColorSchemePref::Auto:
        break;
    }
    return u"circle.lefthalf.filled"_s;
}

Scheme schemeOfPalette()
{
    const QPalette palette = QGuiApplication::palette();
    const bool isDark =
        palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    return isDark ? Scheme::Dark : Scheme::Light;
}

} // namespace

MainPanelView::MainPanelView(AppState& appState)
    : m_appState(appState)
    , m_appearance(*this)
{
    setFixedSize(DS::panelSize);
    setContent(column(panelHeader(), rule(), m_dashboard = new DashboardView(m_appState, *this)));
    applyColorScheme();
}

QWidget* MainPanelView::panelHeader()
{
    return row(gap(10), padding(14, 10), label(u"Tintwick"_s, DS::font(18, QFont::Bold)), spacer(),
               new CopiedPill(m_appState), colorSchemeToggle());
}

QWidget* MainPanelView::colorSchemeToggle()
{
    m_schemeSymbol = symbol({}, 14, SymbolWeight::Medium, DS::textSecond);
    m_schemeToggle = plainButton(
        {}, [this] { cycleColorScheme(); },
        row(fixedSize(30, 30), centered(), ground(DS::surfaceHigh, 8), m_schemeSymbol), 8);
    return m_schemeToggle;
}

void MainPanelView::cycleColorScheme()
{
    preferences::setColorScheme(preferences::nextColorScheme(preferences::colorScheme()));
    applyColorScheme();
}

void MainPanelView::applyColorScheme()
{
    const ColorSchemePref preference = preferences::colorScheme();
    QString current = preferences::rawValue(preference);
    current[0] = current[0].toUpper();
    m_schemeSymbol->setName(symbolOf(preference));
    m_schemeToggle->setAccessibleName(tr("Appearance: %1").arg(current));
    m_schemeToggle->setToolTip(tr("Appearance: %1 — click to cycle").arg(current));

    switch (preference) {
    case ColorSchemePref::Light:
        m_appearance.setScheme(Scheme::Light);
        break;
    case ColorSchemePref::Dark:
        m_appearance.setScheme(Scheme::Dark);
        break;
    case ColorSchemePref::Auto:
        m_appearance.setScheme(m_systemScheme.value_or(schemeOfPalette()));
        break;
    }
    update();
}

void MainPanelView::setSystemScheme(std::optional<Scheme> scheme)
{
    m_systemScheme = scheme;
    applyColorScheme();
}

void MainPanelView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange) {
        applyColorScheme();
    }
    View::changeEvent(event);
}

void MainPanelView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor ground = DS::bg.in(Appearance::of(this));
    if (window()->mask().isEmpty()) {
        fillRounded(painter, rect(), DS::panelRadius, ground);
    } else {
        // The window itself is cut to the shape, and where it is not wholly covered it is black.
        painter.fillRect(rect(), ground);
    }
}

} // namespace tintwick

#include "PanelHeader.h"

#include "Button.h"
#include "CopiedPill.h"
#include "Label.h"
#include "Preferences.h"
#include "Stack.h"
#include "SymbolView.h"
#include "Theme.h"

#include <utility>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

constexpr double pinRadius = 8;

QString symbolOf(ColorSchemeChoice preference)
{
    switch (preference) {
    case ColorSchemeChoice::Light:
        return u"light-mode"_s;
    case ColorSchemeChoice::Dark:
        return u"dark-mode"_s;
    case ColorSchemeChoice::Auto:
        break;
    }
    return u"auto-mode"_s;
}

} // namespace

PanelHeader::PanelHeader(AppState& appState, Preferences& preferences)
    : m_appState(appState)
    , m_preferences(preferences)
{
    m_title = label({}, theme::font(18, QFont::Bold));
    m_done = prominentButton(tr("Done"), [this] { Q_EMIT backRequested(); });
    m_outsideSettings =
        row(gap(10), new CopiedPill(m_appState), pinButton(), colorSchemeToggle(), settingsButton());
    // A fixed height, so that the screen does not move when the buttons change.
    setContent(row(fixedHeight(50), gap(10), padding(14, 10), m_title, backButton(), spacer(),
                   m_outsideSettings, m_done));
    showColorScheme();
    connect(&m_preferences, &Preferences::colorSchemeChanged, this, &PanelHeader::showColorScheme);
}

QWidget* PanelHeader::backButton()
{
    m_backTitle = label({}, theme::font(14, QFont::DemiBold));
    m_back = plainTextButton(
        {}, [this] { Q_EMIT backRequested(); },
        row(gap(4), symbol(u"chevron-left"_s, 13, SymbolWeight::Semibold, theme::textPrimary), m_backTitle));
    return m_back;
}

QWidget* PanelHeader::pinButton()
{
    const QString name = tr("Keep Open");
    m_pinSymbol = symbol({}, 14, SymbolWeight::Medium, theme::textSecond);
    m_pinPlate = row(fixedSize(30, 30), centered(), m_pinSymbol);
    m_pin = new PlainButton(name, m_pinPlate, pinRadius);
    m_pin->setCheckable(true);
    m_pin->setToolTip(name);
    connect(m_pin, &PlainButton::toggled, this, [this](bool keepsOpen) {
        showPin();
        Q_EMIT keepOpenChanged(keepsOpen);
    });
    showPin();
    return m_pin;
}

void PanelHeader::showPin()
{
    const bool isOn = m_pin->isChecked();
    m_pinSymbol->setName(isOn ? u"pin-filled"_s : u"pin"_s);
    m_pinSymbol->setColor(isOn ? theme::accentText : theme::textSecond);
    m_pinPlate->add(ground(isOn ? theme::accent.opacity(0.16) : theme::surfaceHigh, pinRadius));
}

bool PanelHeader::keepsOpen() const
{
    return m_pin->isChecked();
}

QWidget* PanelHeader::colorSchemeToggle()
{
    m_schemeSymbol = symbol({}, 14, SymbolWeight::Medium, theme::textSecond);
    m_schemeToggle = squareButton(
        {}, [this] { m_preferences.setColorScheme(next(m_preferences.colorScheme())); }, m_schemeSymbol);
    return m_schemeToggle;
}

QWidget* PanelHeader::settingsButton()
{
    m_settings = squareButton(
        tr("Settings"), [this] { openMenuOrSettings(); },
        symbol(u"settings"_s, 14, SymbolWeight::Regular, theme::textSecond));
    return m_settings;
}

void PanelHeader::setMenu(std::function<QList<MenuEntry>()> entries)
{
    m_menu = std::move(entries);
}

void PanelHeader::openMenuOrSettings()
{
    const QList<MenuEntry> entries = m_menu ? m_menu() : QList<MenuEntry>();
    if (entries.isEmpty()) {
        Q_EMIT settingsRequested();
    } else {
        dropDownMenu(*m_settings, entries);
    }
}

void PanelHeader::showColorScheme()
{
    const ColorSchemeChoice preference = m_preferences.colorScheme();
    QString current = storedWord(preference);
    current[0] = current[0].toUpper();
    m_schemeSymbol->setName(symbolOf(preference));
    m_schemeToggle->setAccessibleName(tr("Appearance: %1").arg(current));
    m_schemeToggle->setToolTip(tr("Appearance: %1 — click to cycle").arg(current));
}

void PanelHeader::showTitle(const QString& title)
{
    m_title->setText(title);
    showParts(false, false);
}

void PanelHeader::showWayBack(const QString& title)
{
    m_backTitle->setText(title);
    m_back->setToolTip(title);
    m_back->setAccessibleName(tr("Back from %1").arg(title));
    showParts(true, false);
}

void PanelHeader::showSettings()
{
    m_title->setText(tr("Settings"));
    showParts(false, true);
}

void PanelHeader::showParts(bool hasWayBack, bool areSettings)
{
    m_title->setVisible(!hasWayBack);
    m_back->setVisible(hasWayBack);
    m_outsideSettings->setVisible(!areSettings);
    m_done->setVisible(areSettings);
}

Clickable* PanelHeader::wayOut() const
{
    if (m_done->isVisible()) {
        return m_done;
    }
    return m_back->isVisible() ? m_back : nullptr;
}

} // namespace tintwick

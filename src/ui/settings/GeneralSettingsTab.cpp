#include "GeneralSettingsTab.h"

#include "AppState.h"
#include "Autostart.h"
#include "ColorFormat.h"
#include "Label.h"
#include "PermissionStatus.h"
#include "PopUpPicker.h"
#include "Preferences.h"
#include "SegmentedPicker.h"
#include "SettingsLayout.h"
#include "ShortcutsSection.h"
#include "Switch.h"
#include "TemplateRow.h"
#include "Theme.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tintwick {

namespace {

using namespace Qt::StringLiterals;

template <typename Values>
auto at(const Values& values, qsizetype position)
{
    return values.at(static_cast<std::size_t>(position));
}

/// None when the stored value is not among those offered.
template <typename Values, typename Value>
std::optional<qsizetype> positionOf(const Value& value, const Values& values)
{
    const auto position = std::ranges::find(values, value) - values.begin();
    return position == std::ssize(values) ? std::nullopt : std::optional<qsizetype>(position);
}

} // namespace

GeneralSettingsTab::GeneralSettingsTab(AppState& appState, Preferences& preferences,
                                       const RecorderServices& recording, const Platform& platform,
                                       QWidget& panel)
    : m_appState(appState)
    , m_preferences(preferences)
    , m_platform(platform)
{
    setContent(column(gap(12), new ShortcutsSection(recording, preferences, panel), loupeSection(),
                      copyFormatSection(), screenRecordingSection(), startSection()));
}

QWidget* GeneralSettingsTab::loupeSection()
{
    auto* shape = new SegmentedPicker(tr("Shape"), {tr("Square"), tr("Circle")},
                                      positionOf(m_preferences.loupeShape(), allLoupeShapes));
    shape->onSelect(
        [this](qsizetype position) { m_preferences.setLoupeShape(at(allLoupeShapes, position)); });

    auto* size = new SegmentedPicker(tr("Scope Size"), {tr("S"), tr("M"), tr("L")},
                                     positionOf(m_preferences.loupeSize(), allLoupeSizes));
    size->onSelect([this](qsizetype position) { m_preferences.setLoupeSize(at(allLoupeSizes, position)); });

    auto* zoom = new SegmentedPicker(tr("Default Zoom"), {tr("Close"), tr("Mid"), tr("Far")},
                                     positionOf(m_preferences.loupeRadius(), offeredLoupeRadii));
    zoom->onSelect(
        [this](qsizetype position) { m_preferences.setLoupeRadius(at(offeredLoupeRadii, position)); });

    auto* caption = new SegmentedPicker(tr("Second Line"), {tr("Name"), tr("Text"), tr("Both")},
                                        positionOf(m_preferences.loupeCaption(), allLoupeCaptions));
    caption->onSelect(
        [this](qsizetype position) { m_preferences.setLoupeCaption(at(allLoupeCaptions, position)); });

    return settingsSection(
        tr("Scope / Magnifier"),
        settingsRows({settingsRow(tr("Shape"), shape), settingsRow(tr("Scope Size"), size),
                      settingsRow(tr("Default Zoom"), zoom), settingsRow(tr("Second Line"), caption)}));
}

QWidget* GeneralSettingsTab::copyFormatSection()
{
    return settingsSection(
        tr("Copy Format"),
        column(fillWidth(), settingsRow(tr("Default Format"), formatPicker()), templateRow(m_appState)));
}

PopUpPicker* GeneralSettingsTab::formatPicker()
{
    QStringList titles;
    for (const ColorFormat format : allColorFormats) {
        titles.append(rawValue(format));
    }
    const auto current = [this] {
        return positionOf(m_appState.defaultFormat(), allColorFormats).value_or(0);
    };
    auto* picker = new PopUpPicker(tr("Default Format"), titles, current());
    picker->onSelect(
        [this](qsizetype position) { m_appState.setDefaultFormat(at(allColorFormats, position)); });
    connect(&m_appState, &AppState::defaultFormatChanged, picker,
            [picker, current] { picker->setSelected(current()); });
    return picker;
}

QWidget* GeneralSettingsTab::screenRecordingSection()
{
    return settingsSection(
        tr("Screen Recording"),
        column(gap(3), fillWidth(), Across::Leading,
               settingsRow(tr("Permission"), new PermissionStatus(m_platform)),
               label(tr("Required to sample screen colors"), theme::caption(), theme::textSecond)));
}

QWidget* GeneralSettingsTab::startSection()
{
    const QString title = tr("Start at login");
    auto* atLogin = new Switch(title, startsAtLogin());
    auto* problem = label({}, theme::caption(), theme::textSecond);
    problem->hide();
    atLogin->onSwitch([problem](bool isOn) {
        const int error = setStartsAtLogin(isOn);
        problem->setText(error == 0 ? QString() : tr("Could not be changed: %1").arg(qt_error_string(error)));
        problem->setVisible(error != 0);
        return error == 0;
    });
    return settingsSection(
        tr("Startup"), column(gap(3), fillWidth(), Across::Leading, settingsRow(title, atLogin), problem));
}

} // namespace tintwick

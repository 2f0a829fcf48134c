#pragma once

#include <QCoreApplication>
#include <QString>

#include <array>

namespace tintwick {

enum class SettingsTab { General, Data };

/// In order of appearance.
inline constexpr std::array allSettingsTabs{SettingsTab::General, SettingsTab::Data};

[[nodiscard]] inline QString title(SettingsTab tab)
{
    return tab == SettingsTab::General ? QCoreApplication::translate("SettingsTab", "General")
                                       : QCoreApplication::translate("SettingsTab", "Data");
}

} // namespace tintwick

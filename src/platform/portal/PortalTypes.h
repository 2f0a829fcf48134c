#pragma once

#include <QMap>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

namespace tintwick {

/// Settings by namespace and key: a{sa{sv}}.
using SettingsByNamespace = QMap<QString, QVariantMap>;

} // namespace tintwick

Q_DECLARE_METATYPE(tintwick::SettingsByNamespace)

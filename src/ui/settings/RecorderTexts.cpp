#include "RecorderTexts.h"

#include "ShortcutRegistry.h"

#include <QCoreApplication>

namespace tintwick {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("ShortcutRecorder", text);
}

} // namespace

QString refusalText(RecordedKey::Refusal refusal)
{
    switch (refusal) {
    case RecordedKey::Refusal::NeedsModifier:
        return tr("This key needs Ctrl, Alt or Super");
    case RecordedKey::Refusal::OtherModifier:
        return tr("Only Ctrl, Alt, Shift and Super can be part of a shortcut");
    case RecordedKey::Refusal::UnknownKey:
        return tr("This key cannot be part of a shortcut");
    }
    return {};
}

Alert alertAbout(const RecordedKey& key, const ShortcutRegistry& shortcuts)
{
    const QStringList choice{tr("OK"), tr("Use Anyway")};
    switch (key.meaning) {
    case RecordedKey::Meaning::UsedByMenuItem:
        return {tr("This shortcut belongs to the menu item “%1”.").arg(key.use), {}, {tr("OK")}};
    case RecordedKey::Meaning::UsedBySystem:
        return {tr("The desktop or another program uses this shortcut."),
                tr("Most shortcuts of the desktop can be changed in its keyboard settings."), choice};
    case RecordedKey::Meaning::UsedByOtherAction:
        return {tr("“%1” has this shortcut too.").arg(key.use), tr("One press would do both."), choice};
    case RecordedKey::Meaning::UsedByMostPrograms:
        return {tr("Other programs use %1 to %2.").arg(shortcuts.text(key.shortcut), key.use),
                tr("They would no longer get these keys while Tintwick runs."), choice};
    default:
        return {};
    }
}

} // namespace tintwick

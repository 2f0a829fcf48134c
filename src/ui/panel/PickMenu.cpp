#include "PickMenu.h"

#include <QCoreApplication>

namespace tintwick {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("PickMenu", text);
}

QList<MenuEntry> delays(const AskForPick& ask, const QString& title, const std::optional<QUuid>& palette)
{
    QList<MenuEntry> entries;
    for (const std::chrono::seconds delay : offeredPickDelays) {
        entries << menuAction(title.arg(delay.count()),
                              [ask, palette, delay] { ask({.delay = delay, .palette = palette}); });
    }
    return entries;
}

} // namespace

QList<MenuEntry> pickIntoMenu(const AskForPick& ask, const QUuid& palette)
{
    return QList{menuAction(tr("Now"), [ask, palette] { ask({.palette = palette}); })} +
           delays(ask, tr("In %1 s"), palette);
}

QList<MenuEntry> delayedPickMenu(const AskForPick& ask)
{
    return delays(ask, tr("Pick in %1 s"), {});
}

} // namespace tintwick

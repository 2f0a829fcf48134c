#include "SinglePick.h"

#include "AppState.h"
#include "PickSeries.h"
#include "Platform.h"
#include "Preferences.h"

#include <QEventLoop>

namespace tintwick {

PickAnswer pickAlone(const PickRequest& request, std::unique_ptr<Platform> platform)
{
    AppState state;
    const Preferences preferences;
    PickSeries series(request, *platform, preferences, state);
    QEventLoop loop;
    PickAnswer answer;
    QObject::connect(&series, &PickSeries::finished, &loop, [&](const PickAnswer& result) {
        answer = result;
        loop.quit();
    });
    series.start();
    loop.exec();
    platform->keepClipboard();
    return answer;
}

} // namespace tintwick

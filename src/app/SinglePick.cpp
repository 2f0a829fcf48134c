#include "SinglePick.h"

#include "AppState.h"
#include "PickSeries.h"
#include "Platform.h"
#include "Preferences.h"
#include "QuitSignals.h"

#include <QEventLoop>

namespace tintwick {

PickAnswer pickAlone(const PickRequest& request, std::unique_ptr<Platform> platform)
{
    AppState state;
    const Preferences preferences;
    state.setRepeatedPick(preferences.repeatedPick());
    PickSeries series(request, *platform, preferences, state);
    QEventLoop loop;
    PickAnswer answer;
    QObject::connect(&series, &PickSeries::finished, &loop, [&](const PickAnswer& result) {
        answer = result;
        loop.quit();
    });
    // What was picked so far is printed, saved and kept on the clipboard.
    const QuitSignals quitSignals;
    QObject::connect(&quitSignals, &QuitSignals::received, &series, &PickSeries::cancel);
    series.start();
    loop.exec();
    platform->keepClipboard();
    if (request.saves && !answer.colors.isEmpty()) {
        state.flush();
        answer.reason = state.saveProblem();
    }
    return answer;
}

} // namespace tintwick

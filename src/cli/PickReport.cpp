#include "PickReport.h"

#include "ColorListing.h"
#include "ColorNames.h"
#include "CommandLine.h"
#include "PickRequest.h"
#include "StandardStreams.h"

#include <cstdlib>

namespace tintwick {

namespace {

QByteArray listing(const PickAnswer& answer, const Invocation& invocation)
{
    if (!invocation.isJson) {
        return answer.texts.join(u'\n').toUtf8() + '\n';
    }
    QList<CapturedColor> colors;
    for (const QRgb rgb : answer.colors) {
        CapturedColor color = CapturedColor::capture(rgb);
        color.customName = ColorNames::shared().nearest(color);
        colors.append(color);
    }
    return colorsAsJson(colors, answer.texts);
}

} // namespace

int report(const PickAnswer& answer, const Invocation& invocation)
{
    if (!answer.colors.isEmpty() && !writeToStandardOutput(listing(answer, invocation))) {
        return EXIT_FAILURE;
    }
    if (!answer.reason.isEmpty()) {
        printError(QStringLiteral("tintwick: ") + answer.reason);
    }
    switch (answer.outcome) {
    case PickAnswer::Outcome::Picked:
        return EXIT_SUCCESS;
    case PickAnswer::Outcome::Cancelled:
        return exitCancelled;
    case PickAnswer::Outcome::Failed:
        return exitNotPossible;
    }
    Q_UNREACHABLE();
}

} // namespace tintwick

#pragma once

#include "CapturedColor.h"
#include "ColorFormat.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

namespace tintwick {

struct Payload;

/// A JSON array with one object per colour: its text from `texts`, hex, rgb, hsl, alpha, and where there are any the
/// name, the nearest Tailwind token and the time of the pick (ISO 8601, UTC). UTF-8, with a line feed at the end. Both
/// lists have equal length.
[[nodiscard]] QByteArray colorsAsJson(const QList<CapturedColor>& colors, const QStringList& texts);

/// The text of each colour. The template is for the format Template.
[[nodiscard]] QStringList textsOf(const QList<CapturedColor>& colors, ColorFormat format,
                                  const QString& ownTemplate);

/// A JSON array with one object per palette: its name, the number of its colours, and the time when it was made.
[[nodiscard]] QByteArray palettesAsJson(const Payload& data);

} // namespace tintwick

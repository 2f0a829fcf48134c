#pragma once

#include "CapturedColor.h"

#include <QList>
#include <QStringList>

#include <cstdint>

namespace tintwick {

/// What a name may begin with.
enum class NameStart : std::uint8_t { Anything, Letter };

/// One name per colour for a file in which a later name would replace an equal earlier one: the slug of the colour's name, or
/// "color-" and its position when there is none. Equal names are numbered: "pale-violet", "pale-violet-2".
/// A name that must begin with a letter and does not gets "color-" before it.
[[nodiscard]] QStringList uniqueNames(const QList<CapturedColor>& colors,
                                      NameStart start = NameStart::Anything);

} // namespace tintwick

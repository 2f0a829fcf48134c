#pragma once

#include "CapturedColor.h"
#include "ColorText.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QUuid>

#include <optional>
#include <variant>

namespace tintwick {

/// The colours of a file.
struct ImportedPalette
{
    /// Empty when the file has no name of its own.
    QString name;
    QList<CapturedColor> colors;
    /// The ids of those that stand for a colour outside sRGB.
    QSet<QUuid> mappedIds = {};

    void append(const WrittenColor& written, const std::optional<QString>& colorName)
    {
        colors.append(written.color);
        colors.last().customName = colorName;
        if (written.isGamutMapped) {
            mappedIds.insert(written.color.id);
        }
    }
};

/// Why a file was refused.
struct ImportProblem
{
    /// Without the file's name and a full stop, for example "line 3: '300 0 0' is not a color".
    QString sentence;
};

using Import = std::variant<ImportedPalette, ImportProblem>;

[[nodiscard]] inline ImportProblem problemInLine(qsizetype line, const QString& sentence)
{
    return {QStringLiteral("line %1: %2").arg(line).arg(sentence)};
}

[[nodiscard]] inline ImportProblem problemAtByte(qsizetype offset, const QString& sentence)
{
    return {QStringLiteral("byte %1: %2").arg(offset).arg(sentence)};
}

} // namespace tintwick

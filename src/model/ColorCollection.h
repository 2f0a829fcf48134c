#pragma once

#include "CapturedColor.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QUuid>

namespace tintwick {

/// A named, ordered group of colours. It holds the ids of colours, each at most once.
struct ColorCollection
{
    QUuid id;
    /// As the user entered it.
    QString name;
    QList<QUuid> colorIds;
    QDateTime createdAt;
    /// Name of the symbol shown beside the name.
    QString icon;
    /// The colour behind the symbol: a word that the user interface knows. Empty for the one that the collection's place in the
    /// list gives.
    QString iconColor = {};

    /// An empty collection created now, with a new id.
    [[nodiscard]] static ColorCollection create(const QString& name);

    /// The member colours in the collection's order, from the history or else from `kept`, the colours that have left it. Ids
    /// that neither has are left out.
    [[nodiscard]] QList<CapturedColor> colors(const QList<CapturedColor>& history,
                                              const QList<CapturedColor>& kept = {}) const;

    friend bool operator==(const ColorCollection&, const ColorCollection&) = default;
};

} // namespace tintwick

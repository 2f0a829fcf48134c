#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QtGui/qrgb.h>

#include <cstdint>

namespace tintwick {

/// A series of picks that another program asks for.
struct PickRequest
{
    /// The series ends after this many colours.
    int count = 1;
    /// The stored name of the text format; empty for the user's default.
    QString format;
    /// Puts the text of the colours on the clipboard.
    bool copies = true;
    /// Adds the colours to the history.
    bool saves = true;
};

/// How such a series ended.
struct PickAnswer
{
    enum class Outcome : std::uint8_t {
        /// At least one colour was picked.
        Picked,
        Cancelled,
        Failed
    };

    Outcome outcome = Outcome::Cancelled;
    /// In the order of the picks; opaque.
    QList<QRgb> colors;
    /// The text of each colour in the format, as it was copied.
    QStringList texts;
    /// One sentence for the user when a pick was not possible, or the colours could not be saved.
    QString reason;
};

} // namespace tintwick

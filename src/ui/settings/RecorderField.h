#pragma once

#include "Scheme.h"

#include <QString>

class QPainter;
class QRect;

namespace tintwick {

/// How the field of a shortcut recorder looks. Lengths are in points.
struct RecorderField
{
    static constexpr int height = 24;

    QString text;
    /// False for a placeholder, for the old shortcut while recording, and for a shortcut that does not work.
    bool isCurrent = false;
    bool isRecording = false;
    bool hasFocusRing = false;
    /// The room at the end that belongs to the clear button.
    int endMargin = 0;

    /// The width that the text needs, without margins.
    [[nodiscard]] static int widthOf(const QString& text);
    void paint(QPainter& painter, const QRect& place, Scheme scheme) const;
};

} // namespace tintwick

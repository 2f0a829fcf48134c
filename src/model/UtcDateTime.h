#pragma once

#include <QDateTime>
#include <QTimeZone>

/// The moment of a date and a time of day in UTC, whose timeSpec() is Qt::UTC. QTimeZone::UTC does the same, but only
/// from Qt 6.5 on.
[[nodiscard]] inline QDateTime utcDateTime(QDate date, QTime time)
{
    return QDateTime(date, time, QTimeZone::utc()).toUTC();
}

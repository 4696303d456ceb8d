#pragma once

#include <QDateTime>
#include <QTimeZone>

namespace varnow {

/// A date and time of UTC, where every time of every day exists.
inline QDateTime utcDateTime(QDate date, QTime time = QTime(0, 0))
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    return QDateTime(date, time, QTimeZone::UTC);
#else
    return QDateTime(date, time, Qt::UTC);
#endif
}

} // namespace varnow

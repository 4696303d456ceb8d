#pragma once

#include "base/names.h"
#include "model/Column.h"

#include <QStringList>

namespace varnow {

/// A value as users read it: a text in quotation marks.
template <class Value> QString shownValue(const Value &value)
{
    return toText(value);
}

inline QString shownValue(const QString &text)
{
    return u'"' + isolated(text) + u'"';
}

template <class Record> QString shownValue(const Record &record, const Column<Record> &column)
{
    return visit(column, record, [](const auto &value) { return shownValue(value); });
}

/// How captions are written: as on the screen, or as part of a sentence.
enum class Captions { AsShown, InSentence };

/// What differs between two records of one key, a text for each value: "Message Index 3 → 5".
template <class Record>
QStringList differences(const Record &before, const Record &now, Captions captions = Captions::AsShown)
{
    QStringList found;
    for (const Column<Record> &column : Record::columns()) {
        if (*column.caption == '\0')
            continue;
        const QString caption = QLatin1String(column.caption);
        if (!isEqualIn(column, before, now))
            found += (captions == Captions::InSentence ? caption.toLower() : caption) + u' ' +
                     shownValue(before, column) + " → " + shownValue(now, column);
    }
    return found;
}

/// What a record holds beside its key, a text for each value that is not empty: "Message Index 3".
template <class Record> QStringList contents(const Record &record)
{
    QStringList found;
    for (const Column<Record> &column : Record::columns()) {
        if (column.use == ColumnUse::Value && *column.caption != '\0' && !isEqualIn(column, record, Record()))
            found += QLatin1String(column.caption) + u' ' + shownValue(record, column);
    }
    return found;
}

} // namespace varnow

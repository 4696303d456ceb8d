#pragma once

#include "base/names.h"
#include "model/UnsavedChanges.h"

#include <QString>

namespace varnow {

enum class RecordKind { Line, Field };

/// What leads to a record: a line or a field, by its key.
struct RecordReference
{
    RecordKind kind = RecordKind::Line;
    RecordKey key;

    bool operator==(const RecordReference &) const = default;
};

/// A record as a sentence names it: "NTE(1)", without an index that is not above 0.
inline QString nameOf(const QString &name, int nameIndex)
{
    return nameIndex > 0 ? name + QStringLiteral("(%1)").arg(nameIndex) : name;
}

template <class Record> QString nameOf(const Record &record)
{
    return nameOf(record.name, record.nameIndex);
}

/// The same within a sentence that a window shows, isolated.
inline QString shownName(const QString &name, int nameIndex)
{
    return isolated(nameOf(name, nameIndex));
}

template <class Record> QString shownName(const Record &record)
{
    return shownName(record.name, record.nameIndex);
}

} // namespace varnow

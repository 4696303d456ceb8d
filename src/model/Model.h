#pragma once

#include "model/FieldTable.h"
#include "model/LineTable.h"

#include <QHash>

namespace varnow {

/// Everything that the editor edits: the lines and fields of all configurations, and what was done to them.
class Model
{
public:
    LineTable lines;
    FieldTable fields;

    /// Copies every line's message index into its fields. Fields without a line keep theirs. Configurations
    /// in which nothing was changed since the last time are passed over.
    void copyMessageIndexesToFields();

    /// True when some record differs from its row.
    bool hasUnsavedChanges() const { return !lines.unsaved().isEmpty() || !fields.unsaved().isEmpty(); }

    /// True when the next save has a row to delete, also one that never was a record in memory.
    bool hasRowsToDelete() const { return lines.hasRowsToDelete() || fields.hasRowsToDelete(); }

    ChangeCounts countUnsaved() const;

private:
    QHash<QString, quint64> m_lineStates; // when message indexes were copied last
    QHash<QString, quint64> m_fieldStates;
};

} // namespace varnow

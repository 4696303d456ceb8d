#pragma once

#include "model/Field.h"
#include "model/Line.h"
#include "model/UnsavedChanges.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

namespace varnow {

/// What was typed on a page and not yet stored in a record.
struct PageDraft
{
    QString page;          ///< its name
    QString configuration; ///< the one that was shown
    QStringList texts;     ///< in the order of the page's entries

    bool operator==(const PageDraft &) const = default;
};

/// Unsaved changes of an earlier run, each record's in the order in which the records came into memory.
struct LeftChanges
{
    QDateTime time; ///< when they were written
    std::vector<UnsavedChange<Line>> lines;
    std::vector<UnsavedChange<Field>> fields;
    std::vector<PageDraft> drafts;
    int damagedParts = 0; ///< of the file, which could not be read

    bool isEmpty() const { return lines.empty() && fields.empty() && drafts.empty(); }
};

} // namespace varnow

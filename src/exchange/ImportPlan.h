#pragma once

#include "model/Model.h"

#include <QStringList>

#include <variant>
#include <vector>

namespace varnow {

/// A file to import.
struct ImportFile
{
    QString name; ///< as messages call it
    QByteArray contents;
};

/// What the import makes of a row.
enum class RowOutcome { Added, Changed, Unchanged, Refused };

/// A row of a file to import.
struct FileRow
{
    std::size_t file = 0; ///< number of its file
    int number = 0;       ///< counted in its file from 1, which is the header; empty rows do not count
    QStringList cells;    ///< in the order of its file's header
    std::variant<Line, Field> record; ///< a refused one has what could be read
    RowOutcome outcome = RowOutcome::Added;
    QStringList problems; ///< why it is refused
};

/// What an import would do.
struct ImportPlan
{
    std::vector<QStringList> headers; ///< of each file
    std::vector<FileRow> rows;        ///< of all files, in their order
    QStringList problems;             ///< files that cannot be read, and why; a sentence each
    QStringList notes;                ///< what else the user has to know of the files; a sentence each

    int count(RowOutcome outcome) const;
};

/// Where the rows go.
enum class ImportTarget {
    AsNamed, ///< into the configuration that the row names, else into the current one
    Current, ///< all into the current one
};

/// Reads CSV files and tells what importing them would do to a model, which stays as it is. A file whose
/// header does not tell the kind of its rows holds fields if it has a column for the field's line, else
/// lines.
ImportPlan planImport(const std::vector<ImportFile> &files, const Model &model,
                      const QString &currentConfiguration, ImportTarget target = ImportTarget::AsNamed);

/// Stores the records of the rows added and changed. To be called within an edit. Where a line gets
/// another message index, those of its fields that the files do not hold move with it. The model must be as
/// it was when the plan was made.
void apply(const ImportPlan &plan, Model &model);

/// A CSV file of the refused rows, with a column for the reasons. It can be corrected and imported.
QByteArray refusedRows(const ImportPlan &plan);

} // namespace varnow

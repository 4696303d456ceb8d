#pragma once

#include "model/Model.h"
#include "model/RecordReference.h"

#include <QHash>
#include <QStringList>

#include <optional>
#include <vector>

namespace varnow {

/// What helps.
enum class Fix {
    None,
    MoveItsFields,   ///< moveFieldsToLine() of the issue's line
    RemoveAtNextSave ///< of a row, see storage/rowIssues.h
};

/// Something to put right.
struct Issue
{
    QString text; ///< a sentence or two
    RecordReference record;
    Fix fix = Fix::None;
    RecordKey line = {}; ///< that of a field, where it exists
};

/// What the records are held against.
struct IssueContext
{
    QStringList configurations; ///< the catalogue, trimmed
    /// The data field names by configuration, trimmed. The lookups of one that is missing here are not looked
    /// at.
    QHash<QString, QStringList> dataFieldNames;
    bool tellsLetterCaseApart = true; ///< whether the database does
};

/// What is wrong with the records of a configuration, or of all, in the order of the tree: by configuration
/// as in the catalogue, then by line, each before its fields.
std::vector<Issue> issuesIn(const Model &model, const IssueContext &context,
                            const std::optional<QString> &configuration = {});

/// Gives the fields of a line its message index. To be called within an edit.
void moveFieldsToLine(Model &model, const RecordKey &line);

} // namespace varnow

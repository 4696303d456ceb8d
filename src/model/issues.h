#pragma once

#include "model/Model.h"
#include "model/RecordReference.h"

#include <QHash>
#include <QStringList>

#include <optional>
#include <vector>

namespace varnow {

/// What can be wrong with a record, or with a row of the database.
enum class IssueKind {
    UnknownConfiguration, ///< not in the catalogue, or none
    SameMessageIndex,     ///< as an earlier line, so that the tree does not show this one
    MessageIndexGap,
    FieldWithoutLine,
    FieldElsewhere, ///< its message index is not its line's
    SamePosition,   ///< as another field of the line, so that the tree does not show this one
    NoLength,       ///< of a fixed-length field, or no character position
    Overlap,
    Gap,
    UnknownLookup,
    LetterCase,   ///< its key differs from another one in letter case only
    StrayRow,     ///< a row that shares its key with another one, or stands under another line
    NullNameIndex ///< a row that a save does not find
};

/// What helps.
enum class Fix {
    None,
    MoveItsFields,   ///< moveFieldsToLine() of the issue's line
    RemoveAtNextSave ///< of a row, see storage/rowFindings.h
};

/// Something to put right.
struct Issue
{
    IssueKind kind;
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

#pragma once

#include "document/Document.h"
#include "model/RecordReference.h"

#include <QString>

#include <vector>

// What the user is told of what was done, and what is offered against what may not have been meant.

namespace varnow {

/// Something that a notice offers to do.
struct Remedy
{
    enum class Kind {
        Undo,        ///< the last step
        MoveFields,  ///< gives the fields of `line` its message index
        StoreField,  ///< stores `field` over the record of its key
        AddInstead,  ///< undoes the last step and adds `field`
        ShowUnsaved, ///< lists what is unsaved
    };

    Kind kind = Kind::Undo;
    QString caption;
    QString toolTip;
    RecordKey line = {};
    Field field = {};
};

/// What is told; names in the sentence as isolated() gives them.
struct DocumentNotice
{
    QString sentence;
    std::vector<Remedy> remedies = {};
};

/// What to tell of a step that was done, undone or made again just now.
DocumentNotice noticeFor(const EditStep &step, const Model &model);

/// What to tell of a save.
DocumentNotice noticeFor(const SaveReport &report);

/// Does what a notice offers, but for ShowUnsaved. Returns the record to show.
std::optional<RecordReference> apply(const Remedy &remedy, Document &document);

/// The first record that a step changed.
RecordReference firstRecordOf(const EditStep &step);

} // namespace varnow

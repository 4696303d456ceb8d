#pragma once

#include "model/Edit.h"
#include "model/RecordReference.h"
#include "ui/TreeView.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace varnow {

/// The tree of the lines and fields of one configuration. A line's node has the line's message index as its
/// number, a field's node the field's position; it stands under the line node with its message index. The
/// tree holds no records: whoever changes them lets it follow or rebuilds it.
class RecordTree : public ui::TreeView
{
public:
    RecordTree(ui::Container &parent, const QString &name, const ui::Rect &place, const Model &model);

    /// The user chose the node of a record.
    std::function<void(const RecordReference &record)> onRecordClick;

    /// Whether the boxes that a rebuild gives are shown.
    enum class Boxes { Shown, HeldBack };

    /// Records that the tree does not show and that no box was shown about.
    struct Unshown
    {
        int lines = 0;  ///< with the message index of an earlier line
        int fields = 0; ///< in a configuration without lines

        bool operator==(const Unshown &) const = default;
    };

    /// Fills the tree anew, with nothing selected. The user is asked about the first line that has the
    /// message index of an earlier one which of the two the node shows; of the others the earliest is shown.
    /// Fields without any line give one message.
    Unshown rebuild(const QString &configuration, Boxes boxes = Boxes::Shown);

    /// Shows what a step made of the configuration that is shown, when it was done, undone or redone: the
    /// tree is as a rebuild would leave it, but nodes that the step leaves as they are are not touched.
    /// Rebuilds where lines share a message index or fields have no line, with the boxes of that. The
    /// selection stays with its record, or goes to the record's neighbour; the tree does not scroll.
    Unshown follow(const EditStep &step);

    /// The record of the node that is to be selected when that of a record goes: the next one of its kind,
    /// else the one before, else its line.
    std::optional<RecordReference> neighbourOf(const std::optional<RecordReference> &record) const;

    /// The record whose node is selected.
    std::optional<RecordReference> selectedRecord() const;

    /// Selects the node of a record, if there is one; no click.
    void select(const std::optional<RecordReference> &record);

    /// Selects the node under which a line, or a field, stands, whichever record it shows; no click. Returns
    /// whether there is one.
    bool selectPlace(int messageIndex, std::optional<int> position = {});

    /// Scrolls to the first node, if there is one.
    void showFirst();

private:
    struct Touched;
    struct View;

    std::vector<const Line *> lines() const;
    int addLines(Boxes boxes);
    int addFields(Boxes boxes);
    Touched touchedBy(const EditStep &step) const;
    bool patch(Touched touched);
    View view() const;
    void restore(const View &before);
    Node nodeOf(const RecordReference &record) const;
    RecordReference recordOf(Node node) const;
    void tellClick() const;

    const Model &m_model;
    QString m_configuration;   // shown
    bool m_isComplete = false; // every line has a node, and there is one
};

} // namespace varnow

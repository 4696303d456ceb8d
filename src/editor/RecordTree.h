#pragma once

#include "model/Model.h"
#include "model/RecordReference.h"
#include "ui/TreeView.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringBuilder>

#include <functional>
#include <optional>
#include <vector>

namespace varnow {

/// What names a record within its configuration.
struct RecordName
{
    using Kind = RecordKind;

    Kind kind;
    QString name;
    int nameIndex;

    bool operator==(const RecordName &) const = default;
};

inline RecordName nameWithinConfiguration(const RecordReference &record)
{
    return {record.kind, record.key.name, record.key.nameIndex};
}

/// The tree of the lines and fields of one configuration. It holds no records: rebuild() makes it anew.
class RecordTree : public ui::TreeView
{
public:
    RecordTree(ui::Container &parent, const QString &name, const ui::Rect &place, const Model &model);

    /// The user chose the node of a record.
    std::function<void(const RecordName &record)> onRecordClick;

    /// Whether the boxes that a rebuild gives are shown.
    enum class Boxes { Shown, HeldBack };

    /// Fills the tree anew. Where two lines have one message index, the user is asked which of them the node
    /// shows; a field without a line in the whole tree gives a message. Returns whether a box was held back,
    /// a question counting as answered with No.
    bool rebuild(const QString &configuration, Boxes boxes = Boxes::Shown);

    /// The record of the node that is to be selected when that of a record goes: the next one of its kind,
    /// else the one before, else its line.
    std::optional<RecordName> neighbourOf(const std::optional<RecordName> &record) const;

    /// The record whose node is selected.
    std::optional<RecordName> selectedRecord() const;

    /// Selects the node of a record, if there is one; no click.
    void select(const std::optional<RecordName> &record);
    using TreeView::select;

    /// Scrolls to the first node, if there is one.
    void showFirst();

    /// Keys of the nodes; the numbers as they are or as they were typed.
    static QString lineKey(const QString &messageIndex) { return messageIndex % u" Line"; }
    static QString fieldKey(const QString &messageIndex, const QString &position)
    {
        return messageIndex % u'.' % position % u" Field";
    }

private:
    void fill(const QString &configuration);
    void addLine(const Line &line);
    void addField(const Field &field);
    void offerToUpdate(int node, const QString &text, const Line &line);
    bool mayShowBox();
    void tellClick() const;
    int nodeOf(const std::optional<RecordName> &record) const;

    const Model &m_model;

    // By node; a node's text cannot tell its record when a name holds parentheses.
    std::vector<RecordName> m_records;

    /// The line nodes in the order of adding, each with the greatest message index so far.
    struct LineNode
    {
        int node;
        int greatestMessageIndex;
    };
    std::vector<LineNode> m_lineNodes;
    QHash<int, int> m_lineNodeOf;                // by message index
    QSet<std::pair<int, int>> m_fieldsWithNodes; // message index and position

    Boxes m_boxes = Boxes::Shown; // of the rebuild that runs
    bool m_hasHeldBack = false;
};

} // namespace varnow

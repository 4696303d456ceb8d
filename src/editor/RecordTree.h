#pragma once

#include "model/Model.h"
#include "ui/TreeView.h"

#include <QString>

#include <functional>
#include <vector>

namespace varnow {

/// The tree of the lines and fields of one configuration. It holds no records: rebuild() makes it anew.
class RecordTree : public ui::TreeView
{
public:
    RecordTree(ui::Container &parent, const QString &name, const ui::Rect &place, const Model &model);

    /// The user chose the node of a line or of a field.
    std::function<void(const QString &name, int nameIndex)> onLineClick;
    std::function<void(const QString &name, int nameIndex)> onFieldClick;

    /// Fills the tree anew. Where two lines have one message index, the user is asked which of them the node
    /// shows; a field without a line in the whole tree gives a message.
    void rebuild(const QString &configuration);

    /// Scrolls to the first node, if there is one.
    void showFirst();

    /// Keys of the nodes; the numbers as they are or as they were typed.
    static QString lineKey(const QString &messageIndex) { return messageIndex + " Line"; }
    static QString fieldKey(const QString &messageIndex, const QString &position)
    {
        return messageIndex + "." + position + " Field";
    }

private:
    void fill(const QString &configuration);
    void addLine(const Line &line);
    void addField(const Field &field);
    void offerToUpdate(int node, const QString &text, const Line &line);
    void tellClick() const;

    const Model &m_model;

    /// The record that a node stands for; the node's text cannot tell when a name holds parentheses.
    struct NodeRecord
    {
        QString name;
        int nameIndex;
    };
    std::vector<NodeRecord> m_records; // by node

    /// The line nodes in the order of adding, each with the greatest message index so far.
    struct LineNode
    {
        int node;
        int greatestMessageIndex;
    };
    std::vector<LineNode> m_lineNodes;
};

} // namespace varnow

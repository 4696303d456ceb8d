#include "editor/RecordTree.h"

#include "base/guarded.h"
#include "base/text.h"
#include "ui/MessageBox.h"

#include <algorithm>

namespace varnow {

RecordTree::RecordTree(ui::Container &parent, const QString &name, const ui::Rect &place, const Model &model)
    : ui::TreeView(parent, name, place), m_model(model)
{
    onClick = [this] { tellClick(); };
}

bool RecordTree::rebuild(const QString &configuration, Boxes boxes)
{
    clear();
    m_records.clear();
    m_lineNodes.clear();
    m_lineNodeOf.clear();
    m_fieldsWithNodes.clear();
    m_boxes = boxes;
    m_hasHeldBack = false;
    guarded([&] { return fill(configuration), 0; }, [](const RuntimeError &error) { return error.number(); });
    return m_hasHeldBack;
}

void RecordTree::fill(const QString &configuration)
{
    const QString name = trim(configuration);
    const Filling fillingLines(*this);
    for (const Line &line : m_model.lines.ofConfiguration(name))
        addLine(line);
    const Filling fillingFields(*this); // anew, for a question over the lines has ended the first
    for (const Field &field : m_model.fields.ofConfiguration(name))
        addField(field);
}

void RecordTree::addLine(const Line &line)
{
    const QString messageIndex = QString::number(line.messageIndex);
    const QString key = lineKey(messageIndex);
    QString text = messageIndex % u' ' % line.name;
    if (line.nameIndex != 0)
        text += QStringLiteral("(%1)").arg(line.nameIndex);

    if (const int existing = m_lineNodeOf.value(line.messageIndex, none); existing != none) {
        offerToUpdate(existing, text, line);
        return;
    }
    // The node goes after the one added before the first whose message index is not smaller.
    const auto notSmaller =
        std::ranges::lower_bound(m_lineNodes, line.messageIndex, {}, &LineNode::greatestMessageIndex);
    const int node = notSmaller == m_lineNodes.begin() ? addRoot(key, text)
                                                       : addAfter(std::prev(notSmaller)->node, key, text);
    m_records.push_back({RecordName::Kind::Line, line.name, line.nameIndex});
    const int greatest = m_lineNodes.empty()
                             ? line.messageIndex
                             : std::max(line.messageIndex, m_lineNodes.back().greatestMessageIndex);
    m_lineNodes.push_back({node, greatest});
    m_lineNodeOf.insert(line.messageIndex, node);
}

void RecordTree::offerToUpdate(int node, const QString &text, const Line &line)
{
    if (!mayShowBox())
        return;
    finishFilling();
    const ui::Answer answer = ui::show({.text = "A node with this message index already esists." + lineBreak +
                                                "Do you wish to update this node?",
                                        .icon = ui::Icon::Question,
                                        .buttons = ui::Buttons::YesNo});
    if (answer != ui::Answer::Yes)
        return;
    setText(node, text);
    m_records[static_cast<std::size_t>(node)] = {RecordName::Kind::Line, line.name, line.nameIndex};
}

/// Whether a box that is due may be shown now; keeps in mind that one was held back.
bool RecordTree::mayShowBox()
{
    m_hasHeldBack = m_hasHeldBack || m_boxes == Boxes::HeldBack;
    return m_boxes == Boxes::Shown;
}

void RecordTree::addField(const Field &field)
{
    if (nodeCount() == 0) {
        if (mayShowBox())
            ui::show({"The system requires a line for field attachment." + lineBreak +
                      "Please check your input and try again."});
        return;
    }
    const int line = m_lineNodeOf.value(field.messageIndex, none);
    const std::pair place(field.messageIndex, field.position);
    if (line == none || m_fieldsWithNodes.contains(place))
        return;
    m_fieldsWithNodes.insert(place);

    const QString messageIndex = QString::number(field.messageIndex);
    const QString position = QString::number(field.position);
    QString text = messageIndex % u'.' % position % u' ' % field.name;
    if (field.nameIndex > 0)
        text += QStringLiteral("(%1)").arg(field.nameIndex);
    ensureVisible(addChild(line, fieldKey(messageIndex, position), text));
    m_records.push_back({RecordName::Kind::Field, field.name, field.nameIndex});
}

void RecordTree::showFirst()
{
    if (nodeCount() > 0)
        ensureVisible(0);
}

int RecordTree::nodeOf(const std::optional<RecordName> &record) const
{
    const auto found = record ? std::ranges::find(m_records, *record) : m_records.end();
    return found == m_records.end() ? none : static_cast<int>(found - m_records.begin());
}

std::optional<RecordName> RecordTree::neighbourOf(const std::optional<RecordName> &record) const
{
    const int node = nodeOf(record);
    if (node == none)
        return {};
    for (const int neighbour : {sibling(node, 1), sibling(node, -1), parent(node)}) {
        if (neighbour != none)
            return m_records[static_cast<std::size_t>(neighbour)];
    }
    return {};
}

void RecordTree::select(const std::optional<RecordName> &record)
{
    if (const int node = nodeOf(record); node != none)
        select(node);
}

void RecordTree::tellClick() const
{
    if (const std::optional<RecordName> record = selectedRecord())
        onRecordClick(*record);
}

std::optional<RecordName> RecordTree::selectedRecord() const
{
    const int node = selectedNode();
    return node == none ? std::nullopt : std::optional(m_records[static_cast<std::size_t>(node)]);
}

} // namespace varnow

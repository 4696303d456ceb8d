#include "editor/RecordTree.h"

#include "base/text.h"
#include "model/TreeOrder.h"
#include "ui/MessageBox.h"

#include <QHash>
#include <QSet>
#include <QStringBuilder>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace varnow {

namespace {

using Content = ui::TreeView::Content;

// From so many changed fields on filling the tree anew is quicker.
constexpr int manyChanges = 2000;

Content contentOf(const Line &line)
{
    QString text = QString::number(line.messageIndex) % u' ' % trim(line.name);
    if (line.nameIndex != 0)
        text += QStringLiteral("(%1)").arg(line.nameIndex);
    return {line.messageIndex, std::move(text), line.name, line.nameIndex};
}

Content contentOf(const Field &field)
{
    QString text = QString::number(field.messageIndex) % u'.' % QString::number(field.position) % u' ' %
                   trim(field.name);
    if (field.nameIndex > 0)
        text += QStringLiteral("(%1)").arg(field.nameIndex);
    return {field.position, std::move(text), field.name, field.nameIndex};
}

std::vector<Content> contentsOf(const TreeOrder &order)
{
    std::vector<Content> contents;
    for (const Line *line : order.lines())
        contents.push_back(contentOf(*line));
    return contents;
}

/// What the nodes of a line show; of several fields at one position the first.
std::vector<Content> contentsOf(const std::vector<const Field *> &fields)
{
    std::vector<Content> contents;
    QSet<int> positions;
    for (const Field *field : fields) {
        if (const auto known = positions.size(); positions.insert(field->position), positions.size() > known)
            contents.push_back(contentOf(*field));
    }
    return contents;
}

bool isShownAlike(const Line &a, const Line &b)
{
    return a.messageIndex == b.messageIndex && a.nameIndex == b.nameIndex && a.name == b.name;
}

bool isShownAlike(const Field &a, const Field &b)
{
    return a.messageIndex == b.messageIndex && a.position == b.position && a.nameIndex == b.nameIndex &&
           a.name == b.name;
}

/// The first line with the message index of an earlier one.
auto firstWithTakenIndex(const std::vector<const Line *> &lines)
{
    QSet<int> taken;
    return std::ranges::find_if(lines, [&taken](const Line *line) {
        const auto known = taken.size();
        taken.insert(line->messageIndex);
        return taken.size() == known;
    });
}

bool askToUpdate()
{
    return ui::show({.text = "A node with this message index already esists." + lineBreak +
                             "Do you wish to update this node?",
                     .icon = ui::Icon::Question,
                     .buttons = ui::Buttons::YesNo}) == ui::Answer::Yes;
}

} // namespace

/// What a step does to the nodes of a configuration.
struct RecordTree::Touched
{
    bool records = false;         ///< it changes records of the configuration at all
    bool lines = false;           ///< it changes what line nodes show
    int fields = 0;               ///< number of changes to what field nodes show
    std::set<int> messageIndexes; ///< of these fields
};

/// What is selected and what is seen, by the records of the nodes.
struct RecordTree::View
{
    std::vector<RecordReference> selected; ///< and those to select in its place, the first that is there
    std::optional<RecordReference> top;
};

RecordTree::RecordTree(ui::Container &parent, const QString &name, const ui::Rect &place, const Model &model)
    : ui::TreeView(parent, name, place), m_model(model)
{
    onClick = [this] { tellClick(); };
}

RecordTree::Unshown RecordTree::rebuild(const QString &configuration, Boxes boxes)
{
    clear();
    m_configuration = trim(configuration);
    const int unshownLines = addLines(boxes);
    return {unshownLines, addFields(boxes)};
}

std::vector<const Line *> RecordTree::lines() const
{
    std::vector<const Line *> lines;
    for (const Line &line : m_model.lines.ofConfiguration(m_configuration))
        lines.push_back(&line);
    return lines;
}

/// Returns the number of lines that got no node and were not asked about.
int RecordTree::addLines(Boxes boxes)
{
    const std::vector<const Line *> lines = this->lines();
    const auto asked = boxes == Boxes::Shown ? firstWithTakenIndex(lines) : lines.end();
    if (asked != lines.end())
        arrange(none, contentsOf(TreeOrder({lines.begin(), asked}))); // seen behind the question
    std::vector<Content> contents = contentsOf(TreeOrder(lines));
    const auto unshown = static_cast<int>(lines.size() - contents.size());
    m_isComplete = unshown == 0 && !contents.empty();
    if (asked != lines.end() && askToUpdate())
        *std::ranges::find(contents, (*asked)->messageIndex, &Content::number) = contentOf(**asked);
    arrange(none, contents);
    return asked != lines.end() ? unshown - 1 : unshown;
}

/// Returns the number of fields in a configuration without lines that no box was shown about.
int RecordTree::addFields(Boxes boxes)
{
    const auto fields = m_model.fields.ofConfiguration(m_configuration);
    if (rootCount() == 0) {
        const auto count = static_cast<int>(std::distance(fields.begin(), fields.end()));
        if (count == 0 || boxes == Boxes::HeldBack)
            return count;
        ui::show({"The system requires a line for field attachment." + lineBreak +
                  "Please check your input and try again."});
        return count - 1;
    }
    QHash<int, std::vector<const Field *>> groups; // by message index
    const Field *last = nullptr;                   // of those below a line node
    for (const Field &field : fields) {
        groups[field.messageIndex].push_back(&field);
        if ((last != nullptr && last->messageIndex == field.messageIndex) ||
            find(none, field.messageIndex) != none)
            last = &field;
    }
    {
        const Update update(*this);
        for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
            if (const Node line = find(none, group.key()); line != none)
                arrange(line, contentsOf(*group));
        }
    }
    if (last != nullptr)
        ensureVisible(find(find(none, last->messageIndex), last->position));
    return 0;
}

RecordTree::Unshown RecordTree::follow(const EditStep &step)
{
    Touched touched = touchedBy(step);
    const bool isUntouched = m_isComplete ? !touched.lines && touched.fields == 0 : !touched.records;
    if (isUntouched)
        return {};
    const View before = view();
    const bool isPatched = m_isComplete && touched.fields < manyChanges && patch(std::move(touched));
    const Unshown unshown = isPatched ? Unshown() : rebuild(m_configuration);
    restore(before);
    return unshown;
}

RecordTree::Touched RecordTree::touchedBy(const EditStep &step) const
{
    Touched touched;
    const auto touches = [&](const auto &change) {
        const auto &record = change.was ? *change.was : *change.is;
        if (trimmedView(record.configuration) != m_configuration)
            return false;
        touched.records = true;
        return !change.was || !change.is || !isShownAlike(*change.was, *change.is);
    };
    touched.lines = std::ranges::any_of(step.lines, touches);
    for (const Change<Field> &change : step.fields) {
        if (!touches(change))
            continue;
        ++touched.fields;
        for (const std::optional<Field> &field : {change.was, change.is}) {
            if (field)
                touched.messageIndexes.insert(field->messageIndex);
        }
    }
    return touched;
}

/// Arranges what was touched. Returns whether that makes the tree complete: not where lines share a message
/// index or there is none.
bool RecordTree::patch(Touched touched)
{
    const Update update(*this);
    if (touched.lines) {
        const std::vector<const Line *> lines = this->lines();
        const TreeOrder order(lines);
        const std::vector<Content> contents = contentsOf(order);
        if (contents.empty() || contents.size() < lines.size())
            return false;
        for (const Content &content : contents) {
            if (find(none, content.number) == none)
                touched.messageIndexes.insert(content.number);
        }
        arrange(none, contents);
    }
    for (const int messageIndex : touched.messageIndexes) {
        if (const Node line = find(none, messageIndex); line != none)
            arrange(line, contentsOf(m_model.fields.ofGroup(m_configuration, messageIndex)));
    }
    return true;
}

RecordTree::View RecordTree::view() const
{
    View view;
    for (const Node node : nearest(selectedNode()))
        view.selected.push_back(recordOf(node));
    if (const Node node = topNode(); node != none)
        view.top = recordOf(node);
    return view;
}

void RecordTree::restore(const View &before)
{
    if (const Node top = before.top ? nodeOf(*before.top) : none; top != none)
        scrollToTop(top);
    for (const RecordReference &record : before.selected) {
        const Node node = nodeOf(record);
        if (node == none)
            continue;
        if (record == before.selected.front())
            selectWithoutScrolling(node);
        else
            TreeView::select(node);
        return;
    }
    clearSelection();
}

void RecordTree::showFirst()
{
    if (rootCount() > 0)
        ensureVisible(firstRoot());
}

/// The node that shows a record, or `none`.
RecordTree::Node RecordTree::nodeOf(const RecordReference &record) const
{
    const RecordKey &key = record.key;
    if (trimmedView(key.configuration) != m_configuration)
        return none;
    const auto nodeIn = [&](const auto &table, auto place) {
        const int index = table.find(m_configuration, trim(key.name), key.nameIndex);
        const Node node = index < 0 ? none : place(table[index]);
        const bool isShown =
            node != none && content(node).name == key.name && content(node).nameIndex == key.nameIndex;
        return isShown ? node : none;
    };
    switch (record.kind) {
    case RecordKind::Line:
        return nodeIn(m_model.lines, [this](const Line &line) { return find(none, line.messageIndex); });
    case RecordKind::Field:
        return nodeIn(m_model.fields, [this](const Field &field) {
            const Node line = find(none, field.messageIndex);
            return line == none ? none : find(line, field.position);
        });
    }
    return none;
}

RecordReference RecordTree::recordOf(Node node) const
{
    const Content &shown = content(node);
    const RecordKind kind = parent(node) == none ? RecordKind::Line : RecordKind::Field;
    return {kind, {m_configuration, shown.name, shown.nameIndex}};
}

std::optional<RecordReference> RecordTree::neighbourOf(const std::optional<RecordReference> &record) const
{
    const std::vector<Node> nodes = nearest(record ? nodeOf(*record) : none);
    return nodes.size() > 1 ? std::optional(recordOf(nodes[1])) : std::nullopt;
}

void RecordTree::select(const std::optional<RecordReference> &record)
{
    if (const Node node = record ? nodeOf(*record) : none; node != none)
        TreeView::select(node);
}

bool RecordTree::selectPlace(int messageIndex, std::optional<int> position)
{
    const Node line = find(none, messageIndex);
    const Node node = position && line != none ? find(line, *position) : line;
    if (node != none)
        TreeView::select(node);
    return node != none;
}

void RecordTree::tellClick() const
{
    if (const std::optional<RecordReference> record = selectedRecord())
        onRecordClick(*record);
}

std::optional<RecordReference> RecordTree::selectedRecord() const
{
    const Node node = selectedNode();
    return node == none ? std::nullopt : std::optional(recordOf(node));
}

} // namespace varnow

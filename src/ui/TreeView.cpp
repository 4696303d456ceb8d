#include "ui/TreeView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSet>
#include <QTreeWidget>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace varnow::ui {

class TreeView::Item : public QTreeWidgetItem
{
public:
    explicit Item(Content content) : m_content(std::move(content)) {}

    const Content &content() const { return m_content; }

    void setContent(const Content &content)
    {
        if (content == m_content)
            return;
        const bool isTextNew = content.text != m_content.text;
        m_content = content;
        if (isTextNew)
            emitDataChanged();
    }

    QVariant data(int column, int role) const override
    {
        return role == Qt::DisplayRole ? m_content.text : QTreeWidgetItem::data(column, role);
    }

private:
    Content m_content;
};

namespace {

TreeView::Item *itemAt(const QTreeWidgetItem *owner, int place)
{
    return static_cast<TreeView::Item *>(owner->child(place)); // null beyond the last one
}

} // namespace

class TreeView::Widget : public QTreeWidget
{
public:
    explicit Widget(QWidget *parent, const TreeView &owner) : QTreeWidget(parent), m_owner(owner)
    {
        setColumnCount(1);
        setHeaderHidden(true);
        setUniformRowHeights(true);
        setExpandsOnDoubleClick(false);
        setEditTriggers(QAbstractItemView::NoEditTriggers);
    }

protected:
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        QTreeWidget::mouseReleaseEvent(event);
        tell(m_owner.onClick);
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_F2)
            return clickAndTell(m_owner.onEdit);
        if (event->key() == Qt::Key_Delete)
            return clickAndTell(m_owner.onDelete);
        static const std::array<int, 11> keys{Qt::Key_Up,     Qt::Key_Down,  Qt::Key_Left,   Qt::Key_Right,
                                              Qt::Key_Home,   Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown,
                                              Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space};
        const QTreeWidgetItem *before = currentItem();
        QTreeWidget::keyPressEvent(event);
        const bool isTreeKey = std::find(keys.begin(), keys.end(), event->key()) != keys.end();
        // A tree entered by Tab has a current node that is not selected yet.
        const bool selects = isTreeKey && currentItem() != nullptr && !currentItem()->isSelected();
        if (selects)
            currentItem()->setSelected(true);
        const int key = event->key();
        if (selects || currentItem() != before || key == Qt::Key_Return || key == Qt::Key_Enter ||
            key == Qt::Key_Space)
            tell(m_owner.onClick);
    }

private:
    static void tell(const std::function<void()> &event)
    {
        if (event)
            event();
    }

    void clickAndTell(const std::function<void()> &event)
    {
        if (currentItem() == nullptr)
            return;
        currentItem()->setSelected(true);
        tell(m_owner.onClick);
        tell(event);
    }

    const TreeView &m_owner;
};

TreeView::TreeView(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, new Widget(parent.surface(), *this), place)
{
}

TreeView::Widget *TreeView::tree() const
{
    return static_cast<Widget *>(widget());
}

/// The item behind a node; for no node the one that all roots hang on.
QTreeWidgetItem *TreeView::itemOf(Node node) const
{
    return node == none ? tree()->invisibleRootItem() : const_cast<Item *>(node);
}

TreeView::Node TreeView::find(Node parent, int number) const
{
    if (parent == none)
        return m_roots.value(number);
    for (int i = 0; i < parent->childCount(); ++i) {
        if (itemAt(parent, i)->content().number == number)
            return itemAt(parent, i);
    }
    return none;
}

TreeView::Node TreeView::parent(Node node)
{
    return static_cast<Node>(node->parent());
}

const TreeView::Content &TreeView::content(Node node)
{
    return node->content();
}

int TreeView::rootCount() const
{
    return tree()->topLevelItemCount();
}

TreeView::Node TreeView::firstRoot() const
{
    return static_cast<Node>(tree()->topLevelItem(0));
}

TreeView::Node TreeView::selectedNode() const
{
    const QTreeWidgetItem *current = tree()->currentItem();
    return current != nullptr && current->isSelected() ? static_cast<Node>(current) : none;
}

TreeView::Node TreeView::topNode() const
{
    return static_cast<Node>(tree()->itemAt(0, 0));
}

std::vector<TreeView::Node> TreeView::nearest(Node node) const
{
    std::vector<Node> nodes;
    for (; node != none; node = parent(node)) {
        const QTreeWidgetItem *owner = itemOf(parent(node));
        const int place = owner->indexOfChild(itemOf(node));
        for (int i = place; i < owner->childCount(); ++i)
            nodes.push_back(itemAt(owner, i));
        for (int i = place - 1; i >= 0; --i)
            nodes.push_back(itemAt(owner, i));
    }
    return nodes;
}

void TreeView::arrange(Node parent, const std::vector<Content> &contents)
{
    QTreeWidgetItem *owner = itemOf(parent);
    if (owner->childCount() == 0)
        fill(owner, contents);
    else
        rearrange(owner, contents);
    if (parent != none) {
        expandLater(const_cast<Item *>(parent));
        return;
    }
    m_roots.clear();
    for (int i = 0; i < owner->childCount(); ++i)
        m_roots.insert(itemAt(owner, i)->content().number, itemAt(owner, i));
}

void TreeView::fill(QTreeWidgetItem *owner, const std::vector<Content> &contents)
{
    QList<QTreeWidgetItem *> items;
    for (const Content &content : contents)
        items += new Item(content);
    owner->addChildren(items);
}

/// Moves, changes, adds and removes no more nodes than it takes.
void TreeView::rearrange(QTreeWidgetItem *owner, const std::vector<Content> &contents)
{
    QHash<int, Item *> present; // by number
    for (int i = 0; i < owner->childCount(); ++i)
        present.insert(itemAt(owner, i)->content().number, itemAt(owner, i));
    QSet<int> wanted;
    for (const Content &content : contents)
        wanted.insert(content.number);
    const auto isStale = [&](const Item *item) {
        return item != nullptr && !wanted.contains(item->content().number);
    };
    int place = 0;
    for (const Content &content : contents) {
        Item *item = present.value(content.number);
        while (item != nullptr && isStale(itemAt(owner, place)))
            removeFrom(owner, place);
        Item *there = itemAt(owner, place);
        if (item == nullptr)
            item = isStale(there) ? there : new Item(content);
        item->setContent(content);
        if (item != there)
            put(owner, place, item);
        ++place;
    }
    while (owner->childCount() > place)
        removeFrom(owner, owner->childCount() - 1);
}

void TreeView::put(QTreeWidgetItem *owner, int place, Item *item)
{
    if (item->treeWidget() != nullptr)
        owner->removeChild(item);
    owner->insertChild(place, item);
    expandLater(item); // one that moves comes back collapsed
}

void TreeView::removeFrom(QTreeWidgetItem *owner, int place)
{
    const std::unique_ptr<QTreeWidgetItem> removed(owner->takeChild(place));
    std::erase(m_arranged, removed.get());
}

void TreeView::expandLater(Item *item)
{
    m_arranged.push_back(item);
    if (!m_isUpdating)
        expandArranged();
}

void TreeView::expandArranged()
{
    for (Item *item : std::exchange(m_arranged, {})) {
        const bool isToExpand = item->childCount() > 0;
        if (item->isExpanded() != isToExpand)
            item->setExpanded(isToExpand);
    }
}

void TreeView::clear()
{
    m_roots.clear();
    m_arranged.clear();
    tree()->clear();
}

void TreeView::select(Node node)
{
    ensureVisible(node);
    tree()->setCurrentItem(itemOf(node));
}

void TreeView::selectWithoutScrolling(Node node)
{
    tree()->setAutoScroll(false);
    tree()->setCurrentItem(itemOf(node));
    tree()->setAutoScroll(true);
}

void TreeView::clearSelection()
{
    tree()->clearSelection();
}

void TreeView::ensureVisible(Node node)
{
    for (QTreeWidgetItem *owner = itemOf(node)->parent(); owner != nullptr; owner = owner->parent()) {
        if (!owner->isExpanded())
            owner->setExpanded(true);
    }
    tree()->scrollToItem(itemOf(node));
}

void TreeView::scrollToTop(Node node)
{
    tree()->scrollToItem(itemOf(node), QAbstractItemView::PositionAtTop);
}

TreeView::Update::Update(TreeView &tree) : m_tree(tree)
{
    m_tree.m_isUpdating = true;
    m_tree.tree()->setUpdatesEnabled(false);
    m_tree.tree()->setAutoScroll(false); // a selection that moves when its node goes is not followed
}

TreeView::Update::~Update()
{
    m_tree.m_isUpdating = false;
    m_tree.expandArranged();
    m_tree.tree()->setAutoScroll(true);
    m_tree.tree()->setUpdatesEnabled(true);
}

} // namespace varnow::ui

#include "ui/TreeView.h"

#include "base/RuntimeError.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeWidget>

#include <algorithm>
#include <array>
#include <utility>

namespace varnow::ui {

class TreeView::Item : public QTreeWidgetItem
{
public:
    Item(const QString &key, const QString &text) : m_key(key) { setText(0, text); }

    const QString &key() const { return m_key; }

    int number = none;

private:
    QString m_key;
};

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

TreeView::Item *TreeView::item(int node) const
{
    if (node < 0 || node >= nodeCount())
        throw RuntimeError(errors::ElementNotFound);
    return m_nodes[static_cast<std::size_t>(node)];
}

int TreeView::nodeCount() const
{
    return static_cast<int>(m_nodes.size());
}

int TreeView::find(const QString &key) const
{
    const auto found = std::ranges::find(m_nodes, key, &Item::key);
    return found == m_nodes.end() ? none : (*found)->number;
}

int TreeView::node(const QString &key) const
{
    const int found = find(key);
    if (found == none)
        throw RuntimeError(errors::ElementNotFound);
    return found;
}

int TreeView::selectedNode() const
{
    const QTreeWidgetItem *current = tree()->currentItem();
    return current != nullptr && current->isSelected() ? numberOf(current) : none;
}

int TreeView::keep(Item *item)
{
    item->number = nodeCount();
    m_nodes.push_back(item);
    return item->number;
}

int TreeView::insertRoot(qsizetype place, const QString &key, const QString &text)
{
    auto *added = new Item(key, text);
    if (m_filling)
        m_waitingRoots.insert(place, added);
    else
        tree()->insertTopLevelItem(static_cast<int>(place), added);
    return keep(added);
}

int TreeView::addRoot(const QString &key, const QString &text)
{
    return insertRoot(m_filling ? m_waitingRoots.size() : tree()->topLevelItemCount(), key, text);
}

int TreeView::addAfter(int root, const QString &key, const QString &text)
{
    const qsizetype place =
        m_filling ? m_waitingRoots.lastIndexOf(item(root)) : tree()->indexOfTopLevelItem(item(root));
    return insertRoot(place + 1, key, text);
}

int TreeView::addChild(int parent, const QString &key, const QString &text)
{
    Item *owner = item(parent);
    auto *added = new Item(key, text);
    owner->addChild(added);
    return keep(added);
}

int TreeView::parent(int node) const
{
    return numberOf(item(node)->parent());
}

int TreeView::numberOf(const QTreeWidgetItem *item)
{
    return item == nullptr ? none : static_cast<const Item *>(item)->number;
}

int TreeView::sibling(int node, int offset) const
{
    QTreeWidgetItem *child = item(node);
    const QTreeWidgetItem *owner = child->parent() ? child->parent() : tree()->invisibleRootItem();
    return numberOf(owner->child(owner->indexOfChild(child) + offset));
}

void TreeView::select(int node)
{
    ensureVisible(node);
    tree()->setCurrentItem(item(node));
}

const QString &TreeView::key(int node) const
{
    return item(node)->key();
}

QString TreeView::text(int node) const
{
    return item(node)->text(0);
}

void TreeView::setText(int node, const QString &text)
{
    item(node)->setText(0, text);
}

void TreeView::clear()
{
    m_nodes.clear();
    m_scrollTo = none;
    tree()->clear();
}

/// Expands the item and what it hangs on; null expands nothing.
void TreeView::expand(QTreeWidgetItem *item)
{
    for (; item != nullptr; item = item->parent()) {
        if (!item->isExpanded())
            item->setExpanded(true);
    }
}

void TreeView::ensureVisible(int node)
{
    auto *owner = static_cast<Item *>(item(node)->parent());
    if (!m_filling) {
        expand(owner);
        tree()->scrollToItem(item(node));
        return;
    }
    m_scrollTo = node;
    if (m_waitingToExpand.empty() || m_waitingToExpand.back() != owner)
        m_waitingToExpand.push_back(owner);
}

TreeView::Filling::Filling(TreeView &tree) : m_tree(tree)
{
    m_tree.m_filling = true;
    m_tree.m_scrollTo = none;
    m_tree.tree()->setUpdatesEnabled(false);
}

TreeView::Filling::~Filling()
{
    m_tree.finishFilling();
}

void TreeView::finishFilling()
{
    if (!std::exchange(m_filling, false))
        return;
    tree()->addTopLevelItems(std::exchange(m_waitingRoots, {}));
    for (Item *owner : std::exchange(m_waitingToExpand, {}))
        expand(owner);
    if (m_scrollTo != none)
        tree()->scrollToItem(item(m_scrollTo));
    tree()->setUpdatesEnabled(true);
}

} // namespace varnow::ui

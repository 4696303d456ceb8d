#pragma once

#include "ui/Control.h"

#include <QList>

#include <functional>
#include <vector>

class QTreeWidgetItem;

namespace varnow::ui {

/// A tree of nodes with unique keys. A node is named by its number: 0, 1, 2 … in the order of adding.
class TreeView : public Control
{
public:
    static constexpr int none = -1;

    TreeView(Container &parent, const QString &name, const Rect &place);

    /// The user clicked in the tree, moved the selection by key, or pressed Enter or Space on a node.
    std::function<void()> onClick;
    std::function<void()> onEdit;   ///< F2 on a node, behind a click on it
    std::function<void()> onDelete; ///< the Delete key on a node, behind a click on it

    int nodeCount() const;
    /// The node with this key, or `none`.
    int find(const QString &key) const;
    /// The node with this key. Raises errors::ElementNotFound when there is none.
    int node(const QString &key) const;
    int selectedNode() const;

    /// Adds a node as the last root, directly after a root, or as the last child of a node; returns it.
    int addRoot(const QString &key, const QString &text);
    int addAfter(int root, const QString &key, const QString &text);
    int addChild(int parent, const QString &key, const QString &text);

    /// The node's parent, or `none` for a root. These raise errors::ElementNotFound for a
    /// node that does not exist.
    int parent(int node) const;
    const QString &key(int node) const;
    QString text(int node) const;
    void setText(int node, const QString &text);

    void clear();

    /// The node so many places behind (or, negative, before) it under the same parent, or `none`.
    int sibling(int node, int offset) const;

    /// Selects the node and scrolls until it is seen; no click.
    void select(int node);

    /// Expands what hides the node and scrolls until it is seen. While the tree is being filled that waits
    /// for the end.
    void ensureVisible(int node);

    /// While such an object lives an empty tree is filled out of sight, which is quicker than one node at a
    /// time; its end shows all nodes, paints and scrolls once. One that has roots may get children so.
    class Filling
    {
    public:
        explicit Filling(TreeView &tree);
        ~Filling();
        Filling(const Filling &) = delete;
        Filling &operator=(const Filling &) = delete;

    private:
        TreeView &m_tree;
    };

    /// Shows what has been filled in so far. What follows is added one node at a time.
    void finishFilling();

private:
    class Item;
    class Widget;
    Widget *tree() const;
    static int numberOf(const QTreeWidgetItem *item);
    Item *item(int node) const;
    int insertRoot(qsizetype place, const QString &key, const QString &text);
    int keep(Item *item);
    static void expand(QTreeWidgetItem *item);

    std::vector<Item *> m_nodes;
    QList<QTreeWidgetItem *> m_waitingRoots; // while filling
    std::vector<Item *> m_waitingToExpand;
    int m_scrollTo = none;
    bool m_filling = false;
};

} // namespace varnow::ui

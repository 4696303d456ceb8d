#pragma once

#include "ui/Control.h"

#include <QHash>
#include <QString>

#include <functional>
#include <vector>

class QTreeWidgetItem;

namespace varnow::ui {

/// A tree of nodes. A number tells a node from the others of the same parent.
class TreeView : public Control
{
public:
    /// What a node shows, and what it stands for.
    struct Content
    {
        int number = 0; ///< unique among the nodes of one parent
        QString text;
        QString name;      ///< of what the node stands for; not shown
        int nameIndex = 0; ///< of the same

        bool operator==(const Content &) const = default;
    };

    class Item;
    /// Leads to a node while it is in the tree.
    using Node = const Item *;
    /// No node; as a parent, that of the root nodes.
    static constexpr Node none = nullptr;

    TreeView(Container &parent, const QString &name, const Rect &place);

    /// The user clicked in the tree, moved the selection by key, or pressed Enter or Space on a node.
    std::function<void()> onClick;
    std::function<void()> onEdit;   ///< F2 on a node, behind a click on it
    std::function<void()> onDelete; ///< the Delete key on a node, behind a click on it

    /// The node with this number under a parent, or `none`.
    Node find(Node parent, int number) const;
    /// `none` for a root.
    static Node parent(Node node);
    static const Content &content(Node node);

    int rootCount() const;
    Node firstRoot() const;
    Node selectedNode() const;
    /// The node shown at the top of the tree's visible part, or `none`.
    Node topNode() const;

    /// The node itself, then those behind it and those before it under the same parent, the nearest first,
    /// then the same of its parent.
    std::vector<Node> nearest(Node node) const;

    /// Makes the nodes under a parent show these, in this order. Nodes that do so already are not touched.
    /// The parent is expanded, or collapsed when there are none.
    void arrange(Node parent, const std::vector<Content> &contents);

    void clear();

    /// Selects the node and scrolls until it is seen; no click.
    void select(Node node);
    /// The same without scrolling.
    void selectWithoutScrolling(Node node);
    void clearSelection();

    /// Expands what hides the node and scrolls until it is seen.
    void ensureVisible(Node node);
    /// Scrolls until the node is the first one seen, as far as the tree scrolls.
    void scrollToTop(Node node);

    /// While such an object lives the tree is arranged out of sight, which is quicker than one node at a
    /// time. Its end expands and paints once.
    class Update
    {
    public:
        explicit Update(TreeView &tree);
        ~Update();
        Update(const Update &) = delete;
        Update &operator=(const Update &) = delete;

    private:
        TreeView &m_tree;
    };

private:
    class Widget;
    Widget *tree() const;
    QTreeWidgetItem *itemOf(Node node) const;
    void fill(QTreeWidgetItem *owner, const std::vector<Content> &contents);
    void rearrange(QTreeWidgetItem *owner, const std::vector<Content> &contents);
    void put(QTreeWidgetItem *owner, int place, Item *item);
    void removeFrom(QTreeWidgetItem *owner, int place);
    void expandLater(Item *item);
    void expandArranged();

    QHash<int, Item *> m_roots;     // by number
    std::vector<Item *> m_arranged; // still to be expanded or collapsed
    bool m_isUpdating = false;
};

} // namespace varnow::ui

#pragma once

#include "ui/Window.h"

#include <QString>

#include <initializer_list>
#include <utility>

class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

namespace varnow::test {

/// Drives a window as its user would: real key presses and clicks on the real controls, found by name.
class Driver
{
public:
    /// Shows the window.
    explicit Driver(ui::Window &window);

    /// The control with this object name; a control that is missing fails the test and ends it.
    QWidget *control(const QString &name) const;

    /// Text of an entry, a combo box, or a label.
    QString text(const QString &name) const;
    /// The same for several, joined by "|".
    QString texts(const QStringList &names) const;
    /// Clicks into an entry or combo box, replaces its text by typing, and stays there.
    void type(const QString &name, const QString &text) const;
    /// The same for several, one after the other: names and texts.
    void fill(std::initializer_list<std::pair<QString, QString>> entries) const;
    /// Clicks a button, a check box or an option button with the mouse.
    void click(const QString &name) const;
    /// Presses a key with the focus where it is.
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// Shows a page of the tab control by clicking its tab.
    void showPage(int index) const;

    /// The tree's nodes, children indented by two blanks, in the order shown.
    QStringList tree() const;
    QTreeWidget *treeWidget() const;
    /// Clicks the node with this text with the mouse.
    void clickNode(const QString &text) const;
    /// Text of the selected node, unless it is scrolled out of sight.
    QString selectedNode() const;
    /// The items of a combo box.
    QStringList items(const QString &name) const;
    /// Object name of the control that has the focus.
    QString focused() const;

private:
    QWidget *m_surface;
};

/// Names of the entries and buttons, as far as the window shows them, that nothing explains: no tooltip, or
/// no plain sentence for screen readers.
QStringList unexplained(const QWidget &window);

} // namespace varnow::test

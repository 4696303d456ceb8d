#include "support/Driver.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTabBar>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <stdexcept>

namespace varnow::test {

Driver::Driver(ui::Window &window) : m_surface(window.surface())
{
    window.show();
    if (!QTest::qWaitForWindowActive(m_surface))
        throw std::runtime_error("the window does not come to the front");
}

QWidget *Driver::control(const QString &name) const
{
    auto *found = m_surface->window()->findChild<QWidget *>(name);
    if (found == nullptr)
        throw std::runtime_error("no control " + name.toStdString());
    return found;
}

QString Driver::text(const QString &name) const
{
    const QWidget *found = control(name);
    return found->property(found->inherits("QComboBox") ? "currentText" : "text").toString();
}

QString Driver::texts(const QStringList &names) const
{
    QStringList found;
    for (const QString &name : names)
        found += text(name);
    return found.join(u'|');
}

void Driver::type(const QString &name, const QString &text) const
{
    QWidget *found = control(name);
    auto *box = qobject_cast<QComboBox *>(found);
    auto *edit = box != nullptr ? box->lineEdit() : qobject_cast<QLineEdit *>(found);
    QTest::mouseClick(edit, Qt::LeftButton);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    static const QRegularExpression onTheKeyboard("\\A[ -~]*\\z");
    if (onTheKeyboard.match(text).hasMatch())
        QTest::keyClicks(QApplication::focusWidget(), text); // the box of a combo box has the focus itself
    else
        edit->insert(text); // as pasting does
}

void Driver::fill(std::initializer_list<std::pair<QString, QString>> entries) const
{
    for (const auto &[name, text] : entries)
        type(name, text);
}

void Driver::click(const QString &name) const
{
    QWidget *found = control(name);
    const QPoint indicator(found->height() / 2, found->height() / 2); // of a check box or option button
    QTest::mouseClick(found, Qt::LeftButton, {}, found->inherits("QPushButton") ? QPoint() : indicator);
}

void Driver::press(int key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(m_surface->window()->windowHandle(), static_cast<Qt::Key>(key), modifiers);
}

void Driver::showPage(int index) const
{
    auto *bar = m_surface->findChild<QTabBar *>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
}

QTreeWidget *Driver::treeWidget() const
{
    return m_surface->findChild<QTreeWidget *>();
}

QStringList Driver::tree() const
{
    QStringList nodes;
    for (QTreeWidgetItemIterator it(treeWidget()); *it != nullptr; ++it)
        nodes += ((*it)->parent() != nullptr ? "  " : "") + (*it)->text(0);
    return nodes;
}

void Driver::clickNode(const QString &text) const
{
    QTreeWidget *tree = treeWidget();
    const QList<QTreeWidgetItem *> found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty())
        throw std::runtime_error("no node " + text.toStdString());
    tree->scrollToItem(found.first());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(found.first()).center());
}

QString Driver::selectedNode() const
{
    const QTreeWidgetItem *node = treeWidget()->selectedItems().value(0);
    const bool isSeen =
        node != nullptr && treeWidget()->viewport()->rect().contains(treeWidget()->visualItemRect(node));
    return isSeen ? node->text(0) : QString();
}

QStringList Driver::items(const QString &name) const
{
    const auto *box = qobject_cast<QComboBox *>(control(name));
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items += box->itemText(i);
    return items;
}

QStringList unexplained(const QWidget &window)
{
    QStringList names;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const bool isEntry = widget->inherits("QComboBox") || widget->inherits("QAbstractButton") ||
                             (widget->inherits("QLineEdit") && !widget->parent()->inherits("QComboBox"));
        if (!isEntry || !widget->isVisibleTo(&window))
            continue;
        const QString heard = QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Description);
        if (widget->toolTip().isEmpty() || heard.isEmpty() || heard.contains(u'<'))
            names += widget->objectName();
    }
    return names;
}

QString Driver::focused() const
{
    const QWidget *widget = QApplication::focusWidget();
    return widget != nullptr ? widget->objectName() : QString();
}

} // namespace varnow::test

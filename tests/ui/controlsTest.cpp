#include "support/Driver.h"
#include "support/printing.h"

#include "base/RuntimeError.h"
#include "ui/Application.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/Frame.h"
#include "ui/ListBox.h"
#include "ui/MessageBox.h"
#include "ui/TabControl.h"
#include "ui/TextBox.h"
#include "ui/TreeView.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace varnow::test {

namespace {

/// A window with one control of each kind, which writes down the events it is told of.
struct Form : ui::Window
{
    Form() : ui::Window("Form", "Form", 6000, 6000)
    {
        text.onChange = [this] { log += "text change"; };
        text.onGotFocus = [this] { text.setSelection(0, 99); };
        text.onLostFocus = [this] { log += "text left"; };
        combo.onChange = [this] { log += "combo change " + combo.text(); };
        combo.onClick = [this] { log += "combo click " + combo.text(); };
        check.onClick = [this] { log += "check " + QString::number(check.value()); };
        right.onClick = [this] { log += "right"; };
        left.onClick = [this] { log += "left"; };
        button.onClick = [this] { log += "button, focus on " + QApplication::focusWidget()->objectName(); };
        tabs.onClick = [this](int previous) { log += "page after " + QString::number(previous); };
        setFocusOrder({&combo, &text, &button});
    }

    QStringList takeLog() { return std::exchange(log, {}); }

    QStringList log;
    ui::ComboBox combo{*this, "combo", {0, 0, 1500, 315}};
    ui::TextBox text{*this, "text", {0, 400, 1500, 315}};
    ui::CommandButton button{*this, "button", "&Button", {0, 800, 1500, 700}};
    ui::Frame frame{*this, "frame", "Frame", {2000, 0, 2000, 2000}};
    ui::CheckBox check{frame, "check", "Check", {100, 300, 1500, 300}};
    ui::OptionButton right{frame, "right", "Right", {100, 700, 1500, 300}};
    ui::OptionButton left{frame, "left", "Left", {100, 1100, 1500, 300}};
    ui::TabControl tabs{*this, "tabs", {"&One", "&Two"}, {0, 2200, 5000, 2000}};
    ui::TextBox onFirst{tabs.page(0), "onFirst", {100, 700, 1000, 315}};
    ui::TextBox onSecond{tabs.page(1), "onSecond", {200, 700, 1000, 315}};
};

class ControlsTest : public testing::Test
{
protected:
    Form form;
    Driver user{form};
};

} // namespace

TEST_F(ControlsTest, RunsHandlersBeforeTheSetterReturnsAndOnlyForAChange)
{
    form.text.setText("a");
    form.text.setText("a");
    form.check.setValue(1);
    form.check.setValue(1);
    form.check.setValue(2);
    form.left.choose();
    form.left.choose();
    form.right.choose();
    form.combo.setText("x");
    form.combo.setText("x");
    form.tabs.setCurrentPage(1);
    form.tabs.setCurrentPage(1);
    EXPECT_EQ(form.takeLog(), QStringList({"text change", "check 1", "check 2", "left", "right",
                                           "combo change x", "page after 0"}));
    EXPECT_FALSE(form.left.value());
    user.click("check"); // grayed, then clicked: the user never makes it gray again
    user.click("check");
    EXPECT_EQ(form.takeLog(), QStringList({"check 0", "check 1"}));
}

TEST_F(ControlsTest, ComboBoxKeepsWhatIsTyped)
{
    form.combo.setText("kept");
    form.takeLog();
    for (const QString item : {"Apple", "apple pie", "Berry"})
        form.combo.setItemData(form.combo.addItem(item), 7);
    EXPECT_EQ(form.combo.text(), "kept"); // the first item of an empty list must not enter the box
    user.type("combo", "app");
    EXPECT_EQ(form.takeLog().last(), "combo change app");
    user.press(Qt::Key_Return);
    user.type("combo", "Apple");
    form.takeLog();
    user.press(Qt::Key_Return);
    user.press(Qt::Key_Tab);
    EXPECT_EQ(form.takeLog(), QStringList()); // an item that equals the text is not chosen by leaving
    EXPECT_EQ(form.combo.itemCount(), 3);
    auto *box = static_cast<QComboBox *>(user.control("combo"));
    QWheelEvent wheel({5, 5}, box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    EXPECT_EQ(form.combo.text(), "Apple");
    form.combo.clear();
    EXPECT_EQ(form.combo.text(), "Apple");
}

TEST_F(ControlsTest, ComboBoxTellsOnceOfAChosenItem)
{
    for (const QString item : {"one", "two", "three"})
        form.combo.addItem(item);
    form.combo.setSelectedIndex(1);
    EXPECT_EQ(form.takeLog(), QStringList("combo click two"));
    QTest::keyClick(user.control("combo"), Qt::Key_Down);
    EXPECT_EQ(form.takeLog(), QStringList("combo click three"));
    auto *box = static_cast<QComboBox *>(user.control("combo"));
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Home);
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_EQ(form.takeLog(), QStringList("combo click one"));
    form.combo.setSelectedIndex(-1);
    EXPECT_EQ(form.combo.text(), "one");
}

TEST_F(ControlsTest, AccessKeyTakesTheFocusAlong)
{
    user.control("text")->setFocus();
    user.press(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(form.takeLog(), QStringList({"text left", "button, focus on button"}));
    user.press(Qt::Key_Return);
    EXPECT_EQ(form.takeLog(), QStringList("button, focus on button"));
}

TEST_F(ControlsTest, HiddenPageStandsFarLeftAndTakesNoFocus)
{
    EXPECT_FLOAT_EQ(form.onSecond.left(), 200 - 75000);
    user.control("onFirst")->setFocus();
    user.press(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(form.tabs.currentPage(), 1);
    EXPECT_FLOAT_EQ(form.onFirst.left(), 100 - 75000);
    EXPECT_FLOAT_EQ(form.onSecond.left(), 200);
    user.press(Qt::Key_Tab); // from the tab bar, where the focus went
    EXPECT_EQ(user.focused(), "onSecond");
    EXPECT_FALSE(user.control("onFirst")->isVisible());
}

TEST_F(ControlsTest, LongTextAndControlCharactersStayWhole)
{
    const QString text = QString(100'000, u'x') + "\t\n" + QStringLiteral("\u202e\U0001F600");
    form.text.setText(text);
    EXPECT_EQ(form.text.text(), text);
    form.combo.setText(text);
    EXPECT_EQ(form.combo.text(), text);
}

TEST(TreeViewTest, KeepsNodesByKeyAndPlace)
{
    ui::Window window("Window", "Window", 3000, 3000);
    ui::TreeView tree(window, "tree", {0, 0, 3000, 3000});
    const int a = tree.addRoot("a", "A");
    const int c = tree.addRoot("c", "C");
    const int b = tree.addAfter(a, "b", "B");
    const int child = tree.addChild(b, "b.1", "B1");
    EXPECT_EQ(tree.parent(child), b);
    EXPECT_EQ(tree.parent(c), ui::TreeView::none);
    EXPECT_EQ(tree.key(tree.node("b.1")), "b.1");
    EXPECT_EQ(tree.selectedNode(), ui::TreeView::none);
    try {
        tree.node("missing");
        ADD_FAILURE();
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), 35601);
    }
    Driver user(window);
    EXPECT_EQ(user.tree(), QStringList({"A", "B", "  B1", "C"}));
    tree.clear();
    EXPECT_EQ(tree.nodeCount(), 0);
    EXPECT_EQ(tree.find("a"), ui::TreeView::none);
}

TEST(TreeViewTest, UpdateScrollsOnceToTheLastNodeShown)
{
    ui::Window window("Window", "Window", 3000, 3000);
    ui::TreeView tree(window, "tree", {0, 0, 3000, 3000});
    Driver user(window);
    tree.beginUpdate();
    for (int i = 0; i < 200; ++i) {
        const int root = tree.addRoot(QString::number(i), QString::number(i));
        tree.ensureVisible(tree.addChild(root, QString::number(i) + ".1", "child"));
    }
    tree.endUpdate();
    QTreeWidget *widget = user.treeWidget();
    EXPECT_TRUE(widget->viewport()->rect().contains(
        widget->visualItemRect(widget->topLevelItem(199)->child(0)).center()));
    EXPECT_TRUE(widget->topLevelItem(0)->isExpanded());
    EXPECT_TRUE(widget->updatesEnabled());
}

TEST(WindowTest, ModalShowWaitsForTheUnloadAndRefusesIt)
{
    ui::Window window("Window", "Window", 3000, 3000, ui::Window::Border::FixedDialog);
    int asked = 0;
    window.onQueryUnload = [&asked](bool &cancel) { cancel = ++asked < 2; };
    QTimer::singleShot(0, [&] {
        window.surface()->close();
        EXPECT_TRUE(window.isLoaded());
        window.surface()->close();
    });
    window.showModal();
    EXPECT_EQ(asked, 2);
    EXPECT_FALSE(window.surface()->isVisible());
}

TEST(MessageBoxTest, ShowsButtonsIconDefaultAndPlainText)
{
    const auto before = ui::setMessageBoxHandler({});
    ui::setScreenPointer(11);
    const auto press = [](int key, int style) {
        QTimer::singleShot(0, [key, style] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), "<b>&\tx</b>");
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_EQ(box->icon(), (style & 112) == 32   ? QMessageBox::Question
                                   : (style & 112) == 16 ? QMessageBox::Critical
                                                         : QMessageBox::NoIcon);
            EXPECT_EQ(ui::screenPointer(), 0);
            QTest::keyClick(box, static_cast<Qt::Key>(key));
        });
        return ui::showMessageBox("<b>&\tx</b>", style, "Title");
    };
    EXPECT_EQ(press(Qt::Key_Return, 0), 1);
    EXPECT_EQ(press(Qt::Key_Escape, 16), 1);
    EXPECT_EQ(press(Qt::Key_Return, 36), 6);
    EXPECT_EQ(press(Qt::Key_Return, 547), 2);
    EXPECT_EQ(press(Qt::Key_Escape, 547), 2);
    EXPECT_EQ(ui::screenPointer(), 11); // the work goes on
    ui::setScreenPointer(0);
    ui::setMessageBoxHandler(before);
}

TEST(ListBoxTest, ListsManyRowsAsWideAsTheLongest)
{
    ui::Window window("Window", "Window", 3000, 3000);
    ui::ListBox list(window, "list", {0, 0, 3000, 3000});
    Driver user(window);
    for (int i = 0; i < 100'000; ++i)
        list.addItem(i == 70'000 ? QString(500, u'W') : QString::number(i));
    auto *view = static_cast<QListView *>(user.control("list"));
    QTest::qWait(0);
    EXPECT_EQ(view->model()->rowCount(), 100'000);
    EXPECT_GT(view->sizeHintForColumn(0), 2000);
    list.clear();
    EXPECT_EQ(view->model()->rowCount(), 0);
}

} // namespace varnow::test

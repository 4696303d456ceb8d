#include "support/Driver.h"
#include "support/errorOf.h"
#include "support/printing.h"

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
#include <QListView>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace varnow;
using namespace varnow::test;

namespace {

/// A window with one control of each kind, which writes down the events it is told of.
struct Form : ui::Window
{
    Form() : ui::Window("Form", "Form", 6000, 6000)
    {
        text.onChange = [this] { log += "text change"; };
        text.onLostFocus = [this] { log += "text left"; };
        combo.onChange = [this] { log += "combo change " + combo.text(); };
        combo.onClick = [this] { log += "combo click " + combo.text(); };
        check.onClick = [this] { log += "check " + QString::number(check.value()); };
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
    ui::TreeView tree{*this, "tree", {0, 4200, 2000, 1700}};
    ui::ListBox list{*this, "list", {2000, 4200, 2000, 1700}};
};

struct ControlsTest : testing::Test
{
    Form form;
    Driver user{form};
};

} // namespace

TEST_F(ControlsTest, RunsHandlersBeforeTheSetterReturnsAndOnlyForAChange)
{
    const QString whole = QString(100'000, u'x') + "\t\n\u202e\U0001F600";
    for (int twice = 0; twice < 2; ++twice) {
        form.text.setText(whole);
        form.combo.setText(whole);
        form.check.setValue(2);
        form.left.choose();
        form.tabs.setCurrentPage(1);
    }
    EXPECT_EQ(form.takeLog(),
              QStringList({"text change", "combo change " + whole, "check 2", "left", "page after 0"}));
    EXPECT_EQ(form.text.text(), whole);
    form.right.choose();
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
    QWidget *box = user.control("combo");
    QWheelEvent wheel({5, 5}, box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    form.combo.clear();
    EXPECT_EQ(form.combo.text(), "Apple");
}

TEST_F(ControlsTest, ComboBoxTellsOnceOfAChosenItem)
{
    for (const QString item : {"one", "two", "three"})
        form.combo.addItem(item);
    form.combo.setSelectedIndex(1);
    auto *box = static_cast<QComboBox *>(user.control("combo"));
    QTest::keyClick(box, Qt::Key_Down);
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Home);
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_EQ(form.takeLog(), QStringList({"combo click two", "combo click three", "combo click one"}));
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
    EXPECT_FLOAT_EQ(form.onFirst.left(), 100 - 75000);
    EXPECT_FLOAT_EQ(form.onSecond.left(), 200);
    user.press(Qt::Key_Tab); // from the tab bar, where the focus went
    EXPECT_EQ(user.focused(), "onSecond");
    EXPECT_FALSE(user.control("onFirst")->isVisible());
}

TEST_F(ControlsTest, TreeKeepsNodesByKeyAndPlace)
{
    ui::TreeView &tree = form.tree;
    const int a = tree.addRoot("a", "A");
    tree.addRoot("c", "C");
    const int child = tree.addChild(tree.addAfter(a, "b", "B"), "b.1", "B1");
    EXPECT_EQ(user.tree(), QStringList({"A", "B", "  B1", "C"}));
    EXPECT_EQ(tree.node("b.1"), child);
    EXPECT_EQ(errorOf([&] { tree.node("missing"); }), 35601);
    tree.clear();
    EXPECT_EQ(tree.find("a"), ui::TreeView::none);
}

TEST_F(ControlsTest, TreeUpdateScrollsOnceToTheLastNodeShown)
{
    form.tree.beginUpdate();
    for (int i = 0; i < 200; ++i) {
        const QString key = QString::number(i);
        form.tree.ensureVisible(form.tree.addChild(form.tree.addRoot(key, key), key + ".1", "child"));
    }
    form.tree.endUpdate();
    QTreeWidget *widget = user.treeWidget();
    EXPECT_TRUE(widget->viewport()->rect().contains(
        widget->visualItemRect(widget->topLevelItem(199)->child(0)).center()));
    EXPECT_TRUE(widget->updatesEnabled());
}

TEST(MessageBoxTest, ShowsButtonsIconDefaultAndPlainText)
{
    const auto press = [](Qt::Key key, int style, QMessageBox::Icon icon) {
        QTimer::singleShot(0, [=] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), "<b>&\tx</b>");
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_EQ(box->icon(), icon);
            EXPECT_EQ(ui::screenPointer(), 0);
            QTest::keyClick(box, key);
        });
        return ui::showMessageBox("<b>&\tx</b>", style, "Title");
    };
    const auto before = ui::setMessageBoxHandler({});
    ui::setScreenPointer(11);
    EXPECT_EQ(press(Qt::Key_Return, 0, QMessageBox::NoIcon), 1);
    EXPECT_EQ(press(Qt::Key_Escape, 16, QMessageBox::Critical), 1);
    EXPECT_EQ(press(Qt::Key_Return, 36, QMessageBox::Question), 6);
    EXPECT_EQ(press(Qt::Key_Return, 547, QMessageBox::Question), 2);
    EXPECT_EQ(press(Qt::Key_Escape, 547, QMessageBox::Question), 2);
    EXPECT_EQ(ui::screenPointer(), 11); // the work goes on
    ui::setScreenPointer(0);
    ui::setMessageBoxHandler(before);
}

TEST_F(ControlsTest, ListBoxIsAsWideAsTheLongestOfManyRows)
{
    for (int i = 0; i < 100'000; ++i)
        form.list.addItem(i == 70'000 ? QString(500, u'W') : QString::number(i));
    auto *view = static_cast<QListView *>(user.control("list"));
    QTest::qWait(0);
    EXPECT_GT(view->sizeHintForColumn(0), 2000);
}

// Lists of rows, used with the keys alone.

#include "support/Driver.h"

#include "base/names.h"
#include "ui/Table.h"
#include "ui/Window.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <gtest/gtest.h>

namespace varnow::test {

namespace {

struct TableTest : testing::Test
{
    struct Form : ui::Window
    {
        Form() : ui::Window("form", "Form", 6000, 3000)
        {
            table.onSelect = [this] { ++selections; };
            setFocusOrder({&table});
        }

        int selections = 0;
        ui::Table table{*this, "table", {"Name", "Text"}, {0, 0, 6000, 3000}};
    };

    static std::vector<QStringList> rows(const QStringList &names)
    {
        std::vector<QStringList> found;
        for (const QString &name : names)
            found.push_back({isolated(name), "x"});
        return found;
    }

    Form form;
    Driver user{form};
};

using Selected = std::vector<int>;

} // namespace

// Faults: a list without rows or selection that ends the program, a cell that tears its row apart, marks
// around names that another program shows as boxes.
TEST_F(TableTest, CopiesTheSelectedRowsAsText)
{
    QApplication::clipboard()->setText("before");
    for (const auto &[key, modifiers] :
         {std::pair(Qt::Key_C, Qt::ControlModifier), std::pair(Qt::Key_Insert, Qt::ControlModifier)}) {
        user.press(key, modifiers);
        EXPECT_EQ(QApplication::clipboard()->text(), "before");
    }
    const QString name(300, u'n');
    form.table.setRows({{isolated(name), "a\r\nb"}, {"two", "c\td"}, {"three", ""}});
    user.press(Qt::Key_Down, Qt::ShiftModifier);
    user.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), name + "\ta b\ntwo\tc d");
    user.press(Qt::Key_Up);
    user.press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(form.table.selectedRows(), Selected());
    user.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), name + "\ta b\ntwo\tc d");
}

// Faults: keys that begin at the second row, or with the first row after every change of the list; a button
// that knows nothing of the row that is selected.
TEST_F(TableTest, GoesOnFromTheRowThatTheKeysReached)
{
    EXPECT_EQ(form.table.selectedRows(), Selected());
    form.table.setRows(rows({"a", "b", "c", "d"}));
    EXPECT_EQ(form.table.selectedRows(), Selected{0});
    EXPECT_EQ(form.selections, 1);
    user.press(Qt::Key_Down);
    user.press(Qt::Key_Down);
    EXPECT_EQ(form.table.selectedRows(), Selected{2});
    form.table.setRows(rows({"a", "b", "d", "e"}));
    EXPECT_EQ(form.table.selectedRows(), Selected{2});
    form.table.setRows(rows({"a", "b"}));
    EXPECT_EQ(form.table.selectedRows(), Selected{1});
    user.press(Qt::Key_Up);
    EXPECT_EQ(form.table.selectedRows(), Selected{0});
    form.selections = 0;
    form.table.setRows({});
    EXPECT_EQ(form.table.selectedRows(), Selected());
    EXPECT_EQ(form.selections, 1);
    form.table.setRows(rows({"only"}));
    EXPECT_EQ(form.table.selectedRows(), Selected{0});
}

} // namespace varnow::test

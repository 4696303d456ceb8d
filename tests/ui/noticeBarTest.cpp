// The line that tells what was done, with its buttons.

#include "support/Driver.h"

#include "ui/ComboBox.h"
#include "ui/NoticeBar.h"
#include "ui/TextBox.h"
#include "ui/Window.h"

#include <gtest/gtest.h>

namespace varnow::test {

namespace {

struct NoticeBarTest : testing::Test
{
    struct Form : ui::Window
    {
        Form() : ui::Window("form", "Form", 6000, 3000)
        {
            setFocusOrder({&first, &entry, &last});
            entry.setText("abc");
            show();
        }

        void show()
        {
            bar.show({"Done.", {{"Undo", "Undoes it.", [this] { ++undone, bar.show({"Undone."}); }}}});
        }

        int undone = 0;
        ui::ComboBox first{*this, "first", {0, 0, 1500, 315}};
        ui::TextBox entry{*this, "entry", {0, 400, 1500, 315}};
        ui::TextBox last{*this, "last", {0, 800, 1500, 315}};
        ui::NoticeBar bar{*this};
    };

    Form form;
    Driver user{form};
};

} // namespace

// Fault: the button that has gone leaves the focus to the first control of the window, where the next letter
// changes what the window shows.
TEST_F(NoticeBarTest, LeavesTheFocusWhereTheUserWas)
{
    user.type("entry", "abc");
    user.click("noticeButton1");
    EXPECT_EQ(form.undone, 1);
    EXPECT_EQ(user.focused(), "entry");
    user.press(Qt::Key_D);
    EXPECT_EQ(form.entry.text(), "abcd") << "the cursor has not moved either";
    for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
        form.show();
        form.last.setFocus();
        user.press(Qt::Key_Tab);
        ASSERT_EQ(user.focused(), "noticeButton1");
        user.press(key);
        EXPECT_EQ(user.focused(), "last");
    }
    EXPECT_EQ(form.undone, 3);
    form.show();
    user.press(Qt::Key_Tab);
    form.bar.show({"Something else has happened."});
    EXPECT_EQ(user.focused(), "last");
}

// Fault: a button whose work shows a record, and whose focus is taken away from there again.
TEST_F(NoticeBarTest, LeavesTheFocusWhereTheButtonPutsIt)
{
    form.bar.show({"Done.", {{"Show it", "Shows it.", [this] { form.entry.setFocus(); }}}});
    form.last.setFocus();
    user.press(Qt::Key_Tab);
    user.press(Qt::Key_Space);
    EXPECT_EQ(user.focused(), "entry");
}

} // namespace varnow::test

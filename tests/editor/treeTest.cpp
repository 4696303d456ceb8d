#include "editor/EditorTest.h"

namespace varnow::test {

using TreeTest = EditorTest;

TEST_P(TreeTest, AsksWhichOfTwoLinesWithOneMessageIndexToShow)
{
    addLine("MSH", 0, 1);
    addLine("PID", 2, 1);
    addField("MSH", 0, 1, 1, "Separator");
    messages.answerWith(ui::answer::Yes);
    open();
    expectBoxes({{"A node with this message index already esists.\r\nDo you wish to update this node?", 36}});
    EXPECT_EQ(user->tree(), QStringList({"1 PID(2)", "  1.1 Separator"}));
    user->clickNode("1 PID(2)");
    EXPECT_EQ(user->text("Text1(0)"), "PID");
    messages.answerWith(ui::answer::No);
    user->click("cmdRefresh");
    EXPECT_EQ(user->tree(), QStringList({"1 MSH", "  1.1 Separator"}));
}

TEST_P(TreeTest, RefusesFieldsWithoutAnyLine)
{
    addField("PID", 0, 1, 1, "First");
    open();
    expectBoxes(
        {{"The system requires a line for field attachment.\r\nPlease check your input and try again."},
         {"There is no line configuration\r\ndata to display."}});
    EXPECT_TRUE(user->tree().isEmpty());
}

TEST_P(TreeTest, ShowsTheRecordOfAClickedNode)
{
    addLine("MSH", 0, 1);
    addLine("A (b", 2, 2);
    addField("A (b", 2, 2, 7, "Name (x) (y)");
    addField("A (b", 2, 2, 8, "Name (x) (y)", 3);
    database.run(
        "UPDATE LabLineFieldConfig SET FixedLength = 1, PadChar = ' ', PadDirection = -1, Length = 12, "
        "ValidationString = '30', FormatString = 'fmt', LookupString = 'look' WHERE NameIndex = 3");
    open();
    user->clickNode("2 A (b(2)");
    EXPECT_EQ(user->texts({"Text1(0)", "Text1(1)", "Text1(2)"}), "A (b|2|2");
    user->clickNode("1 MSH");
    user->clickNode("2.8 Name (x) (y)(3)");
    EXPECT_EQ(user->text("Text1(0)"), "A (b"); // the field's own line
    EXPECT_EQ(user->texts({"Text2(0)", "Text2(1)", "Combo2(0)", "Text2(2)", "Combo2(1)", "Text2(3)",
                           "Text2(4)", "Text2(5)", "Text2(6)", "Text2(7)"}),
              "Name (x) (y)|3|A (b(2)|2|look|fmt|x|8|12|30");
    EXPECT_TRUE(user->control("Text2(6)")->isEnabled());
    user->clickNode("2.7 Name (x) (y)");
    EXPECT_EQ(user->texts({"Text2(1)", "Text2(6)"}), "0|12"); // the length is left, and disabled
    EXPECT_FALSE(user->control("Text2(6)")->isEnabled());
    LabLineFldTable.clear();
    LabLineTable.clear(); // what has no record any more empties its page
    user->clickNode("2.8 Name (x) (y)(3)");
    user->clickNode("1 MSH");
    EXPECT_EQ(user->texts({"Text1(0)", "Text2(0)"}), "|");
}

TEST_P(TreeTest, WorksWithoutAMouse)
{
    addLine("MSH", 0, 1);
    addField("MSH", 0, 1, 1, "Separator");
    open();
    user->type("Text1(0)", "typed over");
    user->control("tvLines")->setFocus();
    user->press(Qt::Key_Return); // the node that the focus came to
    EXPECT_EQ(user->text("Text1(0)"), "MSH");
    user->press(Qt::Key_Down);
    EXPECT_EQ(user->text("Text2(0)"), "Separator");
    user->press(Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(user->control("Text2(0)")->isVisible());
    user->press(Qt::Key_F12);
    EXPECT_EQ(ui::Window::loadedWindows().size(), 2U); // the data display
}

ON_EVERY_ENGINE(TreeTest);

} // namespace varnow::test

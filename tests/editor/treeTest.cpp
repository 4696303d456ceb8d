#include "editor/EditorTest.h"

#include <QApplication>
#include <QTest>
#include <QTreeWidget>

namespace varnow::test {

using TreeTest = EditorTest;

TEST_P(TreeTest, AsksWhichOfTwoLinesWithOneMessageIndexToShow)
{
    addLine("MSH", 0, 1);
    addLine("PID", 2, 1);
    addField("MSH", 0, 1, 1, "Separator");
    messages.answerWith(ui::Answer::Yes);
    open();
    expectBoxes(
        {question("A node with this message index already esists.\r\nDo you wish to update this node?",
                  "Configuration")});
    EXPECT_EQ(user->tree(), QStringList({"1 PID(2)", "  1.1 Separator"}));
    user->clickNode("1 PID(2)");
    EXPECT_EQ(user->text("lineName"), "PID");
    const auto before = ui::setMessageBoxHandler([this](const Box &) {
        EXPECT_EQ(user->tree(), QStringList("1 MSH")); // what was built so far
        EXPECT_TRUE(user->treeWidget()->updatesEnabled());
        return ui::Answer::No;
    });
    user->click("refresh");
    ui::setMessageBoxHandler(before);
    EXPECT_EQ(user->tree(), QStringList({"1 MSH", "  1.1 Separator"}));
    user->type("configuration", "Standard"); // asks when typing is over, for a question would take a key
    messages.answerWith(ui::Answer::Yes);
    user->press(Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(user->tree(), QStringList({"1 PID(2)", "  1.1 Separator"}));
}

TEST_P(TreeTest, ShowsWhatWasChangedAndTheBeginningOfAnotherConfiguration)
{
    for (int i = 1; i <= 99; ++i) {
        addLine(QStringLiteral("L%1").arg(i), 0, i);
        addField(QStringLiteral("L%1").arg(i), 0, i, 1, QStringLiteral("F%1").arg(i));
    }
    open({"Other", "Standard"});
    const auto first = [this] { return user->treeWidget()->itemAt(5, 5)->text(0); };
    EXPECT_EQ(first(), "1 L1");
    user->fill({{"lineName", "L50"}, {"lineMessageIndex", "50"}});
    user->click("change");
    EXPECT_EQ(user->selectedNode(), "50 L50");
    EXPECT_EQ(user->text("lineName"), "L50"); // no click
    user->clickNode("70.1 F70");
    user->type("position", "2");
    user->click("change");
    EXPECT_EQ(user->selectedNode(), "70.2 F70");
    QTest::keyClick(user->control("configuration"), Qt::Key_Up);
    QTest::keyClick(user->control("configuration"), Qt::Key_Down);
    EXPECT_EQ(first(), "1 L1");
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
        "ValidationString = '30', FormatString = 'fmt', LookupString = 'look' WHERE NameIndex = 3; "
        "UPDATE LabLineFieldConfig SET Length = 4, ValidationString = '9' WHERE NameIndex = 0");
    open();
    user->clickNode("2 A (b(2)");
    EXPECT_EQ(user->texts({"lineName", "lineIndex", "lineMessageIndex"}), "A (b|2|2");
    user->clickNode("1 MSH");
    user->clickNode("2.8 Name (x) (y)(3)");
    EXPECT_EQ(user->text("lineName"), "A (b"); // the field's own line
    EXPECT_EQ(user->texts({"fieldName", "fieldIndex", "fieldLine", "fieldMessageIndex", "lookup", "format",
                           "constant", "position", "length", "characterPosition"}),
              "Name (x) (y)|3|A (b(2)|2|look|fmt|x|8|12|30");
    EXPECT_TRUE(user->control("length")->isEnabled());
    user->clickNode("2.7 Name (x) (y)");
    EXPECT_EQ(user->texts({"fieldIndex", "length", "characterPosition"}), "0|4|9"); // its own
    EXPECT_FALSE(user->control("length")->isEnabled());
}

TEST_P(TreeTest, WorksWithoutAMouse)
{
    addLine("MSH", 0, 1);
    addField("MSH", 0, 1, 1, "Separator");
    open();
    user->type("lineName", "typed over");
    user->control("tree")->setFocus();
    user->press(Qt::Key_Return); // the node that the focus came to
    EXPECT_EQ(user->text("lineName"), "MSH");
    user->press(Qt::Key_Down);
    EXPECT_EQ(user->text("fieldName"), "Separator");
    user->press(Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(user->control("fieldName")->isVisible());
    user->press(Qt::Key_F12);
    EXPECT_EQ(ui::Window::loadedWindows().size(), 2U); // the data display
}

// A key that acts on the record of the page while another node is selected, or leaves the focus behind.
TEST_P(TreeTest, EntersAndRemovesTheSelectedRecordByKey)
{
    addLine("MSH", 0, 1);
    addLine("PID", 0, 2);
    addField("MSH", 0, 1, 1, "Separator");
    addField("MSH", 0, 1, 2, "Sender");
    addField("MSH", 0, 1, 3, "Receiver");
    open();
    user->clickNode("1.1 Separator");
    user->press(Qt::Key_F2);
    EXPECT_EQ(user->focused() + ' ' + user->text("fieldName"), "fieldName Separator");
    user->clickNode("2 PID");
    user->press(Qt::Key_F2);
    EXPECT_EQ(user->focused() + ' ' + user->text("lineName"), "lineName PID");
    EXPECT_FALSE(user->control("fieldName")->isVisible());

    const Box ask = question("Are you sure that you want to PERMANENTLY\r\nremove this field from this "
                             "configuration?\r\nPlease select 'Yes' or 'No'",
                             "Remove Field");
    user->clickNode("1.2 Sender");
    user->type("fieldName", "typed over");
    user->control("tree")->setFocus();
    messages.answerWith(ui::Answer::No);
    user->press(Qt::Key_Delete);
    EXPECT_EQ(user->text("fieldName"), "Sender");
    EXPECT_EQ(user->tree().size(), 5);
    for (int i = 0; i < 2; ++i) { // the neighbour is selected after the first
        messages.answerWith(ui::Answer::Yes);
        user->press(Qt::Key_Delete);
    }
    expectBoxes({ask, ask, ask});
    EXPECT_EQ(user->tree(), QStringList({"1 MSH", "  1.1 Separator", "2 PID"}));
    EXPECT_EQ(user->focused() + ' ' + user->selectedNode(), "tree 1.1 Separator");
    user->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(fieldTexts().size(), 2); // one step each
}

// Faults: Delete in the tree removes the line that the page shows instead of the selected one.
TEST_P(TreeTest, RemovesNoOtherLineOfTheSelectedName)
{
    addLine("RESULT", 1, 1);
    addLine("RESULT", 0, 2);
    open();
    user->clickNode("2 RESULT");
    ASSERT_EQ(user->text("lineIndex"), "1");
    user->press(Qt::Key_Delete);
    EXPECT_EQ(lineTexts(), QStringList({"RESULT(1)=1", "RESULT(0)=2"}));
    EXPECT_TRUE(user->control("noticeSentence")->accessibleName().contains("nothing was removed"));
}

ON_EVERY_ENGINE(TreeTest);

} // namespace varnow::test

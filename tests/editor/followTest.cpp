// Everything that shows records follows what is done to them, wherever that comes from, and nothing that was
// typed goes without a word.

#include "editor/EditorTest.h"

#include "model/issues.h"
#include "model/ownership.h"

#include <QTest>

namespace varnow::test {

struct FollowTest : EditorTest
{
    FollowTest()
    {
        addLine("PID", 0, 1);
        addLine("OBX", 0, 2);
        addLine("MSH", 0, 1, "Other");
        addField("PID", 0, 1, 1, "Sex");
        addField("OBX", 0, 2, 1, "Value");
        addField("OBX", 0, 2, 2, "Units");
        open({"Standard", "Other", "Empty"});
    }

    QString notice() const { return user->control("noticeSentence")->accessibleName(); }
    QString button() const { return user->text("noticeButton1"); }

    Field fieldNamed(const QString &name) const { return fields()[fields().find("Standard", name, 0)]; }

    /// Another part of the program changes a field's constant.
    void setConstant(const QString &name, const QString &constant)
    {
        Field field = fieldNamed(name);
        field.constant = constant;
        document->edit({"change elsewhere", "Changed elsewhere."},
                       [&field](Edit &edit) { edit.fields.store(field); });
    }

    void changeLine(const QString &node, const QString &messageIndex)
    {
        user->clickNode(node);
        user->type("lineMessageIndex", messageIndex);
        user->click("change");
    }
};

// Fault: a page that goes on showing old values, which Change then writes back.
TEST_P(FollowTest, PagesShowWhatBecameOfTheirRecord)
{
    user->clickNode("2.1 Value");
    document->edit({"change of a line"},
                   [](Edit &edit) { edit.lines.store(line(-1, "Standard", "OBX", 0, 7)); });
    EXPECT_EQ(user->text("lineMessageIndex"), "7");
    document->edit({"move"}, [](Edit &edit) { moveFieldsToLine(edit.model(), {"Standard", "OBX", 0}); });
    EXPECT_EQ(user->text("fieldMessageIndex"), "7");
    user->click("change");
    EXPECT_EQ(fieldNamed("Value").messageIndex, 7);
    EXPECT_EQ(user->tree(), QStringList({"1 PID", "  1.1 Sex", "7 OBX", "  7.1 Value", "  7.2 Units"}));

    setConstant("Value", "new");
    EXPECT_EQ(user->text("constant"), "new");
    document->undo();
    EXPECT_EQ(user->text("constant"), "x");
    const QStringList lineChoices = user->items("fieldLine");
    document->edit({"addition"}, [](Edit &edit) { edit.lines.store(line(-1, "Standard", "NTE", 0, 9)); });
    EXPECT_EQ(user->items("fieldLine"), lineChoices + QStringList("NTE"));
    expectBoxes({});
}

// Fault: what is typed overwritten, or old values stored over new ones, without a word.
TEST_P(FollowTest, KeepsWhatIsTypedAndTellsThatTheRecordHasChanged)
{
    user->clickNode("2.1 Value");
    user->type("format", "typed");
    setConstant("Units", "new");
    EXPECT_EQ(notice(), "Changed elsewhere.");
    setConstant("Value", "new");
    EXPECT_EQ(user->texts({"format", "constant"}), "typed|x");
    EXPECT_EQ(notice(),
              "Changed elsewhere. Field Value has changed meanwhile; what is typed for it is not stored.");
    EXPECT_EQ(button(), "Show it");
    user->click("noticeButton1");
    EXPECT_EQ(user->texts({"format", "constant"}), "|new");
    EXPECT_EQ(notice(), "The entries typed for Value were not stored.");
    user->click("noticeButton1");
    EXPECT_EQ(user->texts({"format", "constant"}), "typed|x");
}

// Fault: a button that acts on the namesake in the configuration that is shown meanwhile.
TEST_P(FollowTest, ANoticesButtonGoesBackToItsConfiguration)
{
    document->edit({}, [](Edit &edit) { edit.lines.store(line(-1, "Other", "OBX", 0, 5)); });
    changeLine("2 OBX", "6");
    EXPECT_EQ(button(), "Move its fields");
    QTest::keyClick(user->control("configuration"), Qt::Key_Down);
    ASSERT_EQ(user->text("configuration"), "Other");
    user->click("noticeButton1");
    EXPECT_EQ(user->text("configuration"), "Standard");
    EXPECT_EQ(user->text("lineMessageIndex"), "6");
    EXPECT_EQ(fieldNamed("Units").messageIndex, 6);
    EXPECT_EQ(user->selectedNode(), "6 OBX");
    expectBoxes({});
}

// Faults: a count of what is no longer there; every other match passed over while matches are mended.
TEST_P(FollowTest, FindingGoesOnWhileMatchesAreMended)
{
    user->press(Qt::Key_F, Qt::ControlModifier);
    user->type("find", "x");
    const int found = user->text("findCount").section(' ', 0, 0).toInt();
    ASSERT_GE(found, 4); // the constants, and line OBX
    setConstant("Sex", "mended");
    EXPECT_EQ(user->text("findCount"), QStringLiteral("%1 found").arg(found)) << "its name has the letter";
    QStringList seen;
    for (int i = 0; i < 2; ++i) {
        user->type("find", "Valu");
        user->type("find", "x");
        user->clickNode("1 PID");
        user->press(Qt::Key_F3);
        seen += user->selectedNode();
    }
    EXPECT_EQ(seen[0], seen[1]);

    user->type("find", "units");
    EXPECT_EQ(user->text("findCount"), "1 found");
    document->edit({"removal"},
                   [](Edit &edit) { edit.fields.remove(edit.fields.find("Standard", "Units", 0)); });
    EXPECT_EQ(user->text("findCount"), "0 found");
    document->undo();
    user->type("find", "obx");
    user->press(Qt::Key_Return);
    user->press(Qt::Key_F3);
    ASSERT_EQ(user->selectedNode(), "2.1 Value");
    user->fill({{"fieldLine", "PID(0)"}, {"fieldMessageIndex", "1"}, {"position", "5"}});
    user->click("change");
    ASSERT_EQ(user->selectedNode(), "1.5 Value");
    user->press(Qt::Key_F3);
    EXPECT_EQ(user->selectedNode(), "2.2 Units") << "the match behind the mended one";
    messages.take();
}

// Faults: a node that is not found for the number it was typed as; a number proposed for another
// configuration's end.
TEST_P(FollowTest, TakesNumbersAndNamesAsTheyAreStored)
{
    changeLine("2 OBX", "06");
    EXPECT_EQ(user->selectedNode() + '|' + user->text("lineMessageIndex"), "6 OBX|6");
    user->type("configuration", "Standard ");
    user->press(Qt::Key_Return);
    user->showPage(0);
    user->click("clear");
    EXPECT_EQ(user->text("lineMessageIndex"), "7");
    expectBoxes({});
}

// Faults: typed entries that Change has not taken gone at the exit; one that fails its check stored or lost.
TEST_P(FollowTest, LeavingStoresWhatIsTyped)
{
    user->clickNode("2.1 Value");
    user->type("constant", "typed");
    user->click("save");
    EXPECT_EQ(notice(), "Saved; there were no changes. The entries typed for Value are not stored.");
    EXPECT_EQ(button(), "Store it");
    EXPECT_TRUE(leavingAsks());
    user->type("position", "");
    messages.take();
    messages.answerWith(ui::Answer::Yes);
    editor->unload();
    EXPECT_TRUE(editor->isLoaded()) << "the check has failed";
    EXPECT_EQ(messages.take().size(), 2);
    user->type("position", "1");
    messages.answerWith(ui::Answer::Yes);
    editor->unload();
    EXPECT_FALSE(editor->isLoaded());
    EXPECT_EQ(database.run("SELECT Constant FROM LabLineFieldConfig WHERE Name = 'Value'"),
              QStringList("typed"));
    messages.take();
}

TEST_P(FollowTest, ANoticesButtonStoresWhatIsTyped)
{
    user->clickNode("2.1 Value");
    user->type("constant", "typed");
    user->click("save");
    user->showPage(0);
    user->click("noticeButton1");
    EXPECT_EQ(fieldNamed("Value").constant, "typed");
    messages.take();
}

// Fault: an undo that works where nobody looks, or complains about the configuration that it empties.
TEST_P(FollowTest, UndoShowsTheConfigurationInWhichItWorks)
{
    document->edit({"copy"}, [](Edit &edit) {
        edit.lines.store(line(-1, "Empty", "NTE", 0, 1));
        edit.lines.store(line(-1, "Empty", "ZZZ", 0, 2));
    });
    user->control("exit")->setFocus();
    user->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(user->text("configuration"), "Empty");
    EXPECT_TRUE(user->tree().isEmpty());
    user->press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(user->selectedNode() + '|' + user->text("lineName"), "1 NTE|NTE");
    EXPECT_EQ(notice(), "Made again: copy.");
    expectBoxes({});
}

// Fault: the selection lost while the page goes on showing a record.
TEST_P(FollowTest, SelectsTheNeighbourOfWhatAnUndoTakesAway)
{
    user->clickNode("2.1 Value");
    user->fill({{"fieldName", "New"}, {"position", "3"}});
    user->click("change");
    ASSERT_EQ(user->selectedNode(), "2.3 New");
    user->control("exit")->setFocus();
    user->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(user->selectedNode(), "2.2 Units");
}

// Fault: a box for each of many records.
TEST_P(FollowTest, ShowsOneBoxOfAKindAndTellsTheRestInTheNotice)
{
    messages.answerWith(ui::Answer::No);
    document->edit({"import", "Imported."}, [](Edit &edit) {
        for (int i = 0; i < 9; ++i)
            edit.lines.store(line(-1, "Standard", QStringLiteral("L%1").arg(i), 0, 2));
    });
    EXPECT_EQ(messages.take().size(), 1);
    EXPECT_EQ(notice(),
              "Imported. 8 more lines have the message index of another line, so that the tree does not "
              "show them.");
    EXPECT_EQ(button(), "Check");
    document->edit({"import", "Imported."}, [](Edit &edit) {
        for (int i = 0; i < 9; ++i)
            edit.fields.store(field("Empty", QStringLiteral("F%1").arg(i), i));
    });
    user->type("configuration", "Empty");
    user->press(Qt::Key_Return);
    EXPECT_EQ(messages.take().size(), 2) << "no line for the fields, and no line at all";
    EXPECT_TRUE(notice().endsWith("8 more fields have no line, so that the tree does not show them."));
}

ON_EVERY_ENGINE(FollowTest);

} // namespace varnow::test

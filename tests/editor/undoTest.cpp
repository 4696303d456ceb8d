// What was entered is neither lost nor final.

#include "editor/EditorTest.h"

#include "support/TdsServer.h"

#include <QDir>
#include <QTest>

namespace varnow::test {

struct UndoTest : EditorTest
{
    UndoTest()
    {
        addLine("MSH", 0, 1);
        addLine("PID", 0, 2);
        addLine("OBX", 1, 3);
        addField("MSH", 0, 1, 1, "Sep");
        addField("OBX", 1, 3, 1, "Value");
        open();
        QDir(state()).removeRecursively();
    }

    static QString state() { return qEnvironmentVariable("XDG_STATE_HOME") + "/varnow"; }
    static qsizetype recoveryFiles() { return QDir(state()).entryList({"*.journal"}).size(); }

    void remove()
    {
        messages.answerWith(ui::Answer::Yes);
        user->click("delete");
        messages.take();
    }

    /// Presses Ctrl and the key where no entry takes it.
    void press(int key) const
    {
        user->control("exit")->setFocus();
        user->press(key, Qt::ControlModifier);
    }
};

// Faults: another state than before, a step left out, what is shown left behind; a step that another one has
// made meaningless offered again.
TEST_P(UndoTest, TakesBackAndMakesAgain)
{
    const QStringList lineTextsBefore = lineTexts(), treeBefore = user->tree();
    user->clickNode("2 PID");
    remove();
    user->clickNode("2.1 Value");
    user->type("constant", "new");
    user->click("change");
    user->type("fieldName", "Other");
    user->click("change");
    const QStringList fieldTextsAfter = fieldTexts(), treeAfter = user->tree();

    press(Qt::Key_Z);
    EXPECT_EQ(user->text("fieldName"), "Other") << "nothing to show of a field that is gone";
    press(Qt::Key_Z);
    EXPECT_EQ(user->texts({"fieldName", "constant"}), "Value|x");
    press(Qt::Key_Z);
    EXPECT_EQ(user->tree(), treeBefore);
    EXPECT_EQ(lineTexts(), lineTextsBefore);
    EXPECT_EQ(user->text("lineName"), "PID");
    press(Qt::Key_Z); // there is nothing more
    EXPECT_EQ(user->tree(), treeBefore);

    for (int step = 0; step < 4; ++step)
        press(Qt::Key_Y);
    EXPECT_EQ(user->tree(), treeAfter);
    EXPECT_EQ(fieldTexts(), fieldTextsAfter);
    press(Qt::Key_Z);
    user->clickNode("1.1 Sep");
    remove();
    press(Qt::Key_Y);
    EXPECT_EQ(fields().size(), 1) << "what was undone before another change is gone";
    expectBoxes({});
}

// Fault: an undo behind a save that leaves the rows of what it took back, or loses those of what it brought
// back.
TEST_P(UndoTest, IsAnUnsavedChangeBehindASave)
{
    const auto rows = [this](const QString &table) {
        return database.run("SELECT Name, MsgIndex FROM " + table + " ORDER BY Name");
    };
    const QStringList linesBefore = rows("LabLineConfig"), fieldsBefore = rows("LabLineFieldConfig");
    user->clickNode("3.1 Value");
    remove();
    user->clickNode("3 OBX(1)");
    remove();
    user->fill({{"lineName", "ZZZ"}, {"lineIndex", "0"}, {"lineMessageIndex", "9"}});
    user->click("change");
    user->click("save");
    EXPECT_FALSE(leavingAsks());
    editor->show();
    for (int step = 0; step < 3; ++step)
        press(Qt::Key_Z);
    EXPECT_TRUE(leavingAsks());
    user->click("save");
    EXPECT_EQ(rows("LabLineConfig"), linesBefore);
    EXPECT_EQ(rows("LabLineFieldConfig"), fieldsBefore);
    messages.take();
}

// Faults: no question about a change because a page was looked at since, or because a save failed; one
// although everything is as it was.
TEST_P(UndoTest, LeavingAsksWhileARecordDiffersFromItsRow)
{
    user->fill({{"lineName", "ZZZ"}, {"lineMessageIndex", "9"}});
    user->click("change");
    user->showPage(1);
    EXPECT_TRUE(leavingAsks());
    database.run("ALTER TABLE LabLineConfig RENAME TO Away");
    user->click("save");
    EXPECT_TRUE(leavingAsks());
    database.run("ALTER TABLE Away RENAME TO LabLineConfig");
    press(Qt::Key_Z);
    user->showPage(0);
    user->showPage(1); // forgets what was entered since the last save
    EXPECT_FALSE(leavingAsks());
    messages.take();
}

// Faults: a change that is not in the file a second later, a file that outlives its changes or the user's No.
TEST_P(UndoTest, KeepsWhatIsUnsavedInAFile)
{
    user->fill({{"lineName", "ZZZ"}, {"lineMessageIndex", "9"}});
    user->click("change");
    EXPECT_TRUE(QTest::qWaitFor([] { return recoveryFiles() == 1; }, 1000));
    const auto noFile = [] { return recoveryFiles() == 0; };
    user->click("save");
    EXPECT_TRUE(QTest::qWaitFor(noFile, 1000));
    press(Qt::Key_Z);
    EXPECT_TRUE(QTest::qWaitFor([] { return recoveryFiles() == 1; }, 1000));
    press(Qt::Key_Y);
    user->showPage(1); // forgets that something was entered; the file has not been looked at yet
    EXPECT_FALSE(leavingAsks());
    EXPECT_TRUE(QTest::qWaitFor(noFile, 1000)) << "all is as it was";
    editor->show();
    messages.take();
    press(Qt::Key_Z);
    EXPECT_TRUE(QTest::qWaitFor([] { return recoveryFiles() == 1; }, 1000));
    messages.answerWith(ui::Answer::No);
    editor->unload();
    EXPECT_TRUE(QTest::qWaitFor(noFile, 1000));
}

ON_EVERY_ENGINE(UndoTest);

} // namespace varnow::test

#include "editor/EditorTest.h"

#include <QTest>

namespace varnow::test {

namespace {

const Box saveChanges = question(
    "Changes have been made to the configuration.\r\nAny changes will be lost if you continue without "
    "saving.\r\nDo you want to save changes now?\r\nPlease select 'Yes', 'No' or 'Cancel'",
    "Save Changes", ui::Buttons::YesNoCancel);

} // namespace

struct ConfigurationTest : EditorTest
{
    ConfigurationTest()
    {
        addLine("PID", 1, 1);
        addLine("OBR", 0, 2);
        addLine("OBX", -1, 3);
        addLine("HDR", 0, 1, "It''s");
        database.run("INSERT INTO data_extractor_fields_config VALUES ('Standard', 'sex '), "
                     "(' Standard', 'race'), ('standard', 'no'), ('It''s', 'file')");
    }

    void changeMessageIndex(const QString &node, const QString &messageIndex)
    {
        user->clickNode(node);
        user->type("lineMessageIndex", messageIndex);
        user->click("change");
    }
};

TEST_P(ConfigurationTest, SwitchesOnceAndKeepsEdits)
{
    open({"Standard", "It's"});
    messages.take(); // no fields in the database
    changeMessageIndex("1 PID(1)", "5");
    QWidget *box = user->control("configuration");
    QTest::keyClick(box, Qt::Key_Down); // chooses the next item as a user does
    EXPECT_EQ(user->tree(), QStringList("1 HDR"));
    EXPECT_EQ(user->items("lookup"), QStringList("file"));
    QTest::keyClick(box, Qt::Key_Up);
    EXPECT_EQ(user->tree(), QStringList({"5 PID(1)", "2 OBR", "3 OBX(-1)"}));
    EXPECT_EQ(user->items("fieldLine"), QStringList({"PID(1)", "OBR", "OBX"}));
    EXPECT_EQ(user->items("lookup"), QStringList({"race", "sex"}));
    expectBoxes({});
}

TEST_P(ConfigurationTest, SwitchesAtEveryKeystroke)
{
    open({"Standard"});
    messages.take();
    user->type("configuration", "It");
    EXPECT_EQ(messages.take().size(), 2); // no such configuration, twice; emptying the box does nothing
    EXPECT_TRUE(user->tree().isEmpty());
    user->press(Qt::Key_Return);
    EXPECT_EQ(user->text("configuration"), "It"); // nothing is completed
    QTest::keyClicks(user->control("configuration"), "'s");
    expectBoxes({{"There is no line configuration\r\ndata to display."}});
    EXPECT_EQ(user->text("lineName"), "HDR");
    QTest::keyClicks(user->control("configuration"), " ");
    EXPECT_EQ(user->tree(), QStringList("1 HDR"));
    EXPECT_TRUE(user->items("lookup").isEmpty()); // compared with the blank
    user->click("refresh");
    EXPECT_EQ(user->text("configuration"), "Standard");
}

TEST_P(ConfigurationTest, TakesOverTheMessageIndexOfTheChosenLine)
{
    open();
    messages.take();
    user->showPage(1);
    // The first that begins with the shown line's name.
    EXPECT_EQ(user->texts({"fieldLine", "fieldMessageIndex"}), "PID(1)|1");
    QTest::keyClick(user->control("fieldLine"), Qt::Key_Down);
    EXPECT_EQ(user->texts({"fieldLine", "fieldMessageIndex"}), "OBR|2");
    user->type("fieldLine", "obx(7)");
    user->click("clear"); // looks the typed text up, with and without its index
    EXPECT_EQ(user->text("fieldMessageIndex"), "3");
}

TEST_P(ConfigurationTest, TellsWhyDataFieldsAreMissing)
{
    database.run("DELETE FROM data_extractor_fields_config; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                 "SELECT i + 1 FROM n WHERE i < 32767) "
                 "INSERT INTO data_extractor_fields_config SELECT 'Standard', 'f' || i FROM n");
    open();
    EXPECT_EQ(messages.take().size(), 1); // only that there are no fields
    database.run("INSERT INTO data_extractor_fields_config VALUES ('Standard', 'one more')");
    user->click("refresh");
    database.run("DROP TABLE data_extractor_fields_config");
    user->click("refresh");
    session.configurationDatabase.server = "";
    session.configurationDatabase.database += ".missing";
    user->click("refresh");
    const QString notLoaded = "Could not load Data Fields.\r\nCould not open %1.\r\nReturn code: %2";
    expectBoxes(
        {critical(
             "An unexpected error occurred while retrieving the\r\nData Fields configuration.  Some or all "
             "of the\r\nData Fields may be missing from the list.\r\nError code: 6\r\nOverflow"),
         critical(notLoaded.arg("recordset", "-2147217865")),
         critical(notLoaded.arg("the connection to the database", "-2147467259"))});
    EXPECT_EQ(user->items("lookup").size(), 32768); // what was loaded stays
    EXPECT_EQ(user->tree().size(), 3);
}

TEST_P(ConfigurationTest, ReloadsAfterAskingAboutChanges)
{
    addField("OBR", 0, 2, 1, "Set ID");
    open({"It's", "Standard"});
    changeMessageIndex("2 OBR", "9");
    messages.answerWith(ui::Answer::Cancel);
    messages.answerWith(ui::Answer::No);
    user->click("reload");
    EXPECT_EQ(user->text("lineMessageIndex"), "9");
    user->click("reload");
    expectBoxes({saveChanges, saveChanges});
    EXPECT_EQ(user->tree(), QStringList({"1 PID(1)", "2 OBR", "  2.1 Set ID", "3 OBX(-1)"}));
    database.run("ALTER TABLE LabLineConfig RENAME TO gone");
    user->click("reload");
    expectBoxes(
        {{"An unexpected error occurred while reading the\r\ncurrent Line and Line Fields configuration."
          "\r\nNo current information is available and, if you\r\n'Save' this configuration, any current "
          "information\r\nwill be lost."}});
    EXPECT_EQ(user->tree().size(), 4);
    EXPECT_FALSE(leavingAsks());
}

TEST_P(ConfigurationTest, AsksBeforeLeaving)
{
    open();
    changeMessageIndex("2 OBR", "9");
    messages.answerWith(ui::Answer::Cancel);
    messages.take();
    user->press(Qt::Key_X, Qt::AltModifier);
    expectBoxes({saveChanges});
    EXPECT_TRUE(editor->isLoaded());
    messages.answerWith(ui::Answer::Yes);
    editor->surface()->close();
    expectBoxes({saveChanges, Box{summary(linesSaved, 0, 4)}, {"No records found to process."}});
    EXPECT_FALSE(editor->isLoaded());
    EXPECT_EQ(database.run("SELECT MsgIndex FROM LabLineConfig WHERE Name = 'OBR'"), QStringList("9"));
}

ON_EVERY_ENGINE(ConfigurationTest);

} // namespace varnow::test

#include "editor/EditorTest.h"

#include <QApplication>
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

TEST_P(ConfigurationTest, FollowsEveryKeyAndTellsWhatIsMissingWhenTypingPauses)
{
    open({"Standard", "None"});
    messages.take();
    const Boxes noLines{{"There is no line configuration\r\ndata to display."}};
    QWidget *box = user->control("configuration");
    const auto pressAndLook = [this](int key) {
        user->press(key);
        QApplication::processEvents();
    };
    user->type("configuration", "It");
    EXPECT_TRUE(user->tree().isEmpty());
    expectBoxes({});
    QTest::qWait(800);
    expectBoxes(noLines);
    pressAndLook(Qt::Key_Return);
    EXPECT_EQ(user->text("configuration"), "It"); // nothing is completed
    expectBoxes({});
    QTest::keyClicks(box, "'");
    pressAndLook(Qt::Key_Return);
    expectBoxes(noLines);
    QTest::keyClicks(box, "'");
    user->press(Qt::Key_Backspace);
    QTest::keyClicks(box, "s");
    EXPECT_EQ(user->text("lineName"), "HDR");
    QTest::keyClicks(box, " ");
    EXPECT_EQ(user->tree(), QStringList("1 HDR"));
    EXPECT_EQ(user->items("lookup"), QStringList("file")) << "a blank behind the name says nothing";
    expectBoxes({});
    pressAndLook(Qt::Key_Tab);
    expectBoxes({});
    user->click("refresh");
    EXPECT_EQ(user->text("configuration"), "Standard");
    QTest::keyClick(box, Qt::Key_Down); // a chosen name is not typed on
    expectBoxes(noLines);
}

TEST_P(ConfigurationTest, TellsWhatIsMissingBeforeItIsAdded)
{
    open();
    messages.take();
    user->type("configuration", "New");
    int boxes = 0;
    const auto before = ui::setMessageBoxHandler([&](const Box &) {
        EXPECT_TRUE(user->tree().isEmpty());
        ++boxes;
        return ui::Answer::Ok;
    });
    user->press(Qt::Key_H, Qt::AltModifier);
    QTest::qWait(800);
    ui::setMessageBoxHandler(before);
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(user->tree(), QStringList("1 PID(1)"));
}

TEST_P(ConfigurationTest, TakesOverTheMessageIndexOfTheChosenLine)
{
    addLine("PID", 3, 4);
    addLine("PID", 0, 5);
    const auto visit = [this](const QString &lineName, const QString &index) {
        open();
        user->fill({{"lineName", lineName}, {"lineIndex", index}});
        user->showPage(1);
        return user->texts({"fieldLine", "fieldMessageIndex"});
    };
    EXPECT_EQ(visit("PI", "3"), "PID(1)|1"); // the first that begins so
    EXPECT_EQ(visit("PID", "3"), "PID(3)|4");
    EXPECT_EQ(visit("PID", ""), "PID|5");
    QTest::keyClick(user->control("fieldLine"), Qt::Key_Up);
    EXPECT_EQ(user->texts({"fieldLine", "fieldMessageIndex"}), "PID(3)|4");
    user->type("fieldLine", "obr(7)");
    user->click("clear"); // looks the typed text up, with and without its index
    EXPECT_EQ(user->text("fieldMessageIndex"), "2");
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
    user->click("reload");
    EXPECT_EQ(user->text("lineMessageIndex"), "9");
    QTest::keyClick(user->control("configuration"), Qt::Key_Up);
    user->showPage(1);
    user->fill({{"fieldName", "File"}, {"fieldLine", "HDR(0)"}, {"lookup", "file"}});
    messages.answerWith(ui::Answer::No);
    user->click("reload");
    expectBoxes({saveChanges, saveChanges});
    EXPECT_EQ(user->tree(), QStringList({"1 PID(1)", "2 OBR", "  2.1 Set ID", "3 OBX(-1)"}));
    const QStringList entries{"fieldName", "fieldLine", "fieldMessageIndex", "lookup"};
    EXPECT_EQ(user->texts(entries), "|PID(1)|1|");
    session.defaultConfiguration = "Missing";
    user->click("reload");
    EXPECT_EQ(user->texts(entries), "|||");
    EXPECT_EQ(user->items("fieldLine") + user->items("lookup"), QStringList());
    session.defaultConfiguration = "Standard";
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
    editor->surface()->window()->close();
    expectBoxes({saveChanges, Box{summary(linesSaved, 0, 4)}, {"No records found to process."}});
    EXPECT_FALSE(editor->isLoaded());
    EXPECT_EQ(database.run("SELECT MsgIndex FROM LabLineConfig WHERE Name = 'OBR'"), QStringList("9"));
}

ON_EVERY_ENGINE(ConfigurationTest);

} // namespace varnow::test

#include "editor/EditorTest.h"

#include <QTest>

namespace varnow::test {

namespace {

const QString confirm =
    "Are you sure that you want to PERMANENTLY\r\nremove this %1 from this configuration?\r\n"
    "Please select 'Yes' or 'No'";
const Box confirmLine = question(confirm.arg("line"), "Remove Line");
const Box confirmField = question(confirm.arg("field"), "Remove Field");
const Box hasFields =
    information("Can not remove line.\r\nThere are existing fields for this line.\r\nIf you want to "
                "remove this line, first\r\nremove any existing fields and then\r\nremove the line.");
const QString notRemoved = "An unexpected error occurred while removing this %1.\r\n"
                           "The data for this %1 may not be removed.";

} // namespace

struct RemovalTest : EditorTest
{
    RemovalTest()
    {
        addLine("MSH", 0, 1);
        addLine("PID", 0, 2);
        addLine("OBX", 1, 3);
        addField("MSH", 0, 1, 1, "Sep");
        addField("OBX", 1, 3, 1, "Value");
        addField("OBX", 1, 3, 2, "Value", 2);
        open();
    }

    void removeWith(ui::Answer answer)
    {
        messages.answerWith(answer);
        user->click("delete");
    }
};

TEST_P(RemovalTest, RemovesALineAndRenumbersTheRest)
{
    user->clickNode("2 PID");
    removeWith(ui::Answer::Yes);
    expectBoxes({confirmLine});
    EXPECT_EQ(user->tree(), QStringList({"1 MSH", "  1.1 Sep", "2 OBX(1)", "  2.1 Value", "  2.2 Value(2)"}));
    EXPECT_EQ(user->text("lineName"), "PID"); // the entries stay
    EXPECT_EQ(lineTexts(), QStringList({"MSH(0)=1", "OBX(1)=2"}));
    EXPECT_EQ(user->selectedNode(), "2 OBX(1)");
    EXPECT_EQ(user->items("fieldLine"), QStringList({"MSH", "OBX(1)"}));
    user->showPage(1);
    for (int i = 0; i < 2; ++i)
        QTest::keyClick(user->control("fieldLine"), Qt::Key_Down);
    EXPECT_EQ(user->texts({"fieldLine", "fieldMessageIndex"}), "OBX(1)|2");
    EXPECT_TRUE(leavingAsks());
}

TEST_P(RemovalTest, RefusesALineThatHasFields)
{
    const Box noSuchLine{notRemoved.arg("line")};
    const std::tuple<QString, QString, Box> refusals[] = {
        {"OBX", "1", hasFields},  {"OBX", "0", hasFields}, // index 0 owns the fields of every index
        {"OBX", "", hasFields},   {"OBX", "x", noSuchLine}, {"OBX", "2", noSuchLine},
        {"PID", "1", noSuchLine}, {"PID", "x", noSuchLine}, {"PID", "99999999999", noSuchLine}};
    for (const auto &[name, typedIndex, refusal] : refusals) {
        user->fill({{"lineName", name}, {"lineIndex", typedIndex}});
        removeWith(ui::Answer::Yes);
        expectBoxes({confirmLine, refusal});
    }
    EXPECT_EQ(lineTexts().size(), 3);
    user->clickNode("1 MSH");
    removeWith(ui::Answer::Yes);
    EXPECT_EQ(user->selectedNode(), "1 MSH"); // as it was, though the tree was filled anew
}

TEST_P(RemovalTest, RemovesTheFieldWithTheTypedIndex)
{
    user->clickNode("3.2 Value(2)");
    removeWith(ui::Answer::No);
    expectBoxes({confirmField});
    EXPECT_EQ(fieldTexts().size(), 3);
    removeWith(ui::Answer::Yes);
    EXPECT_EQ(user->tree(), QStringList({"1 MSH", "  1.1 Sep", "2 PID", "3 OBX(1)", "  3.1 Value"}));
    EXPECT_EQ(user->selectedNode(), "3.1 Value");
    EXPECT_EQ(user->text("fieldIndex"), "2"); // no click
    messages.take();
    for (const QString noSuchIndex : {"2", "2147483648", "x"}) {
        user->type("fieldIndex", noSuchIndex);
        removeWith(ui::Answer::Yes);
        expectBoxes({confirmField, {notRemoved.arg("field")}});
    }
    user->type("fieldIndex", ""); // reads as 0
    removeWith(ui::Answer::Yes);
    EXPECT_EQ(fieldTexts(), QStringList("1.1 Sep"));
    EXPECT_EQ(user->selectedNode(), "3 OBX(1)");
    EXPECT_TRUE(leavingAsks());
}

TEST_P(RemovalTest, DeletesTheRowsAtTheNextSave)
{
    user->clickNode("1.1 Sep");
    removeWith(ui::Answer::Yes);
    user->clickNode("1 MSH");
    removeWith(ui::Answer::Yes);
    // Added and removed again between two saves: no row may stay behind.
    user->fill({{"lineName", "ZZZ"}, {"lineMessageIndex", "9"}});
    user->click("change");
    messages.take();
    user->press(Qt::Key_S, Qt::AltModifier);
    expectBoxes({Box{summary(linesDeleted, 0, 1)}, Box{summary(linesSaved, 0, 3)},
                 Box{summary(fieldsDeleted, 0, 1)}, Box{summary(fieldsSaved, 0, 2)}});
    removeWith(ui::Answer::Yes);
    EXPECT_TRUE(leavingAsks());
    user->click("save");
    EXPECT_EQ(database.run("SELECT Name, NameIndex, MsgIndex FROM LabLineConfig ORDER BY MsgIndex"),
              QStringList({"PID|0|1", "OBX|1|2"}));
    EXPECT_EQ(database.run("SELECT Name, MsgIndex, Position FROM LabLineFieldConfig ORDER BY Position"),
              QStringList({"Value|2|1", "Value|2|2"}));
    EXPECT_FALSE(leavingAsks());
}

TEST_P(RemovalTest, ClearsAPageAndProposesWhatComesNext)
{
    user->click("clear");
    EXPECT_EQ(user->texts({"lineName", "lineIndex", "lineMessageIndex"}), "||4");
    EXPECT_EQ(user->focused(), "lineName");

    user->clickNode("3.1 Value");
    user->click("fixedLength");
    user->click("clear");
    EXPECT_EQ(user->texts({"fieldLine", "fieldMessageIndex", "position", "fieldName", "constant"}),
              "OBX(1)|3|3||");
    EXPECT_EQ(user->focused(), "fieldName");
    EXPECT_FALSE(user->control("length")->isEnabled());

    const std::pair<QString, QString> proposals[] = {{"PID", "1"}, {"OBX(1", "1"},    {"OBX(-1)", ""},
                                                     {"(1)", ""},  {"OBX(9e99)", ""}, {"OBX", "1"}};
    for (const auto &[line, position] : proposals) {
        user->type("fieldLine", line);
        user->click("clear");
        EXPECT_EQ(user->texts({"fieldLine", "position"}), line + '|' + position);
    }
}

ON_EVERY_ENGINE(RemovalTest);

} // namespace varnow::test

#include "editor/EditorTest.h"

namespace varnow::test {

namespace {

const QString confirm =
    "Are you sure that you want to PERMANENTLY\r\nremove this %1 from this configuration?\r\n"
    "Please select 'Yes' or 'No'";
const Box confirmLine{confirm.arg("line"), 36, "Remove Line"};
const Box confirmField{confirm.arg("field"), 36, "Remove Field"};
const Box hasFields{"Can not remove line.\r\nThere are existing fields for this line.\r\nIf you want to "
                    "remove this line, first\r\nremove any existing fields and then\r\nremove the line.",
                    64};
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

    void removeWith(int answer)
    {
        messages.answerWith(answer);
        user->click("cmdDelete");
    }
};

TEST_P(RemovalTest, RemovesALineAndRenumbersTheRest)
{
    user->clickNode("2 PID");
    removeWith(ui::answer::Yes);
    expectBoxes({confirmLine});
    EXPECT_EQ(user->tree(), QStringList({"1 MSH", "  1.1 Sep", "2 OBX(1)", "  2.1 Value", "  2.2 Value(2)"}));
    EXPECT_EQ(user->text("Text1(0)"), "PID"); // the entries stay
    EXPECT_EQ(lines(), QStringList({"MSH(0)=1", "OBX(1)=2"}));
    EXPECT_TRUE(leavingAsks());
}

TEST_P(RemovalTest, RefusesALineThatHasFields)
{
    const Box noSuchLine{notRemoved.arg("line")};
    const std::tuple<QString, QString, Box> refusals[] = {
        {"OBX", "1", hasFields},  {"OBX", "0", hasFields}, // index 0 owns the fields of every index
        {"OBX", "", hasFields},   {"OBX", "x", hasFields},
        {"OBX", "2", noSuchLine}, {"OBX", "99999999999", noSuchLine},
        {"MSH", "1", noSuchLine}};
    for (const auto &[name, typedIndex, refusal] : refusals) {
        user->fill({{"Text1(0)", name}, {"Text1(1)", typedIndex}});
        removeWith(ui::answer::Yes);
        expectBoxes({confirmLine, refusal});
    }
    EXPECT_EQ(lines().size(), 3);
}

TEST_P(RemovalTest, RemovesTheFieldWithTheTypedIndex)
{
    user->clickNode("3.2 Value(2)");
    removeWith(ui::answer::No);
    expectBoxes({confirmField});
    EXPECT_EQ(fields().size(), 3);
    removeWith(ui::answer::Yes);
    EXPECT_EQ(user->tree(), QStringList({"1 MSH", "  1.1 Sep", "2 PID", "3 OBX(1)", "  3.1 Value"}));
    messages.take();
    for (const QString noSuchIndex : {"2", "2147483648"}) {
        user->type("Text2(1)", noSuchIndex);
        removeWith(ui::answer::Yes);
        expectBoxes({confirmField, {notRemoved.arg("field")}});
    }
    user->type("Text2(1)", ""); // reads as 0
    removeWith(ui::answer::Yes);
    EXPECT_EQ(fields(), QStringList("1.1 Sep"));
    EXPECT_TRUE(leavingAsks());
}

TEST_P(RemovalTest, DeletesTheRowsAtTheNextSave)
{
    user->clickNode("1.1 Sep");
    removeWith(ui::answer::Yes);
    user->clickNode("1 MSH");
    removeWith(ui::answer::Yes);
    // Added and removed again between two saves: no row may stay behind.
    user->fill({{"Text1(0)", "ZZZ"}, {"Text1(2)", "9"}});
    user->click("cmdAdd");
    messages.take();
    user->press(Qt::Key_S, Qt::AltModifier);
    expectBoxes({summary(linesDeleted, 0, 1), summary(linesSaved, 0, 3), summary(fieldsDeleted, 0, 1),
                 summary(fieldsSaved, 0, 2)});
    removeWith(ui::answer::Yes);
    EXPECT_TRUE(leavingAsks());
    user->click("cmdSave");
    EXPECT_EQ(database.run("SELECT Name, NameIndex, MsgIndex FROM LabLineConfig ORDER BY MsgIndex"),
              QStringList({"PID|0|1", "OBX|1|2"}));
    EXPECT_EQ(database.run("SELECT Name, MsgIndex, Position FROM LabLineFieldConfig ORDER BY Position"),
              QStringList({"Value|2|1", "Value|2|2"}));
    EXPECT_FALSE(leavingAsks());
}

TEST_P(RemovalTest, ClearsAPageAndProposesWhatComesNext)
{
    user->click("cmdClear");
    EXPECT_EQ(user->texts({"Text1(0)", "Text1(1)", "Text1(2)"}), "||4");
    EXPECT_EQ(user->focused(), "Text1(0)");

    user->clickNode("3.1 Value");
    user->click("ckFixedLength");
    user->click("cmdClear");
    EXPECT_EQ(user->texts({"Combo2(0)", "Text2(2)", "Text2(5)", "Text2(0)", "Text2(4)"}), "OBX(1)|3|3||");
    EXPECT_EQ(user->focused(), "Text2(0)");
    EXPECT_FALSE(user->control("Text2(6)")->isEnabled());

    const std::pair<QString, QString> proposals[] = {{"PID", "1"}, {"OBX(1", "1"},    {"OBX(-1)", ""},
                                                     {"(1)", ""},  {"OBX(9e99)", ""}, {"OBX", "1"}};
    for (const auto &[line, position] : proposals) {
        user->type("Combo2(0)", line);
        user->click("cmdClear");
        EXPECT_EQ(user->texts({"Combo2(0)", "Text2(5)"}), line + '|' + position);
    }
}

ON_EVERY_ENGINE(RemovalTest);

} // namespace varnow::test

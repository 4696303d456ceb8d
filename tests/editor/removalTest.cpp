#include "editor/EditorTest.h"

#include <QWidget>

namespace varnow::test {

namespace {

const Box confirmLine{
    "Are you sure that you want to PERMANENTLY\r\nremove this line from this configuration?\r\n"
    "Please select 'Yes' or 'No'",
    ui::style::YesNo | ui::style::Question, "Remove Line"};
const Box confirmField{
    "Are you sure that you want to PERMANENTLY\r\nremove this field from this configuration?\r\n"
    "Please select 'Yes' or 'No'",
    ui::style::YesNo | ui::style::Question, "Remove Field"};
const Box hasFields{"Can not remove line.\r\nThere are existing fields for this line.\r\n"
                    "If you want to remove this line, first\r\nremove any existing fields and then\r\n"
                    "remove the line.",
                    ui::style::Information};
const Box lineNotRemoved{"An unexpected error occurred while removing this line.\r\n"
                         "The data for this line may not be removed."};
const Box fieldNotRemoved{"An unexpected error occurred while removing this field.\r\n"
                          "The data for this field may not be removed."};

} // namespace

class RemovalTest : public EditorTest
{
protected:
    RemovalTest()
    {
        addLine("MSH", 0, 1);
        addLine("PID", 0, 2);
        addLine("OBX", 1, 3);
        addField("MSH", 0, 1, 1, "Separator");
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
    EXPECT_EQ(user->tree(),
              QStringList({"1 MSH", "  1.1 Separator", "2 OBX(1)", "  2.1 Value", "  2.2 Value(2)"}));
    EXPECT_EQ(user->text("Text1(0)"), "PID"); // the entries stay
    EXPECT_EQ(lines(), QStringList({"MSH(0)=1", "OBX(1)=2"}));
    EXPECT_TRUE(leavingAsks());
}

TEST_P(RemovalTest, RefusesALineThatHasFields)
{
    for (const QString typedIndex : {"1", "0", "", "x"}) { // index 0 owns the fields of every index
        user->fill({{"Text1(0)", "OBX"}, {"Text1(1)", typedIndex}});
        removeWith(ui::answer::Yes);
        expectBoxes({confirmLine, hasFields});
    }
    for (const QString noSuchIndex : {"2", "99999999999"}) {
        user->type("Text1(1)", noSuchIndex);
        removeWith(ui::answer::Yes);
        expectBoxes({confirmLine, lineNotRemoved});
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
    EXPECT_EQ(user->tree(), QStringList({"1 MSH", "  1.1 Separator", "2 PID", "3 OBX(1)", "  3.1 Value"}));
    messages.take();
    for (const QString noSuchIndex : {"2", "2147483648"}) {
        user->type("Text2(1)", noSuchIndex);
        removeWith(ui::answer::Yes);
        expectBoxes({confirmField, fieldNotRemoved});
    }
    user->type("Text2(1)", ""); // reads as 0
    removeWith(ui::answer::Yes);
    EXPECT_EQ(fields(), QStringList("1.1 Separator"));
    EXPECT_TRUE(leavingAsks());
}

TEST_P(RemovalTest, DeletesTheRowsAtTheNextSave)
{
    user->clickNode("1.1 Separator");
    removeWith(ui::answer::Yes);
    user->clickNode("1 MSH");
    removeWith(ui::answer::Yes);
    // Added and removed again between two saves: no row may stay behind.
    user->fill({{"Text1(0)", "ZZZ"}, {"Text1(2)", "9"}});
    user->click("cmdAdd");
    messages.take();
    user->press(Qt::Key_S, Qt::AltModifier);
    expectBoxes(
        {{"DeleteRemovedLabLineConfigFromDatabase Complete\r\n  0 errors occurred\r\n  1 records "
          "processed correctly."},
         {"SaveAllLabLineCfg complete\r\n  0 errors occurred\r\n  3 records processed correctly."},
         {"DeleteRemovedLabLineFieldsFromDatabase Complete\r\n  0 errors occurred\r\n  1 records "
          "processed correctly."},
         {"SaveAllLabLineFldsCfg Complete.\r\n  0 errors occurred\r\n  2 records processed correctly."}});
    removeWith(ui::answer::Yes);
    user->click("cmdSave");
    EXPECT_EQ(database.rows("SELECT Name, NameIndex, MsgIndex FROM LabLineConfig ORDER BY MsgIndex"),
              QStringList({"PID|0|1", "OBX|1|2"}));
    EXPECT_EQ(database.rows("SELECT Name, MsgIndex, Position FROM LabLineFieldConfig ORDER BY Position"),
              QStringList({"Value|2|1", "Value|2|2"}));
    EXPECT_FALSE(leavingAsks());
}

TEST_P(RemovalTest, ClearsAPageAndProposesWhatComesNext)
{
    user->click("cmdClear");
    EXPECT_EQ(user->text("Text1(0)") + user->text("Text1(1)"), "");
    EXPECT_EQ(user->text("Text1(2)"), "4");
    EXPECT_EQ(user->focused(), "Text1(0)");

    user->clickNode("3.1 Value");
    user->click("ckFixedLength");
    user->click("cmdClear");
    EXPECT_EQ(user->text("Combo2(0)"), "OBX(1)");
    EXPECT_EQ(user->text("Text2(2)"), "3");
    EXPECT_EQ(user->text("Text2(5)"), "3");
    EXPECT_EQ(user->text("Text2(0)") + user->text("Text2(4)"), "");
    EXPECT_EQ(user->focused(), "Text2(0)");
    EXPECT_FALSE(user->control("Text2(6)")->isEnabled());

    const std::vector<std::pair<QString, QString>> proposals{{"PID", "1"}, {"OBX(1", "1"},    {"OBX(-1)", ""},
                                                             {"(1)", ""},  {"OBX(9e99)", ""}, {"OBX", "1"}};
    for (const auto &[line, position] : proposals) {
        user->type("Combo2(0)", line);
        user->click("cmdClear");
        EXPECT_EQ(user->text("Combo2(0)"), line);
        EXPECT_EQ(user->text("Text2(5)"), position) << qPrintable(line);
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, RemovalTest, everyEngine(), nameOfEngine);

} // namespace varnow::test

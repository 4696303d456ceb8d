#include "editor/EditorTest.h"

namespace varnow::test {

namespace {

/// The box that collects failed checks.
Box dataChecking(const QString &what, const QStringList &complaints)
{
    return {"There is a problem with the data for the " + what + " entry.\r\n\t" + complaints.join("\r\n\t"),
            ui::style::Critical, "Data Checking"};
}

const Box notDisplayed{
    "An error occurred that prevented displaying the\r\nconfiguration correctly.  "
    "This is usually caused\r\nby an error in the configuration data.\r\nSave your "
    "data, restart the line configuration\r\neditor and enter data starting at that point.",
    ui::style::Information};

} // namespace

struct EntryTest : EditorTest
{
    EntryTest()
    {
        addLine("PID", 0, 3);
        addField("PID", 0, 3, 1, "Set ID");
        open();
    }

    void changeLine(const QString &name, const QString &index, const QString &msgIndex)
    {
        user->fill({{"Text1(0)", name}, {"Text1(1)", index}, {"Text1(2)", msgIndex}});
        user->click("cmdAdd");
    }

    struct Field
    {
        QString name = "Sex", index = "0", line = "PID", msgIndex = "3", lookup = "sex", position = "8",
                length = "10", characterPosition = "21";
    };

    void changeField(const Field &field)
    {
        user->showPage(1);
        if (!user->control("Text2(6)")->isEnabled())
            user->click("ckFixedLength");
        user->fill({{"Text2(0)", field.name}, {"Text2(1)", field.index}, {"Combo2(0)", field.line}});
        user->fill({{"Text2(2)", field.msgIndex}, {"Combo2(1)", field.lookup}, {"Text2(5)", field.position}});
        user->fill({{"Text2(6)", field.length}, {"Text2(7)", field.characterPosition}});
        user->click("cmdAdd");
    }
};

TEST_P(EntryTest, CollectsWhatIsWrongWithALine)
{
    const QStringList numbersWrong{"The Line Index must be numeric.", "The Message Index nust be a number."};
    const std::pair<const char *, const char *> wrong[] = {
        {"x", "3x"}, {"2147483648", "-2147483649"}, {"1e400", "0x10"}, {"１２", "1,5"}};
    for (const auto &[index, msgIndex] : wrong) {
        changeLine("PID", index, msgIndex);
        expectBoxes({dataChecking("line", numbersWrong)});
    }
    changeLine("", "", "");
    expectBoxes({dataChecking("line", {"The Line name is empty.", "The Message Index is empty."})});
    EXPECT_EQ(lines(), QStringList("PID(0)=3"));
    EXPECT_EQ(user->text("Text1(1)"), "0");
}

TEST_P(EntryTest, AddsAndChangesLinesInPlace)
{
    changeLine("PID", "0", "5");
    changeLine("OBX", "", "4"); // lower than the first: last
    changeLine("A\tB", "2", "7");
    changeLine("OBR", "0", "6");
    EXPECT_EQ(user->focused(), "Text1(0)");
    EXPECT_EQ(lines(), QStringList({"PID(0)=5", "OBX(0)=4", "A\tB(2)=7", "OBR(0)=6"}));
    EXPECT_EQ(user->items("Combo2(0)"), QStringList({"PID", "OBX", "A\tB(2)", "OBR"}));
    // The field stays where its line was, so no node shows it.
    EXPECT_EQ(user->tree(), QStringList({"5 PID", "4 OBX", "6 OBR", "7 A\tB(2)"}));
    user->type("cboConfig", "");
    changeLine("Nameless", "0", "1");
    EXPECT_EQ(lines().last() + LabLineTable[4].Configuration, "Nameless(0)=1");
    EXPECT_TRUE(leavingAsks());
}

TEST_P(EntryTest, UnderstandsEveryWayToWriteANumber)
{
    // Only what is written as the tree writes it leads to the node afterwards.
    const std::tuple<QString, int, bool> numbers[] = {
        {"+7", 7, false},   {"-0", 0, false},  {"13.", 13, false}, {".5", 0, false}, {"1e2", 100, false},
        {"014", 14, false}, {"2.5", 2, false}, {"4.50", 4, false}, {" 8 ", 8, true}, {"-5", -5, true}};
    for (const auto &[typed, stored, isShown] : numbers) {
        changeLine("NTE", "9", typed);
        EXPECT_EQ(lines().last(), QStringLiteral("NTE(9)=%1").arg(stored)) << qPrintable(typed);
        expectBoxes(isShown ? Boxes() : Boxes{notDisplayed});
    }
}

TEST_P(EntryTest, CollectsWhatIsWrongWithAField)
{
    const QString nothing =
        "Both the Lookup String and the Constant value are empty,\r\n\t\tyou must supply one or the other.";
    const QString fixed = "A Fixed Length was indicated, however, the ";
    const std::pair<Field, QStringList> cases[] = {
        {{.name = "", .index = "x"}, {"The Field name is empty.", "The Field Name Index must be numeric."}},
        {{.index = "99999999999"}, {"The Field Name Index must be numeric."}},
        {{.line = ""}, {"The Line Name and Index field is empty."}},
        {{.line = "PID(x"}, {"The Line Name or Index field is invalid."}},
        {{.line = "(1)"}, {"The Line Name is empty."}},
        {{.line = "PID()"}, {"The Line Name Index is invalid."}},
        {{.line = " (a)"}, {"The Line Name is empty.", "The Line Name Index is invalid."}},
        {{.lookup = ""}, {nothing}},
        {{.position = ""}, {"The Position Field is empty."}},
        {{.position = "1,5"}, {"The Position Field nust be a number."}},
        {{.msgIndex = "3000000000"}, {"The Message Index nust be a number."}},
        {{.length = "", .characterPosition = ""}, {fixed + "length and position were not specified."}},
        {{.length = "", .characterPosition = "1"}, {fixed + "length was not specified."}},
        {{.length = "10", .characterPosition = ""}, {fixed + "position was not specified."}},
        {{.length = "x", .characterPosition = "y"}, {fixed + "length and position are not numeric."}},
        {{.length = "1e400", .characterPosition = "1"}, {fixed + "length is not a number."}},
        {{.length = "1", .characterPosition = "y"}, {fixed + "position is not a number."}},
        {{.name = "", .line = "", .lookup = "", .position = ""},
         {"The Field name is empty.", "The Line Name and Index field is empty.", nothing,
          "The Position Field is empty."}},
        {{.length = "99999999999"}, {fixed + "length is not a number."}},
    };
    for (const auto &[field, complaints] : cases) {
        changeField(field);
        expectBoxes({dataChecking("line field", complaints)});
    }
    // What is too large is refused also in the disabled box.
    user->click("ckFixedLength");
    user->click("cmdAdd");
    expectBoxes({dataChecking("line field", {fixed + "length is not a number."})});
    EXPECT_EQ(fields(), QStringList("3.1 Set ID"));
}

TEST_P(EntryTest, StoresAFieldWithItsSettings)
{
    changeField({.index = "", .line = "PID(2)"});
    user->click("optAlign(1)");
    user->click("optPad(1)");
    user->click("cmdAdd");
    EXPECT_EQ(user->focused(), "Text2(0)");
    expectBoxes({});
    const auto expectLayout = [](int length, int fixedLength, int padDirection, auto padChar, int position) {
        const LabLineFldCfgRecord &f = LabLineFldTable[1];
        EXPECT_EQ(std::tie(f.Name, f.NameIndex, f.Line, f.LineIndex, f.id, f.DataType, f.LookupString),
                  std::tuple("Sex", 0, "PID", 2, -1, "String", "sex"));
        EXPECT_EQ(std::tie(f.Length, f.FixedLength, f.PadDirection, f.PadChar, f.FieldPosition),
                  std::tuple(length, fixedLength, padDirection, padChar, position));
    };
    expectLayout(10, 1, -1, "0", 21);
    user->click("optAlign(0)");
    user->click("optPad(0)");
    user->click("cmdAdd");
    expectLayout(10, 1, 1, " ", 21);
    user->click("ckFixedLength");
    user->click("cmdAdd");
    expectLayout(10, 0, 0, "", 0);
    EXPECT_EQ(user->tree(), QStringList({"3 PID", "  3.1 Set ID", "  3.8 Sex"}));
}

TEST_P(EntryTest, SaysWhenAStoredFieldHasNoNode)
{
    changeField({.msgIndex = ""});
    expectBoxes({notDisplayed});
    changeField({.name = "Race", .msgIndex = "7"});
    expectBoxes({notDisplayed});
    EXPECT_EQ(fields(), QStringList({"0.8 Sex", "3.1 Set ID", "7.8 Race"}));
    EXPECT_TRUE(leavingAsks());
}

ON_EVERY_ENGINE(EntryTest);

} // namespace varnow::test

#include "editor/EditorTest.h"

#include <QTest>

namespace varnow::test {

namespace {

/// The box that collects failed checks.
Box dataChecking(const QString &what, const QStringList &problems)
{
    return critical("There is a problem with the data for the " + what + " entry.\r\n\t" +
                        problems.join("\r\n\t"),
                    "Data Checking");
}

const Box notDisplayed =
    information("An error occurred that prevented displaying the\r\nconfiguration correctly.  "
                "This is usually caused\r\nby an error in the configuration data.\r\nSave your "
                "data, restart the line configuration\r\neditor and enter data starting at that point.");

} // namespace

struct EntryTest : EditorTest
{
    EntryTest()
    {
        addLine("PID", 0, 3);
        addField("PID", 0, 3, 1, "Set ID");
        open();
    }

    void changeLine(const QString &name, const QString &index, const QString &messageIndex)
    {
        user->fill({{"lineName", name}, {"lineIndex", index}, {"lineMessageIndex", messageIndex}});
        user->click("change");
    }

    struct Entries
    {
        QString name = "Sex", index = "0", line = "PID", messageIndex = "3", lookup = "sex", position = "8",
                length = "10", characterPosition = "21";
    };

    void changeField(const Entries &field)
    {
        user->showPage(1);
        if (!user->control("length")->isEnabled())
            user->click("fixedLength");
        user->fill({{"fieldName", field.name}, {"fieldIndex", field.index}, {"fieldLine", field.line}});
        user->fill({{"fieldMessageIndex", field.messageIndex}, {"lookup", field.lookup}});
        user->fill({{"position", field.position}, {"length", field.length}});
        user->type("characterPosition", field.characterPosition);
        user->click("change");
    }
};

TEST_P(EntryTest, CollectsWhatIsWrongWithALine)
{
    const QStringList numbersWrong{"The Line Index must be numeric.", "The Message Index nust be a number."};
    const std::pair<const char *, const char *> wrong[] = {
        {"x", "3x"}, {"2147483648", "-2147483649"}, {"1e400", "0x10"}, {"１２", "1,5"}};
    for (const auto &[index, messageIndex] : wrong) {
        changeLine("PID", index, messageIndex);
        expectBoxes({dataChecking("line", numbersWrong)});
    }
    changeLine("", "", "");
    expectBoxes({dataChecking("line", {"The Line name is empty.", "The Message Index is empty."})});
    EXPECT_EQ(lineTexts(), QStringList("PID(0)=3"));
    EXPECT_EQ(user->text("lineIndex"), "0");
}

TEST_P(EntryTest, AddsAndChangesLinesInPlace)
{
    changeLine("PID", "0", "5");
    changeLine("OBX", "", "4"); // lower than the first: last
    changeLine("A\tB", "2", "7");
    changeLine("OBR", "0", "6");
    EXPECT_EQ(user->focused(), "lineName");
    EXPECT_EQ(lineTexts(), QStringList({"PID(0)=5", "OBX(0)=4", "A\tB(2)=7", "OBR(0)=6"}));
    EXPECT_EQ(user->items("fieldLine"), QStringList({"PID", "OBX", "A\tB(2)", "OBR"}));
    // The field stays where its line was, so no node shows it.
    EXPECT_EQ(user->tree(), QStringList({"5 PID", "4 OBX", "6 OBR", "7 A\tB(2)"}));
    expectBoxes({});
    changeLine("A\tB", "", "08"); // another line; its node is found by the number that is stored
    EXPECT_EQ(lineTexts().last(), "A\tB(0)=8");
    expectBoxes({});
    EXPECT_EQ(user->selectedNode(), "8 A\tB");
    EXPECT_TRUE(leavingAsks());
}

TEST_P(EntryTest, StoresNothingWithoutAConfiguration)
{
    for (const QString blank : {"", "  "}) {
        user->type("configuration", blank);
        changeLine("Nameless", "0", "1");
        changeField({});
        const Box refusal =
            critical("There is no configuration selected.\r\nPlease select or enter a configuration first.",
                     "Data Checking");
        expectBoxes({refusal, refusal});
        user->showPage(0);
    }
    EXPECT_EQ(lineTexts() + fieldTexts(), QStringList({"PID(0)=3", "3.1 Set ID"}));
}

TEST_P(EntryTest, CollectsWhatIsWrongWithAField)
{
    const QString nothing =
        "Both the Lookup String and the Constant value are empty,\r\n\t\tyou must supply one or the other.";
    const QString fixed = "A Fixed Length was indicated, however, the ";
    const std::pair<Entries, QStringList> cases[] = {
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
        {{.messageIndex = "3000000000"}, {"The Message Index nust be a number."}},
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
    for (const auto &[field, problems] : cases) {
        changeField(field);
        expectBoxes({dataChecking("line field", problems)});
    }
    EXPECT_EQ(fieldTexts(), QStringList("3.1 Set ID"));
    user->click("fixedLength");
    user->click("change"); // what is too large in the disabled box is no length
    expectBoxes({});
    EXPECT_EQ(columnOf(fields(), &Field::length), QList<int>({0, 0}));
}

TEST_P(EntryTest, StoresAFieldWithItsSettings)
{
    changeField({.index = "", .line = "PID(2)"});
    user->click("alignLeft");
    user->click("padZeros");
    user->click("change");
    EXPECT_EQ(user->focused(), "fieldName");
    expectBoxes({});
    const auto expectLayout = [this](int length, int fixedLength, int padDirection, auto pad, int position) {
        const Field &f = fields()[1];
        EXPECT_EQ(std::tie(f.name, f.nameIndex, f.line, f.lineIndex, f.id, f.dataType, f.lookup),
                  std::tuple("Sex", 0, "PID", 2, -1, "String", "sex"));
        EXPECT_EQ(std::tie(f.length, f.fixedLength, f.padDirection, f.padCharacter, f.characterPosition),
                  std::tuple(length, fixedLength, padDirection, pad, position));
    };
    expectLayout(10, 1, -1, "0", 21);
    user->click("alignRight");
    user->click("padSpaces");
    user->click("change");
    expectLayout(10, 1, 1, " ", 21);
    user->click("fixedLength");
    user->click("change");
    expectLayout(10, 0, 0, "", 0);
    EXPECT_EQ(user->tree(), QStringList({"3 PID", "  3.1 Set ID", "  3.8 Sex"}));
}

TEST_P(EntryTest, SaysWhenAStoredFieldHasNoNode)
{
    changeField({.messageIndex = ""});
    expectBoxes({notDisplayed});
    changeField({.name = "Race", .messageIndex = "7"});
    expectBoxes({notDisplayed});
    EXPECT_EQ(fieldTexts(), QStringList({"0.8 Sex", "3.1 Set ID", "7.8 Race"}));
    EXPECT_TRUE(leavingAsks());
}

// Another path than that of Change, an entry that is not left before, a proposal in another field's way.
TEST_P(EntryTest, StoresFieldsOneAfterTheOtherByKey)
{
    const auto expectNext = [this](const QString &texts) {
        EXPECT_EQ(user->texts({"fieldLine", "fieldMessageIndex", "position", "characterPosition"}), texts);
        EXPECT_EQ(user->texts({"fieldName", "fieldIndex", "lookup", "format", "constant", "length"}),
                  "|||||");
        EXPECT_EQ(user->focused(), "fieldName");
    };
    changeField({.name = "In the way", .position = "4", .length = "5", .characterPosition = "12"});
    user->click("alignLeft");
    user->click("padZeros");
    user->fill({{"fieldName", "First"}, {"length", "11"}, {"characterPosition", "1"}, {"position", " 7 "}});
    user->press(Qt::Key_Return, Qt::ControlModifier);
    expectNext("PID(0)|3|8|17");
    user->fill({{"fieldName", "Second"}, {"constant", "x"}, {"length", "3"}});
    user->press(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    expectNext("PID(0)|3|9|20");
    for (const Field &field : {fields()[2], fields()[3]})
        EXPECT_EQ(std::tuple(field.padDirection, field.padCharacter), std::tuple(-1, QString("0")));
    user->click("fixedLength");
    user->fill({{"fieldName", "Third"}, {"constant", "x"}});
    user->press(Qt::Key_Return, Qt::ControlModifier);
    expectNext("PID(0)|3|10|");
    EXPECT_FALSE(user->control("length")->isEnabled());
    EXPECT_EQ(fieldTexts(),
              QStringList({"3.1 Set ID", "3.4 In the way", "3.7 First", "3.8 Second", "3.9 Third"}));
    expectBoxes({});
    EXPECT_EQ(user->text("noticeSentence").contains("Third"), true);
    EXPECT_EQ(user->selectedNode(), "3.9 Third");

    user->fill({{"fieldName", "Refused"}, {"constant", "x"}, {"position", "x"}});
    user->press(Qt::Key_Return, Qt::ControlModifier);
    expectBoxes({dataChecking("line field", {"The Position Field nust be a number."})});
    EXPECT_EQ(user->texts({"fieldName", "constant", "position"}), "Refused|x|x");
    EXPECT_EQ(user->focused(), "position");

    user->control("tree")->setFocus();
    user->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(fieldTexts().last(), "3.8 Second"); // one step
}

TEST_P(EntryTest, StoresLinesOneAfterTheOtherByKey)
{
    user->fill({{"lineName", "OBR"}, {"lineIndex", ""}, {"lineMessageIndex", "9 "}});
    user->press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(user->texts({"lineName", "lineIndex", "lineMessageIndex"}), "||10");
    EXPECT_EQ(user->focused(), "lineName");
    user->type("lineName", "OBX");
    user->press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(lineTexts(), QStringList({"PID(0)=3", "OBR(0)=9", "OBX(0)=10"}));
    constexpr bool isHeld = true; // that is no second time
    QTest::simulateEvent(user->control("tree")->window()->windowHandle(), true, Qt::Key_Return,
                         Qt::ControlModifier, "", isHeld);
    expectBoxes({});
    user->press(Qt::Key_Return, Qt::ControlModifier);
    expectBoxes({dataChecking("line", {"The Line name is empty."})});
    EXPECT_EQ(user->texts({"lineName", "lineIndex", "lineMessageIndex"}), "|0|11");
}

ON_EVERY_ENGINE(EntryTest);

} // namespace varnow::test
